// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "app/messagereader_p.h"

#include <QElapsedTimer>
#include <QObject>

class LocalStream;

/// One accepted connection, until its message has been received or dropped.
class IncomingMessage : public QObject
{
    Q_OBJECT

public:
    /// Takes ownership of stream.
    IncomingMessage(LocalStream *stream, QObject *parent);
    ~IncomingMessage() override;

    /// Drops the message with a warning if nothing was received for limit milliseconds. Checks for
    /// unread data first, since our own event loop may have been blocked.
    void dropIfIdle(int limit);

Q_SIGNALS:
    /// The connection is closed. Emitted once, before received().
    void finished();

    /// The complete message was received and acknowledged.
    void received(const QString &message);

private Q_SLOTS:
    void read();
    void decode();

private:
    void drop(const char *reason, qint64 value, const char *unit);
    void handleEnd();

    LocalStream *m_stream;
    MessageReader m_reader;
    QElapsedTimer m_lastByte;
    bool m_isReading = true;
};
