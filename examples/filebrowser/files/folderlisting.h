// SPDX-License-Identifier: MIT
#pragma once

#include "entryfilter.h"
#include "entrysorter.h"
#include "fileentry.h"

#include <QObject>
#include <QStringList>
#include <QVector>

class FolderReader;

/// The sorted and filtered entries of a folder, which is read without blocking the window.
class FolderListing : public QObject
{
    Q_OBJECT

public:
    explicit FolderListing(QObject *parent);

    QString folder() const { return m_folder; }
    bool isReading() const { return m_is_reading; }
    const EntryFilter &filter() const { return m_filter; }
    /// How many entries the folder has, and how many of them pass the filter.
    int total() const { return m_entries.size(); }
    int count() const { return m_shown.size(); }
    QVector<FileEntry> page(int start, int length) const;
    /// The place of a name among those that pass the filter; -1 if it is not there.
    int indexOf(const QString &name) const;
    /// Among all entries, whatever the filter.
    QStringList namesStartingWith(const QString &start) const;

    /// Discards all entries immediately if the folder is a different one. The entries of the same
    /// folder remain until it has been read again.
    void read(const QString &folder);
    void setFilter(const EntryFilter &filter);

Q_SIGNALS:
    /// The number of entries found so far.
    void progressed(int count);
    /// The entries, or those that pass the filter, have changed.
    void changed();
    void failed(const QString &folder, const QString &reason);

private Q_SLOTS:
    void slotEntriesRead(const QVector<FileEntry> &entries);
    void slotFinished();
    void slotFailed(const QString &reason);

private:
    void applyFilter();

    FolderReader *m_reader;
    QString m_folder;
    EntryFilter m_filter;
    EntrySorter m_incoming;
    QVector<FileEntry> m_entries;
    QVector<int> m_shown; ///< indices into m_entries
    bool m_is_reading = false;
};
