// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// The reason why a name cannot be used for a new or renamed entry.
enum class NameProblem {
    None,
    Empty,
    Reserved, ///< "." or "..", or a name to which the system gives another meaning.
    Slash, ///< It contains a slash or the null character.
    TooLong, ///< It has too many bytes for the folder's file system.
    Exists,
};

/// The result of an operation on an entry.
struct FileResult
{
    bool done = false;
    QString path; ///< The new path of the entry; empty on failure.
    QString reason; ///< The system's error message; empty on success.
};

/// For a new entry, or for one that is to be renamed: if upper and lower case are the same to the
/// file system, another case of its old name is free.
NameProblem checkName(
    const QString &folder, const QString &name, const QString &oldName = QString());

/// Never replaces anything, even if an entry with the new name is created at the same time.
FileResult renameEntry(const QString &folder, const QString &from, const QString &to);

FileResult createFolder(const QString &folder, const QString &name);

/// Moves an entry to the user's trash; for a link, the link itself. On failure the entry is not
/// moved.
FileResult moveToTrash(const QString &path);
