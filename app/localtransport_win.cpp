// SPDX-License-Identifier: MIT
#include "app/localtransport_p.h"

#include <QCoreApplication>
#include <QLocalServer>
#include <QLocalSocket>
#include <QStringList>
#include <QTimer>

#include <memory>
#include <type_traits>
#include <vector>

#include <windows.h>

namespace {

constexpr int kAnswerPatience = 5000; // Milliseconds for the other side to read our answer.

struct HandleCloser
{
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using OwnedHandle = std::unique_ptr<std::remove_pointer_t<HANDLE>, HandleCloser>;

/// The TOKEN_USER of a process; empty if it cannot be queried.
std::vector<char> userOf(HANDLE process)
{
    HANDLE token = nullptr;
    if (!process || !OpenProcessToken(process, TOKEN_QUERY, &token))
        return {};
    const OwnedHandle owned(token);
    DWORD size = 0;
    GetTokenInformation(token, TokenUser, nullptr, 0, &size);
    std::vector<char> user(size);
    if (!GetTokenInformation(token, TokenUser, user.data(), size, &size))
        return {};
    return user;
}

PSID identifierIn(std::vector<char> &user)
{
    return reinterpret_cast<TOKEN_USER *>(user.data())->User.Sid;
}

} // namespace

struct LocalStream::Handle
{
    explicit Handle(QLocalSocket *socket) : socket(socket) { }

    std::unique_ptr<QLocalSocket> socket;
};

LocalStream::LocalStream(std::unique_ptr<Handle> handle) : m_handle(std::move(handle))
{
    QLocalSocket *socket = m_handle->socket.get();
    socket->setParent(nullptr);
    socket->setReadBufferSize(64 * 1024);
    connect(socket, SIGNAL(readyRead()), this, SIGNAL(readyRead()));
    connect(socket, SIGNAL(disconnected()), this, SIGNAL(readyRead()));
    // For data that arrived before we connected to the signals.
    QMetaObject::invokeMethod(this, "readyRead", Qt::QueuedConnection);
}

LocalStream::~LocalStream()
{
    close();
}

int LocalStream::read(char *bytes, int size)
{
    if (!m_handle)
        return -1;
    QLocalSocket &socket = *m_handle->socket;
    const int count = int(socket.read(bytes, size));
    const bool isOver = socket.state() != QLocalSocket::ConnectedState;
    if (count <= 0)
        return isOver ? -1 : 0;
    // The socket signals new data, but not remaining data.
    if (socket.bytesAvailable() > 0 || isOver)
        QMetaObject::invokeMethod(this, "readyRead", Qt::QueuedConnection);
    return count;
}

void LocalStream::stopReading()
{
    if (m_handle)
        m_handle->socket->disconnect(this);
}

void LocalStream::finish(const QByteArray &bytes)
{
    if (!m_handle)
        return;
    // Closing a pipe discards data that the other side has not read, so it stays open until then.
    QLocalSocket *socket = m_handle->socket.release();
    m_handle.reset();
    socket->disconnect(this);
    connect(socket, SIGNAL(disconnected()), socket, SLOT(deleteLater()));
    QTimer::singleShot(kAnswerPatience, socket, SLOT(deleteLater()));
    socket->write(bytes);
    socket->flush();
}

void LocalStream::close()
{
    if (!m_handle)
        return;
    // Deleted later, because the socket itself may be calling us.
    QLocalSocket *socket = m_handle->socket.release();
    m_handle.reset();
    socket->disconnect(this);
    socket->deleteLater();
}

struct LocalListener::Handle
{
    QLocalServer server;
    bool isPaused = false;
};

LocalListener::LocalListener() = default;

LocalListener::~LocalListener() = default;

bool LocalListener::listen(const QString &address, QString *refusal)
{
    close(KeepFile);
    auto handle = std::make_unique<Handle>();
    handle->server.setSocketOptions(QLocalServer::UserAccessOption);
    if (!handle->server.listen(address)) {
        *refusal = handle->server.errorString();
        return false;
    }
    m_handle = std::move(handle);
    connect(&m_handle->server, SIGNAL(newConnection()), this, SLOT(acceptWaiting()));
    // For those who connected while the server made its pipes: it has already signalled them.
    QMetaObject::invokeMethod(this, "acceptWaiting", Qt::QueuedConnection);
    return true;
}

bool LocalListener::isListening() const
{
    return m_handle && m_handle->server.isListening();
}

void LocalListener::setPaused(bool paused)
{
    if (!m_handle)
        return;
    m_handle->isPaused = paused;
    if (!paused && m_handle->server.hasPendingConnections())
        QMetaObject::invokeMethod(this, "acceptWaiting", Qt::QueuedConnection);
}

void LocalListener::close(CloseMode)
{
    m_handle.reset();
}

void LocalListener::acceptWaiting()
{
    while (m_handle && !m_handle->isPaused && m_handle->server.hasPendingConnections()) {
        QLocalSocket *socket = m_handle->server.nextPendingConnection();
        Q_EMIT streamOpened(new LocalStream(std::make_unique<LocalStream::Handle>(socket)));
    }
}

void LocalListener::resume() { }

void LocalListener::pauseAfterError() { }

namespace LocalTransport {

QString defaultId()
{
    return QCoreApplication::applicationFilePath().toLower();
}

quint32 userNumber()
{
    DWORD session = 0;
    ProcessIdToSessionId(GetCurrentProcessId(), &session);
    return session;
}

QString addressOf(const QString &socketName)
{
    return socketName;
}

QString refusalOf(const QString &)
{
    return {};
}

bool isOwnUser(const QLocalSocket &socket)
{
    ULONG number = 0;
    if (!GetNamedPipeServerProcessId(reinterpret_cast<HANDLE>(socket.socketDescriptor()), &number))
        return false;
    const OwnedHandle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, number));
    std::vector<char> other = userOf(process.get());
    std::vector<char> own = userOf(GetCurrentProcess());
    return !other.empty() && !own.empty() && EqualSid(identifierIn(other), identifierIn(own));
}

QStringList removableFiles(const QString &, const QString &)
{
    return {};
}

} // namespace LocalTransport
