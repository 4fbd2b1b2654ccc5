// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QMap>
#include <QMetaType>
#include <QMutex>
#include <QSslConfiguration>
#include <QThread>

/// The reaction of a TestServer to a request, in this order.
struct Answer
{
    enum End { CLOSE, KEEP_OPEN, RESET };

    QByteArray bytes; ///< Sent unchanged, including the header.
    QByteArray tail; ///< Sent repeatedly after that.
    int tailCount = 0; ///< The number of repetitions; -1 means forever.
    int tailPause = 0; ///< Milliseconds before each repetition.
    End end = CLOSE;
};

Q_DECLARE_METATYPE(Answer)

/// An answer with status 200, the given body and its length.
Answer page(const QByteArray &body, const QByteArray &headers = {});
/// An answer with any status line, for example "404 Not Found".
Answer status(const QByteArray &line, const QByteArray &headers = {}, const QByteArray &body = {});

/// A web server on a free port of 127.0.0.1, in its own thread, that records all requests byte by
/// byte and sends exactly the configured answers, valid or not.
///
///     TestServer server;
///     server.setAnswer("/index.html", page("<html>Hello</html>"));
///     window.reload(server.url("/index.html"));
class TestServer
{
public:
    /// Uses plain HTTP, or TLS if the configuration contains a certificate.
    explicit TestServer(const QSslConfiguration &tls = QSslConfiguration());
    ~TestServer();

    QUrl url(const QString &path = QStringLiteral("/")) const;

    /// Sets the answer to requests for path without its query; an empty path means all others.
    /// Requests without an answer get 404.
    void setAnswer(const QByteArray &path, const Answer &answer);

    /// All requests so far.
    QList<QByteArray> requests() const;
    /// The number of requests for path, ignoring queries.
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
