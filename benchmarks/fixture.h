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

/// Initialises the library with the default theme in English.
void useTheme();

/// Uses the pictures below resourcePath until useTheme() is called.
void usePictures(const QString &resourcePath, ImageManager::InitializeType type);

} // namespace bench
