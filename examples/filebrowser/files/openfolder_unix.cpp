// SPDX-License-Identifier: MIT
#include "openfolder.h"

#include "nativename.h"

#include <cerrno>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

struct OpenFolder::Handle
{
    explicit Handle(DIR *stream) : stream(stream) { }
    ~Handle() { closedir(stream); }
    Q_DISABLE_COPY(Handle)

    DIR *const stream;
};

namespace {

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

OpenFolder::OpenFolder(const QByteArray &path) : m_path(path)
{
    if (DIR *stream = opendir(path.constData()))
        m_handle = std::make_unique<Handle>(stream);
    else
        m_error = errno;
}

OpenFolder::~OpenFolder() = default;

bool OpenFolder::next(FileEntry *entry)
{
    errno = 0;
    const dirent *found = readdir(m_handle->stream);
    if (found) {
        if (!isItselfOrParent(found->d_name))
            *entry = entryOf(dirfd(m_handle->stream), *found);
        return true;
    }
    m_error = errno;
    // A folder that has been deleted in the meantime reads as if its end was reached.
    struct stat status = {};
    if (m_error == 0 && stat(m_path.constData(), &status) != 0)
        m_error = errno;
    return false;
}
