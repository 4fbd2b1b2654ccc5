// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QByteArray>
#include <QString>

/// Gives the file from the name to, in one step. A link or a pipe of that name is replaced, never
/// followed. False if that can't be done, such as over a folder.
bool renameOver(const QString &from, const QString &to);

/// Makes bytes the content of the file path, in one step where the folder allows that: whoever
/// reads it in the meantime gets the old content or the new one. A file that may not be written
/// stays as it is. If writing fails, as on a full disk, the file is empty or absent afterwards.
void replaceFile(const QString &path, const QByteArray &bytes);
