// SPDX-License-Identifier: MIT
#include <vemo/clickablelabel.h>

#include <QPointer>

ClickableLabel::ClickableLabel(const QString &text, QWidget *parent) : QLabel(text, parent) { }

ClickableLabel::ClickableLabel(QWidget *parent) : QLabel(parent) { }

void ClickableLabel::mousePressEvent(QMouseEvent *event)
{
    const QPointer<ClickableLabel> self(this);
    Q_EMIT clicked();
    if (self)
        QLabel::mousePressEvent(event);
}
