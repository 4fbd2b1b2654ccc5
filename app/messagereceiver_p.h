// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "app/localtransport_p.h"

#include <QList>
#include <QTimer>

class IncomingMessage;

/// Receives the messages of other instances, many at a time, without blocking.
class MessageReceiver : public QObject
{
    Q_OBJECT

public:
    MessageReceiver();
    ~MessageReceiver() override;

    /// See LocalListener. A second call keeps the messages being received.
    bool listen(const QString &address, QString *refusal);
    bool isListening() const { return m_listener.isListening(); }

    /// Closes the listener and drops the messages being received: they are not acknowledged, so
    /// their senders can look for the next primary instance.
    void stop(LocalListener::CloseMode mode);

Q_SIGNALS:
    void messageReceived(const QString &message);

private Q_SLOTS:
    void addStream(LocalStream *stream);
    void removeFinished();
    void dropIdle();

private:
    bool isCrowded() const;
    void adjustToCrowd();

    LocalListener m_listener;
    QList<IncomingMessage *> m_messages;
    QTimer m_idleCheck;
};
