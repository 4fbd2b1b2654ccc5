// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <vemo/export.h>

// Lets tests reach an internal name; in a build without tests it stays hidden.
#if defined(VEMO_EXPORT_INTERNALS) || !defined(VEMO_BUILD_LIBRARY)
#define VEMO_TEST_EXPORT VEMO_EXPORT
#else
#define VEMO_TEST_EXPORT
#endif
