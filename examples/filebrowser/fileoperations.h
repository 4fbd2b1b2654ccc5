// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// What keeps a name from being given to a new or renamed entry.
enum class NameProblem {
    None,
    Empty,
    Reserved, ///< "." or ".."
    Slash, ///< A slash, or the null character: no name can hold either.
    TooLong, ///< In bytes, for the folder's file system.
    Exists,
};

/// How one operation on one entry ended.
struct FileResult
{
    bool done = false;
    QString path; ///< Where the entry is now; empty if nothing was done.
    QString reason; ///< The system's words for what went wrong; empty when done.
};

NameProblem checkName(const QString &folder, const QString &name);

/// Never replaces anything, also when the new name comes into use at that very moment.
FileResult renameEntry(const QString &folder, const QString &from, const QString &to);

FileResult createFolder(const QString &folder, const QString &name);

/// Moves an entry, a link itself, to the user's trash. Where the trash can't take it the entry
/// stays where it is.
FileResult moveToTrash(const QString &path);
