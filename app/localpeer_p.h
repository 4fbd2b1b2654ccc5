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
/// If the primary's files are removed while it runs, for example by a cleaner of temporary folders,
/// it restores them, unless a new process was faster: that process is then primary.
class LocalPeer : public QObject
{
    Q_OBJECT

public:
    /// An empty id means the application's file path.
    explicit LocalPeer(const QString &id);
    ~LocalPeer() override;

    QString id() const { return m_id; }
    QString socketName() const { return m_socketName; }

    /// Whether another process is the primary instance; if there is none, this process becomes it.
    /// Also false if the lock cannot be used, so that the application starts nevertheless.
    bool isClient();

    /// Blocks until the primary instance has received the whole message, for at most timeout
    /// milliseconds, or forever if timeout is negative.
    bool sendMessage(const QString &message, int timeout);

    /// Gives up the primary role; the next process that asks for it gets it.
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
