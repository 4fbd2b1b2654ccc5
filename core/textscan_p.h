// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QString>

/// Whether text contains a surrogate. Written in 16-bit steps without a branch, so that compilers
/// can vectorise it.
inline bool hasSurrogates(const QString &text)
{
    quint16 found = 0;
    for (const QChar c : text)
        found |= static_cast<quint16>((c.unicode() & 0xf800) == 0xd800);
    return found != 0;
}

/// Whether every surrogate in text is part of a pair. Optimised for texts without any.
inline bool isWellFormed(const QString &text)
{
    return !hasSurrogates(text) || QStringView(text).isValidUtf16();
}
