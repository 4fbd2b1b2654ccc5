// SPDX-License-Identifier: MIT
#include "views/pathedit_p.h"

#include <vemo/stylemanager.h>

#include <QKeyEvent>

PathEdit::PathEdit(QWidget *bar) : QLineEdit(bar)
{
    hide();
    setStyleSheet(getStyleSheet("component.lineedit"));
    setAccessibleName(bar->accessibleName());
}

void PathEdit::start(const QString &path)
{
    if (isHidden())
        m_before = window()->focusWidget();
    setText(path);
    setGeometry(parentWidget()->rect());
    show();
    raise();
    setFocus(Qt::ShortcutFocusReason);
    selectAll();
}

bool PathEdit::event(QEvent *event)
{
    // Otherwise a shortcut of the window, such as that of its Cancel button, would take the key.
    if (event->type() == QEvent::ShortcutOverride
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void PathEdit::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Escape:
        giveBack();
        return;
    case Qt::Key_Return:
    case Qt::Key_Enter: {
        const QString path = text().split(QLatin1Char('/'), Qt::SkipEmptyParts).join('/');
        giveBack();
        Q_EMIT pathEntered(path);
        return;
    }
    default:
        QLineEdit::keyPressEvent(event);
    }
}

void PathEdit::focusOutEvent(QFocusEvent *event)
{
    QLineEdit::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        hide();
}

void PathEdit::giveBack()
{
    // First, since Qt passes the focus of a hidden widget on to the next one.
    if (m_before)
        m_before->setFocus();
    hide();
}
