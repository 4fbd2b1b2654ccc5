// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QByteArray>
#include <QString>

#include <memory>
#include <vector>

class QTextDecoder;

/// What the sender of a message is told when all of it has come.
constexpr char kMessageAnswer[] = "ack";

/// Puts one message together from the bytes of a connection: a big-endian 32-bit count and that
/// many bytes of UTF-8.
///
/// It takes memory for what has come, not for what is announced, and turns a long message into
/// text in steps, so that none of them takes long.
class MessageReader
{
public:
    enum State { Receiving, Received, TooLong };
    static constexpr quint32 kMaxSize = 16 * 1024 * 1024; // Bytes of UTF-8.

    MessageReader();
    ~MessageReader();

    /// Adds bytes; what comes after the message is left out.
    State take(const char *bytes, int count);

    /// Decodes a part of a received message; true when text() is the whole of it.
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
    std::unique_ptr<QTextDecoder> m_decoder;
    QString m_text;
};
