// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

/// Functions for paths with names as in FileEntry: Qt's own functions would lose bytes of names
/// that are not valid UTF-8.

/// The path of the tree whose root is "/": on Windows, "/C:/Users" for "C:/Users", so that the root
/// contains the drives. On other systems the path itself.
QString pathFromQt(const QString &path);
/// The path as users know it: on Windows, "C:\Users" for "/C:/Users". On other systems the path
/// itself.
QString pathForUsers(const QString &path);

QString childPath(const QString &folder, const QString &name);
/// Empty for the root.
QString parentPath(const QString &path);
/// The last part; the path itself for the root.
QString nameOf(const QString &path);

/// Whether path exists, even if it is a broken link.
bool pathExists(const QString &path);
/// Also true for a link to a folder.
bool isFolderAt(const QString &path);
/// Whether entries can be added to the folder.
bool isWritableFolder(const QString &path);
/// path, or its nearest parent that is a folder.
QString nearestFolder(const QString &path);

QUrl urlOf(const QString &path);
/// The path of a url of a local file; empty for any other url.
QString pathOf(const QUrl &url);
