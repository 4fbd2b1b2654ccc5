// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

#ifdef Q_OS_WIN
constexpr bool kIsWindows = true;
#else
constexpr bool kIsWindows = false;
#endif
