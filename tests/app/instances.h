// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include <memory>

/// Whether the instances' socket is a file in the temporary folder.
#ifdef Q_OS_WIN
constexpr bool kHasSocketFile = false;
#else
constexpr bool kHasSocketFile = true;
#endif

/// A temporary folder for one test function, in which instances only see each other.
class OwnTemporaryFolder
{
public:
    OwnTemporaryFolder();
    ~OwnTemporaryFolder();

    QString path() const { return m_folder.path(); }

    /// The path of the instances' socket, or of their named pipe on Windows.
    QString socketPath() const;
    QString lockPath() const;

private:
    const QByteArray m_outer;
    QTemporaryDir m_folder;
};

/// This test program in another process, as an instance that executes commands.
class ChildInstance
{
public:
    enum Kind {
        Application, ///< a complete QtSingleApplication without a screen
        Peer, ///< only its LocalPeer, which starts faster
    };

    /// environment contains "NAME=value", or "NAME" for a variable to remove.
    explicit ChildInstance(Kind kind = Peer, const QStringList &environment = {});
    ~ChildInstance();

    /// Sends a command without waiting for the answer.
    void tell(const QByteArray &command);

    /// The next answer; empty if none arrives in time.
    QByteArray answer();
    bool hasAnswer();

    QByteArray ask(const QByteArray &command);

    bool isPrimary() { return ask("role") == "primary"; }

#ifdef Q_OS_UNIX
    /// Sends it a signal, such as SIGSTOP.
    void signal(int number);
#endif

    /// Lets the process end normally; kill() ends it without clean-up.
    void quit();
    void kill();
    void killWithoutWaiting();

private:
    QProcess m_process;
};

/// A non-blocking connection to a primary instance that need not follow the protocol.
class RawPeer
{
public:
    explicit RawPeer(const QString &address);
    ~RawPeer();
    RawPeer(RawPeer &&other) noexcept;

    bool isConnected() const { return m_connection != nullptr; }

    /// Returns the number of bytes that were sent.
    int send(const QByteArray &bytes) const;

    /// The bytes that the other side has sent.
    QByteArray receive() const;
    bool isClosedByOther() const;

    void close();

private:
    struct Connection;

    std::unique_ptr<Connection> m_connection;
};

/// The number in socket names by which those of different users differ.
quint32 userNumber();

/// The byte count that precedes a message.
QByteArray header(quint32 size);

/// A message in the format of the connection.
QByteArray frame(const QByteArray &utf8);

/// Runs a child that ChildInstance started. Call it first in main(), and return its result unless
/// it is negative.
int runAsChild(int &argc, char **argv);
