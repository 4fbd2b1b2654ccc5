// SPDX-License-Identifier: MIT
#pragma once

#include <QtGlobal>

/// The variable that moves QDir::tempPath().
#ifdef Q_OS_WIN
constexpr char kTemporaryFolderVariable[] = "TMP";
#else
constexpr char kTemporaryFolderVariable[] = "TMPDIR";
#endif
