// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "core/testexport_p.h"

#include <QRect>

/// The rectangle of the check box that any ItemDelegate drew last; null before the first.
VEMO_TEST_EXPORT QRect &lastCheckRect();
