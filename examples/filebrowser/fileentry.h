// SPDX-License-Identifier: MIT
#pragma once

#include <QDateTime>
#include <QString>

/// What the browser knows of one file or folder. size, modified and created of a link are those of
/// what it leads to, or its own where it leads nowhere.
struct FileEntry
{
    QString name; ///< As fromNativeName() gives it, so that no two files ever share one.
    qint64 size = 0; ///< In bytes; 0 for a folder.
    QDateTime modified; ///< Invalid where it may not be read.
    QDateTime created; ///< Invalid where the file system doesn't keep it.
    bool isFolder = false; ///< Also of a link that leads to a folder.
    bool isLink = false;
    bool isWritable = false;
};
