// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QString>

struct stat;

/// A file by what it is, not by its name: a path may come to mean another file.
struct FileIdentity
{
    quint64 device = 0;
    quint64 number = 0;

    bool operator==(const FileIdentity &other) const
    {
        return device == other.device && number == other.number;
    }
};

/// What stands at a path, and whether we may use it.
struct OwnFile
{
    enum Kind { Plain, Socket };

    bool exists = false;
    FileIdentity identity;
    QString refusal; ///< why it must not be used, as the end of a sentence; empty where it may
};

/// Looks at path itself, never through a symbolic link. A path with nothing there is not refused.
OwnFile inspectFile(const QString &path, OwnFile::Kind kind);

FileIdentity identityOf(const struct stat &status);

/// The last system call's error in words.
QString systemError();
