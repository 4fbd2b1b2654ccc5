// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QVector>

class QWidget;

/// What the keyboard focus changes in the picture of a widget.
struct FocusRing
{
    QString widget; ///< class, text or name
    int pixels = 0; ///< how many change
    int contrasting = 0; ///< how many of them by 3 : 1 or more
    int length = 0; ///< of what is two design pixels wide, in screen pixels
    double contrast = 1; ///< of the ring: what contrasting, or the most contrasting, pixels reach

    /// As WCAG wants it: by 3 : 1, by a line around a small control at least, two
    /// design pixels wide.
    bool isSeen() const;
    QString text() const;
};

/// Presses Tab in a shown, active window until the focus is back where it began, and measures each
/// stop against its picture without the focus.
QVector<FocusRing> walkedRings(QWidget *window);

/// The same; fails the test unless there are so many stops and each can be seen. The log has all.
void verifyRings(QWidget *window, int minStops);
