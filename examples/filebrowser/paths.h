// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QUrl>

/// Paths whose names are those of FileEntry: Qt's own functions would lose the bytes of a name that
/// are no letters.

QString childPath(const QString &folder, const QString &name);
/// Empty for the root.
QString parentPath(const QString &path);
/// The last part; the path itself for the root.
QString nameOf(const QString &path);

/// Whether there is something at path, be it a link that leads nowhere.
bool pathExists(const QString &path);
/// Also for a link that leads to a folder.
bool isFolderAt(const QString &path);
/// Whether entries can be added to the folder.
bool isWritableFolder(const QString &path);
/// Path or the nearest of its parents that is a folder.
QString nearestFolder(const QString &path);

QUrl urlOf(const QString &path);
/// The path behind a url of a local file; empty for any other.
QString pathOf(const QUrl &url);
