// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// Renames a file, link or folder within its file system. Never replaces an existing entry: the
/// check and the move are atomic. Returns 0 or an error number, such as EEXIST.
int moveWithoutReplacing(const QByteArray &from, const QByteArray &to);

/// The same for file systems without an atomic operation: a file gets a hard link before its old
/// name is removed; a folder replaces an empty folder created for it. EOPNOTSUPP if there are no
/// hard links.
int moveByReserving(const QByteArray &from, const QByteArray &to);
