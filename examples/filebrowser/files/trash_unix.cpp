// SPDX-License-Identifier: MIT
#include "trash.h"

#include "nativename.h"
#include "safemove.h"

#include <QDateTime>
#include <QStandardPaths>
#include <QStorageInfo>

#include <cerrno>
#include <climits>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr char kInfoSuffix[] = ".trashinfo";

struct Trash
{
    QByteArray path; // Empty if there is none.
    QByteArray pathsStartAfter; // The prefix that its records omit from paths.
};

QByteArray parentOf(const QByteArray &path)
{
    const int slash = path.lastIndexOf('/');
    return slash > 0 ? path.left(slash) : QByteArray("/");
}

bool makeFolders(const QByteArray &path)
{
    struct stat status = {};
    if (stat(path.constData(), &status) == 0)
        return S_ISDIR(status.st_mode);
    return path != "/" && makeFolders(parentOf(path)) && mkdir(path.constData(), S_IRWXU) == 0;
}

dev_t fileSystemOf(const QByteArray &path)
{
    struct stat status = {};
    return stat(path.constData(), &status) == 0 ? status.st_dev : 0;
}

QByteArray topOfFileSystem(const QByteArray &folder)
{
    QByteArray top = folder;
    while (top != "/" && fileSystemOf(parentOf(top)) == fileSystemOf(folder))
        top = parentOf(top);
    return top;
}

/// A trash that another user may have created, or that is a link, is not ours.
bool isOurFolder(const QByteArray &path)
{
    struct stat status = {};
    return lstat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode)
        && status.st_uid == getuid();
}

bool isSharedByUsers(const QByteArray &path)
{
    struct stat status = {};
    return lstat(path.constData(), &status) == 0 && S_ISDIR(status.st_mode)
        && (status.st_mode & S_ISVTX);
}

/// The mount point of folder. If a part of a file system is mounted a second time, it has the same
/// device number, but nothing can be moved out of it.
QByteArray topOfMount(const QByteArray &folder)
{
    const QByteArray top = toNativeName(QStorageInfo(fromNativeName(folder)).rootPath());
    const bool isAbove = top == "/" || folder == top || folder.startsWith(top + '/');
    return isAbove && !top.isEmpty() ? top : topOfFileSystem(folder);
}

Trash trashAtTheTop(const QByteArray &top)
{
    const QByteArray prefix = top.endsWith('/') ? top : top + '/';
    const QByteArray user = QByteArray::number(qulonglong(getuid()));
    const QByteArray shared = prefix + ".Trash/" + user;
    if (isSharedByUsers(prefix + ".Trash") && makeFolders(shared) && isOurFolder(shared))
        return {shared, prefix};
    const QByteArray own = prefix + ".Trash-" + user;
    if (makeFolders(own) && isOurFolder(own))
        return {own, prefix};
    return {};
}

Trash homeTrash()
{
    const QByteArray home = toNativeName(
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + "/Trash");
    return {makeFolders(home) ? home : QByteArray(), QByteArray()};
}

/// Reserves a name in the trash by writing its record; EEXIST if the name is in use.
int writeRecord(const QByteArray &recordPath, const QByteArray &originalPath)
{
    const int record = open(recordPath.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (record < 0)
        return errno;
    const QByteArray text = "[Trash Info]\nPath=" + originalPath.toPercentEncoding("/")
        + "\nDeletionDate=" + QDateTime::currentDateTime().toString(Qt::ISODate).toLatin1() + '\n';
    const bool isWritten = write(record, text.constData(), size_t(text.size())) == text.size();
    const int error = isWritten ? 0 : errno;
    close(record);
    if (!isWritten)
        unlink(recordPath.constData());
    return isWritten ? 0 : error ? error : ENOSPC;
}

/// The n-th name to try, short enough for the name of its record.
QByteArray candidate(const QByteArray &name, int n)
{
    const QByteArray ending = n == 1 ? QByteArray() : '-' + QByteArray::number(n);
    const int room = NAME_MAX - int(sizeof kInfoSuffix) + 1 - ending.size();
    return cutName(name, room) + ending;
}

int moveInto(const Trash &trash, const QByteArray &path, QByteArray *trashed)
{
    if (trash.path.isEmpty())
        return EXDEV;
    if (!makeFolders(trash.path + "/files") || !makeFolders(trash.path + "/info"))
        return errno;
    const QByteArray name = path.mid(path.lastIndexOf('/') + 1);
    const QByteArray original = path.mid(trash.pathsStartAfter.size());
    for (int n = 1; n < INT_MAX; ++n) {
        const QByteArray record = trash.path + "/info/" + candidate(name, n) + kInfoSuffix;
        int error = writeRecord(record, original);
        if (error == 0) {
            *trashed = trash.path + "/files/" + candidate(name, n);
            error = moveWithoutReplacing(path, *trashed);
            if (error == 0)
                return 0;
            unlink(record.constData());
        }
        if (error != EEXIST)
            return error;
    }
    return EEXIST;
}

} // namespace

int moveToSharedTrash(const QByteArray &path, QByteArray *trashed)
{
    struct stat status = {};
    if (lstat(path.constData(), &status) != 0)
        return errno;
    char *resolved = realpath(parentOf(path).constData(), nullptr);
    if (!resolved)
        return errno;
    const QByteArray folder(resolved);
    free(resolved);
    const QByteArray name = path.mid(path.lastIndexOf('/') + 1);
    const QByteArray original = folder.endsWith('/') ? folder + name : folder + '/' + name;
    const Trash home = homeTrash();
    const bool mayBeHome = !home.path.isEmpty() && fileSystemOf(home.path) == fileSystemOf(folder);
    const int error = mayBeHome ? moveInto(home, original, trashed) : EXDEV;
    // Only the move itself shows whether both are on the same mount.
    return error == EXDEV ? moveInto(trashAtTheTop(topOfMount(folder)), original, trashed) : error;
}
