// SPDX-License-Identifier: MIT
#pragma once

#include "fileentry.h"

#include <QObject>
#include <QTimer>
#include <QVector>

#include <memory>

class OpenFolder;

/// Reads a folder from the event loop, a few milliseconds at a time, so that the window remains
/// responsive. If the folder is missing or cannot be read, emits failed().
///
///     connect(reader, &FolderReader::entriesRead, window, &MainWindow::addEntries);
///     reader->read(folder);
class FolderReader : public QObject
{
    Q_OBJECT

public:
    explicit FolderReader(QObject *parent = nullptr);
    ~FolderReader() override;

    /// Starts to read a folder. Nothing more is emitted for a previous one.
    void read(const QString &folder);
    QString folder() const { return m_path; }

Q_SIGNALS:
    /// The entries found in a time slice, in the order of the file system; never empty.
    void entriesRead(const QVector<FileEntry> &entries);
    void finished();
    void failed(const QString &reason);

private Q_SLOTS:
    void slotReadOn();

private:
    int open();
    void stop();
    void report(const QVector<FileEntry> &entries, bool atEnd, int error);

    QString m_path;
    QTimer m_slice;
    std::unique_ptr<OpenFolder> m_folder;
    quint64 m_reading = 0; ///< Counts calls of read(), so that a slice detects a new one.
};
