// SPDX-License-Identifier: MIT
#include "filecopy.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

struct FileCopy::Files
{
    Files() = default;
    ~Files()
    {
        for (const int file : {from, to}) {
            if (file >= 0)
                ::close(file);
        }
    }
    Q_DISABLE_COPY(Files)

    int from = -1;
    int to = -1;
    struct stat status = {};
};

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

} // namespace

FileCopy::FileCopy() = default;

FileCopy::~FileCopy() = default;

FileCopy::Side FileCopy::fail(Side side)
{
    m_error = errno;
    close();
    return side;
}

FileCopy::Side FileCopy::open(const QByteArray &from, const QByteArray &to)
{
    m_copied = 0;
    m_files = std::make_unique<Files>();
    // O_NONBLOCK: if a pipe has replaced the file, opening it would block forever.
    m_files->from = ::open(from.constData(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (m_files->from < 0 || fstat(m_files->from, &m_files->status) != 0)
        return fail(Side::Reading);
    if (!S_ISREG(m_files->status.st_mode)) {
        errno = EOPNOTSUPP;
        return fail(Side::Reading);
    }
    m_files->to =
        ::open(to.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, S_IRUSR | S_IWUSR);
    if (m_files->to < 0)
        return fail(Side::Writing);
    m_piece.resize(kPiece);
    return Side::None;
}

FileCopy::Side FileCopy::copySome()
{
    const ssize_t size = read(m_files->from, m_piece.data(), size_t(m_piece.size()));
    if (size < 0)
        return errno == EINTR ? Side::None : fail(Side::Reading);
    if (size == 0)
        return finish();
    if (!writeAll(m_files->to, m_piece.constData(), size))
        return fail(Side::Writing);
    m_copied += size;
    return Side::None;
}

FileCopy::Side FileCopy::finish()
{
    // Ignored, because some file systems have no permissions or times; only the content matters.
    if (fchmod(m_files->to, m_files->status.st_mode & (S_IRWXU | S_IRWXG | S_IRWXO)) != 0)
        errno = 0;
    const timespec times[] = {m_files->status.st_atim, m_files->status.st_mtim};
    if (futimens(m_files->to, times) != 0)
        errno = 0;
    // Some file systems only report on closing that the disk is full.
    if (::close(std::exchange(m_files->to, -1)) != 0)
        return fail(Side::Writing);
    close();
    return Side::None;
}

void FileCopy::close()
{
    m_files.reset();
}
