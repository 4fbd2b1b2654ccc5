// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QByteArray>
#include <QString>

/// The folder that downloaded pictures are kept in, under the system's temporary folder.
QString pictureFolder();

/// Makes the picture folder, private to the user. False where it, or the folder around it, is a
/// link or belongs to somebody else: nothing may be written there.
bool preparePictureFolder();

/// Whether a page may name a file of the picture folder so.
///
/// Deliberate: everything but a path is taken where the system gives no letter a meaning.
bool isSafePictureName(const QString &name);

/// Whether name means no more than a file to Windows: no stream, no path and no device.
bool isSafeWindowsName(const QString &name);

/// Writes bytes as the picture folder's file path, in one step: whoever reads it meanwhile gets the
/// old picture or the new one. A file that can't be written is left out silently.
void writePicture(const QString &path, const QByteArray &bytes);
