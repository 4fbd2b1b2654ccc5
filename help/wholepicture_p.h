// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "core/testexport_p.h"

class QByteArray;

/// Whether bytes are a picture up to its end, as its format marks it: PNG, JPEG, GIF, BMP, WebP or
/// SVG. False for anything else, whole or not. Nothing is decoded.
VEMO_TEST_EXPORT bool isWholePicture(const QByteArray &bytes);
