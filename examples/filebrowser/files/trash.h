// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

/// Moves an entry (for a link, the link itself) to the trash that desktops share: that of the home
/// folder, or one at the top of the entry's file system. Returns 0 and sets trashed to the new
/// path, or returns an error number without moving the entry.
///
/// On Windows it is the recycle bin, and trashed is cleared, because the name in there is not
/// known. Elsewhere implemented here because QFile::moveToTrash() never returns for names with more
/// than 245 bytes and does not accept links that are broken or lead to another file system.
int moveToSharedTrash(const QByteArray &path, QByteArray *trashed);
