// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QRect>

/// How far the highlight of a row of VemoTreeWidget ends before the row; in design pixels.
constexpr int kHighlightInset = 3;

/// The rectangle of the check box that any ItemDelegate drew last; null if none has been drawn.
QRect &lastCheckRect();
