// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QKeyEvent>

/// Whether event is a key press or a shortcut override for Return or Enter.
inline bool isEnter(const QEvent *event)
{
    if (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride)
        return false;
    const int key = static_cast<const QKeyEvent *>(event)->key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

/// Accepts the shortcut override for Return, so that the widget receives the key. Otherwise the
/// list of a surrounding combo box would handle it and close.
inline bool keepEnter(QEvent *event)
{
    const bool isKept = event->type() == QEvent::ShortcutOverride && isEnter(event);
    if (isKept)
        event->accept();
    return isKept;
}
