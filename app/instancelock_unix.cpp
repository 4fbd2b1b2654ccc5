// SPDX-License-Identifier: MIT
#include "app/instancelock_p.h"

#include "app/ownfile_unix_p.h"

#include <QFile>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

// How often the file may be replaced between opening and locking before we give up.
constexpr int kAttempts = 100;

// Locks of open files and locks of processes exclude each other, but the former are not lost when
// other code in this process opens and closes the file.
#ifdef F_OFD_SETLK
constexpr int kSetLock = F_OFD_SETLK;
#else
constexpr int kSetLock = F_SETLK;
#endif

bool setLock(int descriptor, short type)
{
    struct flock whole = {};
    whole.l_type = type;
    whole.l_whence = SEEK_SET;
    return fcntl(descriptor, kSetLock, &whole) == 0;
}

} // namespace

struct InstanceLock::Handle
{
    ~Handle()
    {
        if (descriptor < 0)
            return;
        // Closing is not enough: a process being started may have a copy of the descriptor.
        setLock(descriptor, F_UNLCK);
        close(descriptor);
    }

    /// Opens the file and makes sure that it is the one that was inspected.
    bool open(const QString &path, QString *refusal)
    {
        const OwnFile found = inspectFile(path, OwnFile::Plain);
        *refusal = found.refusal;
        if (!refusal->isEmpty())
            return false;
        descriptor = ::open(QFile::encodeName(path).constData(),
            O_RDWR | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC, S_IRUSR | S_IWUSR);
        struct stat status = {};
        if (descriptor < 0 || fstat(descriptor, &status) != 0) {
            *refusal = systemError();
            return false;
        }
        identity = identityOf(status);
        return true;
    }

    /// Whether path still refers to the opened file, and we may use it.
    bool standsAt(const QString &path, QString *refusal) const
    {
        const OwnFile found = inspectFile(path, OwnFile::Plain);
        *refusal = found.refusal;
        return found.exists && found.identity == identity && refusal->isEmpty();
    }

    int descriptor = -1;
    FileIdentity identity;
};

InstanceLock::InstanceLock(const QString &path) : m_path(path) { }

InstanceLock::~InstanceLock() = default;

InstanceLock::Result InstanceLock::take()
{
    if (isHeld())
        return Taken;
    for (int i = 0; i < kAttempts; ++i) {
        auto handle = std::make_unique<Handle>();
        if (!handle->open(m_path, &m_refusal))
            return Refused;
        if (!setLock(handle->descriptor, F_WRLCK)) {
            if (errno != EAGAIN && errno != EACCES) {
                m_refusal = systemError();
                return Refused;
            }
            m_handle.reset();
            return HeldElsewhere;
        }
        if (handle->standsAt(m_path, &m_refusal)) {
            fchmod(handle->descriptor, S_IRUSR | S_IWUSR);
            m_handle = std::move(handle);
            return Taken;
        }
        if (!m_refusal.isEmpty())
            return Refused;
    }
    return HeldElsewhere;
}

void InstanceLock::release()
{
    m_handle.reset();
}

bool InstanceLock::isHeld() const
{
    QString refusal;
    return m_handle && m_handle->standsAt(m_path, &refusal);
}

QString InstanceLock::refusal() const
{
    return m_refusal;
}
