// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QProcess>
#include <QString>
#include <QTemporaryDir>

#include <memory>

/// A temporary folder of one test function's own: instances see only each other in it.
class OwnTemporaryFolder
{
public:
    OwnTemporaryFolder();
    ~OwnTemporaryFolder();

    QString path() const { return m_folder.path(); }

    /// Where the instances of this test program have their files.
    QString socketPath() const;
    QString lockPath() const;

private:
    const QByteArray m_outer;
    QTemporaryDir m_folder;
};

/// This test program in another process, as an instance that does what it is told.
class ChildInstance
{
public:
    enum Kind {
        Application, ///< a whole QtSingleApplication without a screen
        Peer, ///< its part that talks to other processes alone, which starts faster
    };

    /// environment holds "NAME=value", and "NAME" for a variable to remove.
    explicit ChildInstance(Kind kind = Peer, const QStringList &environment = {});
    ~ChildInstance();

    /// Tells command, without waiting for the answer.
    void tell(const QByteArray &command);

    /// The next answer; empty when none has come in time.
    QByteArray answer();
    bool hasAnswer();

    QByteArray ask(const QByteArray &command);

    bool isPrimary() { return ask("role") == "primary"; }

    /// Sends it a signal: SIGSTOP, SIGCONT, SIGKILL.
    void signal(int number);

    /// Ends it with all that it does at its end, or without.
    void quit();
    void kill();

private:
    QProcess m_process;
};

/// A connection to a primary instance that follows no protocol and never waits.
class RawPeer
{
public:
    explicit RawPeer(const QString &address);
    ~RawPeer();
    RawPeer(RawPeer &&other) noexcept;

    bool isConnected() const { return m_descriptor >= 0; }

    /// How many of bytes the connection took.
    int send(const QByteArray &bytes) const;

    /// What the other side has sent.
    QByteArray receive() const;
    bool isClosedByOther() const;

    void close();

private:
    int m_descriptor;
};

/// The count that stands before a message.
QByteArray header(quint32 size);

/// A message as it goes over the connection.
QByteArray frame(const QByteArray &utf8);

/// Runs what ChildInstance started; call it first in main() and return its result where it is not
/// negative.
int runAsChild(int &argc, char **argv);
