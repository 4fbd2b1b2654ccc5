// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/imagemanager.h>

#include <QByteArray>
#include <QString>

/// The host that the cases run in: one temporary folder for the whole run, and the library started
/// on it.
namespace bench {

/// Writes bytes into a file below the temporary folder and returns its full path.
QString writtenFile(const QString &name, const QByteArray &bytes);

/// The library runs on the default theme from here on, in English.
void useTheme();

/// The library's pictures come from below resourcePath from here on, until useTheme().
void usePictures(const QString &resourcePath, ImageManager::InitializeType type);

} // namespace bench
