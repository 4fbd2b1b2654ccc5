// SPDX-License-Identifier: MIT
#include "filecopy.h"

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace {

constexpr int kPiece = 256 * 1024; // bytes

bool writeAll(int file, const char *bytes, ssize_t size)
{
    while (size > 0) {
        const ssize_t written = write(file, bytes, size_t(size));
        if (written < 0 && errno != EINTR)
            return false;
        bytes += qMax<ssize_t>(written, 0);
        size -= qMax<ssize_t>(written, 0);
    }
    return true;
}

void closeFile(int *file)
{
    if (*file >= 0)
        ::close(std::exchange(*file, -1));
}

} // namespace

FileCopy::Side FileCopy::fail(Side side)
{
    m_error = errno;
    close();
    return side;
}

FileCopy::Side FileCopy::open(const QByteArray &from, const QByteArray &to)
{
    m_copied = 0;
    // O_NONBLOCK: if a pipe has replaced the file, opening it would block forever.
    m_from = ::open(from.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (m_from < 0 || fstat(m_from, &m_status) != 0)
        return fail(Side::Reading);
    if (!S_ISREG(m_status.st_mode)) {
        errno = EOPNOTSUPP;
        return fail(Side::Reading);
    }
    m_to = ::open(to.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (m_to < 0)
        return fail(Side::Writing);
    m_piece.resize(kPiece);
    return Side::None;
}

FileCopy::Side FileCopy::copySome()
{
    const ssize_t size = read(m_from, m_piece.data(), size_t(m_piece.size()));
    if (size < 0)
        return errno == EINTR ? Side::None : fail(Side::Reading);
    if (size == 0)
        return finish();
    if (!writeAll(m_to, m_piece.constData(), size))
        return fail(Side::Writing);
    m_copied += size;
    return Side::None;
}

FileCopy::Side FileCopy::finish()
{
    // Ignored, because some file systems have no permissions or times; only the content matters.
    if (fchmod(m_to, m_status.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO)) != 0)
        errno = 0;
    const timespec times[] = {m_status.st_atim, m_status.st_mtim};
    if (futimens(m_to, times) != 0)
        errno = 0;
    // Some file systems only report on closing that the disk is full.
    if (::close(std::exchange(m_to, -1)) != 0)
        return fail(Side::Writing);
    close();
    return Side::None;
}

void FileCopy::close()
{
    closeFile(&m_from);
    closeFile(&m_to);
}
