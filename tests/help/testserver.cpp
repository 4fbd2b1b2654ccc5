// SPDX-License-Identifier: MIT
#include "help/testserver.h"

#include <QSemaphore>
#include <QSslSocket>
#include <QTcpServer>
#include <QTimer>
#include <QUrl>

#ifdef Q_OS_WIN
#include <winsock2.h>
#else
#include <sys/socket.h>
#endif

namespace {

QByteArray pathOf(const QByteArray &request)
{
    const QByteArray target = request.split(' ').value(1);
    return target.split('?').first();
}

} // namespace

/// Lives in the server's thread.
class TestConnections : public QTcpServer
{
public:
    TestConnections(TestServer *server, const QSslConfiguration &tls) : m_server(server), m_tls(tls)
    {
    }

protected:
    void incomingConnection(qintptr handle) override
    {
        auto *socket = new QSslSocket(this);
        socket->setSocketDescriptor(handle);
        ++m_open;
        {
            const QMutexLocker lock(&m_server->m_mutex);
            m_server->m_most_connections = qMax(m_server->m_most_connections, m_open);
        }
        connect(socket, &QSslSocket::disconnected, this, [this] { --m_open; });
        connect(socket, &QSslSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QSslSocket::readyRead, this, [this, socket] { readRequest(socket); });
        if (!m_tls.localCertificate().isNull()) {
            socket->setSslConfiguration(m_tls);
            socket->startServerEncryption();
        }
    }

private:
    void readRequest(QSslSocket *socket)
    {
        const QByteArray request = socket->property("request").toByteArray() + socket->readAll();
        const bool isComplete = request.contains("\r\n\r\n");
        socket->setProperty("request", isComplete ? QByteArray() : request);
        if (!isComplete)
            return;
        const Answer answer = m_server->answerTo(request);
        socket->write(answer.bytes);
        if (answer.tailCount != 0)
            sendTail(socket, answer, answer.tailCount);
        else
            end(socket, answer.end);
    }

    void sendTail(QSslSocket *socket, const Answer &answer, int count)
    {
        QTimer::singleShot(answer.tailPause, socket, [this, socket, answer, count] {
            constexpr int kMaxPending = 4 * 1024 * 1024;
            const bool isRoom =
                socket->bytesToWrite() + socket->encryptedBytesToWrite() < kMaxPending;
            if (isRoom)
                socket->write(answer.tail);
            const int left = isRoom && count > 0 ? count - 1 : count;
            if (left != 0)
                sendTail(socket, answer, left);
            else
                end(socket, answer.end);
        });
    }

    void end(QSslSocket *socket, Answer::End end)
    {
        if (end == Answer::CLOSE) {
            socket->disconnectFromHost();
        } else if (end == Answer::RESET) {
            socket->flush();
            const linger atOnce {1, 0};
            setsockopt(int(socket->socketDescriptor()), SOL_SOCKET, SO_LINGER,
                reinterpret_cast<const char *>(&atOnce), sizeof atOnce);
            socket->abort();
        }
    }

    TestServer *m_server;
    QSslConfiguration m_tls;
    int m_open = 0;
};

Answer status(const QByteArray &line, const QByteArray &headers, const QByteArray &body)
{
    Answer answer;
    answer.bytes = "HTTP/1.1 " + line + "\r\nContent-Length: " + QByteArray::number(body.size())
        + "\r\n" + headers + "\r\n" + body;
    return answer;
}

Answer page(const QByteArray &body, const QByteArray &headers)
{
    return status("200 OK", headers, body);
}

TestServer::TestServer(const QSslConfiguration &tls) : m_is_tls(!tls.localCertificate().isNull())
{
    QSemaphore ready;
    m_thread.start();
    auto *starter = new QObject;
    starter->moveToThread(&m_thread);
    QMetaObject::invokeMethod(starter, [this, starter, tls, &ready] {
        auto *connections = new TestConnections(this, tls);
        connections->listen(QHostAddress::LocalHost);
        m_port = connections->serverPort();
        QObject::connect(&m_thread, &QThread::finished, connections, &QObject::deleteLater);
        delete starter;
        ready.release();
    });
    ready.acquire();
}

TestServer::~TestServer()
{
    m_thread.quit();
    m_thread.wait();
}

QUrl TestServer::url(const QString &path) const
{
    QUrl url(QStringLiteral("%1://127.0.0.1:%2").arg(m_is_tls ? "https" : "http").arg(m_port));
    url.setPath(path);
    return url;
}

void TestServer::setAnswer(const QByteArray &path, const Answer &answer)
{
    const QMutexLocker lock(&m_mutex);
    m_answers.insert(path, answer);
}

QList<QByteArray> TestServer::requests() const
{
    const QMutexLocker lock(&m_mutex);
    return m_requests;
}

int TestServer::requestCount(const QByteArray &path) const
{
    int count = 0;
    for (const QByteArray &request : requests())
        count += pathOf(request) == path;
    return count;
}

int TestServer::maxConnectionsAtOnce() const
{
    const QMutexLocker lock(&m_mutex);
    return m_most_connections;
}

Answer TestServer::answerTo(const QByteArray &request)
{
    const QMutexLocker lock(&m_mutex);
    m_requests += request;
    const QByteArray path = pathOf(request);
    if (m_answers.contains(path))
        return m_answers.value(path);
    return m_answers.contains(QByteArray()) ? m_answers.value(QByteArray())
                                            : status("404 Not Found");
}
