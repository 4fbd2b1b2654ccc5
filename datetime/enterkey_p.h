// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QKeyEvent>

/// Whether a key press, or the shortcut that it might be, is that of Return or Enter.
inline bool isEnter(const QEvent *event)
{
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
        return false;
    const int key = static_cast<const QKeyEvent *>(event)->key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

/// Keeps Return for the widget that it is offered to as a shortcut: the list of a combo box around
/// it would take it for itself, and close.
inline bool keepEnter(QEvent *event)
{
    const bool isKept = event->type() == QEvent::ShortcutOverride && isEnter(event);
    if (isKept)
        event->accept();
    return isKept;
}
