// SPDX-License-Identifier: MIT
#pragma once

#include "copyplan.h"

#include <QByteArray>
#include <QString>

/// What the operations on files need of the system. Paths are as toNativeName() returns them, and a
/// result of type int is 0 or an error number.

constexpr int kLongestName = 255; ///< in bytes

/// Whether the file system of folder has no room for a name of that length.
bool isNameTooLong(const QString &folder, const QString &name);

/// Whether the system gives such a name another meaning, or none. "." and ".." need not be asked.
bool isNameReserved(const QString &name);

/// Whether the names differ, but not for the system.
bool isOtherCase(const QString &name, const QString &other);

/// With the user's usual permissions.
int makeFolder(const QByteArray &path);

/// For nobody else, until copyAttributes().
int makeOwnFolder(const QByteArray &path);

/// Sets the kind and size of the entry at item->from; of a link, not of its target.
int describeItem(CopyItem *item);

int readLink(const QByteArray &link, QByteArray *target);
int makeLink(const QByteArray &target, const QByteArray &link);

/// Gives a link the times of another.
void copyTimesOfLink(const QByteArray &from, const QByteArray &to);

/// Gives a folder the permissions and times of another.
void copyAttributes(const QByteArray &from, const QByteArray &to);

/// Of folders only empty ones.
int removeEntry(const QByteArray &path, bool isFolder);

/// Makes a folder writable for its owner.
bool allowChanges(const QByteArray &folder);
