// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "app/messagereader_p.h"

#include <QElapsedTimer>
#include <QObject>

class LocalStream;

/// One connection from its acceptance to the message, or to the reason why there is none.
class IncomingMessage : public QObject
{
    Q_OBJECT

public:
    /// Takes stream over.
    IncomingMessage(LocalStream *stream, QObject *parent);
    ~IncomingMessage() override;

    /// Gives up, with a warning, where nothing has come for limit milliseconds and nothing waits
    /// to be read either: our own event loop may have stood still.
    void dropIfIdle(int limit);

Q_SIGNALS:
    /// The connection is over, nothing else will come. Emitted once, before received().
    void finished();

    /// The whole message has come, and the other side has been told.
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
