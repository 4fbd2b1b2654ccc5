// SPDX-License-Identifier: MIT
#include "paths.h"

#include "nativename.h"
#include "windowspath.h"

#include <QDir>

QString pathFromQt(const QString &path)
{
    const bool hasDrive = path.size() > 1 && path[1] == QLatin1Char(':');
    return hasDrive ? QLatin1Char('/') + path : path;
}

QString pathForUsers(const QString &path)
{
    if (isRootOfDrives(toNativeName(path)))
        return path;
    return QDir::toNativeSeparators(withoutRoot(path));
}

bool pathExists(const QString &path)
{
    const QByteArray native = toNativeName(path);
    return isRootOfDrives(native)
        || GetFileAttributesW(windowsPath(native).c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool isFolderAt(const QString &path)
{
    const QByteArray native = toNativeName(path);
    if (isRootOfDrives(native))
        return true;
    const DWORD attributes = GetFileAttributesW(windowsPath(native).c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

bool isWritableFolder(const QString &path)
{
    const QByteArray native = toNativeName(path);
    constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    return !isRootOfDrives(native) && openEntry(native, FILE_ADD_FILE, kShareAll) != nullptr;
}
