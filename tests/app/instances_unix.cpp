// SPDX-License-Identifier: MIT
#include "instances.h"
#include "instancesystem.h"

#include <QFile>
#include <QSocketNotifier>

#include <algorithm>
#include <cerrno>
#include <csignal>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

std::unique_ptr<QObject> watchInput(const std::function<void(const QByteArray &)> &handle)
{
    auto input = std::make_unique<QSocketNotifier>(STDIN_FILENO, QSocketNotifier::Read);
    QObject::connect(input.get(), &QSocketNotifier::activated, input.get(), [handle] {
        char bytes[4096];
        const ssize_t count = read(STDIN_FILENO, bytes, sizeof(bytes));
        handle(QByteArray(bytes, int(std::max(ssize_t(0), count))));
    });
    return input;
}

quint32 userNumber()
{
    return getuid();
}

QString OwnTemporaryFolder::socketPath() const
{
    return path() + QLatin1Char('/') + defaultSocketName();
}

void ChildInstance::signal(int number)
{
    ::kill(pid_t(m_process.processId()), number);
}

struct RawPeer::Connection
{
    explicit Connection(int descriptor) : descriptor(descriptor) { }
    ~Connection() { ::close(descriptor); }
    Q_DISABLE_COPY(Connection)

    const int descriptor;
};

RawPeer::RawPeer(const QString &address)
    : m_connection(std::make_unique<Connection>(
        socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0)))
{
    struct sockaddr_un name = {};
    name.sun_family = AF_UNIX;
    qstrncpy(name.sun_path, QFile::encodeName(address).constData(), sizeof(name.sun_path));
    const auto *place = reinterpret_cast<const sockaddr *>(&name);
    if (connect(m_connection->descriptor, place, sizeof(name)) != 0)
        close();
}

RawPeer::RawPeer(RawPeer &&other) noexcept = default;

RawPeer::~RawPeer() = default;

int RawPeer::send(const QByteArray &bytes) const
{
    if (!m_connection)
        return 0;
    const ssize_t count =
        ::send(m_connection->descriptor, bytes.constData(), size_t(bytes.size()), MSG_NOSIGNAL);
    return int(std::max(ssize_t(0), count));
}

QByteArray RawPeer::receive() const
{
    if (!m_connection)
        return {};
    char bytes[4096];
    const ssize_t count = recv(m_connection->descriptor, bytes, sizeof(bytes), 0);
    return count > 0 ? QByteArray(bytes, int(count)) : QByteArray();
}

bool RawPeer::isClosedByOther() const
{
    if (!m_connection)
        return true;
    char byte;
    const ssize_t count = recv(m_connection->descriptor, &byte, 1, MSG_PEEK);
    return count == 0 || (count < 0 && errno != EAGAIN);
}

void RawPeer::close()
{
    m_connection.reset();
}
