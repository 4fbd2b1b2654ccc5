// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "help/pagecss_p.h"

#include <QChar>
#include <QSet>

/// Estimates the time that the text engine needs for a page, in nanoseconds. The figures were
/// measured with Qt 5.15, each with a page that only contains the item in question.
class PageWork
{
public:
    qint64 total() const { return m_total; }
    bool isTooMuch() const { return m_total > kMaxWork || m_height > kMaxHeight; }

    /// The text engine hangs on pages that are more than 8 million pixels high. Fonts may be twice
    /// as large as assumed here, and pictures may use kMaxPicturesHeight.
    void addHeight(qint64 pixels) { m_height += pixels; }
    /// The content of a table is laid out twice.
    void setTables(int depth) { m_tables = depth; }
    /// In the narrow columns of a table, each change of script may begin a line.
    void addText(int letters, int signs, int changes)
    {
        add(kLetter * letters + kSign * signs + (m_tables > 0 ? kChange * changes : 0));
    }
    void addLines(int count) { add(kElement * count); }
    /// Lines of a letter or a word, where there is no room for more.
    void addNarrowLines(int count) { add(kNarrowLine * count); }
    /// The text engine searches for a monospaced font again for each text.
    void addFont(uint font, bool isMonospaced);
    void addElement(int depth, int sibling, const CssEffort &css);
    /// The work for the rules that apply to an element inside depth others. A selector for
    /// descendants looks at each of those, and a declaration that is inherited at all others.
    static qint64 ofStyle(const CssMatches &matches, int depth)
    {
        const qint64 inherited = matches.inherited;
        return kMatch * matches.selectors + kDescendant * matches.descendants * depth
            + inherited * qMin(kInherited * inherited, kMaxInherited + inherited);
    }
    /// For each element, the text engine does this work for all elements around it, too.
    void addStyles(qint64 ofAll) { m_total += ofAll; }
    /// An end tag searches for its start tag.
    void addClosing(int depth) { m_total += kDepth * depth; }
    void addAttribute(qint64 length) { m_total += kAttributeLetter * length; }
    /// An item is searched for in the sequence of its list.
    void addItem(int itemsBefore) { m_total += kItem * itemsBefore; }
    /// The text before the picture in its paragraph is shaped again.
    void addPicture(int lettersBefore)
    {
        add(kPicture);
        m_total += kPictureLetter * lettersBefore;
    }
    /// Each float searches for space among all earlier ones; tables do so repeatedly.
    void addFloat(bool isTable);
    /// A cell that spans several rows moves its neighbours.
    void addSpan(int columns, int rows) { add(kSpan * columns * rows); }
    /// gridGrowth is the increase of the table's columns times rows, and emptyGrowth that of its
    /// cells that are not in the page, which the text engine inserts. The next cell fills some.
    void addCell(int gridGrowth, int emptyGrowth)
    {
        add(kCell + kGrid * gridGrowth + kEmptyCell * emptyGrowth);
    }

    static constexpr int kPictureAsLetters = 6;
    static constexpr qint64 kMaxHeight = 2500000; ///< In pixels.

private:
    void add(qint64 work) { m_total += work * (qint64(1) << m_tables); }

    static constexpr qint64 kMaxWork = 1500000000;
    static constexpr qint64 kLetter = 400;
    static constexpr qint64 kSign =
        4000; ///< A letter of a complex script, or of a different script than the previous one.
    static constexpr qint64 kChange = 40000;
    static constexpr qint64 kNarrowLine = 1000;
    static constexpr qint64 kElement = 12000;
    static constexpr qint64 kDepth = 50;
    static constexpr qint64 kSelector = 500;
    static constexpr qint64 kDeclaration = 150;
    static constexpr qint64 kMatch = 500;
    static constexpr qint64 kDescendant = 200;
    static constexpr qint64 kInherited = 27;
    static constexpr qint64 kMaxInherited = 8000;
    static constexpr qint64 kAncestor = 150;
    static constexpr qint64 kSibling = 50;
    static constexpr qint64 kAttributeLetter = 150;
    static constexpr qint64 kFont = 1000000;
    static constexpr qint64 kMonospaced = 170000;
    static constexpr qint64 kItem = 140;
    static constexpr qint64 kPicture = 20000;
    static constexpr qint64 kPictureLetter = 45;
    static constexpr qint64 kFloat = 1;
    static constexpr qint64 kSpan = 36000;
    static constexpr qint64 kCell = 30000;
    static constexpr qint64 kGrid = 6000;
    static constexpr qint64 kEmptyCell = 45000;

    qint64 m_total = 0;
    qint64 m_height = 0;
    int m_tables = 0;
    qint64 m_floats = 0;
    QSet<uint> m_fonts;
    uint m_last_font = 0; // Looked at first, as most texts have the font of the previous one.
};

inline void PageWork::addFont(uint font, bool isMonospaced)
{
    if (isMonospaced)
        add(kMonospaced);
    if (font == m_last_font && !m_fonts.isEmpty())
        return;
    m_last_font = font;
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

inline bool isLatinLetter(QChar c)
{
    return (c >= QLatin1Char('a') && c <= QLatin1Char('z'))
        || (c >= QLatin1Char('A') && c <= QLatin1Char('Z'));
}

/// Counts the letters of a text by their layout cost.
class TextWork
{
public:
    /// The width that the text of a line fills.
    enum Width { FULL_WIDTH, WIDTH_OF_WORDS, NO_WIDTH };

    void take(QChar c)
    {
        const ushort code = c.unicode();
        const bool isLatin = isLatinLetter(c);
        const QChar::Script script = isLatin ? QChar::Script_Latin
            : code < 0x80                    ? QChar::Script_Common
                                             : c.script();
        const bool isOther = script != m_script && script > QChar::Script_Common;
        if (isOther) {
            m_script = script;
            ++m_changes;
        }
        if (isOther || isComplex(code))
            ++m_signs;
        else
            m_letters += code < kFirstIdeograph ? 1 : 2; // They are of another font.
        m_lines += code == '\n';
        m_breaks += code == 0x2028 || code == 0x2029;
        const bool isFirstMark = !m_is_after_mark;
        m_is_after_mark = code >= kFirstMark && isMark(c);
        m_signs += m_is_after_mark && !isFirstMark ? kSignsOfMark : 0;
        m_words += isLatin || isInsideWord(code)                     ? 0
            : code == ' ' || code == '\n' || code >= kFirstIdeograph ? 1
                                                                     : 2; // Before and after it.
        m_signs += code == 0x2029 ? kSignsOfParagraph : 0;
    }
    /// Takes Latin letters that follow another one, and the single blanks between them.
    void takeWords(int letters, int blanks)
    {
        m_letters += letters;
        m_words += blanks;
    }
    /// Adds the cost of the letters counted since the last call.
    void chargeTo(PageWork *work, Width width, bool linesCount)
    {
        work->addText(m_letters, m_signs, m_changes);
        if (width != FULL_WIDTH)
            work->addNarrowLines(width == NO_WIDTH ? m_letters + m_signs : m_words);
        if (linesCount)
            work->addLines(m_lines);
        m_letters = m_signs = m_changes = m_lines = m_breaks = m_words = 0;
    }
    /// The maximum height in pixels of the letters counted since the last call, for the given
    /// height of a line.
    qint64 height(Width width, int line, bool linesCount) const
    {
        // Half of the letters that fit into a window of usual width.
        const int lettersOfLine = qMax(1, 1400 / line);
        const int all = m_letters + m_signs;
        const int wrapped = width == NO_WIDTH ? all
            : width == WIDTH_OF_WORDS         ? m_words + 1
                                              : all / lettersOfLine;
        return qint64(line) * (wrapped + m_breaks + (linesCount ? m_lines : 0));
    }

private:
    static bool isComplex(ushort code)
    {
        return (code >= 0x0300 && code < 0x0370) || (code >= 0x0590 && code < 0x1E00)
            || (code >= 0x2000 && code < 0x2010) || (code >= 0x2028 && code < 0x2030)
            || (code >= 0x2060 && code < 0x2070) || code < 0x09 || code >= 0xD800;
    }

    /// Marks are placed one after the other around the same letter.
    static bool isMark(QChar c)
    {
        const QChar::Category category = c.category();
        return category <= QChar::Mark_Enclosing || category == QChar::Other_Format;
    }
    /// Whether no line ends before or after the letter, wherever it is.
    static bool isInsideWord(ushort code)
    {
        return (code >= '0' && code <= '9')
            || (code >= 0xC0 && code < 0x0250 && code != 0xD7 && code != 0xF7)
            || (code >= 0x0388 && code < 0x0482) || (code >= 0x048A && code < 0x0530);
    }

    static constexpr int kSignsOfParagraph = 3;
    static constexpr int kSignsOfMark = 6; ///< From the second one on.
    static constexpr ushort kFirstMark = 0x0300;
    static constexpr ushort kFirstIdeograph = 0x2E80;

    QChar::Script m_script = QChar::Script_Latin;
    bool m_is_after_mark = false;
    int m_letters = 0;
    int m_signs = 0;
    int m_changes = 0; ///< Of script; they are among the signs.
    int m_lines = 0;
    int m_breaks = 0; ///< Line breaks that are effective in any element.
    int m_words = 0;
};
