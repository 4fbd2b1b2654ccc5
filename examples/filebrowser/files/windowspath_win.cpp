// SPDX-License-Identifier: MIT
#include "windowspath.h"

#include "nativename.h"

#include <QDir>

#include <cerrno>

QString withoutRoot(const QString &path)
{
    const bool hasDrive =
        path.size() > 2 && path[0] == QLatin1Char('/') && path[2] == QLatin1Char(':');
    return hasDrive ? path.mid(1) : path;
}

bool isRootOfDrives(const QByteArray &path)
{
    return path.isEmpty() || path == "/";
}

std::wstring windowsPath(const QByteArray &path)
{
    if (isRootOfDrives(path))
        return {};
    QString text = withoutRoot(fromNativeName(path));
    const bool isDrive = text.size() == 2 && text[1] == QLatin1Char(':');
    if (isDrive)
        text += QLatin1Char('/');
    const bool isShare = text.startsWith(QLatin1String("//"));
    const QString native = QDir::toNativeSeparators(text);
    const QString full =
        isShare ? QLatin1String("\\\\?\\UNC\\") + native.mid(2) : QLatin1String("\\\\?\\") + native;
    return full.toStdWString();
}

int errorNumberOf(DWORD error)
{
    switch (error) {
    case ERROR_SUCCESS:
        return 0;
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
        return ENOENT;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_WRITE_PROTECT:
        return EACCES;
    case ERROR_ALREADY_EXISTS:
    case ERROR_FILE_EXISTS:
        return EEXIST;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return ENOSPC;
    case ERROR_NOT_SAME_DEVICE:
        return EXDEV;
    case ERROR_DIR_NOT_EMPTY:
        return ENOTEMPTY;
    case ERROR_DIRECTORY:
        return ENOTDIR;
    case ERROR_FILENAME_EXCED_RANGE:
        return ENAMETOOLONG;
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_INVALID_PARAMETER:
        return EINVAL;
    case ERROR_NOT_SUPPORTED:
        return ENOSYS;
    default:
        return EIO;
    }
}

FileHandle openEntry(const QByteArray &path, DWORD access, DWORD share)
{
    // Backup semantics are what opens folders.
    const HANDLE file = CreateFileW(windowsPath(path).c_str(), access, share, nullptr,
        OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    return FileHandle(file == INVALID_HANDLE_VALUE ? nullptr : file);
}
