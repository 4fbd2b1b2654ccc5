// SPDX-License-Identifier: MIT
#include "openfolder.h"

#include "nativename.h"
#include "windowspath.h"

#include <QFileInfo>
#include <QVector>

#include <algorithm>
#include <cwchar>

/// The drives, or a search with its next entry.
struct OpenFolder::Handle
{
    Handle() = default;
    ~Handle()
    {
        if (search != INVALID_HANDLE_VALUE)
            FindClose(search);
    }
    Q_DISABLE_COPY(Handle)

    QVector<FileEntry> drives;
    HANDLE search = INVALID_HANDLE_VALUE;
    WIN32_FIND_DATAW found = {};
    bool hasFound = false;
};

namespace {

QVector<FileEntry> drives()
{
    QVector<FileEntry> entries;
    const DWORD letters = GetLogicalDrives();
    for (int i = 0; i < 26; ++i) {
        if (!(letters >> i & 1))
            continue;
        FileEntry drive;
        drive.name = QLatin1Char(char('A' + i)) + QLatin1String(":");
        drive.isFolder = true;
        entries += drive;
    }
    return entries;
}

QDateTime timeOf(const FILETIME &stamp)
{
    constexpr qint64 kTicks = 10000; // per millisecond
    constexpr qint64 kEpoch = 11644473600000; // from 1601 to 1970, in milliseconds
    const qint64 ticks = (qint64(stamp.dwHighDateTime) << 32) + stamp.dwLowDateTime;
    return ticks == 0 ? QDateTime() : QDateTime::fromMSecsSinceEpoch(ticks / kTicks - kEpoch);
}

FileEntry entryOf(const WIN32_FIND_DATAW &found)
{
    FileEntry entry;
    entry.name = QString::fromWCharArray(found.cFileName);
    entry.isFolder = found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY;
    entry.isLink = found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT;
    entry.isWritable = !(found.dwFileAttributes & FILE_ATTRIBUTE_READONLY);
    if (!entry.isFolder)
        entry.size = (qint64(found.nFileSizeHigh) << 32) + found.nFileSizeLow;
    entry.modified = timeOf(found.ftLastWriteTime);
    entry.created = timeOf(found.ftCreationTime);
    return entry;
}

bool isItselfOrParent(const wchar_t *name)
{
    return std::wcscmp(name, L".") == 0 || std::wcscmp(name, L"..") == 0;
}

} // namespace

OpenFolder::OpenFolder(const QByteArray &path) : m_path(path), m_handle(std::make_unique<Handle>())
{
    if (isRootOfDrives(path)) {
        m_handle->drives = drives();
        return;
    }
    const std::wstring pattern = windowsPath(path) + L"\\*";
    m_handle->search = FindFirstFileW(pattern.c_str(), &m_handle->found);
    m_handle->hasFound = m_handle->search != INVALID_HANDLE_VALUE;
    const DWORD error = m_handle->hasFound ? ERROR_SUCCESS : GetLastError();
    // The root of an empty drive contains nothing, not even itself.
    const bool isEmptyDrive = error == ERROR_FILE_NOT_FOUND
        && GetFileAttributesW(windowsPath(path).c_str()) != INVALID_FILE_ATTRIBUTES;
    m_error = isEmptyDrive ? 0 : errorNumberOf(error);
}

OpenFolder::~OpenFolder() = default;

bool OpenFolder::next(FileEntry *entry)
{
    if (!m_handle->drives.isEmpty()) {
        *entry = m_handle->drives.takeFirst();
        return true;
    }
    if (!m_handle->hasFound) {
        if (!isRootOfDrives(m_path)
            && GetFileAttributesW(windowsPath(m_path).c_str()) == INVALID_FILE_ATTRIBUTES)
            m_error = errorNumberOf(GetLastError()); // deleted in the meantime
        return false;
    }
    if (!isItselfOrParent(m_handle->found.cFileName))
        *entry = entryOf(m_handle->found);
    m_handle->hasFound = FindNextFileW(m_handle->search, &m_handle->found);
    const DWORD error = m_handle->hasFound ? ERROR_SUCCESS : GetLastError();
    if (error != ERROR_SUCCESS && error != ERROR_NO_MORE_FILES)
        m_error = errorNumberOf(error);
    return true;
}
