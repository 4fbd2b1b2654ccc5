// SPDX-License-Identifier: MIT
#include "app/messagereader_p.h"

#include "core/qtcompat_p.h"

#include <QtEndian>

#include <algorithm>

namespace {

constexpr int kHeaderSize = sizeof(quint32);
constexpr int kChunkSize = 64 * 1024;
constexpr int kMinGrowth = 256; // Bytes, for messages that arrive in small pieces.
constexpr size_t kChunksPerStep = 16;

} // namespace

MessageReader::MessageReader() = default;

MessageReader::~MessageReader() = default;

MessageReader::State MessageReader::take(const char *bytes, int count)
{
    const int headerPart = takeHeader(bytes, count);
    if (m_header.size() < kHeaderSize)
        return Receiving;
    if (m_announced > kMaxSize)
        return TooLong;
    const quint32 missing = m_announced - m_received;
    takeBody(bytes + headerPart, int(std::min(quint32(count - headerPart), missing)));
    return m_received == m_announced ? Received : Receiving;
}

int MessageReader::takeHeader(const char *bytes, int count)
{
    const int part = std::min(count, kHeaderSize - int(m_header.size()));
    m_header.append(bytes, part);
    if (m_header.size() == kHeaderSize)
        m_announced = qFromBigEndian<quint32>(m_header.constData());
    return part;
}

void MessageReader::takeBody(const char *bytes, int count)
{
    while (count > 0) {
        if (m_chunks.empty() || m_chunks.back().size() == kChunkSize)
            m_chunks.emplace_back();
        QByteArray &chunk = m_chunks.back();
        const int part = std::min(count, kChunkSize - int(chunk.size()));
        // Left to itself, QByteArray would double its capacity.
        if (chunk.capacity() < chunk.size() + part)
            chunk.reserve(std::min(kChunkSize, int(chunk.size()) + std::max(part, kMinGrowth)));
        chunk.append(bytes, part);
        bytes += part;
        count -= part;
        m_received += quint32(part);
    }
}

bool MessageReader::decodeSome()
{
    if (!m_decoder) {
        m_decoder = std::make_unique<Utf8Decoder>();
        m_text.reserve(int(m_received));
    }
    const size_t end = std::min(m_chunks.size(), m_decodedChunks + kChunksPerStep);
    for (; m_decodedChunks < end; ++m_decodedChunks) {
        m_text += m_decoder->toUnicode(m_chunks[m_decodedChunks]);
        m_chunks[m_decodedChunks].clear();
    }
    if (end < m_chunks.size())
        return false;
    if (m_decoder->needsMoreData())
        m_text += QChar(QChar::ReplacementCharacter);
    return true;
}
