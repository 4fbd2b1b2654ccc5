// SPDX-License-Identifier: MIT
#include "entrysorter.h"

#include <algorithm>
#include <iterator>
#include <utility>

EntrySorter::EntrySorter()
{
    m_collator.setNumericMode(true);
}

void EntrySorter::add(const QVector<FileEntry> &entries)
{
    Run run;
    run.reserve(size_t(entries.size()));
    for (const FileEntry &entry : entries) {
        run.push_back({entry.isFolder, NameKey(m_collator, entry.name), int(m_entries.size())});
        m_entries += entry;
    }
    std::sort(run.begin(), run.end(), isBefore);
    m_runs.push_back(std::move(run));
    while (m_runs.size() > 1 && m_runs[m_runs.size() - 2].size() < 2 * m_runs.back().size())
        mergeLastTwo();
}

QVector<FileEntry> EntrySorter::take()
{
    while (m_runs.size() > 1)
        mergeLastTwo();
    QVector<FileEntry> sorted;
    sorted.reserve(m_entries.size());
    if (!m_runs.empty()) {
        for (const Place &place : m_runs.back())
            sorted += m_entries.at(place.index);
    }
    m_runs.clear();
    m_entries.clear();
    return sorted;
}

bool EntrySorter::isBefore(const Place &a, const Place &b)
{
    if (a.isFolder != b.isFolder)
        return a.isFolder;
    const int order = a.key.compare(b.key);
    return order != 0 ? order < 0 : a.index < b.index;
}

void EntrySorter::mergeLastTwo()
{
    Run last = std::move(m_runs.back());
    m_runs.pop_back();
    Run &before = m_runs.back();
    Run merged;
    merged.reserve(before.size() + last.size());
    std::merge(std::make_move_iterator(before.begin()), std::make_move_iterator(before.end()),
        std::make_move_iterator(last.begin()), std::make_move_iterator(last.end()),
        std::back_inserter(merged), isBefore);
    before = std::move(merged);
}
