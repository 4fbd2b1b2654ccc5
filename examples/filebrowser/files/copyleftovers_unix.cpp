// SPDX-License-Identifier: MIT
#include "copyleftovers.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Without waiting for a pipe's other end.
int openForMark(const QByteArray &path)
{
    return open(path.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
}

} // namespace

CopyMark markUnfinishedCopy(const QByteArray &path)
{
    const int file = openForMark(path);
    // Should this fail, the worst is that the user is asked about a copy that is still worked on.
    if (file >= 0)
        flock(file, LOCK_SH | LOCK_NB);
    return file;
}

void closeCopyMark(CopyMark mark)
{
    if (mark != kNoCopyMark)
        close(int(mark));
}

bool isLeftoverCopy(const QByteArray &path)
{
    struct stat status = {};
    if (!isUnfinishedCopyName(path.mid(path.lastIndexOf('/') + 1))
        || lstat(path.constData(), &status) != 0 || status.st_uid != geteuid())
        return false;
    if (S_ISLNK(status.st_mode))
        return true;
    if (!S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode))
        return false;
    const int file = openForMark(path);
    if (file < 0)
        return false;
    const bool isUnmarked = flock(file, LOCK_EX | LOCK_NB) == 0;
    close(file);
    return isUnmarked;
}
