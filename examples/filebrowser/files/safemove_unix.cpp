// SPDX-License-Identifier: MIT
#include "safemove.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

int moveFolder(const char *from, const char *to)
{
    if (mkdir(to, S_IRWXU) != 0)
        return errno;
    // rename() only replaces empty folders, so nothing added in the meantime is lost.
    if (rename(from, to) == 0)
        return 0;
    const int error = errno;
    rmdir(to);
    return error;
}

int moveFile(const char *from, const char *to)
{
    if (linkat(AT_FDCWD, from, AT_FDCWD, to, 0) != 0)
        return errno == EPERM || errno == ENOSYS ? EOPNOTSUPP : errno;
    if (unlink(from) == 0)
        return 0;
    const int error = errno;
    unlink(to);
    return error;
}

} // namespace

int moveWithoutReplacing(const QByteArray &from, const QByteArray &to)
{
    if (renameat2(AT_FDCWD, from.constData(), AT_FDCWD, to.constData(), RENAME_NOREPLACE) == 0)
        return 0;
    return errno == EINVAL || errno == ENOSYS ? moveByReserving(from, to) : errno;
}

int moveByReserving(const QByteArray &from, const QByteArray &to)
{
    struct stat status = {};
    if (lstat(from.constData(), &status) != 0)
        return errno;
    return S_ISDIR(status.st_mode) ? moveFolder(from.constData(), to.constData())
                                   : moveFile(from.constData(), to.constData());
}
