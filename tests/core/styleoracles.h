// SPDX-License-Identifier: MIT
#pragma once

#include <QRandomGenerator>
#include <QStringList>

#include <map>

// Reference implementations of the library's two text scanners, which follow the rules literally
// with regular expressions and a text stream. They are slow and only used to check the scanners.

/// How many seeds are tried, 100,000 texts each. tests/fuzz continues the search.
constexpr quint32 kSeeds = 4;
constexpr quint32 kFewSeeds = 1;

QString scaledByRules(const QString &sheet, double factor);
QString withoutCommentsByRules(QString text);
void storeSectionsByRules(QString text, std::map<QString, QString> &sections);

/// Random texts composed of given pieces and occasional random characters. The same seed
/// produces the same texts on every machine.
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

/// Pieces of lengths, and others that may confuse the scan for them.
QStringList lengthPieces();

/// Pieces of comments, headers and line ends, and others that may confuse the scan for them.
QStringList sectionPieces();
