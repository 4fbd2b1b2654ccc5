// SPDX-License-Identifier: MIT
#include "nativefiles.h"

#include "nativename.h"
#include "windowspath.h"

#include <QStringList>

#include <algorithm>
#include <cerrno>
#include <vector>

struct NameStream
{
    HANDLE search;
    WIN32_FIND_DATAW found; ///< The next entry, if there is one.
    DWORD error; ///< of the last call
};

void CloseNames::operator()(NameStream *names) const
{
    FindClose(names->search);
    delete names;
}

namespace {

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

int lastError()
{
    return errorNumberOf(GetLastError());
}

bool isDeviceName(const QString &name)
{
    static const QStringList devices {"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"};
    static const QString digits = QStringLiteral("0123456789\u00B9\u00B2\u00B3");
    const QString stem = name.section(QLatin1Char('.'), 0, 0).trimmed().toUpper();
    const bool isPort = stem.size() == 4
        && (stem.startsWith(QLatin1String("COM")) || stem.startsWith(QLatin1String("LPT")));
    return devices.contains(stem) || (isPort && digits.contains(stem[3]));
}

QString finalPath(HANDLE file)
{
    std::vector<wchar_t> path(32768);
    const DWORD size = GetFinalPathNameByHandleW(file, path.data(), DWORD(path.size()), 0);
    return size < path.size() ? QString::fromWCharArray(path.data(), int(size)) : QString();
}

void setTimes(HANDLE from, HANDLE to)
{
    FILETIME access = {};
    FILETIME write = {};
    if (GetFileTime(from, nullptr, &access, &write))
        SetFileTime(to, nullptr, &access, &write);
}

} // namespace

bool isNameTooLong(const QString &, const QString &name)
{
    return name.size() > kLongestName;
}

/// Programs that don't take names literally would open another file, a device or a stream, or none.
bool isNameReserved(const QString &name)
{
    const auto isForbidden = [](QChar c) {
        return c < QLatin1Char(' ') || QStringLiteral("<>:\"\\|?*").contains(c);
    };
    const bool endsBadly = name.endsWith(QLatin1Char('.')) || name.endsWith(QLatin1Char(' '));
    return endsBadly || isDeviceName(name) || std::any_of(name.begin(), name.end(), isForbidden);
}

bool isOtherCase(const QString &name, const QString &other)
{
    return name != other && name.compare(other, Qt::CaseInsensitive) == 0;
}

int makeFolder(const QByteArray &path)
{
    return CreateDirectoryW(windowsPath(path).c_str(), nullptr) ? 0 : lastError();
}

int makeOwnFolder(const QByteArray &path)
{
    return makeFolder(path); // It inherits the access rights of the folder that contains it.
}

int describeItem(CopyItem *item)
{
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    if (isRootOfDrives(item->from)) {
        item->kind = CopyItem::Other;
        return 0;
    }
    if (!GetFileAttributesExW(windowsPath(item->from).c_str(), GetFileExInfoStandard, &data))
        return lastError();
    if (data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT)
        item->kind = CopyItem::Link;
    else if (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
        item->kind = CopyItem::Folder;
    else
        item->kind = CopyItem::File;
    const bool isFile = item->kind == CopyItem::File;
    item->size = isFile ? (qint64(data.nFileSizeHigh) << 32) + data.nFileSizeLow : 0;
    return 0;
}

int openNames(const QByteArray &folder, FolderNames *names)
{
    WIN32_FIND_DATAW found = {};
    const std::wstring path = windowsPath(folder) + L"\\*";
    const HANDLE search = FindFirstFileW(path.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return lastError();
    names->reset(new NameStream {search, found, ERROR_SUCCESS});
    return 0;
}

int nextName(NameStream *names, QByteArray *name)
{
    name->clear();
    if (names->error != ERROR_SUCCESS)
        return names->error == ERROR_NO_MORE_FILES ? 0 : errorNumberOf(names->error);
    *name = toNativeName(QString::fromWCharArray(names->found.cFileName));
    names->error = FindNextFileW(names->search, &names->found) ? ERROR_SUCCESS : GetLastError();
    return 0;
}

/// By the paths that Windows has for the two, which differ neither by links nor by case.
bool isInside(const QByteArray &folder, const QByteArray &path)
{
    const FileHandle outer = openEntry(path, 0, kShareAll);
    const FileHandle inner(CreateFileW(windowsPath(folder).c_str(), 0, kShareAll, nullptr,
        OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    if (!outer || inner.get() == INVALID_HANDLE_VALUE)
        return false;
    const QString outerPath = finalPath(outer.get());
    const QString innerPath = finalPath(inner.get());
    const auto separator = QLatin1Char('\\');
    const QString start = outerPath.endsWith(separator) ? outerPath : outerPath + separator;
    return !outerPath.isEmpty() && (innerPath + separator).startsWith(start, Qt::CaseInsensitive);
}

/// Deliberate: links are not copied, since most users may not make any.
int readLink(const QByteArray &, QByteArray *)
{
    return ENOSYS;
}

int makeLink(const QByteArray &, const QByteArray &)
{
    return ENOSYS;
}

void copyTimesOfLink(const QByteArray &, const QByteArray &) { }

void copyAttributes(const QByteArray &from, const QByteArray &to)
{
    const FileHandle source = openEntry(from, FILE_READ_ATTRIBUTES, kShareAll);
    const FileHandle copy = openEntry(to, FILE_WRITE_ATTRIBUTES, kShareAll);
    if (source && copy)
        setTimes(source.get(), copy.get());
    constexpr DWORD kKept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_READONLY;
    const DWORD attributes = GetFileAttributesW(windowsPath(from).c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & kKept))
        SetFileAttributesW(windowsPath(to).c_str(), attributes & kKept);
}

int removeEntry(const QByteArray &path, bool isFolder)
{
    const std::wstring native = windowsPath(path);
    // What is read-only could not be removed.
    const auto removeIt = [&] {
        return isFolder ? RemoveDirectoryW(native.c_str()) : DeleteFileW(native.c_str());
    };
    if (removeIt())
        return 0;
    const int error = lastError();
    if (error != EACCES || !SetFileAttributesW(native.c_str(), FILE_ATTRIBUTE_NORMAL))
        return error;
    return removeIt() ? 0 : lastError();
}

/// Attributes of a folder don't keep anybody from changing it.
bool allowChanges(const QByteArray &)
{
    return false;
}
