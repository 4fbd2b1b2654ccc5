// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QString>

struct stat;

/// Identifies a file itself, since its path may later refer to another file.
struct FileIdentity
{
    quint64 device = 0;
    quint64 number = 0;

    bool operator==(const FileIdentity &other) const
    {
        return device == other.device && number == other.number;
    }
};

/// The file at a path, and whether we may use it.
struct OwnFile
{
    enum Kind { Plain, Socket };

    bool exists = false;
    FileIdentity identity;
    QString refusal; ///< why it must not be used, as the end of a sentence; empty if it may
};

/// Inspects path itself and does not follow symbolic links. A missing file is not refused.
OwnFile inspectFile(const QString &path, OwnFile::Kind kind);

FileIdentity identityOf(const struct stat &status);

/// The error message of the last system call.
QString systemError();
