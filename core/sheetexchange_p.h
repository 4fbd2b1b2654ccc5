// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QHash>
#include <QString>

#include <map>
#include <vector>

/// Puts the sections of new style files where a style sheet has those of the old ones.
class SheetExchange
{
public:
    using Sections = std::map<QString, QString>;

    SheetExchange(const Sections &before, const Sections &after);

    /// sheet, with every old section in it exchanged, scaled or not; what else it holds stays. Of
    /// sections with the same text, the one whose key sorts first counts.
    QString exchanged(const QString &sheet);

private:
    struct Pair
    {
        QString before;
        QString after;
    };

    void add(const QString &before, const QString &after);
    QString withNewParts(const QString &sheet) const;

    std::vector<Pair> m_pairs; ///< the longest text first
    QHash<QString, QString> m_known; ///< results, by sheet
};
