// SPDX-License-Identifier: MIT
#include "folderreader.h"

#include "nativename.h"
#include "openfolder.h"

#include <QElapsedTimer>
#include <QPointer>

#include <utility>

namespace {

constexpr int kSlice = 4; // milliseconds

} // namespace

FolderReader::FolderReader(QObject *parent) : QObject(parent)
{
    connect(&m_slice, SIGNAL(timeout()), this, SLOT(slotReadOn()));
}

FolderReader::~FolderReader()
{
    stop();
}

void FolderReader::read(const QString &folder)
{
    stop();
    ++m_reading;
    m_path = folder;
    m_slice.start(0);
}

void FolderReader::stop()
{
    m_slice.stop();
    m_folder.reset();
}

int FolderReader::open()
{
    auto folder = std::make_unique<OpenFolder>(toNativeName(m_path));
    const int error = folder->error();
    if (error == 0)
        m_folder = std::move(folder);
    return error;
}

void FolderReader::slotReadOn()
{
    const int error = m_folder ? 0 : open();
    if (!m_folder) {
        report({}, true, error);
        return;
    }
    QElapsedTimer timer;
    timer.start();
    QVector<FileEntry> entries;
    bool atEnd = false;
    while (!atEnd && !timer.hasExpired(kSlice)) {
        FileEntry entry;
        atEnd = !m_folder->next(&entry);
        if (!atEnd && !entry.name.isEmpty())
            entries += entry;
    }
    report(entries, atEnd, m_folder->error());
}

void FolderReader::report(const QVector<FileEntry> &entries, bool atEnd, int error)
{
    // A slot may delete the reader or make it read another folder.
    const QPointer<FolderReader> self(this);
    const quint64 reading = m_reading;
    if (atEnd)
        stop();
    if (!entries.isEmpty())
        Q_EMIT entriesRead(entries);
    if (!self || reading != m_reading || !atEnd)
        return;
    if (error != 0)
        Q_EMIT failed(systemReason(error));
    else
        Q_EMIT finished();
}
