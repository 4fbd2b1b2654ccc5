// SPDX-License-Identifier: MIT
#pragma once

#include <QRandomGenerator>
#include <QStringList>

#include <map>

// The two text scanners of the library once more, written as their rules read: with regular
// expressions and a text stream. Slow, and therefore only what the scanners are measured by.

/// How many seeds are tried, 100,000 texts each: a million in all.
#ifdef __SANITIZE_ADDRESS__
constexpr quint32 kSeeds = 2; // A text takes ten times as long.
#else
constexpr quint32 kSeeds = 10;
#endif

QString scaledByRules(const QString &sheet, double factor);
QString withoutCommentsByRules(QString text);
void storeSectionsByRules(QString text, std::map<QString, QString> &sections);

/// Random texts made of given pieces and, now and then, of any character at all. The same seed
/// gives the same texts on every machine.
class RandomTexts
{
public:
    RandomTexts(quint32 seed, QStringList pieces);

    QString next();

private:
    QString randomPiece();

    QRandomGenerator m_random;
    const QStringList m_pieces;
};

/// Pieces that lengths are made of, and what may confuse the search for them.
QStringList lengthPieces();

/// Pieces that comments, headers and line ends are made of, and what may confuse them.
QStringList sectionPieces();
