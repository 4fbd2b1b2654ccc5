// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QString>

#include <algorithm>

/// The text with a mark in front by which it runs in its own direction in a layout of the other
/// one: then the dots of a cut text are at the end that was cut.
inline QString inOwnDirection(const QString &text, Qt::LayoutDirection layout)
{
    constexpr ushort kLeftToRightEmbedding = 0x202A;
    constexpr ushort kRightToLeftEmbedding = 0x202B;
    const bool isReversed = text.isRightToLeft();
    const bool hasDirection = isReversed || std::any_of(text.begin(), text.end(), [](QChar letter) {
        return letter.direction() == QChar::DirL;
    });
    if (!hasDirection || isReversed == (layout == Qt::RightToLeft))
        return text;
    return QChar(isReversed ? kRightToLeftEmbedding : kLeftToRightEmbedding) + text;
}
