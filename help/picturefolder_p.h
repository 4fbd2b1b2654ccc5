// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

class QDateTime;

/// Bytes of the pictures that are kept between runs of the program.
constexpr qint64 kMaxPictureFolderBytes = qint64(256) * 1024 * 1024;

/// The folder of downloaded pictures, below the system's temporary folder.
QString pictureFolder();

/// Creates the picture folder, private to the user, and trims it once per process. Returns false if
/// the folder or its parent is a link or belongs to another user; it is then neither written nor
/// read.
bool preparePictureFolder();

/// Removes the oldest pictures of the folder until at most maxBytes are left. Keeps those written
/// since inUseSince, because another program may be showing them.
void trimPictureFolder(qint64 maxBytes, const QDateTime &inUseSince);

/// Whether a page may use name for a file in the picture folder.
///
/// Deliberate: on systems without special names, anything that is not a path is accepted.
bool isSafePictureName(const QString &name);

/// Whether name is a plain file name for Windows: not a stream, a path or a device.
bool isSafeWindowsName(const QString &name);

/// Writes bytes to the file path in the picture folder, in one step: readers see either the old or
/// the new picture. A file that cannot be written is skipped without a warning.
void writePicture(const QString &path, const QByteArray &bytes);

/// Opens the file name in the picture folder for reading. Returns false if it is missing or not a
/// regular file, or if the folder does not belong to the user.
bool openPicture(const QString &name, QFile *file);

/// Whether each level of the picture folder belongs to the user.
bool isPictureFolderOwn();

/// The platform-dependent part of preparePictureFolder().
bool makePictureFolder();
