// SPDX-License-Identifier: MIT
#pragma once

#include "fileentry.h"

#include <QCollator>
#include <QVector>

#include <vector>

/// Sorts entries that come in pieces, so that no piece costs much and little is left for the end:
/// folders first, then in the order that the user's language gives names, "file 2" before "file
/// 10". Entries whose names sort alike stay in their order.
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
    /// All of them; none are left.
    QVector<FileEntry> take();

private:
    /// Names are compared by keys: comparing the names themselves would make one each time.
    struct Place
    {
        bool isFolder;
        QCollatorSortKey key;
        int index; ///< in m_entries
    };
    using Run = std::vector<Place>;

    static bool isBefore(const Place &a, const Place &b);
    void mergeLastTwo();

    QCollator m_collator;
    QVector<FileEntry> m_entries;
    std::vector<Run> m_runs; ///< each sorted, and at least twice as long as the next
};
