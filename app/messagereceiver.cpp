// SPDX-License-Identifier: MIT
#include "app/messagereceiver_p.h"

#include "app/incomingmessage_p.h"

#include <QPointer>

namespace {

constexpr int kMaxConnections = 400; // Leaves most of the usual 1024 file descriptors to the host.
constexpr int kIdleLimit = 5000; // Milliseconds.
// Milliseconds. Applies while kMaxConnections are open and others wait in the backlog, so that many
// silent senders cannot block an active one until it times out.
constexpr int kCrowdedIdleLimit = 1500;
constexpr int kIdleCheckInterval = 250; // Milliseconds.

} // namespace

MessageReceiver::MessageReceiver()
{
    m_idleCheck.setInterval(kIdleCheckInterval);
    connect(&m_listener, SIGNAL(streamOpened(LocalStream*)), this, SLOT(addStream(LocalStream*)));
    connect(&m_idleCheck, SIGNAL(timeout()), this, SLOT(dropIdle()));
}

MessageReceiver::~MessageReceiver()
{
    stop(LocalListener::KeepFile);
}

bool MessageReceiver::listen(const QString &address, QString *refusal)
{
    return m_listener.listen(address, refusal);
}

void MessageReceiver::stop(LocalListener::CloseMode mode)
{
    m_listener.close(mode);
    // Safe: finished messages leave the list before they emit received().
    qDeleteAll(m_messages);
    m_messages.clear();
    m_idleCheck.stop();
}

void MessageReceiver::addStream(LocalStream *stream)
{
    auto *message = new IncomingMessage(stream, this);
    connect(message, SIGNAL(finished()), this, SLOT(removeFinished()));
    connect(message, SIGNAL(received(QString)), this, SIGNAL(messageReceived(QString)));
    m_messages.append(message);
    adjustToCrowd();
}

void MessageReceiver::removeFinished()
{
    auto *message = qobject_cast<IncomingMessage *>(sender());
    m_messages.removeOne(message);
    message->deleteLater();
    adjustToCrowd();
}

void MessageReceiver::dropIdle()
{
    // A message that turns out to be complete may trigger anything, even our own deletion.
    const QPointer<MessageReceiver> self(this);
    const int limit = isCrowded() ? kCrowdedIdleLimit : kIdleLimit;
    QVector<QPointer<IncomingMessage>> messages;
    for (IncomingMessage *message : qAsConst(m_messages))
        messages.append(message);
    for (const QPointer<IncomingMessage> &message : qAsConst(messages)) {
        if (self && message)
            message->dropIfIdle(limit);
    }
}

bool MessageReceiver::isCrowded() const
{
    return m_messages.size() >= kMaxConnections;
}

void MessageReceiver::adjustToCrowd()
{
    m_listener.setPaused(isCrowded());
    if (m_messages.isEmpty())
        m_idleCheck.stop();
    else if (!m_idleCheck.isActive())
        m_idleCheck.start();
}
