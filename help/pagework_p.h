// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "help/pagecss_p.h"

#include <QSet>

/// Estimates what the text engine takes for a page, in nanoseconds. The figures are measured with
/// Qt 5.15, each with a page of nothing else.
class PageWork
{
public:
    qint64 total() const { return m_total; }
    bool isTooMuch() const { return m_total > kMaxWork; }

    /// Everything inside of a table is laid out twice.
    void setTables(int depth) { m_tables = depth; }
    void addText(int letters, int signs) { add(kLetter * letters + kSign * signs); }
    void addLines(int count) { add(kElement * count); }
    void addFont(uint font);
    void addElement(int depth, int sibling, const CssEffort &css);
    /// An end looks for its beginning.
    void addClosing(int depth) { m_total += kDepth * depth; }
    void addAttribute(qint64 length) { m_total += kAttributeLetter * length; }
    /// Items know their list as a sequence.
    void addItem(int itemsBefore) { m_total += kItem * itemsBefore; }
    /// The text before the picture in its paragraph is shaped again.
    void addPicture(int lettersBefore) { m_total += kPictureLetter * lettersBefore; }
    /// Each looks for room between all earlier ones, tables again and again.
    void addFloat(bool isTable);
    /// A cell over several rows pushes those beside it aside.
    void addSpan(int columns, int rows) { add(kSpan * columns * rows); }
    /// gridGrowth: columns times rows that the table has become larger by.
    void addCell(int gridGrowth) { add(kCell + kGrid * qint64(gridGrowth)); }

    static constexpr int kPictureAsLetters = 6;

private:
    void add(qint64 work) { m_total += work << m_tables; }

    static constexpr qint64 kMaxWork = 1500000000;
    static constexpr qint64 kLetter = 400;
    static constexpr qint64 kSign =
        4000; ///< A letter of another script than the one before, or of a complex one.
    static constexpr qint64 kElement = 12000;
    static constexpr qint64 kDepth = 50;
    static constexpr qint64 kSelector = 500;
    static constexpr qint64 kDeclaration = 150;
    static constexpr qint64 kAncestor = 150;
    static constexpr qint64 kSibling = 50;
    static constexpr qint64 kAttributeLetter = 150;
    static constexpr qint64 kFont = 1000000;
    static constexpr qint64 kItem = 140;
    static constexpr qint64 kPictureLetter = 45;
    static constexpr qint64 kFloat = 1;
    static constexpr qint64 kSpan = 36000;
    static constexpr qint64 kCell = 25000;
    static constexpr qint64 kGrid = 3000;

    qint64 m_total = 0;
    int m_tables = 0;
    qint64 m_floats = 0;
    QSet<uint> m_fonts;
};

inline void PageWork::addFont(uint font)
{
    if (m_fonts.contains(font))
        return;
    m_fonts.insert(font);
    m_total += kFont;
}

inline void PageWork::addElement(int depth, int sibling, const CssEffort &css)
{
    add(kElement);
    m_total += kDepth * depth + kSelector * css.selectors + kDeclaration * css.declarations
        + kAncestor * css.ancestors * qint64(depth) + kSibling * css.siblings * qint64(sibling);
}

inline void PageWork::addFloat(bool isTable)
{
    m_total += (kFloat * m_floats * m_floats) << (isTable ? 3 * m_tables : m_tables);
    ++m_floats;
}
