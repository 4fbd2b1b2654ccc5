// SPDX-License-Identifier: MIT
#include "help/wholepicture_p.h"

#include <QByteArray>
#include <QtEndian>

namespace {

/// Walks through bytes; past their end, every number is 0 and isPastEnd() stays true.
class Walk
{
public:
    Walk(const QByteArray &bytes, qint64 start) : m_bytes(bytes), m_position(start) { }

    bool isPastEnd() const { return m_position > m_bytes.size(); }
    void skip(qint64 count) { m_position += count; }
    const uchar *take(qint64 count)
    {
        static const uchar kNothing[4] = {};
        const qint64 start = m_position;
        skip(count);
        return isPastEnd() ? kNothing
                           : reinterpret_cast<const uchar *>(m_bytes.constData()) + start;
    }
    uchar byte() { return *take(1); }
    quint16 bigEndian16() { return qFromBigEndian<quint16>(take(2)); }
    quint32 bigEndian32() { return qFromBigEndian<quint32>(take(4)); }
    quint32 littleEndian32() { return qFromLittleEndian<quint32>(take(4)); }

private:
    const QByteArray &m_bytes;
    qint64 m_position;
};

bool isWholePng(const QByteArray &bytes)
{
    constexpr quint32 kEnd = 0x49454E44; // "IEND"
    Walk walk(bytes, 8);
    while (!walk.isPastEnd()) {
        const quint32 length = walk.bigEndian32();
        const quint32 type = walk.bigEndian32();
        walk.skip(qint64(length) + 4);
        if (type == kEnd)
            return !walk.isPastEnd();
    }
    return false;
}

bool isWholeJpeg(const QByteArray &bytes)
{
    constexpr uchar kEnd = 0xD9;
    Walk walk(bytes, 2);
    while (!walk.isPastEnd()) {
        if (walk.byte() != 0xFF)
            continue; // Pixels.
        uchar marker = walk.byte();
        while (marker == 0xFF)
            marker = walk.byte();
        if (marker == kEnd)
            return true;
        // Among pixels; all others begin a segment, which may hold a smaller picture with its end.
        const bool isAlone = marker <= 0x01 || (marker >= 0xD0 && marker <= 0xD7);
        if (!isAlone)
            walk.skip(qMax(0, walk.bigEndian16() - 2));
    }
    return false;
}

void skipGifBlocks(Walk *walk)
{
    while (const uchar length = walk->byte())
        walk->skip(length);
}

void skipGifColours(Walk *walk, uchar flags)
{
    if (flags & 0x80)
        walk->skip(qint64(3) << ((flags & 7) + 1));
}

bool isWholeGif(const QByteArray &bytes)
{
    Walk walk(bytes, 10);
    const uchar screen = walk.byte();
    walk.skip(2);
    skipGifColours(&walk, screen);
    while (!walk.isPastEnd()) {
        switch (walk.byte()) {
        case ';':
            return true;
        case '!':
            walk.skip(1);
            break;
        case ',':
            walk.skip(8);
            skipGifColours(&walk, walk.byte());
            walk.skip(1);
            break;
        default:
            return false;
        }
        skipGifBlocks(&walk);
    }
    return false;
}

bool hasSize(const QByteArray &bytes, int position, qint64 more)
{
    Walk walk(bytes, position);
    const qint64 size = walk.littleEndian32();
    return size > 0 && bytes.size() >= size + more;
}

} // namespace

bool isWholePicture(const QByteArray &bytes)
{
    if (bytes.startsWith("\x89PNG\r\n\x1A\n"))
        return isWholePng(bytes);
    if (bytes.startsWith("\xFF\xD8\xFF"))
        return isWholeJpeg(bytes);
    if (bytes.startsWith("GIF8"))
        return isWholeGif(bytes);
    if (bytes.startsWith("BM"))
        return hasSize(bytes, 2, 0);
    if (bytes.startsWith("RIFF") && bytes.mid(8, 4) == "WEBP")
        return hasSize(bytes, 4, 8);
    return bytes.right(64).trimmed().endsWith("</svg>");
}
