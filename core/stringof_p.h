// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <vemo/componentstrings.h>

#include <QLatin1String>
#include <QString>

/// The text of a key; the key, with a warning, if it is missing.
inline QString stringOf(const char *key)
{
    return ComponentStrings::getInstance().getString(QLatin1String(key));
}
