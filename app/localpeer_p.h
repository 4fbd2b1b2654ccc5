// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "app/instancelock_p.h"
#include "app/messagereceiver_p.h"

#include <memory>

class QDeadlineTimer;
class QFileSystemWatcher;
class QLocalSocket;

/// One process among those of an application: the primary instance, which holds the lock and
/// receives messages, or another one, which sends them.
///
/// Who removes the primary's files while it runs, such as a cleaner of temporary folders, makes it
/// put them back, unless a new process was faster: then that one is primary.
class LocalPeer : public QObject
{
    Q_OBJECT

public:
    /// An empty id stands for the application's file path.
    explicit LocalPeer(const QString &id);
    ~LocalPeer() override;

    QString id() const { return m_id; }
    QString socketName() const { return m_socketName; }

    /// Whether another process is the primary instance; where none is, this one becomes it. Also
    /// false where the lock can't be used: an application starts all the same.
    bool isClient();

    /// Blocks until the primary instance has the whole message, for timeout milliseconds at most,
    /// or forever if that is negative.
    bool sendMessage(const QString &message, int timeout);

    /// Gives the primary role up; whoever asks next gets it.
    void unlock();

Q_SIGNALS:
    void messageReceived(const QString &message);

private Q_SLOTS:
    void restoreFiles();

private:
    void startListening();
    void watchFiles();
    bool reach(QLocalSocket *socket, const QDeadlineTimer &deadline);
    void warnOnce(const char *what, const QString &path, const QString &why);

    const QString m_id;
    const QString m_socketName;
    const QString m_address;
    const QString m_lockPath;
    bool m_isPrimary = false;
    InstanceLock m_lock;
    MessageReceiver m_receiver;
    std::unique_ptr<QFileSystemWatcher> m_watcher;
    QString m_lastWarning;
};
