// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "core/truncation_p.h"

#include <vemo/dpiinfo.h>

/// Screen pixels of a length in design pixels (96 dpi).
inline int scaled(double designPixels)
{
    return DPIinfo::scaled(designPixels);
}
