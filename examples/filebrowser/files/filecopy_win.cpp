// SPDX-License-Identifier: MIT
#include "filecopy.h"

#include "windowspath.h"

#include <cerrno>

struct FileCopy::Files
{
    std::wstring toPath;
    FileHandle from;
    FileHandle to;
    BY_HANDLE_FILE_INFORMATION status = {};
};

namespace {

constexpr int kPiece = 256 * 1024; // bytes
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

FileHandle createFile(const std::wstring &path)
{
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, kShareAll, nullptr, CREATE_NEW,
        FILE_ATTRIBUTE_NORMAL, nullptr);
    return FileHandle(file == INVALID_HANDLE_VALUE ? nullptr : file);
}

bool writeAll(HANDLE file, const char *bytes, DWORD size)
{
    while (size > 0) {
        DWORD written = 0;
        if (!WriteFile(file, bytes, size, &written, nullptr))
            return false;
        bytes += written;
        size -= written;
    }
    return true;
}

} // namespace

FileCopy::FileCopy() = default;

FileCopy::~FileCopy() = default;

FileCopy::Side FileCopy::fail(Side side)
{
    m_error = errorNumberOf(GetLastError());
    close();
    return side;
}

FileCopy::Side FileCopy::open(const QByteArray &from, const QByteArray &to)
{
    m_copied = 0;
    m_files = std::make_unique<Files>();
    m_files->from = openEntry(from, GENERIC_READ, kShareAll);
    if (!m_files->from || !GetFileInformationByHandle(m_files->from.get(), &m_files->status))
        return fail(Side::Reading);
    constexpr DWORD kOther = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
    if (m_files->status.dwFileAttributes & kOther) {
        SetLastError(ERROR_NOT_SUPPORTED);
        return fail(Side::Reading);
    }
    m_files->toPath = windowsPath(to);
    m_files->to = createFile(m_files->toPath);
    if (!m_files->to)
        return fail(Side::Writing);
    m_piece.resize(kPiece);
    return Side::None;
}

FileCopy::Side FileCopy::copySome()
{
    DWORD size = 0;
    if (!ReadFile(m_files->from.get(), m_piece.data(), DWORD(m_piece.size()), &size, nullptr))
        return fail(Side::Reading);
    if (size == 0)
        return finish();
    if (!writeAll(m_files->to.get(), m_piece.constData(), size))
        return fail(Side::Writing);
    m_copied += size;
    return Side::None;
}

FileCopy::Side FileCopy::finish()
{
    // Not checked, because some file systems have no times or attributes; only the content matters.
    const BY_HANDLE_FILE_INFORMATION &status = m_files->status;
    SetFileTime(m_files->to.get(), nullptr, &status.ftLastAccessTime, &status.ftLastWriteTime);
    const std::wstring toPath = m_files->toPath;
    constexpr DWORD kKept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_READONLY;
    const DWORD attributes = status.dwFileAttributes & kKept;
    const bool isClosed = CloseHandle(m_files->to.release());
    if (!isClosed)
        return fail(Side::Writing);
    if (attributes)
        SetFileAttributesW(toPath.c_str(), attributes);
    close();
    return Side::None;
}

void FileCopy::close()
{
    m_files.reset();
}
