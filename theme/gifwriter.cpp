// SPDX-License-Identifier: MIT
#include "gifwriter_p.h"

#include <QColor>
#include <QHash>
#include <QImage>

namespace {

constexpr int kShadeBits = 6;
constexpr int kShades = 1 << kShadeBits;

class BitWriter
{
public:
    void put(int code, int width)
    {
        m_bits |= quint32(code) << m_count;
        for (m_count += width; m_count >= 8; m_count -= 8, m_bits >>= 8)
            m_bytes.append(char(m_bits & 0xff));
    }

    QByteArray finish()
    {
        if (m_count > 0)
            m_bytes.append(char(m_bits & 0xff));
        return m_bytes;
    }

private:
    QByteArray m_bytes;
    quint32 m_bits = 0;
    int m_count = 0;
};

QByteArray lzwCompressed(const QByteArray &pixels)
{
    constexpr int kClear = kShades;
    constexpr int kEnd = kShades + 1;
    BitWriter out;
    QHash<int, int> codes; // (prefix code, next pixel) -> code
    int next = kEnd + 1;
    int width = kShadeBits + 1;
    out.put(kClear, width);
    int prefix = uchar(pixels.at(0));
    for (int i = 1; i < pixels.size(); ++i) {
        const int pixel = uchar(pixels.at(i));
        const int key = prefix << 8 | pixel;
        const auto known = codes.constFind(key);
        if (known != codes.constEnd()) {
            prefix = *known;
            continue;
        }
        out.put(prefix, width);
        prefix = pixel;
        if (next == 4096) {
            out.put(kClear, width);
            codes.clear();
            next = kEnd + 1;
            width = kShadeBits + 1;
            continue;
        }
        if (next == 1 << width)
            ++width;
        codes.insert(key, next++);
    }
    out.put(prefix, width);
    out.put(kEnd, width);
    return out.finish();
}

QByteArray littleEndian(int value)
{
    return QByteArray().append(char(value & 0xff)).append(char(value >> 8));
}

QByteArray gifHeader(const QSize &size, const QColor &ground, const QColor &colour)
{
    QByteArray gif("GIF89a");
    gif += littleEndian(size.width()) + littleEndian(size.height());
    gif += QByteArray::fromHex("d50000"); // a palette of 64 colours
    const auto mixed = [](int under, int over, int shade) {
        return char(under - (under - over) * shade / (kShades - 1));
    };
    for (int shade = 0; shade < kShades; ++shade) {
        gif.append(mixed(ground.red(), colour.red(), shade));
        gif.append(mixed(ground.green(), colour.green(), shade));
        gif.append(mixed(ground.blue(), colour.blue(), shade));
    }
    gif += QByteArray::fromHex("21ff0b") + "NETSCAPE2.0" + QByteArray::fromHex("0301000000");
    return gif;
}

QByteArray gifFrame(const QImage &image, int delay)
{
    QByteArray pixels;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            pixels.append(char(qAlpha(image.pixel(x, y)) * (kShades - 1) / 255));
    }
    // Each frame clears its area at its end (09: restore background, shade 0 is transparent).
    QByteArray frame = QByteArray::fromHex("21f90409") + littleEndian(delay)
        + QByteArray::fromHex("00002c00000000");
    frame += littleEndian(image.width()) + littleEndian(image.height()) + '\0' + char(kShadeBits);
    const QByteArray data = lzwCompressed(pixels);
    for (int i = 0; i < data.size(); i += 255) {
        const QByteArray block = data.mid(i, 255);
        frame += char(block.size()) + block;
    }
    return frame + '\0';
}

} // namespace

QByteArray animatedGif(
    const QVector<QImage> &frames, int delay, const QColor &ground, const QColor &colour)
{
    QByteArray gif = gifHeader(frames.at(0).size(), ground, colour);
    for (const QImage &frame : frames)
        gif += gifFrame(frame, delay);
    return gif + ';';
}
