// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QString>

/// Returns sheet with every "px" length multiplied by factor and truncated to whole pixels, or
/// unchanged if it is too long or not well-formed.
QString scaledLengths(const QString &sheet, double factor);
