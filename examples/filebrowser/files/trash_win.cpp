// SPDX-License-Identifier: MIT
#include "trash.h"

#include "windowspath.h"

#include <algorithm>
#include <cerrno>

#include <shellapi.h>

namespace {

/// The path without the prefix that the shell does not know; empty if the shell would take it for
/// another one, because it is too long or ends with dots, blanks or the name of a device.
std::wstring shellPath(const QByteArray &path)
{
    const std::wstring full = windowsPath(path);
    const std::wstring share = L"\\\\?\\UNC\\";
    const std::wstring plain = full.compare(0, share.size(), share) == 0
        ? L"\\\\" + full.substr(share.size())
        : full.substr(std::min<size_t>(full.size(), 4));
    wchar_t understood[MAX_PATH] = {};
    const DWORD size = GetFullPathNameW(plain.c_str(), MAX_PATH, understood, nullptr);
    return size > 0 && size < MAX_PATH && plain == understood ? plain : std::wstring();
}

} // namespace

int moveToSharedTrash(const QByteArray &path, QByteArray *trashed)
{
    trashed->clear(); // The name in the recycle bin is not known.
    if (isRootOfDrives(path))
        return EINVAL;
    if (GetFileAttributesW(windowsPath(path).c_str()) == INVALID_FILE_ATTRIBUTES)
        return errorNumberOf(GetLastError());
    std::wstring from = shellPath(path);
    if (from.empty())
        return EINVAL;
    from += L'\0'; // The end of the list; the text has a null character of its own.
    SHFILEOPSTRUCTW operation = {};
    operation.wFunc = FO_DELETE;
    operation.pFrom = from.c_str();
    // Asks before it deletes what the recycle bin can't take.
    operation.fFlags =
        FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_SILENT | FOF_NOERRORUI | FOF_WANTNUKEWARNING;
    const int error = SHFileOperationW(&operation);
    if (error != 0)
        return errorNumberOf(DWORD(error));
    return operation.fAnyOperationsAborted ? ECANCELED : 0;
}
