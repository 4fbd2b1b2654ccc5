// SPDX-License-Identifier: MIT
#include "app/incomingmessage_p.h"

#include "app/localtransport_p.h"
#include "core/logging_p.h"

#include <QTimer>

#include <array>

namespace {

constexpr int kReadSize = 64 * 1024; // Bytes read per event.
// Milliseconds. Not 0: that would post an event, and the event loop handles all posted events in a
// single iteration.
constexpr int kDecodePause = 1;

} // namespace

IncomingMessage::IncomingMessage(LocalStream *stream, QObject *parent)
    : QObject(parent), m_stream(stream)
{
    m_stream->setParent(this);
    m_lastByte.start();
    connect(m_stream, SIGNAL(readyRead()), this, SLOT(read()));
}

IncomingMessage::~IncomingMessage() = default;

void IncomingMessage::read()
{
    if (!m_isReading)
        return;
    std::array<char, kReadSize> bytes; // NOLINT: filled by the call below.
    const int count = m_stream->read(bytes.data(), kReadSize);
    if (count < 0)
        return handleEnd();
    if (count == 0)
        return;
    m_lastByte.start();
    switch (m_reader.take(bytes.data(), count)) {
    case MessageReader::Receiving:
        break;
    case MessageReader::TooLong:
        drop("it is longer than 16 MiB:", m_reader.announcedSize(), "bytes");
        break;
    case MessageReader::Received:
        m_isReading = false;
        m_stream->stopReading();
        decode();
        break;
    }
}

void IncomingMessage::decode()
{
    if (!m_reader.decodeSome()) {
        QTimer::singleShot(kDecodePause, this, SLOT(decode()));
        return;
    }
    // Acknowledge first: a slot connected to received() may block.
    m_stream->finish(kMessageAnswer);
    Q_EMIT finished();
    Q_EMIT received(m_reader.text());
}

void IncomingMessage::dropIfIdle(int limit)
{
    if (!m_isReading || !m_lastByte.hasExpired(limit))
        return;
    read();
    if (m_isReading && m_lastByte.hasExpired(limit))
        drop("nothing has come for", limit, "ms");
}

void IncomingMessage::handleEnd()
{
    if (m_reader.hasNothing()) {
        m_isReading = false;
        Q_EMIT finished();
        return;
    }
    drop("it was broken off after", m_reader.receivedSize(), "bytes");
}

void IncomingMessage::drop(const char *reason, qint64 value, const char *unit)
{
    qCWarning(vemoLog) << "Dropped a message of another instance:" << reason << value << unit;
    m_isReading = false;
    m_stream->close();
    Q_EMIT finished();
}
