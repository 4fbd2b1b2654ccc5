// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QByteArray>
#include <QFile>
#include <QString>

class QDateTime;

/// Bytes of the pictures that are kept from one run of the program to the next.
constexpr qint64 kMaxPictureFolderBytes = qint64(256) * 1024 * 1024;

/// The folder that downloaded pictures are kept in, under the system's temporary folder.
QString pictureFolder();

/// Makes the picture folder, private to the user, and trims it once per process. False if it, or
/// the folder around it, is a link or belongs to somebody else: it is neither written nor read
/// then.
bool preparePictureFolder();

/// Removes pictures of the folder, the oldest first, until no more than maxBytes are left. Those
/// that have been written since inUseSince stay: another program may show them.
void trimPictureFolder(qint64 maxBytes, const QDateTime &inUseSince);

/// Whether a page may name a file of the picture folder so.
///
/// Deliberate: everything but a path is taken where the system gives no letter a meaning.
bool isSafePictureName(const QString &name);

/// Whether name means no more than a file to Windows: no stream, no path and no device.
bool isSafeWindowsName(const QString &name);

/// Writes bytes as the picture folder's file path, in one step: whoever reads it meanwhile gets the
/// old picture or the new one. A file that can't be written is left out silently.
void writePicture(const QString &path, const QByteArray &bytes);

/// Opens the picture folder's file name for reading; false if there is none, if it is no plain
/// file, or if the folder is not the user's own.
bool openPicture(const QString &name, QFile *file);

/// Whether the picture folder, and each level of it, is the user's own.
bool isPictureFolderOwn();

/// The part of preparePictureFolder() that each system does in its own way.
bool makePictureFolder();
