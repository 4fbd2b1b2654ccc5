// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QByteArray>
#include <QString>

#include <filesystem>

/// path as the system's own functions take it. On Windows it may have more than 260 characters.
std::filesystem::path nativePath(const QString &path);

/// Renames the file from to the name to, in one step. A link or a pipe with that name is replaced,
/// not followed. Returns false on failure, for example if there is a folder with that name.
bool renameOver(const QString &from, const QString &to);

/// Writes bytes to a temporary file in the folder of path, with the usual permissions, and renames
/// it to path. Returns false on failure; then path is as it was.
bool writeBeside(const QString &path, const QByteArray &bytes);

/// Replaces the content of the file path by bytes, in one step if the folder allows it: readers
/// see either the old content or the new one. A write-protected file is not changed. If writing
/// fails, for example on a full disk, the file is empty or missing afterwards.
void replaceFile(const QString &path, const QByteArray &bytes);
