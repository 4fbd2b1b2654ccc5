// SPDX-License-Identifier: MIT
#include "paths.h"

#include "nativename.h"

#include <sys/stat.h>
#include <unistd.h>

QString pathFromQt(const QString &path)
{
    return path;
}

QString pathForUsers(const QString &path)
{
    return path;
}

bool pathExists(const QString &path)
{
    struct stat status = {};
    return lstat(toNativeName(path).constData(), &status) == 0;
}

bool isFolderAt(const QString &path)
{
    struct stat status = {};
    return stat(toNativeName(path).constData(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool isWritableFolder(const QString &path)
{
    return access(toNativeName(path).constData(), W_OK) == 0;
}
