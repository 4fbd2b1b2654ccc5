// SPDX-License-Identifier: MIT
#pragma once

#include "fileentry.h"

#include <QStringList>

/// The type name of FileTypeMap for an entry, or "folder".
QString kindOf(const FileEntry &entry);

/// The kinds that the filter offers, in the order of its menu.
QStringList offeredKinds();

/// The name of the picture; if isRemoved, for an entry that has been deleted.
QString pictureOf(const FileEntry &entry, bool isRemoved = false);
