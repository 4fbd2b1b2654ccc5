// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QMap>
#include <QMetaType>
#include <QMutex>
#include <QSslConfiguration>
#include <QThread>

/// What a TestServer does with a request, in this order.
struct Answer
{
    enum End { CLOSE, KEEP_OPEN, RESET };

    QByteArray bytes; ///< Sent as they are, head included.
    QByteArray tail; ///< Sent again and again after that.
    int tailCount = 0; ///< How often; -1 is forever.
    int tailPause = 0; ///< Milliseconds before each.
    End end = CLOSE;
};

Q_DECLARE_METATYPE(Answer)

/// An answer with status 200, the given body and its length.
Answer page(const QByteArray &body, const QByteArray &headers = {});
/// An answer with any status line, "404 Not Found", say.
Answer status(const QByteArray &line, const QByteArray &headers = {}, const QByteArray &body = {});

/// A web server on a free port of 127.0.0.1, in a thread of its own, that keeps what it is asked
/// byte by byte and answers exactly what it is told, right or wrong.
///
///     TestServer server;
///     server.setAnswer("/index.html", page("<html>Hello</html>"));
///     window.reload(server.url("/index.html"));
class TestServer
{
public:
    /// Speaks plain HTTP, or TLS with a configuration that holds a certificate.
    explicit TestServer(const QSslConfiguration &tls = QSslConfiguration());
    ~TestServer();

    QUrl url(const QString &path = QStringLiteral("/")) const;

    /// The answer to requests for path, its query left out; an empty path stands for all others.
    /// What has no answer gets 404.
    void setAnswer(const QByteArray &path, const Answer &answer);

    /// All requests up to now.
    QList<QByteArray> requests() const;
    /// How often path, its query left out, was asked for.
    int requestCount(const QByteArray &path) const;
    int maxConnectionsAtOnce() const;

private:
    friend class TestConnections;

    Answer answerTo(const QByteArray &request);

    mutable QMutex m_mutex;
    QMap<QByteArray, Answer> m_answers;
    QList<QByteArray> m_requests;
    int m_most_connections = 0;
    quint16 m_port = 0;
    bool m_is_tls = false;
    QThread m_thread;
};
