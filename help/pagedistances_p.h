// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QString>

/// A style sheet with the text engine's own margins, which it has in screen pixels, as design
/// pixels. Empty at a factor of 1: any style sheet slows the text engine down.
QString scaledDistances();
