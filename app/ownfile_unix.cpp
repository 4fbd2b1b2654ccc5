// SPDX-License-Identifier: MIT
#include "app/ownfile_unix_p.h"

#include <QFile>

#include <cerrno>

#include <sys/stat.h>
#include <unistd.h>

namespace {

QString refusalOf(const struct stat &status, OwnFile::Kind kind)
{
    if (S_ISLNK(status.st_mode))
        return QStringLiteral("it is a symbolic link");
    if (kind == OwnFile::Plain && !S_ISREG(status.st_mode))
        return QStringLiteral("it is not a file");
    // A regular file is treated like a socket without a listener: the next listener replaces it.
    if (kind == OwnFile::Socket && !S_ISSOCK(status.st_mode) && !S_ISREG(status.st_mode))
        return QStringLiteral("it is not a socket");
    if (status.st_uid != geteuid())
        return QStringLiteral("it belongs to another user");
    if (status.st_nlink > 1)
        return QStringLiteral("it has a second name");
    return {};
}

} // namespace

OwnFile inspectFile(const QString &path, OwnFile::Kind kind)
{
    OwnFile file;
    struct stat status = {};
    if (lstat(QFile::encodeName(path).constData(), &status) == 0) {
        file.exists = true;
        file.identity = identityOf(status);
        file.refusal = refusalOf(status, kind);
    } else if (errno != ENOENT) {
        file.refusal = systemError();
    }
    return file;
}

FileIdentity identityOf(const struct stat &status)
{
    return {quint64(status.st_dev), quint64(status.st_ino)};
}

QString systemError()
{
    return qt_error_string(errno);
}
