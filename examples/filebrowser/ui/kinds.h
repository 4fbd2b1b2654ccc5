// SPDX-License-Identifier: MIT
#pragma once

#include "fileentry.h"

#include <QPixmap>
#include <QStringList>

/// The type name of FileTypeMap for an entry, or "folder".
QString kindOf(const FileEntry &entry);

/// The kinds that the filter offers, in the order of its menu.
QStringList offeredKinds();

/// If isRemoved, the picture for an entry that has been deleted.
QPixmap pictureOf(const FileEntry &entry, bool isRemoved = false);
