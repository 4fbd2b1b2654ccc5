// SPDX-License-Identifier: MIT
#include "nativename.h"

#include <algorithm>
#include <cstring>

namespace {

constexpr ushort kEscape = 0xDC00; // Added to an invalid byte.

/// The code point at the start of size bytes, and its number of bytes in length; 0 for an invalid
/// byte.
uint codePoint(const uchar *bytes, int size, int *length)
{
    static constexpr uint kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const uchar first = bytes[0];
    *length = first < 0x80 ? 1 : first < 0xC2 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (*length == 1)
        return first;
    if (*length == 0 || first > 0xF4 || size < *length)
        return *length = 0;
    uint code = first & (0xFFu >> (*length + 1));
    for (int i = 1; i < *length; ++i) {
        if ((bytes[i] & 0xC0) != 0x80)
            return *length = 0;
        code = (code << 6) | (bytes[i] & 0x3Fu);
    }
    const bool isCharacter =
        code >= kSmallest[*length] && code <= 0x10FFFF && (code < 0xD800 || code > 0xDFFF);
    return isCharacter ? code : uint(*length = 0);
}

bool isStrayByte(QChar c)
{
    return c.unicode() >= kEscape + 0x80 && c.unicode() <= kEscape + 0xFF;
}

} // namespace

QByteArray toNativeName(const QString &name)
{
    QByteArray bytes;
    int start = 0;
    for (int i = 0; i < name.size(); ++i) {
        const bool isHighHalf = name[i].isHighSurrogate();
        if (isHighHalf && i + 1 < name.size() && name[i + 1].isLowSurrogate()) {
            ++i;
        } else if (isStrayByte(name[i])) {
            bytes += name.mid(start, i - start).toUtf8();
            bytes += char(name[i].unicode() - kEscape);
            start = i + 1;
        }
    }
    return bytes + name.mid(start).toUtf8();
}

QString fromNativeName(const QByteArray &name)
{
    const auto isAscii = [](char c) { return uchar(c) < 0x80; };
    if (std::all_of(name.cbegin(), name.cend(), isAscii))
        return QString::fromLatin1(name);
    QString text;
    const auto *bytes = reinterpret_cast<const uchar *>(name.constData());
    for (int i = 0; i < name.size();) {
        int length = 0;
        const uint code = codePoint(bytes + i, name.size() - i, &length);
        if (length == 0)
            text += QChar(ushort(kEscape + bytes[i]));
        else if (QChar::requiresSurrogates(code))
            text += QString(QChar(QChar::highSurrogate(code))) + QChar(QChar::lowSurrogate(code));
        else
            text += QChar(code);
        i += std::max(length, 1);
    }
    return text;
}

QByteArray cutName(const QByteArray &name, int bytes)
{
    constexpr int kLongestRest = 3; // A run of invalid bytes is not a character.
    int length = std::min(bytes, int(name.size()));
    for (int i = 0; i < kLongestRest && length > 0 && length < name.size(); ++i) {
        if ((uchar(name[length]) & 0xC0) != 0x80)
            break;
        --length;
    }
    return name.left(length);
}

QString systemReason(int error)
{
    return QString::fromLocal8Bit(std::strerror(error));
}
