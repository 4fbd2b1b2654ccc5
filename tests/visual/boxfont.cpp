// SPDX-License-Identifier: MIT
#include "visual/boxfont.h"

#include <QDataStream>
#include <QFontDatabase>
#include <QGuiApplication>
#include <QIODevice>
#include <QScreen>
#include <QVector>

#include <cmath>

namespace {

// In units of the font, 1000 to the em; the lines are as high as those of a usual sans serif.
constexpr double kAscent = 930;
constexpr double kDescent = 240;
constexpr qint16 kAdvance = 600;
constexpr qint16 kBoxLeft = 50;
constexpr qint16 kBoxWidth = 500;
constexpr qint16 kBoxHeight = 550;

enum Glyph : quint16 { kMissing, kBox, kBlank, kGlyphs };

constexpr int kPointSize = 9;

/// Qt 5 rounds ascent and descent up to whole pixels, Qt 6 does not round them. There the font has
/// the rounded ones, so that the stored pictures are those of both.
qint16 asInQt5(double units)
{
    if (QT_VERSION < QT_VERSION_CHECK(6, 0, 0))
        return qint16(units);
    const double pixels = kPointSize * QGuiApplication::primaryScreen()->logicalDotsPerInchY() / 72;
    // Down: a hundredth of a pixel more would be another pixel.
    return qint16(std::floor(std::ceil(units / 1000 * pixels) / pixels * 1000));
}

template <typename... Values> QByteArray bytes(Values... values)
{
    QByteArray out;
    QDataStream stream(&out, QIODevice::WriteOnly); // big-endian, as fonts are
    (stream << ... << values);
    return out;
}

QByteArray boxOutline()
{
    constexpr quint8 kOnCurve = 1;
    QByteArray glyph = bytes(qint16(1), kBoxLeft, qint16(0), qint16(kBoxLeft + kBoxWidth),
        kBoxHeight, quint16(3), quint16(0), kOnCurve, kOnCurve, kOnCurve, kOnCurve);
    // Four corners, each as its way from the one before.
    glyph += bytes(kBoxLeft, qint16(0), kBoxWidth, qint16(0));
    glyph += bytes(qint16(0), kBoxHeight, qint16(0), qint16(-kBoxHeight));
    return glyph + QByteArray((4 - glyph.size() % 4) % 4, '\0');
}

QByteArray head()
{
    return bytes(quint32(0x00010000), quint32(0x00010000), quint32(0), quint32(0x5F0F3CF5),
               quint16(3), quint16(1000), qint64(0), qint64(0))
        + bytes(qint16(0), qint16(-asInQt5(kDescent)), kAdvance, asInQt5(kAscent), quint16(0),
            quint16(8), qint16(2), qint16(1), qint16(0));
}

QByteArray horizontalHeader()
{
    return bytes(quint32(0x00010000), asInQt5(kAscent), qint16(-asInQt5(kDescent)), qint16(0),
               kAdvance, kBoxLeft, kBoxLeft, qint16(kBoxLeft + kBoxWidth), qint16(1))
        + QByteArray(14, '\0') + bytes(quint16(kGlyphs));
}

QByteArray maximums()
{
    return bytes(quint32(0x00010000), quint16(kGlyphs), quint16(4), quint16(1), quint16(0),
               quint16(0), quint16(2))
        + QByteArray(16, '\0');
}

quint16 glyphOf(int character)
{
    const bool isBlank = character == 0x20 || character == 0xA0;
    return isBlank ? kBlank : character == 0xFFFF ? kMissing : kBox;
}

/// In the only format that all systems read: ranges of characters, each with its place in a list of
/// glyphs.
QByteArray characterMap()
{
    // The last one is required.
    const QVector<QPair<quint16, quint16>> ranges {
        {0x20, 0x17F}, {0x2010, 0x2027}, {0xFFFF, 0xFFFF}};
    QByteArray firsts, lasts, distances, places, glyphs;
    for (const auto &[first, last] : ranges) {
        firsts += bytes(first);
        lasts += bytes(last);
        distances += bytes(quint16(0));
        // Counted from its own position.
        places += bytes(quint16(2 * ranges.size() - places.size() + glyphs.size()));
        for (int character = first; character <= last; ++character)
            glyphs += bytes(glyphOf(character));
    }
    const QByteArray map = lasts + bytes(quint16(0)) + firsts + distances + places + glyphs;
    constexpr quint32 kStart = 12;
    constexpr int kHeader = 14;
    return bytes(quint16(0), quint16(1), quint16(3), quint16(1), kStart)
        + bytes(quint16(4), quint16(kHeader + map.size()), quint16(0), quint16(2 * ranges.size()),
            quint16(4), quint16(1), quint16(2 * ranges.size() - 4))
        + map;
}

/// Weight, characters, code pages and height. Windows takes no font without them.
QByteArray windowsMetrics()
{
    constexpr quint16 kNormalWeight = 400;
    constexpr quint16 kNormalWidth = 5;
    constexpr quint16 kRegular = 0x40;
    // Basic Latin, Latin-1, Latin Extended-A and General Punctuation.
    constexpr quint32 kRanges = 0x80000007;
    constexpr quint32 kLatin1 = 1;
    const qint16 ascent = asInQt5(kAscent);
    const qint16 descent = asInQt5(kDescent);
    return bytes(quint16(1), kAdvance, kNormalWeight, kNormalWidth, quint16(0))
        + QByteArray(32, '\0') // subscripts, superscripts, strikeout and looks
        + bytes(kRanges, quint32(0), quint32(0), quint32(0), quint32(0), kRegular)
        + bytes(quint16(0x20), quint16(0x2027), ascent, qint16(-descent), qint16(0), ascent,
            descent, kLatin1, quint32(0));
}

/// Without names of the glyphs. Bold text would be smeared if not all of them had the same width.
QByteArray postScript()
{
    constexpr quint32 kFixedPitch = 1;
    return bytes(quint32(0x00030000), quint32(0), qint16(0), qint16(0), kFixedPitch)
        + QByteArray(16, '\0');
}

QByteArray nameTable(const QString &family)
{
    QByteArray text;
    for (const QChar letter : family)
        text += bytes(letter.unicode());
    constexpr quint16 kFamily = 1;
    constexpr quint16 kEnglish = 0x409;
    return bytes(quint16(0), quint16(1), quint16(18), quint16(3), quint16(1), kEnglish, kFamily,
               quint16(text.size()), quint16(0))
        + text;
}

QByteArray fontFile(const QString &family)
{
    const QByteArray box = boxOutline();
    const quint32 length = box.size();
    QByteArray widths;
    for (int glyph = 0; glyph < kGlyphs; ++glyph)
        widths += bytes(kAdvance, glyph == kBlank ? qint16(0) : kBoxLeft);
    const QVector<QPair<QByteArray, QByteArray>> tables {{"OS/2", windowsMetrics()},
        {"cmap", characterMap()}, {"glyf", box + box}, {"head", head()},
        {"hhea", horizontalHeader()}, {"hmtx", widths},
        {"loca", bytes(quint32(0), length, 2 * length, 2 * length)}, {"maxp", maximums()},
        {"name", nameTable(family)}, {"post", postScript()}};

    QByteArray file = bytes(quint32(0x00010000), quint16(tables.size()), quint16(128), quint16(3),
        quint16(tables.size() * 16 - 128));
    QByteArray content;
    const int start = file.size() + tables.size() * 16;
    for (const auto &[tag, table] : tables) {
        file += tag + bytes(quint32(0), quint32(start + content.size()), quint32(table.size()));
        content += table + QByteArray((4 - table.size() % 4) % 4, '\0');
    }
    return file + content;
}

} // namespace

QFont boxFont()
{
    static const QString family = QStringLiteral("Vemo Boxes");
    static const int id = QFontDatabase::addApplicationFontFromData(fontFile(family));
    if (id < 0)
        qFatal("The font of boxes can't be loaded");
    QFont font(family, kPointSize);
    font.setStyleStrategy(QFont::NoAntialias);
    font.setHintingPreference(QFont::PreferNoHinting);
    return font;
}
