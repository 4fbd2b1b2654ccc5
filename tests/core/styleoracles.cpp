// SPDX-License-Identifier: MIT
#include "core/styleoracles.h"

#include "core/scaling_p.h"

#include <QRegularExpression>
#include <QTextStream>

#include <utility>

QString scaledByRules(const QString &sheet, double factor)
{
    static const QRegularExpression lengths(QStringLiteral("(\\d+\\.?\\d*)(px)"));
    const QStringList parts = sheet.split(lengths);
    QString result;
    int i = 0;
    QRegularExpressionMatch match;
    int position = sheet.indexOf(lengths, 0, &match);
    while (position != -1) {
        result += parts.value(i);
        const int pixels = truncToInt(match.captured(1).toDouble() * factor);
        result += QStringLiteral("%1px").arg(pixels);
        ++i;
        position = sheet.indexOf(lengths, position + 3, &match);
    }
    return result + parts.value(i);
}

QString withoutCommentsByRules(QString text)
{
    constexpr auto greediness = QRegularExpression::InvertedGreedinessOption;
    static const QRegularExpression blockComment(QStringLiteral("/\\*.*\\*/"), greediness);
    static const QRegularExpression lineComment(QStringLiteral("//.*\\n"), greediness);
    return text.remove(blockComment).remove(lineComment);
}

void storeSectionsByRules(QString text, std::map<QString, QString> &sections)
{
    const QString mark = QStringLiteral("==");
    QString key;
    QString section;
    QTextStream stream(&text, QIODevice::ReadOnly);
    QString line;
    while (stream.readLineInto(&line)) {
        if (!line.startsWith(mark) || !line.endsWith(mark)) {
            section += QLatin1Char('\n') + line;
            continue;
        }
        if (!key.isEmpty()) {
            sections[key] = section;
            section.clear();
        }
        key = line.remove(QLatin1Char('=')).remove(QLatin1Char(' '));
    }
    if (!key.isEmpty())
        sections[key] = section;
}

RandomTexts::RandomTexts(quint32 seed, QStringList pieces)
    : m_random(seed), m_pieces(std::move(pieces))
{
}

QString RandomTexts::next()
{
    constexpr int maxPieces = 16;
    QString text;
    for (int count = m_random.bounded(maxPieces); count > 0; --count)
        text += randomPiece();
    return text;
}

QString RandomTexts::randomPiece()
{
    constexpr int oneIn = 64;
    constexpr int codeUnits = 0x10000;
    return m_random.bounded(oneIn) == 0
        ? QString(QChar(static_cast<ushort>(m_random.bounded(codeUnits))))
        : m_pieces[m_random.bounded(m_pieces.size())];
}

QStringList lengthPieces()
{
    // No lone surrogates: a single one leaves the whole text unchanged, and the random characters
    // include them. A piece that is listed twice is used twice as often.
    return {"0", "1", "2", "3", "7", "9", "00", "10", "12", "999", "0000", "1234567", "2147483647",
        "9007199254740993", "1.99999999999999988897769753748434595763683319091796875", ".", ".",
        "..", "p", "x", "px", "px", "px", "px", "px", "PX", "pxx", "ppx", "px;", "1px", "12px",
        "1000px", "12.5px", "0.0001px", "9.999999999999999px", "-", "e3", " ", "\n", "\r", "\t",
        "pt", "%", "{", "}", "/*", "*/", "//", QString(30, '9'), QString(60, '0'),
        QString(1, QChar(0)), QString(QChar(0x2028)), QString::fromUtf8("٣"),
        QString::fromUtf8("１２"), QString::fromUtf8("😀"),
        "QPushButton { min-height: 28px; padding: 0px 12px; }"};
}

QStringList sectionPieces()
{
    return {"/", "/", "*", "/*", "*/", "/**/", "/*/", "//", "//", "///", "=", "=",
        "==", "==", "===", "== a ==", "==b==", "\n==c==\n", "== ==", "==\ta==", "==a== ", "a",
        "key", " ", " ", "\n", "\n", "\n", "\n", "\r", "\r\n", "\t", ":", "\"",
        "url(http://x/y.png)\n", QString(1, QChar(0)), QString(QChar(0x2028)),
        QString(QChar(0xfeff)), QString::fromUtf8("＝＝"), QString::fromUtf8("ü"),
        QString::fromUtf8("😀"), "\n== component.menu ==\nQMenu { margin: 3px; } /* rest */\n"};
}
