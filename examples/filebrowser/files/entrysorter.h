// SPDX-License-Identifier: MIT
#pragma once

#include "fileentry.h"
#include "namekey.h"

#include <QVector>

#include <vector>

/// Sorts entries that arrive in pieces, so that each piece takes little time and little is left for
/// the end: folders first, then in the order of the user's language, "file 2" before "file 10".
/// Entries with equal sort keys keep their order.
///
///     sorter.add(firstPiece);
///     sorter.add(secondPiece);
///     show(sorter.take());
class EntrySorter
{
public:
    EntrySorter();

    void add(const QVector<FileEntry> &entries);
    int count() const { return m_entries.size(); }
    /// Returns all entries and removes them.
    QVector<FileEntry> take();

private:
    /// Names are compared by their sort keys, which would otherwise be created for each comparison.
    struct Place
    {
        bool isFolder;
        NameKey key;
        int index; ///< in m_entries
    };
    using Run = std::vector<Place>;

    static bool isBefore(const Place &a, const Place &b);
    void mergeLastTwo();

    QCollator m_collator;
    QVector<FileEntry> m_entries;
    std::vector<Run> m_runs; ///< each sorted, and at least twice as long as the next
};
