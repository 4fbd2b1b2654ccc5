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

    /// Reads what has come, at most size bytes: how many, 0 when there is nothing yet, -1 when the
    /// other side has closed the connection.
    int read(char *bytes, int size);

    /// Ends readyRead().
    void stopReading();

    /// Writes a few bytes, and closes the connection once they are on their way.
    void finish(const QByteArray &bytes);

    /// Closes the connection. Idempotent.
    void close();

Q_SIGNALS:
    /// There is something to read, or the other side has closed the connection.
    void readyRead();

private:
    std::unique_ptr<Handle> m_handle;
};

/// Waits at an address for other processes of the same user.
class LocalListener : public QObject
{
    Q_OBJECT

public:
    enum CloseMode {
        RemoveFile, ///< for the holder of the instance lock only: nobody else may listen there now
        KeepFile,
    };

    LocalListener();
    /// Closes, and leaves the file.
    ~LocalListener() override;

    /// Starts to wait, in place of a socket that a dead process has left, or of an ordinary file of
    /// the user's. False where the address
    /// can't or must not be used; refusal then says why, as the end of a sentence.
    bool listen(const QString &address, QString *refusal);

    /// Whether we are the one that is reached at the address now.
    bool isListening() const;

    /// Leaves who comes from now on waiting outside.
    void setPaused(bool paused);

    void close(CloseMode mode);

Q_SIGNALS:
    /// The receiver owns stream from now on.
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

/// What an id that nobody chose is: the application's file path.
QString defaultId();

/// The number that sets the instances of different users, or sessions, apart.
quint32 userNumber();

/// Where the socket of a name is, folder included where the platform has one for it.
QString addressOf(const QString &socketName);

/// Why no message may be sent to address, as the end of a sentence; empty where it may.
QString refusalOf(const QString &address);

/// Whether a connected socket's other side belongs to this user.
bool isOwnUser(const QLocalSocket &socket);

/// Those files of a primary instance that others may remove while it runs.
QStringList removableFiles(const QString &address, const QString &lockPath);

} // namespace LocalTransport
