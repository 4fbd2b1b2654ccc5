// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QLoggingCategory>

/// The library's only logging category: "debug.message".
inline const QLoggingCategory &vemoLog()
{
    static const QLoggingCategory category("debug.message");
    return category;
}
