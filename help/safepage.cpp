// SPDX-License-Identifier: MIT
#include "help/safepage_p.h"

#include "help/helplimits_p.h"
#include "help/htmltokens_p.h"
#include "help/pagecss_p.h"
#include "help/pageelements_p.h"
#include "help/wordbreaks_p.h"

#include <algorithm>

namespace {

using Html = HtmlElement;

bool isOneOf(const QString &name, std::initializer_list<const char *> names)
{
    return std::any_of(names.begin(), names.end(),
        [&name](const char *each) { return name == QLatin1String(each); });
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

/// Whether attribute is a length so large that it would overflow the text engine's integers.
bool isTooLong(const HtmlAttribute &attribute)
{
    constexpr int kMaxLength = 9999;
    if (!isOneOf(attribute.name,
            {"width", "height", "border", "cellpadding", "cellspacing", "size", "start", "value"}))
        return false;
    QString length = resolvedHtml(attribute.value).trimmed();
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
    void findPlace(const HtmlElement &kind);
    void goInto(int names);
    void closeInnermost();
    void closeDownTo(int index);
    void beginLine();

    void writeAttribute(const HtmlAttribute &attribute);
    QString styleOf(const HtmlAttribute &attribute);
    QString spanOf(const HtmlAttribute &attribute);
    int takeWords(QStringView rest);
    void writeText(QStringView text);
    void writeEscaped(QStringView text, bool hasEntities);
    void writeTitle();
    void writeStyleSheet();

    HtmlTokens m_tokens;
    bool m_is_from_network;
    QString m_html;
    PageElements m_elements;
    QString m_raw; // The text of a title or a style sheet.
    WordBreaks m_words;
    TextWork m_letters;
};

PageWriter::PageWriter(const QString &html, bool isFromNetwork)
    : m_tokens(html), m_is_from_network(isFromNetwork)
{
    m_html.reserve(html.size() + html.size() / 8);
}

SafePage PageWriter::write()
{
    const PageWork &work = m_elements.work();
    HtmlToken token;
    while (!m_elements.isTooDeep() && !work.isTooMuch()) {
        if (!m_tokens.next(&token)) {
            return {SafePage::FINE, m_html, work.total(), m_elements.pictures(),
                m_elements.textLength(), m_elements.lines()};
        }
        read(token);
    }
    return {m_elements.isTooDeep() ? SafePage::TOO_DEEP : SafePage::TOO_SLOW, {}, work.total()};
}

void PageWriter::read(const HtmlToken &token)
{
    const bool isRaw = m_elements.isInnermost(Html::STYLE | Html::TITLE);
    if (token.kind == HtmlToken::TEXT) {
        if (isRaw)
            m_raw += token.text;
        else
            writeText(token.text);
        return;
    }
    if (m_elements.isInnermost(Html::TITLE))
        writeTitle();
    else if (isRaw && token.kind == HtmlToken::CLOSING)
        writeStyleSheet();
    m_raw.clear();
    if (!isPlainName(token.name))
        return;
    if (token.kind == HtmlToken::OPENING) {
        open(token);
    } else {
        const int ended = m_elements.indexOfEnded(token.name);
        if (ended >= 0)
            closeDownTo(ended);
    }
}

void PageWriter::open(const HtmlToken &token)
{
    const HtmlElement &kind = HtmlElement::of(token.name);
    if (m_is_from_network && kind.is(Html::LINK))
        return;
    findPlace(kind);
    if (kind.has(Html::LINES))
        beginLine();
    if (kind.start.isNull())
        m_html += QLatin1Char('<') + token.name;
    else
        m_html += kind.start;
    m_elements.beginTag(token.name, kind.traits);
    for (const HtmlAttribute &attribute : token.attributes)
        writeAttribute(attribute);
    m_elements.endTag(token.name, kind);
    const bool isEmpty = kind.has(Html::EMPTY) || token.endsItself;
    m_html += isEmpty ? QLatin1String(" />") : QLatin1String(">");
    if (kind.is(Html::BR))
        m_words.restart();
    if (!isEmpty)
        m_elements.push(token.name, kind);
}

/// Closes the elements that the text engine closes before this element, and opens those it inserts.
void PageWriter::findPlace(const HtmlElement &kind)
{
    if (kind.is(Html::TD) && m_elements.indexOf(Html::TR) < 0) {
        m_elements.pushImplied(QStringLiteral("table"));
        m_elements.pushImplied(QStringLiteral("tr"));
    } else if (kind.is(Html::TR) && m_elements.indexOf(Html::TABLE) < 0) {
        m_elements.pushImplied(QStringLiteral("table"));
    } else if (kind.is(Html::P) && m_elements.indexOfParagraph() >= 0) {
        closeDownTo(m_elements.indexOfParagraph());
    }
    if (kind.is(Html::P | Html::LI | Html::OPTION) && m_elements.isInnermost(kind.name))
        closeInnermost();
    if (kind.is(Html::TD | Html::TH))
        goInto(Html::TR);
    else if (kind.is(Html::TR))
        goInto(Html::TABLE | Html::SECTION);
    else if (kind.is(Html::SECTION | Html::CAPTION))
        goInto(Html::TABLE);
    else if (kind.is(Html::DT))
        goInto(Html::DL);
    else if (kind.is(Html::DD))
        goInto(Html::DL | Html::DT);
    else if (kind.is(Html::BODY) && m_elements.isInnermost(Html::HEAD))
        closeInnermost();
}

/// Closes the elements inside the innermost of names.
void PageWriter::goInto(int names)
{
    while (!m_elements.isEmpty() && !m_elements.isInnermost(names))
        closeInnermost();
}

void PageWriter::closeDownTo(int index)
{
    while (m_elements.count() > index)
        closeInnermost();
}

void PageWriter::closeInnermost()
{
    const OpenElement &element = m_elements.innermost();
    if (element.kind->has(Html::LINES))
        beginLine();
    if (element.isWritten && element.kind->end.isNull())
        m_html += QLatin1String("</") + element.name + QLatin1Char('>');
    else if (element.isWritten)
        m_html += element.kind->end;
    m_elements.pop();
}

void PageWriter::beginLine()
{
    if (m_elements.beginLine())
        m_words.restart();
}

void PageWriter::writeAttribute(const HtmlAttribute &attribute)
{
    const QString &name = attribute.name;
    if (!isPlainName(name) || isTooLong(attribute))
        return;
    m_elements.addLength(attribute.value.size());
    m_html += QLatin1Char(' ');
    m_html += name;
    m_html += QLatin1String("=\"");
    if (name == QLatin1String("style")) {
        writeEscaped(styleOf(attribute), false);
    } else if (isOneOf(name, {"colspan", "rowspan"})) {
        m_html += spanOf(attribute);
    } else {
        writeEscaped(attribute.value, attribute.hasEntities);
        m_elements.addAttribute(attribute);
    }
    m_html += QLatin1Char('"');
}

QString PageWriter::styleOf(const HtmlAttribute &attribute)
{
    const QString css =
        attribute.hasEntities ? resolvedHtml(attribute.value) : attribute.value.toString();
    CssEffort effort;
    const QString declarations = plainDeclarations(css, &effort);
    m_elements.addStyle(declarations, effort);
    return m_is_from_network ? declarations : withoutLargeNumbers(css);
}

QString PageWriter::spanOf(const HtmlAttribute &attribute)
{
    const int span = qBound(1, resolvedHtml(attribute.value).toInt(), kMaxSpan);
    m_elements.addSpan(attribute.name, span);
    return QString::number(span);
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
    int start = 0;
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        const int end = c == QLatin1Char('&') ? htmlEntityEnd(text, i) : -1;
        m_letters.take(end < 0 ? c : resolvedHtml(text.mid(i, end - i)).at(0));
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
    m_elements.addText(text, &m_letters);
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
    constexpr int kMaxSource = 10 * kMaxTitleLength; // An entity is at most that much longer.
    writeEscaped(resolvedHtml(QStringView(m_raw).left(kMaxSource)).left(kMaxTitleLength), true);
}

void PageWriter::writeStyleSheet()
{
    const QString css = resolvedHtml(m_raw);
    const QString plain = m_elements.addStyleSheet(css);
    writeEscaped(m_is_from_network ? plain : withoutLargeNumbers(css), false);
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
    return {SafePage::FINE, broken, work.total(), 0, int(text.size())};
}
