// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QLoggingCategory>

/// The one category of all that the library says: "debug.message".
inline const QLoggingCategory &vemoLog()
{
    static const QLoggingCategory category("debug.message");
    return category;
}
