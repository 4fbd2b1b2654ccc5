// SPDX-License-Identifier: MIT
#include <vemo/clickablelabel.h>

#include "controls/spokentooltip_p.h"

#include <QPointer>

ClickableLabel::ClickableLabel(const QString &text, QWidget *parent) : QLabel(text, parent)
{
    speakToolTip(this);
}

ClickableLabel::ClickableLabel(QWidget *parent) : ClickableLabel(QString(), parent) { }

void ClickableLabel::mousePressEvent(QMouseEvent *event)
{
    const QPointer<ClickableLabel> self(this);
    Q_EMIT clicked();
    if (self)
        QLabel::mousePressEvent(event);
}
