// SPDX-License-Identifier: MIT
#include "help/safepage_p.h"

#include "help/helplimits_p.h"
#include "help/htmltokens_p.h"
#include "help/pagework_p.h"
#include "help/wordbreaks_p.h"

#include <QHash>

#include <algorithm>

namespace {

constexpr int kLinePixels = 20; // For a font of usual size.
constexpr int kIndentPixels = 40; // For a list or a quotation.

bool isOneOf(const QString &name, std::initializer_list<const char *> names)
{
    return std::any_of(names.begin(), names.end(),
        [&name](const char *each) { return name == QLatin1String(each); });
}

/// The elements for which there are rules of their own. Each is a bit, so that a set of them is
/// the sum of its elements.
enum Name {
    OTHER = 0,
    BODY = 1 << 0,
    BR = 1 << 1,
    CAPTION = 1 << 2,
    DD = 1 << 3,
    DL = 1 << 4,
    DT = 1 << 5,
    HEAD = 1 << 6,
    IMG = 1 << 7,
    LI = 1 << 8,
    LINK = 1 << 9,
    LIST = 1 << 10, ///< <ul> and <ol>.
    META = 1 << 11,
    OPTION = 1 << 12,
    P = 1 << 13,
    PRE = 1 << 14,
    SECTION = 1 << 15, ///< Of a table.
    STYLE = 1 << 16,
    TABLE = 1 << 17,
    TD = 1 << 18,
    TH = 1 << 19,
    TITLE = 1 << 20,
    TR = 1 << 21,
};

/// Properties of an element.
enum Trait {
    EMPTY = 1, ///< Has no content and no end tag.
    BLOCK = 2,
    LINES = 4, ///< Always starts a new line, and ends it.
    BOLD = 8,
    ITALIC = 16,
    MONOSPACED = 32,
    SIZED = 64, ///< Has its own font size.
    MARGINS = 128, ///< Above and below it.
    INDENTED = 256,
};

/// What is known about an element, looked up once for each of its tags.
struct Kind
{
    int name = OTHER;
    int traits = 0;

    bool is(int names) const { return name & names; }
    bool has(int anyTrait) const { return traits & anyTrait; }
    bool isHeading() const { return has(SIZED) && has(BLOCK); }

    QString start; ///< Of its tag, such as "<p"; null for an unknown one, as the next.
    QString end; ///< Its end tag.
};

QHash<QString, Kind> knownKinds()
{
    QHash<QString, Kind> kinds;
    const auto add = [&kinds](int trait, std::initializer_list<const char *> names) {
        for (const char *each : names)
            kinds[QString::fromLatin1(each)].traits |= trait;
    };
    add(EMPTY,
        {"area", "base", "br", "col", "embed", "hr", "img", "input", "link", "meta", "param",
            "source", "track", "wbr"});
    add(BLOCK | LINES,
        {"address", "blockquote", "center", "dd", "div", "dl", "dt", "h1", "h2", "h3", "h4", "h5",
            "h6", "hr", "li", "ol", "p", "pre", "td", "th", "ul"});
    add(BLOCK, {"body", "caption", "html", "table", "tbody", "tfoot", "thead", "tr"});
    add(BOLD, {"b", "strong", "th", "h1", "h2", "h3", "h4", "h5", "h6"});
    add(ITALIC, {"i", "em", "cite", "dfn", "var", "address"});
    add(MONOSPACED, {"code", "kbd", "pre", "samp", "tt"});
    add(SIZED, {"big", "small", "sub", "sup", "h1", "h2", "h3", "h4", "h5", "h6"});
    add(MARGINS,
        {"p", "h1", "h2", "h3", "h4", "h5", "h6", "ul", "ol", "dl", "pre", "blockquote", "hr"});
    add(INDENTED, {"ul", "ol", "dd", "blockquote"});
    const QVector<QPair<const char *, Name>> names {{"body", BODY}, {"br", BR},
        {"caption", CAPTION}, {"dd", DD}, {"dl", DL}, {"dt", DT}, {"head", HEAD}, {"img", IMG},
        {"li", LI}, {"link", LINK}, {"meta", META}, {"ol", LIST}, {"option", OPTION}, {"p", P},
        {"pre", PRE}, {"style", STYLE}, {"table", TABLE}, {"tbody", SECTION}, {"td", TD},
        {"tfoot", SECTION}, {"th", TH}, {"thead", SECTION}, {"title", TITLE}, {"tr", TR},
        {"ul", LIST}};
    for (const auto &[name, value] : names)
        kinds[QString::fromLatin1(name)].name = value;
    for (const char *name : {"a", "font", "span", "u"})
        kinds[QString::fromLatin1(name)];
    for (auto kind = kinds.begin(); kind != kinds.end(); ++kind) {
        kind->start = QLatin1Char('<') + kind.key();
        kind->end = QLatin1String("</") + kind.key() + QLatin1Char('>');
    }
    return kinds;
}

const Kind &kindOf(const QString &name)
{
    static const QHash<QString, Kind> kinds = knownKinds();
    static const Kind unknown;
    const auto kind = kinds.constFind(name);
    return kind == kinds.constEnd() ? unknown : *kind;
}

bool isPlainName(const QString &name)
{
    constexpr int kMaxLength = 32;
    return !name.isEmpty() && name.size() <= kMaxLength && name.at(0) >= QLatin1Char('a')
        && name.at(0) <= QLatin1Char('z') && std::all_of(name.begin(), name.end(), [](QChar c) {
               return (c >= QLatin1Char('a') && c <= QLatin1Char('z'))
                   || (c >= QLatin1Char('0') && c <= QLatin1Char('9')) || c == QLatin1Char('-');
           });
}

/// The properties that distinguish the fonts of a page.
struct Font
{
    int traits = 0;
    uint size = 0;
    uint family = 0;
    uint other = 0;

    uint hash() const { return uint(traits) + 31 * (size + 31 * (family + 31 * other)); }
};

struct Element
{
    QString name;
    const Kind *kind = nullptr;
    bool isWritten = true; ///< False for those that the text engine inserts itself.
    Font font;
    int children = 0;
    int items = 0; ///< Of a list.
    int rows = 0; ///< Of a table, as the next two.
    int columns = 0;
    int columnsOfRow = 0; ///< Including those of cells that began in earlier rows.
    int columnsSpanned = 0; ///< Those of such cells alone.
    int emptyCells = 0; ///< Of rows with fewer cells than columns.
    QHash<int, int> spanned; ///< By row: how many more such columns it has than the one before.
    int indent = 0; ///< In pixels, as the next one.
    int cellHeight = 0; ///< Of a table: the height that it adds to each row.
    int line = 0; ///< The line height of its text, if that is higher than usual.
    QStringList marks; ///< Its classes, each with a dot, and its id with a number sign.
    qint64 style = 0; ///< The work for its style.
};

/// Resolves numeric entities and those of characters with a meaning in HTML.
QString resolved(QStringView text)
{
    static const QHash<QString, QChar> names {{QStringLiteral("quot"), QLatin1Char('"')},
        {QStringLiteral("apos"), QLatin1Char('\'')}, {QStringLiteral("amp"), QLatin1Char('&')},
        {QStringLiteral("lt"), QLatin1Char('<')}, {QStringLiteral("gt"), QLatin1Char('>')}};
    QString result;
    result.reserve(int(text.size()));
    for (int i = 0; i < text.size(); ++i) {
        const int end = text.at(i) == QLatin1Char('&') ? htmlEntityEnd(text, i) : -1;
        QString name = end < 0 ? QString() : text.mid(i + 1, end - i - 2).toString();
        QChar sign = names.value(name);
        if (name.startsWith(QLatin1Char('#'))) {
            name = name.mid(1).toLower();
            const bool isHex = name.startsWith(QLatin1Char('x'));
            sign = QChar(name.midRef(isHex ? 1 : 0).toUInt(nullptr, isHex ? 16 : 10));
        }
        if (sign.isNull()) {
            result += text.at(i);
        } else {
            result += sign;
            i = end - 1;
        }
    }
    return result;
}

bool isSide(QStringView alignment)
{
    return isOneOf(resolved(alignment).toLower(), {"left", "right"});
}

/// Whether attribute is a length so large that it would overflow the text engine's integers.
bool isTooLong(const HtmlAttribute &attribute)
{
    constexpr int kMaxLength = 9999;
    if (!isOneOf(attribute.name,
            {"width", "height", "border", "cellpadding", "cellspacing", "size", "start", "value"}))
        return false;
    QString length = resolved(attribute.value).trimmed();
    // Another entity may be a blank, after which the text engine would find a number.
    if (length.contains(QLatin1Char('&')))
        return true;
    if (length.endsWith(QLatin1Char('%')))
        length.chop(1);
    bool isNumber = false;
    const double number = length.toDouble(&isNumber);
    return isNumber && !(qAbs(number) <= kMaxLength); // Neither is one that is infinite, or none.
}

/// Parses a page and rewrites it.
class PageWriter
{
public:
    PageWriter(const QString &html, bool isFromNetwork);

    SafePage write();

private:
    void read(const HtmlToken &token);
    void open(const HtmlToken &token);
    void findPlace(const Kind &kind);
    void goInto(int names);
    void openImplied(const QString &name);
    void push(const QString &name, const Kind &kind, const Font &font, bool isWritten);
    void close(const QString &name);
    void closeInnermost();
    void closeDownTo(int index);
    int indexOf(const QString &name) const;
    int indexOf(int names) const;
    bool isInnermost(int names) const;

    Font writeAttributes(const HtmlToken &token, int traits);
    void writeAttribute(const HtmlAttribute &attribute, Font *font);
    QString spanOf(const HtmlAttribute &attribute);
    void noteFont(const QString &declarations, Font *font) const;
    void chargeElement(const QString &name, const Kind &kind);
    void chargeCell(bool isRow);
    void chargeHeight(const Kind &kind);
    void noteHeight(const HtmlAttribute &attribute);
    void noteMarks(const QString &attribute, const QString &value);
    qint64 styleWork(const QString &name, const QStringList &marks, int depth) const;
    void renewStyles();
    TextWork::Width width() const;
    int line() const;
    void beginLine();

    int takeWords(QStringView rest);
    void writeText(QStringView text);
    void writeEscaped(QStringView text, bool hasEntities);
    void writeTitle();
    void writeStyleSheet();

    HtmlTokens m_tokens;
    bool m_is_from_network;
    QString m_html;
    QVector<Element> m_open;
    int m_tables = 0; // Of them.
    bool m_is_too_deep = false;
    QString m_raw; // The text of a title or a style sheet.
    PageWork m_work;
    CssEffort m_css;
    qint64 m_style = 0; // The work for the styles of the open elements.
    WordBreaks m_words;
    TextWork m_letters;
    bool m_keeps_lines = false; // Whether line breaks of the page may be kept in the text.
    int m_paragraph = 0; // Letters since the start of the line.
    int m_loose_items = 0;
    bool m_has_floats = false;
    int m_pictures = 0;
    int m_text_length = 0;
    int m_lines = 0; // A row of a table counts as one.
    int m_indent = 0; // Of the open elements, in pixels.
    int m_columns = 1; // Of the current tag, like the following.
    int m_rows = 1;
    bool m_floats = false;
    int m_length = 0; // The largest of its style.
    int m_cell_height = 0;
    int m_own_line = 0;
    QStringList m_marks; // Its classes and its id.
};

PageWriter::PageWriter(const QString &html, bool isFromNetwork)
    : m_tokens(html), m_is_from_network(isFromNetwork)
{
    m_html.reserve(html.size() + html.size() / 8);
}

SafePage PageWriter::write()
{
    HtmlToken token;
    while (!m_is_too_deep && !m_work.isTooMuch()) {
        if (!m_tokens.next(&token))
            return {SafePage::FINE, m_html, m_work.total(), m_pictures, m_text_length, m_lines};
        read(token);
    }
    return {m_is_too_deep ? SafePage::TOO_DEEP : SafePage::TOO_SLOW, {}, m_work.total()};
}

void PageWriter::read(const HtmlToken &token)
{
    const bool isRaw = isInnermost(STYLE | TITLE);
    if (token.kind == HtmlToken::TEXT) {
        if (isRaw)
            m_raw += token.text;
        else
            writeText(token.text);
        return;
    }
    if (isInnermost(TITLE))
        writeTitle();
    else if (isRaw && token.kind == HtmlToken::CLOSING)
        writeStyleSheet();
    m_raw.clear();
    if (!isPlainName(token.name))
        return;
    if (token.kind == HtmlToken::CLOSING)
        close(token.name);
    else
        open(token);
}

void PageWriter::open(const HtmlToken &token)
{
    const Kind &kind = kindOf(token.name);
    if (m_is_from_network && kind.is(LINK))
        return;
    findPlace(kind);
    if (kind.has(LINES))
        beginLine();
    if (kind.start.isNull())
        m_html += QLatin1Char('<') + token.name;
    else
        m_html += kind.start;
    const Font font = writeAttributes(token, kind.traits);
    chargeElement(token.name, kind);
    chargeHeight(kind);
    const bool isEmpty = kind.has(EMPTY) || token.endsItself;
    m_html += isEmpty ? QLatin1String(" />") : QLatin1String(">");
    if (kind.is(BR))
        m_words.restart();
    if (!isEmpty)
        push(token.name, kind, font, true);
}

/// Closes the elements that the text engine closes before this element, and opens those it inserts.
void PageWriter::findPlace(const Kind &kind)
{
    if (kind.is(TD) && indexOf(TR) < 0) {
        openImplied(QStringLiteral("table"));
        openImplied(QStringLiteral("tr"));
    } else if (kind.is(TR) && indexOf(TABLE) < 0) {
        openImplied(QStringLiteral("table"));
    } else if (kind.is(P)) {
        int block = m_open.size() - 1;
        while (block >= 0 && !m_open.at(block).kind->has(BLOCK))
            --block;
        if (block >= 0 && m_open.at(block).kind->is(P))
            closeDownTo(block);
    }
    if (kind.is(P | LI | OPTION) && isInnermost(kind.name))
        closeInnermost();
    if (kind.is(TD | TH))
        goInto(TR);
    else if (kind.is(TR))
        goInto(TABLE | SECTION);
    else if (kind.is(SECTION | CAPTION))
        goInto(TABLE);
    else if (kind.is(DT))
        goInto(DL);
    else if (kind.is(DD))
        goInto(DL | DT);
    else if (kind.is(BODY) && isInnermost(HEAD))
        closeInnermost();
}

/// Closes the elements inside the innermost of names.
void PageWriter::goInto(int names)
{
    while (!m_open.isEmpty() && !isInnermost(names))
        closeInnermost();
}

void PageWriter::openImplied(const QString &name)
{
    push(name, kindOf(name), m_open.isEmpty() ? Font() : m_open.last().font, false);
}

void PageWriter::push(const QString &name, const Kind &kind, const Font &font, bool isWritten)
{
    Element element;
    element.name = name;
    element.kind = &kind;
    element.font = font;
    element.isWritten = isWritten;
    element.indent = (isWritten && kind.has(INDENTED) ? kIndentPixels : 0)
        + (isWritten && kind.has(BLOCK) ? qMax(m_length, m_css.maxLength) : 0);
    element.cellHeight = m_cell_height;
    element.line = qMax(m_own_line, m_open.isEmpty() ? 0 : m_open.last().line);
    if (kind.isHeading())
        element.line = qMax(element.line, m_css.maxHeadingLine);
    if (isWritten)
        element.marks = m_marks;
    element.style = styleWork(name, element.marks, m_open.size() + 1);
    m_style += element.style;
    m_indent += element.indent;
    m_open.append(std::move(element));
    if (kind.is(TABLE))
        m_work.setTables(++m_tables);
    m_is_too_deep |= m_open.size() > kMaxNestedTags || m_tables > kMaxNestedTables;
}

void PageWriter::close(const QString &name)
{
    m_work.addClosing(m_open.size());
    const int index = indexOf(name);
    if (index >= 0 && m_open.at(index).isWritten)
        closeDownTo(index);
}

void PageWriter::closeDownTo(int index)
{
    while (m_open.size() > index)
        closeInnermost();
}

void PageWriter::closeInnermost()
{
    const Element &element = m_open.last();
    m_indent -= element.indent;
    m_style -= element.style;
    if (element.kind->is(TABLE))
        m_work.setTables(--m_tables);
    if (element.kind->has(LINES))
        beginLine();
    if (element.isWritten && element.kind->end.isNull())
        m_html += QLatin1String("</") + element.name + QLatin1Char('>');
    else if (element.isWritten)
        m_html += element.kind->end;
    m_open.removeLast();
}

int PageWriter::indexOf(const QString &name) const
{
    for (int i = m_open.size() - 1; i >= 0; --i) {
        if (m_open.at(i).name == name)
            return i;
    }
    return -1;
}

/// The innermost of these elements; -1 if none is open.
int PageWriter::indexOf(int names) const
{
    int i = m_open.size() - 1;
    while (i >= 0 && !m_open.at(i).kind->is(names))
        --i;
    return i;
}

bool PageWriter::isInnermost(int names) const
{
    return !m_open.isEmpty() && m_open.last().kind->is(names);
}

Font PageWriter::writeAttributes(const HtmlToken &token, int traits)
{
    constexpr int kFonts = BOLD | ITALIC | MONOSPACED;
    Font font = m_open.isEmpty() ? Font() : m_open.last().font;
    font.traits |= traits & kFonts;
    if (traits & SIZED)
        font.size = qHash(token.name);
    if (m_css.hasFonts)
        font.other = qHash(token.name, font.other);
    m_columns = m_rows = 1;
    m_length = m_cell_height = m_own_line = 0;
    if (!m_marks.isEmpty())
        m_marks.clear();
    m_floats = m_css.hasFloats;
    for (const HtmlAttribute &attribute : token.attributes)
        writeAttribute(attribute, &font);
    return font;
}

void PageWriter::writeAttribute(const HtmlAttribute &attribute, Font *font)
{
    const QString &name = attribute.name;
    if (!isPlainName(name) || isTooLong(attribute))
        return;
    m_work.addAttribute(attribute.value.size());
    m_html += QLatin1Char(' ');
    m_html += name;
    m_html += QLatin1String("=\"");
    if (name == QLatin1String("style")) {
        const QString css =
            attribute.hasEntities ? resolved(attribute.value) : attribute.value.toString();
        CssEffort effort;
        const QString declarations = plainDeclarations(css, &effort);
        writeEscaped(m_is_from_network ? declarations : withoutLargeNumbers(css), false);
        m_css.hasDisplay |= effort.hasDisplay;
        m_css.hasWhiteSpace |= effort.hasWhiteSpace;
        m_floats |= effort.hasFloats;
        m_length = qMax(m_length, effort.maxLength);
        m_own_line = qMax(m_own_line, effort.maxLine);
        if (effort.hasFonts)
            noteFont(declarations, font);
    } else if (isOneOf(name, {"colspan", "rowspan"})) {
        m_html += spanOf(attribute);
    } else {
        writeEscaped(attribute.value, attribute.hasEntities);
        noteHeight(attribute);
        if (isOneOf(name, {"class", "id"}))
            noteMarks(name, resolved(attribute.value).toLower());
        m_floats |= name == QLatin1String("align") && isSide(attribute.value);
        if (name == QLatin1String("size"))
            font->size = qHash(attribute.value);
        else if (name == QLatin1String("face"))
            font->family = qHash(attribute.value);
        else if (m_css.hasFonts && isOneOf(name, {"class", "id"}))
            font->other = qHash(attribute.value, font->other);
    }
    m_html += QLatin1Char('"');
}

QString PageWriter::spanOf(const HtmlAttribute &attribute)
{
    const int span = qBound(1, resolved(attribute.value).toInt(), kMaxSpan);
    (attribute.name == QLatin1String("colspan") ? m_columns : m_rows) = span;
    return QString::number(span);
}

void PageWriter::noteFont(const QString &declarations, Font *font) const
{
    const QVector<QStringRef> all = declarations.splitRef(QLatin1Char(';'));
    for (const QStringRef &each : all) {
        if (each.startsWith(QLatin1String("font-size:")))
            font->size = qHash(each);
        else if (each.startsWith(QLatin1String("font-family:")))
            font->family = qHash(each);
        else if (each.startsWith(QLatin1String("font")))
            font->other = qHash(each, font->other);
    }
}

void PageWriter::chargeElement(const QString &name, const Kind &kind)
{
    const int sibling = m_open.isEmpty() ? 0 : m_open.last().children++;
    m_work.addElement(m_open.size(), sibling, m_css);
    m_work.addStyles(m_style + styleWork(name, m_marks, m_open.size() + 1));
    m_keeps_lines |= kind.is(PRE | META);
    m_has_floats |= m_floats;
    if (kind.is(IMG)) {
        ++m_pictures;
        m_work.addPicture(m_paragraph);
        m_paragraph += PageWork::kPictureAsLetters;
    } else if (kind.is(LI)) {
        const int list = indexOf(LIST);
        m_work.addItem(list < 0 ? m_loose_items++ : m_open[list].items++);
    } else if (kind.is(TD | TH | TR)) {
        chargeCell(kind.is(TR));
    }
    m_lines += m_tables == (kind.is(TR) ? 1 : 0) && kind.is(TR | BR);
    if (m_floats && kind.is(IMG | TABLE))
        m_work.addFloat(kind.is(TABLE));
}

/// Adds the height of an element without its text to that of the page.
void PageWriter::chargeHeight(const Kind &kind)
{
    constexpr int kLengths = 3; // For example a margin, a padding and a border.
    if (kind.is(BR))
        m_work.addHeight(line());
    if (!kind.has(BLOCK))
        return;
    const int margins = kind.has(MARGINS) ? kLinePixels : 0;
    m_work.addHeight(kLengths * qMax(m_length, m_css.maxLength) + margins);
    if (kind.has(LINES))
        m_work.addHeight(kind.has(SIZED) ? qMax(3 * line(), m_css.maxHeadingLine) : line());
    const int table = kind.is(TD | TH) ? indexOf(TABLE) : -1;
    if (table >= 0)
        m_work.addHeight(m_open.at(table).cellHeight);
}

void PageWriter::noteHeight(const HtmlAttribute &attribute)
{
    const QString &name = attribute.name;
    const bool isOfCells = isOneOf(name, {"border", "cellpadding", "cellspacing"});
    if (isOfCells || name == QLatin1String("height")) {
        const int pixels = qBound(0, int(resolved(attribute.value).toDouble()), 10000);
        if (isOfCells)
            m_cell_height += 2 * pixels;
        else
            m_work.addHeight(pixels);
    } else if (name == QLatin1String("size")) {
        m_own_line = qMax(m_own_line, 3 * kLinePixels);
    }
}

void PageWriter::noteMarks(const QString &attribute, const QString &value)
{
    const QLatin1Char mark(attribute == QLatin1String("id") ? '#' : '.');
    const QStringList words = value.simplified().split(QLatin1Char(' '));
    for (const QString &word : words)
        m_marks += mark + word;
}

qint64 PageWriter::styleWork(const QString &name, const QStringList &marks, int depth) const
{
    if (m_css.matchesFor.isEmpty())
        return 0;
    CssMatches matches = m_css.matchesFor.value(name);
    matches.add(m_css.matchesFor.value(QStringLiteral("*")));
    for (const QString &mark : marks)
        matches.add(m_css.matchesFor.value(mark));
    return PageWork::ofStyle(matches, depth);
}

/// Another style sheet also applies to the elements around it.
void PageWriter::renewStyles()
{
    m_style = 0;
    for (int i = 0; i < m_open.size(); ++i) {
        Element &element = m_open[i];
        element.style = styleWork(element.name, element.marks, i + 1);
        m_style += element.style;
        m_work.addClosing(element.marks.size() + 1); // As long as to look for it.
    }
}

/// The height of a line in pixels.
int PageWriter::line() const
{
    const int ofElement = m_open.isEmpty() ? 0 : m_open.last().line;
    return qMax(qMax(kLinePixels, m_css.maxLine), qMax(ofElement, m_own_line));
}

TextWork::Width PageWriter::width() const
{
    constexpr int kNarrow = 500; // Pixels taken from a window of usual width.
    return m_indent > kNarrow          ? TextWork::NO_WIDTH
        : m_tables > 0 || m_has_floats ? TextWork::WIDTH_OF_WORDS
                                       : TextWork::FULL_WIDTH;
}

/// A table is as wide as its widest row.
void PageWriter::chargeCell(bool isRow)
{
    const int index = indexOf(TABLE);
    if (index < 0)
        return;
    Element &table = m_open[index];
    const int cellsBefore = table.rows * table.columns;
    const int emptyBefore = table.emptyCells;
    table.rows = qMax(1, table.rows + (isRow ? 1 : 0));
    if (isRow) {
        table.columnsSpanned += table.spanned.take(table.rows);
        table.columnsOfRow = 0;
    }
    const int added = isRow ? table.columnsSpanned : m_columns;
    table.columnsOfRow += added;
    table.columns = qMax(table.columns, table.columnsOfRow);
    const int growth = table.rows * table.columns - cellsBefore;
    table.emptyCells += growth - added;
    m_work.addCell(growth, table.emptyCells - emptyBefore);
    if (m_rows > 1) {
        table.spanned[table.rows + 1] += m_columns;
        table.spanned[table.rows + m_rows] -= m_columns;
        m_work.addSpan(m_columns, m_rows);
    }
}

void PageWriter::beginLine()
{
    // A style may have made it inline.
    if (m_css.hasDisplay)
        return;
    m_words.restart();
    m_paragraph = 0;
}

/// Takes the letters at the start of rest, which is inside a word, and the words after them, all at
/// once: they are most of a page. Returns how much was taken.
int PageWriter::takeWords(QStringView rest)
{
    int end = 0;
    int words = 0;
    int lettersLeft = m_words.lettersLeft();
    for (; end < rest.size() && lettersLeft > 0; ++end) {
        const bool isLetter = isLatinLetter(rest.at(end));
        if (!isLetter) {
            const bool isBetween = rest.at(end) == QLatin1Char(' ') && end + 1 < rest.size()
                && isLatinLetter(rest.at(end + 1));
            if (!isBetween)
                break;
            ++words;
        }
        lettersLeft = isLetter ? lettersLeft - 1 : WordBreaks::kMaxWordLength;
    }
    m_words.setLettersLeft(lettersLeft);
    m_letters.takeWords(end, words);
    return end;
}

void PageWriter::writeText(QStringView text)
{
    const bool isBlank = text.trimmed().isEmpty();
    m_text_length += isBlank ? 0 : int(text.size());
    m_lines += !isBlank && m_paragraph == 0 && m_tables == 0;
    if (!m_open.isEmpty() && !isBlank)
        m_work.addFont(m_open.last().font.hash(), m_open.last().font.traits & MONOSPACED);
    int start = 0;
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        const int end = c == QLatin1Char('&') ? htmlEntityEnd(text, i) : -1;
        m_letters.take(end < 0 ? c : resolved(text.mid(i, end - i)).at(0));
        if (m_words.isDueBefore(c)) {
            writeEscaped(text.mid(start, i - start), true);
            m_html += WordBreaks::kBreak;
            start = i;
        }
        // A break must not come between an ampersand and its semicolon.
        i = qMax(i, end - 1);
        if (isLatinLetter(c))
            i += takeWords(text.mid(i + 1));
    }
    writeEscaped(text.mid(start), true);
    const bool linesCount = m_keeps_lines || m_css.hasWhiteSpace;
    m_work.addHeight(m_letters.height(width(), line(), linesCount));
    m_letters.chargeTo(&m_work, width(), linesCount);
    m_paragraph += int(text.size());
}

/// Writes text with tags and quotes escaped; entities are kept if there are any.
void PageWriter::writeEscaped(QStringView text, bool hasEntities)
{
    int start = 0;
    for (int i = 0; i < text.size(); ++i) {
        if (text.at(i) > QLatin1Char('>'))
            continue; // Most of a text.
        const char *entity = nullptr;
        switch (text.at(i).unicode()) {
        case '<':
            entity = "&lt;";
            break;
        case '>':
            entity = "&gt;";
            break;
        case '"':
            entity = "&quot;";
            break;
        case '&':
            entity = hasEntities && htmlEntityEnd(text, i) >= 0 ? nullptr : "&amp;";
            break;
        default:
            break;
        }
        if (!entity)
            continue;
        m_html.append(text.data() + start, i - start);
        m_html += QLatin1String(entity);
        start = i + 1;
    }
    m_html.append(text.data() + start, int(text.size()) - start);
}

void PageWriter::writeTitle()
{
    // Entities are at most that much longer than the character.
    writeEscaped(
        resolved(QStringView(m_raw).left(kMaxTitleLength * 10)).left(kMaxTitleLength), true);
}

void PageWriter::writeStyleSheet()
{
    const QString css = resolved(m_raw);
    const QString plain = plainStyleSheet(css, &m_css);
    renewStyles();
    writeEscaped(m_is_from_network ? plain : withoutLargeNumbers(css), false);
    m_work.addAttribute(css.size());
}

} // namespace

SafePage safePage(const QString &html, bool isFromNetwork)
{
    return PageWriter(html, isFromNetwork).write();
}

SafePage safePlainText(const QString &text)
{
    PageWork work;
    TextWork letters;
    WordBreaks words;
    QString broken;
    broken.reserve(text.size());
    for (const QChar c : text) {
        letters.take(c);
        if (c == QLatin1Char('\n'))
            words.restart();
        else if (words.isDueBefore(c))
            broken += WordBreaks::kBreak;
        broken += c;
    }
    work.addHeight(letters.height(TextWork::FULL_WIDTH, kLinePixels, true));
    letters.chargeTo(&work, TextWork::FULL_WIDTH, true);
    if (work.isTooMuch())
        return {SafePage::TOO_SLOW, {}, work.total()};
    return {SafePage::FINE, broken, work.total(), 0, text.size()};
}
