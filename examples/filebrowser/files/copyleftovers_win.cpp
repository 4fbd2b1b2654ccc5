// SPDX-License-Identifier: MIT
#include "copyleftovers.h"

#include "windowspath.h"

// The mark is a handle for reading: while there is one, nobody can open the copy for themselves
// alone. Folders have none, because an open folder can't be renamed everywhere.

namespace {

bool isFile(const QByteArray &path)
{
    const DWORD attributes = GetFileAttributesW(windowsPath(path).c_str());
    constexpr DWORD kOther = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & kOther);
}

} // namespace

CopyMark markUnfinishedCopy(const QByteArray &path)
{
    if (!isFile(path))
        return kNoCopyMark;
    FileHandle mark =
        openEntry(path, GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE);
    return mark ? reinterpret_cast<CopyMark>(mark.release()) : kNoCopyMark;
}

void closeCopyMark(CopyMark mark)
{
    if (mark != kNoCopyMark)
        CloseHandle(reinterpret_cast<HANDLE>(mark));
}

bool isLeftoverCopy(const QByteArray &path)
{
    return isUnfinishedCopyName(path.mid(path.lastIndexOf('/') + 1)) && isFile(path)
        && openEntry(path, GENERIC_READ, 0) != nullptr;
}
