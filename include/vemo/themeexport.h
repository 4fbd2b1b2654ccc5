// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

// Marks what leaves the theme library.
#if defined(VEMO_STATIC)
#define VEMO_THEME_EXPORT
#elif defined(VEMO_BUILD_THEME)
#define VEMO_THEME_EXPORT Q_DECL_EXPORT
#else
#define VEMO_THEME_EXPORT Q_DECL_IMPORT
#endif
