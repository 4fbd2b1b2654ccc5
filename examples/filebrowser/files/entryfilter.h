// SPDX-License-Identifier: MIT
#pragma once

#include "fileentry.h"

#include <QDateTime>
#include <QVector>

/// Which entries of a folder are shown. A field that is left empty lets everything pass.
struct EntryFilter
{
    QString text; ///< Some part of the name, in any case.
    QString kind; ///< A kind of FileTypeMap ("image", and "xxx" for unknown ones); folders pass.
    QDateTime from; ///< First moment of the last change.
    QDateTime to; ///< Last moment of it, which counts too.

    bool isEmpty() const;
    bool accepts(const FileEntry &entry) const;
};

/// Puts folders first and each group in the order that the user's language gives its names, "file
/// 2" before "file 10". Entries whose names sort alike stay in their order.
void sortEntries(QVector<FileEntry> &entries);
