// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// Moves an entry, a link itself, to the trash that desktops share: the one of the home folder, or
/// one at the top of the entry's own file system. Yields 0 and in trashed the new path, or an error
/// number; then the entry is where it was.
///
/// Written out here because QFile::moveToTrash() never returns for a name of more than 245 bytes
/// and takes no link that leads nowhere or to another file system.
int moveToSharedTrash(const QByteArray &path, QByteArray *trashed);
