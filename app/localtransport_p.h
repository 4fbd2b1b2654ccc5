// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QObject>

#include <memory>

class QLocalSocket;

/// The listening end of one accepted connection. No call waits for the other side.
class LocalStream : public QObject
{
    Q_OBJECT

public:
    struct Handle;

    explicit LocalStream(std::unique_ptr<Handle> handle);
    ~LocalStream() override;

    /// Reads at most size of the bytes received so far. Returns their number, 0 if there are none
    /// yet, or -1 if the other side has closed the connection.
    int read(char *bytes, int size);

    /// Stops emitting readyRead().
    void stopReading();

    /// Writes a few bytes, and closes the connection when they have been sent.
    void finish(const QByteArray &bytes);

    /// Closes the connection. Idempotent.
    void close();

Q_SIGNALS:
    /// There is data to read, or the other side has closed the connection.
    void readyRead();

private:
    std::unique_ptr<Handle> m_handle;
};

/// Accepts connections from other processes of the same user at an address.
class LocalListener : public QObject
{
    Q_OBJECT

public:
    enum CloseMode {
        RemoveFile, ///< only if we hold the instance lock, so that no one else listens there
        KeepFile,
    };

    LocalListener();
    /// Closes the socket but keeps its file.
    ~LocalListener() override;

    /// Starts to listen. Replaces a socket left by a dead process, and a regular file owned by the
    /// user. Returns false if the address cannot or must not be used; refusal is then the reason,
    /// as the end of a sentence.
    bool listen(const QString &address, QString *refusal);

    /// Whether a connection to the address would reach us.
    bool isListening() const;

    /// While paused, new connections wait in the backlog.
    void setPaused(bool paused);

    void close(CloseMode mode);

Q_SIGNALS:
    /// The receiver takes ownership of stream.
    void streamOpened(LocalStream *stream);

private Q_SLOTS:
    void acceptWaiting();
    void resume();

private:
    struct Handle;

    void pauseAfterError();

    std::unique_ptr<Handle> m_handle;
};

namespace LocalTransport {

/// The id if none was given: the application's file path.
QString defaultId();

/// A number that distinguishes the instances of different users or sessions.
quint32 userNumber();

/// The address of a socket name, including its folder on platforms that use one.
QString addressOf(const QString &socketName);

/// The reason why no message may be sent to address, as the end of a sentence; empty if it may.
QString refusalOf(const QString &address);

/// Whether the process at the other end of a connected socket belongs to this user.
bool isOwnUser(const QLocalSocket &socket);

/// The files of a primary instance that others may remove while it runs.
QStringList removableFiles(const QString &address, const QString &lockPath);

} // namespace LocalTransport
