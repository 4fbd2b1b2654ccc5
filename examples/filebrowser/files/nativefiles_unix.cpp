// SPDX-License-Identifier: MIT
#include "nativefiles.h"

#include "nativename.h"

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

static_assert(kLongestName == NAME_MAX);

struct NameStream
{
    DIR *folder;
};

void CloseNames::operator()(NameStream *names) const
{
    closedir(names->folder);
    delete names;
}

namespace {

constexpr mode_t kPermissions = S_IRWXU | S_IRWXG | S_IRWXO;

CopyItem::Kind kindOf(mode_t mode)
{
    if (S_ISREG(mode))
        return CopyItem::File;
    if (S_ISDIR(mode))
        return CopyItem::Folder;
    return S_ISLNK(mode) ? CopyItem::Link : CopyItem::Other;
}

bool isSame(const struct stat &a, const struct stat &b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

void setTimes(const QByteArray &path, const struct stat &status)
{
    const timespec times[] = {status.st_atim, status.st_mtim};
    utimensat(AT_FDCWD, path.constData(), times, AT_SYMLINK_NOFOLLOW);
}

} // namespace

bool isNameTooLong(const QString &folder, const QString &name)
{
    const long limit = pathconf(toNativeName(folder).constData(), _PC_NAME_MAX);
    return toNativeName(name).size() > (limit > 0 ? limit : NAME_MAX);
}

bool isNameReserved(const QString &)
{
    return false;
}

bool isOtherCase(const QString &, const QString &)
{
    return false;
}

int makeFolder(const QByteArray &path)
{
    return mkdir(path.constData(), kPermissions) == 0 ? 0 : errno;
}

int makeOwnFolder(const QByteArray &path)
{
    return mkdir(path.constData(), S_IRWXU) == 0 ? 0 : errno;
}

int describeItem(CopyItem *item)
{
    struct stat status = {};
    if (lstat(item->from.constData(), &status) != 0)
        return errno;
    item->kind = kindOf(status.st_mode);
    item->size = item->kind == CopyItem::File ? status.st_size : 0;
    return 0;
}

int openNames(const QByteArray &folder, FolderNames *names)
{
    const int file = open(folder.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    DIR *stream = file < 0 ? nullptr : fdopendir(file);
    if (!stream)
        return errno;
    names->reset(new NameStream {stream});
    return 0;
}

int nextName(NameStream *names, QByteArray *name)
{
    errno = 0;
    const dirent *found = readdir(names->folder);
    *name = found ? QByteArray(found->d_name) : QByteArray();
    return errno;
}

bool isInside(const QByteArray &folder, const QByteArray &path)
{
    struct stat outer = {};
    char *resolved = realpath(folder.constData(), nullptr);
    if (!resolved)
        return false;
    QByteArray inner(resolved);
    free(resolved);
    if (lstat(path.constData(), &outer) != 0)
        return false;
    // Compared by identity, because a folder can be mounted in two places.
    while (!inner.isEmpty()) {
        struct stat status = {};
        if (stat(inner.constData(), &status) == 0 && isSame(status, outer))
            return true;
        inner.truncate(inner.lastIndexOf('/'));
    }
    struct stat root = {};
    return stat("/", &root) == 0 && isSame(root, outer);
}

int readLink(const QByteArray &link, QByteArray *target)
{
    QByteArray bytes(PATH_MAX, Qt::Uninitialized);
    const ssize_t size = readlink(link.constData(), bytes.data(), size_t(bytes.size()));
    if (size < 0)
        return errno;
    *target = bytes.left(int(size));
    return 0;
}

int makeLink(const QByteArray &target, const QByteArray &link)
{
    return symlink(target.constData(), link.constData()) == 0 ? 0 : errno;
}

void copyTimesOfLink(const QByteArray &from, const QByteArray &to)
{
    struct stat status = {};
    if (lstat(from.constData(), &status) == 0)
        setTimes(to, status);
}

void copyAttributes(const QByteArray &from, const QByteArray &to)
{
    struct stat status = {};
    if (lstat(from.constData(), &status) != 0)
        return;
    chmod(to.constData(), status.st_mode & kPermissions);
    setTimes(to, status);
}

int removeEntry(const QByteArray &path, bool isFolder)
{
    const char *name = path.constData();
    return (isFolder ? rmdir(name) : unlink(name)) == 0 ? 0 : errno;
}

bool allowChanges(const QByteArray &folder)
{
    return chmod(folder.constData(), S_IRWXU) == 0;
}
