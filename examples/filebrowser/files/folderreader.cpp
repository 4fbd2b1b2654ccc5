// SPDX-License-Identifier: MIT
#include "folderreader.h"

#include "nativename.h"

#include <QElapsedTimer>
#include <QPointer>

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

struct OpenFolder
{
    QByteArray path;
    DIR *stream = nullptr;
};

namespace {

constexpr int kSlice = 4; // milliseconds

QDateTime timeOf(const struct statx_timestamp &stamp)
{
    return QDateTime::fromMSecsSinceEpoch(stamp.tv_sec * 1000 + stamp.tv_nsec / 1000000);
}

bool lookAt(int folder, const char *name, int flags, struct statx *status)
{
    return statx(folder, name, flags, STATX_BASIC_STATS | STATX_BTIME, status) == 0;
}

bool isFolder(const struct statx &status)
{
    return S_ISDIR(status.stx_mode);
}

void describe(FileEntry *entry, const struct statx &status)
{
    entry->isFolder = isFolder(status);
    entry->size = entry->isFolder ? 0 : qint64(status.stx_size);
    entry->modified = timeOf(status.stx_mtime);
    if (status.stx_mask & STATX_BTIME)
        entry->created = timeOf(status.stx_btime);
}

/// The entry's name and as much other data as can be read; an empty name if it has been deleted.
FileEntry entryOf(int folder, const dirent &found)
{
    FileEntry entry;
    struct statx status = {};
    if (lookAt(folder, found.d_name, AT_SYMLINK_NOFOLLOW, &status)) {
        entry.isLink = S_ISLNK(status.stx_mode);
        struct statx target = {};
        const bool leadsSomewhere = entry.isLink && lookAt(folder, found.d_name, 0, &target);
        describe(&entry, leadsSomewhere ? target : status);
    } else if (errno == ENOENT) {
        return entry;
    } else {
        entry.isFolder = found.d_type == DT_DIR;
        entry.isLink = found.d_type == DT_LNK;
    }
    entry.isWritable = faccessat(folder, found.d_name, W_OK, 0) == 0;
    entry.name = fromNativeName(found.d_name);
    return entry;
}

bool isItselfOrParent(const char *name)
{
    return name[0] == '.' && (name[1] == 0 || (name[1] == '.' && name[2] == 0));
}

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
    if (m_folder)
        closedir(m_folder->stream);
    delete std::exchange(m_folder, nullptr);
}

int FolderReader::open()
{
    const QByteArray path = toNativeName(m_path);
    DIR *stream = opendir(path.constData());
    if (!stream)
        return errno;
    m_folder = new OpenFolder {path, stream};
    return 0;
}

void FolderReader::slotReadOn()
{
    int error = m_folder ? 0 : open();
    if (!m_folder) {
        report({}, true, error);
        return;
    }
    QElapsedTimer timer;
    timer.start();
    QVector<FileEntry> entries;
    bool atEnd = false;
    while (!atEnd && !timer.hasExpired(kSlice)) {
        errno = 0;
        const dirent *found = readdir(m_folder->stream);
        atEnd = !found;
        error = errno;
        if (!found || isItselfOrParent(found->d_name))
            continue;
        const FileEntry entry = entryOf(dirfd(m_folder->stream), *found);
        if (!entry.name.isEmpty())
            entries += entry;
    }
    // A folder that has been deleted in the meantime reads as if its end was reached.
    struct stat status = {};
    if (atEnd && error == 0 && stat(m_folder->path.constData(), &status) != 0)
        error = errno;
    report(entries, atEnd, error);
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
