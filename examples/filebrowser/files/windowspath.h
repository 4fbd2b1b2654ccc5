// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <string>

#include <windows.h>

/// The path for calls of Windows: of any length, and its last part taken literally, whatever dots,
/// blanks or device names it has. The root "/", which contains the drives, has none and yields an
/// empty text.
std::wstring windowsPath(const QByteArray &path);

/// "C:/Users" for "/C:/Users".
QString withoutRoot(const QString &path);

/// Whether path is the root, which contains the drives.
bool isRootOfDrives(const QByteArray &path);

/// The error number for one of Windows.
int errorNumberOf(DWORD error);

struct FileHandleCloser
{
    using pointer = HANDLE;
    void operator()(HANDLE file) const { CloseHandle(file); }
};
using FileHandle = std::unique_ptr<HANDLE, FileHandleCloser>;

/// Opens a file or folder, or a link itself; null and Windows' own last error if that fails.
FileHandle openEntry(const QByteArray &path, DWORD access, DWORD share);
