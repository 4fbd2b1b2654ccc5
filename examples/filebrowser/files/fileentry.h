// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QString>

/// A file or folder as listed. size, modified and created of a link are those of its target, or its
/// own if it is broken.
struct FileEntry
{
    QString name; ///< As returned by fromNativeName(), so that it is unique for each file.
    qint64 size = 0; ///< In bytes; 0 for a folder.
    QDateTime modified; ///< Invalid if it cannot be read.
    QDateTime created; ///< Invalid if the file system does not store it.
    bool isFolder = false; ///< Also true for a link to a folder.
    bool isLink = false;
    bool isWritable = false;
};
