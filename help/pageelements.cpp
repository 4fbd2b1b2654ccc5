// SPDX-License-Identifier: MIT
#include "help/pageelements_p.h"

#include "help/helplimits_p.h"
#include "help/pagedistances_p.h"

namespace {

using Html = HtmlElement;

constexpr int kIndentPixels = 40; // For a list or a quotation.

bool isSide(const QString &alignment)
{
    return alignment == QLatin1String("left") || alignment == QLatin1String("right");
}

int pixelsOf(const HtmlAttribute &attribute)
{
    return qBound(0, int(resolvedHtml(attribute.value).toDouble()), 10000);
}

} // namespace

void PageFont::apply(const QString &declarations)
{
    for (int start = 0; start < declarations.size();) {
        const int found = int(declarations.indexOf(QLatin1Char(';'), start));
        const int end = found < 0 ? int(declarations.size()) : found;
        const QStringView each = QStringView(declarations).mid(start, end - start);
        start = end + 1;
        if (each.startsWith(QLatin1String("font-size:")))
            size = qHash(each);
        else if (each.startsWith(QLatin1String("font-family:")))
            family = qHash(each);
        else if (each.startsWith(QLatin1String("font")))
            other = qHash(each, other);
    }
}

PageElements::PageElements()
{
    CssEffort own;
    plainStyleSheet(scaledDistances(), &own);
    m_css.matchesFor = own.matchesFor;
}

int PageElements::indexOf(int names) const
{
    int i = m_open.size() - 1;
    while (i >= 0 && !m_open.at(i).kind->is(names))
        --i;
    return i;
}

bool PageElements::isInnermost(int names) const
{
    return !m_open.isEmpty() && m_open.last().kind->is(names);
}

int PageElements::indexOfParagraph() const
{
    int block = m_open.size() - 1;
    while (block >= 0 && !m_open.at(block).kind->has(Html::BLOCK))
        --block;
    return block >= 0 && m_open.at(block).kind->is(Html::P) ? block : -1;
}

int PageElements::indexOfEnded(const QString &name)
{
    m_work.addClosing(m_open.size());
    int i = m_open.size() - 1;
    while (i >= 0 && m_open.at(i).name != name)
        --i;
    return i >= 0 && m_open.at(i).isWritten ? i : -1;
}

void PageElements::beginTag(const QString &name, int traits)
{
    constexpr int kFonts = Html::BOLD | Html::ITALIC | Html::MONOSPACED;
    m_tag = Tag();
    if (!m_open.isEmpty())
        m_tag.font = m_open.last().font;
    m_tag.font.traits |= traits & kFonts;
    if (traits & Html::SIZED)
        m_tag.font.size = qHash(name);
    if (m_css.hasFonts)
        m_tag.font.other = qHash(name, m_tag.font.other);
    m_tag.floats = m_css.hasFloats;
}

void PageElements::addStyle(const QString &declarations, const CssEffort &effort)
{
    m_css.hasDisplay |= effort.hasDisplay;
    m_css.hasWhiteSpace |= effort.hasWhiteSpace;
    m_tag.floats |= effort.hasFloats;
    m_tag.length = qMax(m_tag.length, effort.maxLength);
    m_tag.line = qMax(m_tag.line, effort.maxLine);
    if (effort.hasFonts)
        m_tag.font.apply(declarations);
}

void PageElements::addSpan(const QString &attribute, int span)
{
    (attribute == QLatin1String("colspan") ? m_tag.columns : m_tag.rows) = span;
}

void PageElements::addAttribute(const HtmlAttribute &attribute)
{
    const QString &name = attribute.name;
    if (name == QLatin1String("class") || name == QLatin1String("id")) {
        noteMarks(name, resolvedHtml(attribute.value).toLower());
        if (m_css.hasFonts)
            m_tag.font.other = qHash(attribute.value, m_tag.font.other);
    } else if (name == QLatin1String("size")) {
        m_tag.line = qMax(m_tag.line, 3 * kLinePixels);
        m_tag.font.size = qHash(attribute.value);
    } else if (name == QLatin1String("face")) {
        m_tag.font.family = qHash(attribute.value);
    } else if (name == QLatin1String("align")) {
        m_tag.floats |= isSide(resolvedHtml(attribute.value).toLower());
    } else if (name == QLatin1String("height")) {
        m_work.addHeight(pixelsOf(attribute));
    } else if (name == QLatin1String("border") || name == QLatin1String("cellpadding")
        || name == QLatin1String("cellspacing")) {
        m_tag.cellHeight += 2 * pixelsOf(attribute);
    }
}

void PageElements::noteMarks(const QString &attribute, const QString &value)
{
    const QLatin1Char mark(attribute == QLatin1String("id") ? '#' : '.');
    const QStringList words = value.simplified().split(QLatin1Char(' '));
    for (const QString &word : words)
        m_tag.marks += mark + word;
}

void PageElements::endTag(const QString &name, const HtmlElement &kind)
{
    const int sibling = m_open.isEmpty() ? 0 : m_open.last().children++;
    m_work.addElement(m_open.size(), sibling, m_css);
    m_work.addStyles(m_style + styleWork(name, m_tag.marks, m_open.size() + 1));
    m_keeps_lines |= kind.is(Html::PRE | Html::META);
    m_has_floats |= m_tag.floats;
    if (kind.is(Html::IMG)) {
        ++m_pictures;
        m_work.addPicture(m_paragraph);
        m_paragraph += PageWork::kPictureAsLetters;
    } else if (kind.is(Html::LI)) {
        const int list = indexOf(Html::LIST);
        m_work.addItem(list < 0 ? m_loose_items++ : m_open[list].items++);
    } else if (kind.is(Html::TD | Html::TH | Html::TR)) {
        addCell(kind.is(Html::TR));
    }
    m_lines += m_tables == (kind.is(Html::TR) ? 1 : 0) && kind.is(Html::TR | Html::BR);
    if (m_tag.floats && kind.is(Html::IMG | Html::TABLE))
        m_work.addFloat(kind.is(Html::TABLE));
    addHeight(kind);
}

/// Adds the height of an element without its text to that of the page.
void PageElements::addHeight(const HtmlElement &kind)
{
    constexpr int kLengths = 3; // For example a margin, a padding and a border.
    if (kind.is(Html::BR))
        m_work.addHeight(lineHeight());
    if (!kind.has(Html::BLOCK))
        return;
    const int margins = kind.has(Html::MARGINS) ? kLinePixels : 0;
    m_work.addHeight(kLengths * qMax(m_tag.length, m_css.maxLength) + margins);
    if (kind.has(Html::LINES)) {
        m_work.addHeight(
            kind.has(Html::SIZED) ? qMax(3 * lineHeight(), m_css.maxHeadingLine) : lineHeight());
    }
    const int table = kind.is(Html::TD | Html::TH) ? indexOf(Html::TABLE) : -1;
    if (table >= 0)
        m_work.addHeight(m_open.at(table).cellHeight);
}

/// A table is as wide as its widest row.
void PageElements::addCell(bool isRow)
{
    const int index = indexOf(Html::TABLE);
    if (index < 0)
        return;
    OpenElement &table = m_open[index];
    const int cellsBefore = table.rows * table.columns;
    const int emptyBefore = table.emptyCells;
    table.rows = qMax(1, table.rows + (isRow ? 1 : 0));
    if (isRow) {
        table.columnsSpanned += table.spanned.take(table.rows);
        table.columnsOfRow = 0;
    }
    const int added = isRow ? table.columnsSpanned : m_tag.columns;
    table.columnsOfRow += added;
    table.columns = qMax(table.columns, table.columnsOfRow);
    const int growth = table.rows * table.columns - cellsBefore;
    table.emptyCells += growth - added;
    m_work.addCell(growth, table.emptyCells - emptyBefore);
    if (m_tag.rows > 1) {
        table.spanned[table.rows + 1] += m_tag.columns;
        table.spanned[table.rows + m_tag.rows] -= m_tag.columns;
        m_work.addSpan(m_tag.columns, m_tag.rows);
    }
}

void PageElements::push(const QString &name, const HtmlElement &kind)
{
    push(name, kind, m_tag.font, true);
}

void PageElements::pushImplied(const QString &name)
{
    push(name, HtmlElement::of(name), m_open.isEmpty() ? PageFont() : m_open.last().font, false);
}

void PageElements::push(
    const QString &name, const HtmlElement &kind, const PageFont &font, bool isWritten)
{
    OpenElement element;
    element.name = name;
    element.kind = &kind;
    element.font = font;
    element.isWritten = isWritten;
    element.indent = (isWritten && kind.has(Html::INDENTED) ? kIndentPixels : 0)
        + (isWritten && kind.has(Html::BLOCK) ? qMax(m_tag.length, m_css.maxLength) : 0);
    element.cellHeight = m_tag.cellHeight;
    element.line = qMax(m_tag.line, m_open.isEmpty() ? 0 : m_open.last().line);
    if (kind.isHeading())
        element.line = qMax(element.line, m_css.maxHeadingLine);
    if (isWritten)
        element.marks = m_tag.marks;
    element.style = styleWork(name, element.marks, m_open.size() + 1);
    m_style += element.style;
    m_indent += element.indent;
    m_open.append(std::move(element));
    if (kind.is(Html::TABLE))
        m_work.setTables(++m_tables);
    m_is_too_deep |= m_open.size() > kMaxNestedTags || m_tables > kMaxNestedTables;
}

void PageElements::pop()
{
    const OpenElement &element = m_open.last();
    m_indent -= element.indent;
    m_style -= element.style;
    if (element.kind->is(Html::TABLE))
        m_work.setTables(--m_tables);
    m_open.removeLast();
}

void PageElements::addText(QStringView text, TextWork *letters)
{
    const bool isBlank = text.trimmed().isEmpty();
    m_text_length += isBlank ? 0 : int(text.size());
    m_lines += !isBlank && m_paragraph == 0 && m_tables == 0;
    if (!m_open.isEmpty() && !isBlank) {
        const PageFont &font = m_open.last().font;
        m_work.addFont(font.hash(), font.traits & Html::MONOSPACED);
    }
    const bool linesCount = m_keeps_lines || m_css.hasWhiteSpace;
    m_work.addHeight(letters->height(width(), lineHeight(), linesCount));
    letters->chargeTo(&m_work, width(), linesCount);
    m_paragraph += int(text.size());
}

QString PageElements::addStyleSheet(const QString &css)
{
    const QString plain = plainStyleSheet(css, &m_css);
    m_style = 0;
    for (int i = 0; i < m_open.size(); ++i) {
        OpenElement &element = m_open[i];
        element.style = styleWork(element.name, element.marks, i + 1);
        m_style += element.style;
        m_work.addClosing(element.marks.size() + 1); // As long as to look for it.
    }
    m_work.addAttribute(css.size());
    return plain;
}

bool PageElements::beginLine()
{
    if (m_css.hasDisplay)
        return false;
    m_paragraph = 0;
    return true;
}

qint64 PageElements::styleWork(const QString &name, const QStringList &marks, int depth) const
{
    if (m_css.matchesFor.isEmpty())
        return 0;
    CssMatches matches = m_css.matchesFor.value(name);
    matches.add(m_css.matchesFor.value(QStringLiteral("*")));
    for (const QString &mark : marks)
        matches.add(m_css.matchesFor.value(mark));
    return PageWork::ofStyle(matches, depth);
}

TextWork::Width PageElements::width() const
{
    constexpr int kNarrow = 500; // Pixels taken from a window of usual width.
    return m_indent > kNarrow          ? TextWork::NO_WIDTH
        : m_tables > 0 || m_has_floats ? TextWork::WIDTH_OF_WORDS
                                       : TextWork::FULL_WIDTH;
}

int PageElements::lineHeight() const
{
    const int ofElement = m_open.isEmpty() ? 0 : m_open.last().line;
    return qMax(qMax(kLinePixels, m_css.maxLine), qMax(ofElement, m_tag.line));
}
