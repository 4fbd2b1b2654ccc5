// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <cmath>
#include <limits>

/// value truncated toward zero and clamped to the range of int; 0 for NaN.
inline int truncToInt(double value)
{
    constexpr double lowest = std::numeric_limits<int>::min();
    constexpr double highest = std::numeric_limits<int>::max();
    if (std::isnan(value))
        return 0;
    return value <= lowest ? std::numeric_limits<int>::min()
        : value >= highest ? std::numeric_limits<int>::max()
                           : static_cast<int>(value);
}
