// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QLineEdit>

/// Begins the text of edit, the field of an editable box, where that of other boxes begins.
/// QLineEdit keeps two pixels free on either side of its text, and the size hint of the box does
/// not account for them, so that its widest text was cut.
inline void beginLikeBox(QLineEdit *edit)
{
    constexpr int kEditMargin = 2; // Screen pixels.
    edit->setTextMargins(-kEditMargin, 0, -kEditMargin, 0);
}
