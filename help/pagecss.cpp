// SPDX-License-Identifier: MIT
#include "help/pagecss_p.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <utility>

namespace {

constexpr int kMaxValueLength = 4000; // It may contain a picture.
constexpr int kMaxNumber = 9999; // Of a length.
constexpr int kFontPixels = 20; // Height of a letter without an explicit size.
constexpr int kIndentPixels = 40; // Per level.

bool isOneOf(QChar c, const char *letters)
{
    return c.unicode() < 128
        && QByteArray::fromRawData(letters, int(qstrlen(letters))).contains(char(c.unicode()));
}

bool isWordLetter(QChar c)
{
    return c.unicode() < 128
        && (c.isLetterOrNumber() || c == QLatin1Char('-') || c == QLatin1Char('_'));
}

bool isPropertyName(QStringView name)
{
    return !name.isEmpty() && std::all_of(name.begin(), name.end(), isWordLetter);
}

QString withoutComments(const QString &css)
{
    if (!css.contains(QLatin1String("/*")))
        return css;
    QString text;
    int position = 0;
    for (;;) {
        const int comment = css.indexOf(QLatin1String("/*"), position);
        text += css.mid(position, comment < 0 ? -1 : comment - position);
        const int end = comment < 0 ? -1 : css.indexOf(QLatin1String("*/"), comment + 2);
        if (end < 0)
            return text;
        text += QLatin1Char(' ');
        position = end + 2;
    }
}

/// The position of the first of ends at or after position, outside of quotes and brackets; the end
/// of text if there is none.
int findOutside(QStringView text, int position, const char *ends)
{
    QChar quote;
    int depth = 0;
    for (; position < text.size(); ++position) {
        const QChar c = text.at(position);
        if (!quote.isNull()) {
            if (c == quote)
                quote = QChar();
        } else if (c == QLatin1Char('"') || c == QLatin1Char('\'')) {
            quote = c;
        } else if (c == QLatin1Char('(')) {
            ++depth;
        } else if (c == QLatin1Char(')')) {
            --depth;
        } else if (depth <= 0 && isOneOf(c, ends)) {
            return position;
        }
    }
    return int(text.size());
}

/// Whether value is unambiguous: quotes and brackets are closed, and nothing is escaped.
bool isPlainValue(QStringView value)
{
    if (value.isEmpty() || value.size() > kMaxValueLength)
        return false;
    QChar quote;
    int depth = 0;
    for (const QChar c : value) {
        if (isOneOf(c, "\\{}<>@\n\r\f") || c.isNull())
            return false;
        if (!quote.isNull()) {
            if (c == quote)
                quote = QChar();
        } else if (c == QLatin1Char('"') || c == QLatin1Char('\'')) {
            quote = c;
        } else if (c == QLatin1Char('(')) {
            ++depth;
        } else if (c == QLatin1Char(')') && --depth < 0) {
            return false;
        }
    }
    return quote.isNull() && depth == 0;
}

/// Whether a number in value is larger than any page needs. The text engine's own numbers overflow,
/// and nested tables of such margins keep it busy forever.
bool hasLargeNumber(const QString &name, const QString &value)
{
    const int maxDigits = name.startsWith(QLatin1String("font")) ? 3 : 4;
    int depth = 0;
    for (int i = 0; i < value.size(); ++i) {
        depth += value.at(i) == QLatin1Char('(') ? 1 : value.at(i) == QLatin1Char(')') ? -1 : 0;
        const bool isColour = value.at(i) == QLatin1Char('#');
        const int start = i;
        while (isColour && i + 1 < value.size() && value.at(i + 1).isLetterOrNumber())
            ++i;
        while (!isColour && i < value.size() && value.at(i).isDigit())
            ++i;
        if (isColour || i == start)
            continue;
        const QStringView unit = QStringView(value).mid(i);
        const bool isRelative = unit.startsWith(QLatin1Char('e'), Qt::CaseInsensitive);
        const bool hasExponent = isRelative && unit.size() > 1 && unit.at(1).isDigit();
        if (depth == 0 && (hasExponent || i - start > (isRelative ? 2 : maxDigits)))
            return true;
        --i;
    }
    return false;
}

/// The largest length in value, in pixels; at least the value that the text engine uses.
int largestLength(const QString &value)
{
    int largest = 0;
    for (int i = 0; i < value.size(); ++i) {
        const int start = i;
        while (i < value.size() && value.at(i).isDigit())
            ++i;
        // Those in brackets have not been judged.
        const int number = qMin(value.mid(start, i - start).toInt(), kMaxNumber);
        const QStringView unit = QStringView(value).mid(i);
        if (unit.startsWith(QLatin1Char('e'), Qt::CaseInsensitive))
            largest = qMax(largest, kFontPixels * (number + 1));
        else if (unit.startsWith(QLatin1String("pt"), Qt::CaseInsensitive))
            largest = qMax(largest, number * 4 / 3 + 1);
        else
            largest = qMax(largest, number);
    }
    return largest;
}

void noteLengths(const QString &name, const QString &value, CssEffort *effort)
{
    const auto begins = [&name](
                            const char *start) { return name.startsWith(QLatin1String(start)); };
    if (begins("font") || begins("line-height"))
        effort->maxLine = qMax(effort->maxLine, largestLength(value) * 3 / 2);
    else if (begins("margin") || begins("padding") || begins("border") || begins("height")
        || name.contains(QLatin1String("indent")))
        effort->maxLength =
            qMax(effort->maxLength, largestLength(value) * (begins("-qt") ? kIndentPixels : 1));
}

/// Whether elements may inherit the property name; all others were tried.
bool isInherited(const QString &name)
{
    static const QSet<QString> others {"background", "background-color", "background-image",
        "border", "border-color", "border-left", "color", "display", "float", "height", "margin",
        "margin-left", "padding", "padding-left", "text-decoration", "vertical-align", "width"};
    return !others.contains(name);
}

void noteProperty(const QString &name, const QString &value, CssEffort *effort)
{
    noteLengths(name, value, effort);
    ++effort->declarations;
    effort->inherited += isInherited(name);
    effort->hasWhiteSpace |= name == QLatin1String("white-space");
    effort->hasFonts |= name.startsWith(QLatin1String("font"));
    effort->hasFloats |= name == QLatin1String("float");
    effort->hasDisplay |= name == QLatin1String("display")
        && value.compare(QLatin1String("none"), Qt::CaseInsensitive) != 0
        && value.compare(QLatin1String("block"), Qt::CaseInsensitive) != 0;
}

QString declarations(QStringView css, CssEffort *effort)
{
    QString plain;
    for (int start = 0; start < css.size();) {
        const int end = findOutside(css, start, ";");
        const QStringView each = css.mid(start, end - start);
        start = end + 1;
        const int colon = int(each.indexOf(QLatin1Char(':')));
        if (colon < 0)
            continue;
        const QString name = each.left(colon).trimmed().toString().toLower();
        const QString value = each.mid(colon + 1).trimmed().toString().simplified();
        if (!isPropertyName(name) || !isPlainValue(value) || hasLargeNumber(name, value))
            continue;
        noteProperty(name, value, effort);
        plain += name + QLatin1Char(':') + value + QLatin1Char(';');
    }
    return plain;
}

bool isPlainSelector(QStringView selector)
{
    return !selector.isEmpty() && std::all_of(selector.begin(), selector.end(), [](QChar c) {
        return isWordLetter(c) || isOneOf(c, " .#*:,>+~[]=\"'^$|");
    });
}

bool isOfHeadings(const QString &selector)
{
    static const QRegularExpression headings(QStringLiteral("^h[1-6](, ?h[1-6])*$"));
    return headings.match(selector).hasMatch();
}

/// What an element must have for selector, which has no comma, to apply.
QString keyOf(const QString &selector)
{
    static const QRegularExpression combinator(QStringLiteral("[ >+~]"));
    static const QRegularExpression mark(QStringLiteral("[.#]"));
    static const QRegularExpression end(QStringLiteral("[.#:]"));
    if (selector.contains(QLatin1Char('[')))
        return QStringLiteral("*"); // There may be anything in its quotes.
    const QString last = selector.mid(selector.lastIndexOf(combinator) + 1).toLower();
    const int start = qMax(0, last.indexOf(mark));
    const int length = last.indexOf(end, start + 1) - start; // To the last if negative.
    const QString key = last.mid(start, length < 0 ? -1 : length);
    return key.isEmpty() || key.startsWith(QLatin1Char(':')) ? QStringLiteral("*") : key;
}

void noteSelector(const QString &selector, int inherited, CssEffort *effort)
{
    static const QRegularExpression descendant(QStringLiteral("[^ >+~] [^ >+~]"));
    const QStringList each = selector.split(QLatin1Char(','));
    for (const QString &one : each) {
        const QString trimmed = one.trimmed();
        effort->matchesFor[keyOf(trimmed)].add({1, trimmed.contains(descendant), inherited});
    }
    effort->selectors += 1 + selector.count(QLatin1Char(','));
    effort->ancestors += selector.count(QLatin1Char(' ')) + selector.count(QLatin1Char('>'));
    effort->siblings += selector.count(QLatin1Char('+')) + selector.count(QLatin1Char('~'));
}

QString rules(QStringView css, bool mayHoldMedia, CssEffort *effort);

QString rule(const QString &selector, QStringView block, bool mayHoldMedia, CssEffort *effort)
{
    const QLatin1String media("@media ");
    if (mayHoldMedia && selector.startsWith(media)) {
        const QString kind = selector.mid(media.size());
        const QString inner = rules(block, false, effort);
        return isPlainSelector(kind) ? media + kind + QLatin1Char('{') + inner + QLatin1Char('}')
                                     : QString();
    }
    if (!isPlainSelector(selector))
        return {};
    const int maxLine = std::exchange(effort->maxLine, 0);
    const int inherited = effort->inherited;
    const QString plain = declarations(block, effort);
    noteSelector(selector, effort->inherited - inherited, effort);
    int &line = isOfHeadings(selector) ? effort->maxHeadingLine : effort->maxLine;
    line = qMax(line, std::exchange(effort->maxLine, 0));
    effort->maxLine = qMax(maxLine, effort->maxLine);
    return selector + QLatin1Char('{') + plain + QLatin1Char('}');
}

/// The position of the closing brace of the block that begins at position.
int blockEnd(QStringView css, int position)
{
    int depth = 1;
    for (; position < css.size(); ++position) {
        position = findOutside(css, position, "{}");
        if (position >= css.size())
            break;
        depth += css.at(position) == QLatin1Char('{') ? 1 : -1;
        if (depth == 0)
            break;
    }
    return position;
}

QString rules(QStringView css, bool mayHoldMedia, CssEffort *effort)
{
    QString plain;
    for (int start = 0; start < css.size();) {
        const int open = findOutside(css, start, "{;}");
        const bool isRule = open < css.size() && css.at(open) == QLatin1Char('{');
        const int close = isRule ? blockEnd(css, open + 1) : open;
        if (isRule) {
            const QString selector = css.mid(start, open - start).toString().simplified();
            plain += rule(selector, css.mid(open + 1, close - open - 1), mayHoldMedia, effort);
        }
        start = close + 1;
    }
    return plain;
}

} // namespace

QString withoutLargeNumbers(const QString &css)
{
    const QString text = withoutComments(css);
    QString kept;
    for (int start = 0; start < text.size();) {
        const int end = findOutside(text, start, ";{}");
        const QStringView each = QStringView(text).mid(start, end - start);
        const int colon = int(each.indexOf(QLatin1Char(':')));
        const bool isSelector = end < text.size() && text.at(end) == QLatin1Char('{');
        const bool isLeftOut = colon >= 0 && !isSelector
            && hasLargeNumber(
                each.left(colon).trimmed().toString().toLower(), each.mid(colon + 1).toString());
        kept += text.mid(isLeftOut ? end : start, isLeftOut ? 1 : end + 1 - start);
        start = end + 1;
    }
    return kept == text ? css : kept;
}

QString plainDeclarations(const QString &css, CssEffort *effort)
{
    const QString text = withoutComments(css);
    return declarations(text, effort);
}

QString plainStyleSheet(const QString &css, CssEffort *effort)
{
    const QString text = withoutComments(css);
    return rules(text, true, effort);
}
