// SPDX-License-Identifier: MIT
#include "app/localpeer_p.h"

#include "app/messagereader_p.h"
#include "core/logging_p.h"
#include "core/qtcompat_p.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFileSystemWatcher>
#include <QLocalSocket>
#include <QThread>
#include <QtEndian>

#include <algorithm>

namespace {

constexpr int kPrefixLength = 6;
constexpr int kRetryPause = 10; // Milliseconds.

bool isPlainLetter(QChar c)
{
    return (c >= QLatin1Char('a') && c <= QLatin1Char('z'))
        || (c >= QLatin1Char('A') && c <= QLatin1Char('Z'));
}

/// The readable part of the socket name.
QString prefixOf(const QString &text)
{
    QString prefix;
    std::copy_if(text.begin(), text.end(), std::back_inserter(prefix), isPlainLetter);
    return prefix.left(kPrefixLength);
}

QString socketNameOf(const QString &chosenId)
{
    const bool isDefault = chosenId.isEmpty();
    const QString id = isDefault ? LocalTransport::defaultId() : chosenId;
    const QByteArray bytes = id.toUtf8();
    const QString prefix = prefixOf(isDefault ? id.mid(id.lastIndexOf(QLatin1Char('/')) + 1) : id);
    return QStringLiteral("qtsingleapp-%1-%2-%3")
        .arg(prefix)
        .arg(checksumOf(bytes), 0, 16)
        .arg(LocalTransport::userNumber(), 0, 16);
}

QString lockPathOf(const QString &socketName)
{
    const QString path = QStringLiteral("%1/%2-lockfile").arg(QDir::tempPath(), socketName);
    return QDir::current().absoluteFilePath(path);
}

int remaining(const QDeadlineTimer &deadline)
{
    return int(deadline.remainingTime());
}

bool writeAll(QLocalSocket *socket, const QByteArray &message, const QDeadlineTimer &deadline)
{
    QByteArray size(sizeof(quint32), Qt::Uninitialized);
    qToBigEndian(quint32(message.size()), size.data());
    socket->write(size);
    socket->write(message);
    while (socket->bytesToWrite() > 0) {
        if (socket->state() != QLocalSocket::ConnectedState
            || !socket->waitForBytesWritten(remaining(deadline)))
            return false;
    }
    return true;
}

bool readAnswer(QLocalSocket *socket, const QDeadlineTimer &deadline)
{
    const QByteArray expected(kMessageAnswer);
    while (socket->bytesAvailable() < expected.size()) {
        if (!socket->waitForReadyRead(remaining(deadline)))
            return false;
    }
    return socket->read(expected.size()) == expected;
}

} // namespace

LocalPeer::LocalPeer(const QString &id)
    : m_id(id.isEmpty() ? LocalTransport::defaultId() : id), m_socketName(socketNameOf(id)),
      m_address(LocalTransport::addressOf(m_socketName)), m_lockPath(lockPathOf(m_socketName)),
      m_lock(m_lockPath)
{
    connect(&m_receiver, SIGNAL(messageReceived(QString)), this, SIGNAL(messageReceived(QString)));
}

LocalPeer::~LocalPeer()
{
    unlock();
}

bool LocalPeer::isClient()
{
    const InstanceLock::Result result = m_lock.take();
    m_isPrimary = result == InstanceLock::Taken;
    switch (result) {
    case InstanceLock::Taken:
        startListening();
        return false;
    case InstanceLock::HeldElsewhere:
        m_receiver.stop(LocalListener::KeepFile);
        return true;
    case InstanceLock::Refused:
        warnOnce("Cannot use the instance lock", m_lockPath, m_lock.refusal());
        return false;
    }
    Q_UNREACHABLE();
}

void LocalPeer::startListening()
{
    if (m_receiver.isListening())
        return;
    QString refusal;
    if (m_receiver.listen(m_address, &refusal))
        m_lastWarning.clear();
    else
        warnOnce("Cannot receive messages of other instances at", m_address, refusal);
    watchFiles();
}

void LocalPeer::watchFiles()
{
    const QStringList files = LocalTransport::removableFiles(m_address, m_lockPath);
    const bool isWorthIt = m_receiver.isListening() && !files.isEmpty();
    if (!m_watcher && isWorthIt) {
        m_watcher = std::make_unique<QFileSystemWatcher>();
        connect(m_watcher.get(),
            SIGNAL(fileChanged(QString)), this, SLOT(restoreFiles()), Qt::QueuedConnection);
    }
    // Remove and add all watches: a watch refers to a file, not to its name.
    if (m_watcher && !m_watcher->files().isEmpty())
        m_watcher->removePaths(m_watcher->files());
    if (isWorthIt)
        m_watcher->addPaths(files);
}

void LocalPeer::restoreFiles()
{
    // The call is queued, so we may have given up the role since. It is also made for harmless
    // changes, including our own.
    if (!m_isPrimary || (m_lock.isHeld() && m_receiver.isListening()))
        return;
    isClient();
    watchFiles();
}

bool LocalPeer::sendMessage(const QString &message, int timeout)
{
    if (!isClient())
        return false;
    const QByteArray bytes = message.toUtf8();
    if (quint32(bytes.size()) > MessageReader::kMaxSize) {
        qCWarning(vemoLog) << "Cannot send a message that is longer than 16 MiB:" << bytes.size()
                           << "bytes";
        return false;
    }
    // To QDeadlineTimer only -1 means forever; any other negative time-out has already expired.
    const QDeadlineTimer deadline(std::max(timeout, -1));
    QLocalSocket socket;
    return reach(&socket, deadline) && writeAll(&socket, bytes, deadline)
        && readAnswer(&socket, deadline);
}

bool LocalPeer::reach(QLocalSocket *socket, const QDeadlineTimer &deadline)
{
    for (;;) {
        const QString refusal = LocalTransport::refusalOf(m_address);
        if (!refusal.isEmpty()) {
            warnOnce("Cannot send messages to", m_address, refusal);
            return false;
        }
        socket->connectToServer(m_address);
        if (socket->waitForConnected(remaining(deadline)))
            return LocalTransport::isOwnUser(*socket);
        if (deadline.hasExpired())
            return false;
        // The primary instance has the lock but does not listen yet, or is restoring its socket.
        QThread::msleep(kRetryPause);
        if (!isClient())
            return false;
    }
}

void LocalPeer::unlock()
{
    // Before releasing the lock: after that the socket belongs to the next primary instance.
    m_receiver.stop(m_lock.isHeld() ? LocalListener::RemoveFile : LocalListener::KeepFile);
    watchFiles();
    m_lock.release();
    m_isPrimary = false;
}

void LocalPeer::warnOnce(const char *what, const QString &path, const QString &why)
{
    const QString warning = QLatin1String(what) + path + why;
    if (warning == m_lastWarning)
        return;
    m_lastWarning = warning;
    qCWarning(vemoLog) << what << path << "-" << why;
}
