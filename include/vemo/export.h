// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

// Marks what leaves the library; everything else stays hidden.
#if defined(VEMO_STATIC)
#define VEMO_EXPORT
#elif defined(VEMO_BUILD_LIBRARY)
#define VEMO_EXPORT Q_DECL_EXPORT
#else
#define VEMO_EXPORT Q_DECL_IMPORT
#endif
