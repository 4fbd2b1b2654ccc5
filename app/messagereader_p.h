// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

class Utf8Decoder;

/// Sent back to the sender when the whole message has been received.
constexpr char kMessageAnswer[] = "ack";

/// Assembles a message from the bytes of a connection: a big-endian 32-bit count followed by that
/// many bytes of UTF-8.
///
/// Allocates memory for the bytes received, not for the announced count, and decodes long messages
/// in several short steps.
class MessageReader
{
public:
    enum State { Receiving, Received, TooLong };
    static constexpr quint32 kMaxSize = 16 * 1024 * 1024; // Bytes of UTF-8.

    MessageReader();
    ~MessageReader();

    /// Adds bytes; bytes after the end of the message are ignored.
    State take(const char *bytes, int count);

    /// Decodes a part of a received message. Returns true when text() is complete.
    bool decodeSome();
    QString text() const { return m_text; }

    bool hasNothing() const { return m_header.isEmpty(); }
    quint32 announcedSize() const { return m_announced; }
    quint32 receivedSize() const { return m_received; }

private:
    int takeHeader(const char *bytes, int count);
    void takeBody(const char *bytes, int count);

    QByteArray m_header;
    quint32 m_announced = 0;
    quint32 m_received = 0;
    std::vector<QByteArray> m_chunks;
    size_t m_decodedChunks = 0;
    std::unique_ptr<Utf8Decoder> m_decoder;
    QString m_text;
};
