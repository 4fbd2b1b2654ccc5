// SPDX-License-Identifier: MIT
#include "app/localtransport_p.h"

#include "app/ownfile_unix_p.h"
#include "core/logging_p.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocalSocket>
#include <QRandomGenerator>
#include <QSocketNotifier>
#include <QTimer>

#include <cerrno>
#include <cstring>
#include <utility>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

constexpr int kAcceptsPerEvent = 16;
constexpr int kAcceptPause = 100; // Milliseconds, if the process has no file descriptor left.

/// A file descriptor that is closed by its destructor.
class Descriptor
{
public:
    explicit Descriptor(int number) : m_number(number) { }
    Descriptor(Descriptor &&other) noexcept : m_number(std::exchange(other.m_number, -1)) { }
    ~Descriptor() { close(); }
    Q_DISABLE_COPY(Descriptor)

    int number() const { return m_number; }
    bool isOpen() const { return m_number >= 0; }
    void close()
    {
        if (isOpen())
            ::close(std::exchange(m_number, -1));
    }

private:
    int m_number;
};

/// An unpredictable name in the folder of address. It is shorter than address, so that it does not
/// exceed the maximum length either.
QByteArray privateNameBeside(const QString &address)
{
    const QString name = QStringLiteral(".q%1").arg(QRandomGenerator::system()->generate(), 8, 16);
    return QFile::encodeName(QFileInfo(address).path() + QLatin1Char('/') + name);
}

bool bindTo(int descriptor, const QByteArray &path)
{
    struct sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    if (path.size() >= int(sizeof(address.sun_path))) {
        errno = ENAMETOOLONG;
        return false;
    }
    std::memcpy(address.sun_path, path.constData(), size_t(path.size()));
    return bind(descriptor, reinterpret_cast<const sockaddr *>(&address), sizeof(address)) == 0;
}

/// Binds and listens under a private name first, so that the socket appears at the address in one
/// step, with its permissions set and already accepting connections.
bool publish(int descriptor, const QString &address)
{
    const QByteArray target = QFile::encodeName(address);
    const QByteArray privateName = privateNameBeside(address);
    if (target.size() >= int(sizeof(sockaddr_un::sun_path))) {
        errno = ENAMETOOLONG;
        return false;
    }
    if (descriptor < 0 || !bindTo(descriptor, privateName))
        return false;
    if (chmod(privateName.constData(), S_IRUSR | S_IWUSR) == 0 && listen(descriptor, SOMAXCONN) == 0
        && rename(privateName.constData(), target.constData()) == 0)
        return true;
    const int error = errno;
    unlink(privateName.constData());
    errno = error;
    return false;
}

} // namespace

struct LocalStream::Handle
{
    explicit Handle(Descriptor socket)
        : descriptor(std::move(socket)), notifier(descriptor.number(), QSocketNotifier::Read)
    {
    }

    Descriptor descriptor;
    QSocketNotifier notifier; // Destroyed before the descriptor that it watches.
};

LocalStream::LocalStream(std::unique_ptr<Handle> handle) : m_handle(std::move(handle))
{
    connect(&m_handle->notifier,
        SIGNAL(activated(QSocketDescriptor,QSocketNotifier::Type)), this, SIGNAL(readyRead()));
}

LocalStream::~LocalStream() = default;

int LocalStream::read(char *bytes, int size)
{
    if (!m_handle->descriptor.isOpen())
        return -1;
    const ssize_t count = recv(m_handle->descriptor.number(), bytes, size_t(size), 0);
    if (count > 0)
        return int(count);
    const bool isNothingYet = count < 0 && (errno == EAGAIN || errno == EINTR);
    return isNothingYet ? 0 : -1;
}

void LocalStream::stopReading()
{
    m_handle->notifier.setEnabled(false);
}

void LocalStream::finish(const QByteArray &bytes)
{
    // The buffer always has room for a few bytes: nothing was written to this connection before.
    if (m_handle->descriptor.isOpen())
        send(m_handle->descriptor.number(), bytes.constData(), size_t(bytes.size()), MSG_NOSIGNAL);
    close();
}

void LocalStream::close()
{
    if (!m_handle->descriptor.isOpen())
        return;
    // Only disabled, not deleted: the notifier itself may be calling us.
    m_handle->notifier.setEnabled(false);
    // Closing is not enough: a process being started may have a copy of the descriptor.
    shutdown(m_handle->descriptor.number(), SHUT_RDWR);
    m_handle->descriptor.close();
}

struct LocalListener::Handle
{
    Handle(const QString &address, Descriptor socket)
        : address(address), descriptor(std::move(socket)),
          notifier(descriptor.number(), QSocketNotifier::Read),
          identity(inspectFile(address, OwnFile::Socket).identity)
    {
    }

    bool standsAtAddress() const
    {
        const OwnFile found = inspectFile(address, OwnFile::Socket);
        return found.exists && found.identity == identity;
    }

    const QString address;
    Descriptor descriptor;
    QSocketNotifier notifier;
    const FileIdentity identity;
    bool isPaused = false;
    bool hasWarned = false;
};

LocalListener::LocalListener() = default;

LocalListener::~LocalListener() = default;

bool LocalListener::listen(const QString &address, QString *refusal)
{
    const bool isPaused = m_handle && m_handle->isPaused;
    close(KeepFile);
    *refusal = inspectFile(address, OwnFile::Socket).refusal;
    if (!refusal->isEmpty())
        return false;
    Descriptor socket(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (!publish(socket.number(), address)) {
        *refusal = systemError();
        return false;
    }
    m_handle = std::make_unique<Handle>(address, std::move(socket));
    connect(&m_handle->notifier,
        SIGNAL(activated(QSocketDescriptor,QSocketNotifier::Type)), this, SLOT(acceptWaiting()));
    setPaused(isPaused);
    return true;
}

bool LocalListener::isListening() const
{
    return m_handle && m_handle->standsAtAddress();
}

void LocalListener::setPaused(bool paused)
{
    if (!m_handle)
        return;
    m_handle->isPaused = paused;
    m_handle->notifier.setEnabled(!paused);
}

void LocalListener::close(CloseMode mode)
{
    if (mode == RemoveFile && isListening())
        unlink(QFile::encodeName(m_handle->address).constData());
    if (m_handle)
        shutdown(m_handle->descriptor.number(), SHUT_RDWR);
    m_handle.reset();
}

void LocalListener::acceptWaiting()
{
    for (int i = 0; i < kAcceptsPerEvent && m_handle && !m_handle->isPaused; ++i) {
        Descriptor socket(
            accept4(m_handle->descriptor.number(), nullptr, nullptr, SOCK_CLOEXEC | SOCK_NONBLOCK));
        if (!socket.isOpen()) {
            if (errno != EAGAIN && errno != EINTR && errno != ECONNABORTED)
                pauseAfterError();
            return;
        }
        m_handle->hasWarned = false;
        Q_EMIT streamOpened(
            new LocalStream(std::make_unique<LocalStream::Handle>(std::move(socket))));
    }
}

void LocalListener::resume()
{
    if (m_handle)
        setPaused(m_handle->isPaused);
}

void LocalListener::pauseAfterError()
{
    const QString error = systemError();
    if (!std::exchange(m_handle->hasWarned, true))
        qCWarning(vemoLog) << "Cannot accept messages of other instances for now:" << error;
    m_handle->notifier.setEnabled(false);
    QTimer::singleShot(kAcceptPause, this, SLOT(resume()));
}

namespace LocalTransport {

QString defaultId()
{
    return QCoreApplication::applicationFilePath();
}

quint32 userNumber()
{
    return getuid();
}

QString addressOf(const QString &socketName)
{
    return QDir::current().absoluteFilePath(QDir::tempPath() + QLatin1Char('/') + socketName);
}

QString refusalOf(const QString &address)
{
    return inspectFile(address, OwnFile::Socket).refusal;
}

bool isOwnUser(const QLocalSocket &socket)
{
    struct ucred other = {};
    socklen_t size = sizeof(other);
    return getsockopt(int(socket.socketDescriptor()), SOL_SOCKET, SO_PEERCRED, &other, &size) == 0
        && other.uid == geteuid();
}

QStringList removableFiles(const QString &address, const QString &lockPath)
{
    return {address, lockPath};
}

} // namespace LocalTransport
