// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QString>

/// Whether every surrogate in text has its other half. Texts hardly ever hold one, so the plain
/// loop (which compilers turn into vector code) answers for most.
inline bool isWellFormed(const QString &text)
{
    bool hasSurrogate = false;
    for (const QChar c : text)
        hasSurrogate |= c.isSurrogate();
    return !hasSurrogate || QStringView(text).isValidUtf16();
}
