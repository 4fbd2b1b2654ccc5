// SPDX-License-Identifier: MIT
#include "folderlisting.h"

#include "folderreader.h"

#include <algorithm>
#include <utility>

FolderListing::FolderListing(QObject *parent) : QObject(parent), m_reader(new FolderReader(this))
{
    connect(m_reader, &FolderReader::entriesRead, this, &FolderListing::slotEntriesRead);
    connect(m_reader, &FolderReader::finished, this, &FolderListing::slotFinished);
    connect(m_reader, &FolderReader::failed, this, &FolderListing::slotFailed);
}

QVector<FileEntry> FolderListing::page(int start, int length) const
{
    QVector<FileEntry> entries;
    const int end = std::min(start + length, int(m_shown.size()));
    for (int i = std::max(start, 0); i < end; ++i)
        entries += m_entries.at(m_shown.at(i));
    return entries;
}

int FolderListing::indexOf(const QString &name) const
{
    const auto found = std::find_if(m_shown.begin(), m_shown.end(),
        [&](int index) { return m_entries.at(index).name == name; });
    return found == m_shown.end() ? -1 : int(found - m_shown.begin());
}

QStringList FolderListing::namesStartingWith(const QString &start) const
{
    QStringList names;
    for (const FileEntry &entry : m_entries) {
        if (entry.name.startsWith(start))
            names << entry.name;
    }
    return names;
}

void FolderListing::read(const QString &folder)
{
    m_incoming.take();
    m_is_reading = true;
    m_reader->read(folder);
    if (std::exchange(m_folder, folder) == folder)
        return;
    m_entries.clear();
    applyFilter();
}

void FolderListing::setFilter(const EntryFilter &filter)
{
    m_filter = filter;
    applyFilter();
}

void FolderListing::slotEntriesRead(const QVector<FileEntry> &entries)
{
    m_incoming.add(entries);
    Q_EMIT progressed(m_incoming.count());
}

void FolderListing::slotFinished()
{
    m_is_reading = false;
    m_entries = m_incoming.take();
    applyFilter();
}

void FolderListing::slotFailed(const QString &reason)
{
    m_is_reading = false;
    m_incoming.take();
    // A copy, since whoever hears of it reads another folder.
    Q_EMIT failed(QString(m_folder), reason);
}

void FolderListing::applyFilter()
{
    m_shown.clear();
    m_shown.reserve(m_entries.size());
    for (int i = 0; i < m_entries.size(); ++i) {
        if (m_filter.accepts(m_entries.at(i)))
            m_shown += i;
    }
    Q_EMIT changed();
}
