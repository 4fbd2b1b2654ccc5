// SPDX-License-Identifier: MIT
#include "instances.h"
#include "instancesystem.h"

#include <QLocalSocket>

#include <thread>

#include <windows.h>

std::unique_ptr<QObject> watchInput(const std::function<void(const QByteArray &)> &handle)
{
    auto receiver = std::make_unique<QObject>();
    // Windows does not report when a pipe has something to read, so a thread waits in a call for
    // it. It ends with the input, before which the caller does not delete the receiver.
    std::thread([handle, target = receiver.get()] {
        DWORD count = 0;
        do {
            QByteArray bytes(4096, Qt::Uninitialized);
            const HANDLE input = GetStdHandle(STD_INPUT_HANDLE);
            if (!ReadFile(input, bytes.data(), DWORD(bytes.size()), &count, nullptr))
                count = 0;
            bytes.truncate(int(count));
            QMetaObject::invokeMethod(
                target, [handle, bytes] { handle(bytes); }, Qt::QueuedConnection);
        } while (count > 0);
    }).detach();
    return receiver;
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

struct RawPeer::Connection : QObject
{
    QLocalSocket socket;
};

RawPeer::RawPeer(const QString &address) : m_connection(std::make_unique<Connection>())
{
    m_connection->socket.connectToServer(address);
    if (!m_connection->socket.waitForConnected())
        m_connection.reset();
}

RawPeer::RawPeer(RawPeer &&other) noexcept = default;

RawPeer::~RawPeer() = default;

int RawPeer::send(const QByteArray &bytes) const
{
    if (isClosedByOther()) // Qt warns of such an attempt.
        return 0;
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
    // Qt's pipes have no buffers: a write lasts until the other side reads, and closing the pipe
    // before that takes it back.
    Connection *connection = m_connection.release();
    if (connection->socket.bytesToWrite() == 0)
        delete connection;
    else
        QObject::connect(
            &connection->socket, SIGNAL(bytesWritten(qint64)), connection, SLOT(deleteLater()));
}
