// SPDX-License-Identifier: MIT
#include "instances.h"
#include "instancesystem.h"

#include <QElapsedTimer>
#include <QLocalSocket>
#include <QTimer>

#include <windows.h>

std::unique_ptr<QObject> watchInput(const std::function<void(const QByteArray &)> &handle)
{
    auto clock = std::make_unique<QTimer>();
    QObject::connect(clock.get(), &QTimer::timeout, clock.get(), [handle] {
        // Windows does not report when a pipe has something to read.
        const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
        DWORD waiting = 0;
        const bool isOpen = PeekNamedPipe(input, nullptr, 0, nullptr, &waiting, nullptr);
        if (isOpen && waiting == 0)
            return;
        QByteArray bytes(int(waiting), Qt::Uninitialized);
        DWORD count = 0;
        if (!isOpen || !ReadFile(input, bytes.data(), waiting, &count, nullptr))
            count = 0;
        handle(bytes.left(int(count)));
    });
    clock->start(1);
    return clock;
}

quint32 userNumber()
{
    DWORD session = 0;
    ProcessIdToSessionId(GetCurrentProcessId(), &session);
    return session;
}

QString OwnTemporaryFolder::socketPath() const
{
    return QLatin1String("\\\\.\\pipe\\") + defaultSocketName();
}

struct RawPeer::Connection
{
    QLocalSocket socket;
};

RawPeer::RawPeer(const QString &address) : m_connection(std::make_unique<Connection>())
{
    m_connection->socket.connectToServer(address);
    if (!m_connection->socket.waitForConnected())
        close();
}

RawPeer::RawPeer(RawPeer &&other) noexcept = default;

RawPeer::~RawPeer() = default;

int RawPeer::send(const QByteArray &bytes) const
{
    const int count = int(m_connection->socket.write(bytes));
    m_connection->socket.flush();
    return std::max(0, count);
}

QByteArray RawPeer::receive() const
{
    m_connection->socket.waitForReadyRead(0);
    return m_connection->socket.readAll();
}

bool RawPeer::isClosedByOther() const
{
    QLocalSocket &socket = m_connection->socket;
    socket.waitForReadyRead(0);
    return socket.bytesAvailable() == 0 && socket.state() == QLocalSocket::UnconnectedState;
}

void RawPeer::close()
{
    m_connection.reset();
}
