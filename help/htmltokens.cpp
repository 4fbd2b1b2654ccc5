// SPDX-License-Identifier: MIT
#include "help/htmltokens_p.h"

#include <QHash>

#include <algorithm>

namespace {

constexpr int kMaxEntityLength = 9; // Including the semicolon.

/// The character of an entity such as "#65" or "#x41", of which digits is what follows the sign.
QChar numericEntity(QStringView digits)
{
    const bool isHex = digits.startsWith(QLatin1Char('x'), Qt::CaseInsensitive);
    const uint code = digits.mid(isHex ? 1 : 0).toString().toUInt(nullptr, isHex ? 16 : 10);
    return QChar(ushort(code)); // Characters beyond these 16 bits occur in no name.
}

/// word in lower case with numeric entities resolved. Named entities are ignored, since none yields
/// a letter that occurs in names of HTML.
QString newName(QStringView word, bool hasEntities)
{
    QString name;
    name.reserve(int(word.size()));
    for (int i = 0; i < word.size(); ++i) {
        const int end = hasEntities && word.at(i) == QLatin1Char('&') ? htmlEntityEnd(word, i) : -1;
        if (end < 0 || word.at(i + 1) != QLatin1Char('#')) {
            name += word.at(i).toLower();
            continue;
        }
        name += numericEntity(word.mid(i + 2, end - i - 3)).toLower();
        i = end - 1;
    }
    return name;
}

/// The part of the page that the text engine shows: the clipboard fragment if one is marked.
QStringView shownPart(const QString &html)
{
    const int start = html.indexOf(QLatin1String("<!--StartFragment-->"));
    if (start < 0)
        return html;
    const int end = html.indexOf(QLatin1String("<!--EndFragment-->"));
    return QStringView(html).mid(start, end > start ? end - start : html.size() - start);
}

} // namespace

int htmlEntityEnd(QStringView text, int position)
{
    for (int i = position + 1; i < text.size() && i - position <= kMaxEntityLength; ++i) {
        const ushort c = text.at(i).unicode();
        if (c == ';')
            return i > position + 1 ? i + 1 : -1;
        const bool isPlain = (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z')
            || (c >= 'A' && c <= 'Z') || (c == '#' && i == position + 1);
        if (!isPlain)
            return -1;
    }
    return -1;
}

HtmlTokens::HtmlTokens(const QString &html)
    : m_text(html), m_html(shownPart(m_text)), m_end(int(m_html.size()))
{
}

bool HtmlTokens::next(HtmlToken *token)
{
    for (;;) {
        if (m_position >= m_end)
            return false;
        if (at(m_position) != QLatin1Char('<')) {
            const int start = m_position;
            skipTo(QLatin1Char('<'));
            token->kind = HtmlToken::TEXT;
            token->text = m_html.mid(start, m_position - start);
            return true;
        }
        ++m_position;
        skipBlanks();
        if (at(m_position) != QLatin1Char('!')) {
            readTag(token);
            return true;
        }
        skipDeclaration();
    }
}

void HtmlTokens::skipTo(QChar end)
{
    while (m_position < m_end && m_html.at(m_position) != end)
        ++m_position;
}

void HtmlTokens::skipBlanks()
{
    while (m_position < m_end && m_html.at(m_position).isSpace())
        ++m_position;
}

void HtmlTokens::skipDeclaration()
{
    if (m_html.mid(m_position, 3) == QLatin1String("!--")) {
        const int end = int(m_html.indexOf(QLatin1String("-->"), m_position + 3));
        m_position = end < 0 ? m_end : end + 3;
        return;
    }
    skipTo(QLatin1Char('>'));
    ++m_position;
}

void HtmlTokens::readTag(HtmlToken *token)
{
    token->kind = HtmlToken::OPENING;
    token->attributes.clear();
    token->endsItself = false;
    bool hasEntities = true;
    if (at(m_position) == QLatin1Char('/')) {
        token->kind = HtmlToken::CLOSING;
        ++m_position;
    }
    const QStringView word = readWord(&hasEntities);
    token->name = nameOf(word, hasEntities);
    if (token->kind == HtmlToken::CLOSING)
        token->name = token->name.trimmed();
    else if (at(m_position).isSpace())
        readAttributes(token);
    for (; m_position < m_end && m_html.at(m_position) != QLatin1Char('>'); ++m_position)
        token->endsItself |= m_html.at(m_position) == QLatin1Char('/');
    ++m_position;
}

/// A string that other tags of the same name share, in most cases.
QString HtmlTokens::nameOf(QStringView word, bool hasEntities)
{
    if (word.isEmpty())
        return {};
    QString &known =
        m_names[(word.front().unicode() + 5 * word.back().unicode() + word.size()) % 64];
    const bool isKnown =
        known.size() == word.size() && std::equal(word.begin(), word.end(), known.constBegin());
    if (isKnown)
        return known;
    const QString name = newName(word, hasEntities);
    if (name == word && !name.contains(QLatin1Char('&'))) // It may be an entity the next time.
        known = name;
    return name;
}

void HtmlTokens::readAttributes(HtmlToken *token)
{
    while (m_position < m_end) {
        skipBlanks();
        if (at(m_position) == QLatin1Char('>') || at(m_position) == QLatin1Char('/'))
            return;
        HtmlAttribute attribute;
        const QStringView name = readWord(&attribute.hasEntities);
        if (name.isEmpty())
            return;
        attribute.name = nameOf(name, attribute.hasEntities);
        attribute.value = u"1";
        skipBlanks();
        if (at(m_position) == QLatin1Char('=')) {
            ++m_position;
            skipBlanks();
            attribute.value = readWord(&attribute.hasEntities);
        }
        if (!attribute.value.isEmpty())
            token->attributes += attribute;
    }
}

QStringView HtmlTokens::readWord(bool *hasEntities)
{
    const QChar quote = at(m_position);
    *hasEntities = quote != QLatin1Char('\'');
    if (quote == QLatin1Char('"') || quote == QLatin1Char('\'')) {
        const int start = ++m_position;
        skipTo(quote);
        while (
            !*hasEntities && m_position < m_end && m_html.at(m_position - 1) == QLatin1Char('\\')) {
            ++m_position; // Escaped.
            skipTo(quote);
        }
        return m_html.mid(start, m_position++ - start);
    }
    const int start = m_position;
    for (; m_position < m_end; ++m_position) {
        const QChar c = m_html.at(m_position);
        if (c == QLatin1Char('>') || c == QLatin1Char('<') || c == QLatin1Char('=') || c.isSpace()
            || (c == QLatin1Char('/') && at(m_position + 1) == QLatin1Char('>')))
            break;
    }
    return m_html.mid(start, m_position - start);
}

QString resolvedHtml(QStringView text)
{
    static const QHash<QString, QChar> names {{QStringLiteral("quot"), QLatin1Char('"')},
        {QStringLiteral("apos"), QLatin1Char('\'')}, {QStringLiteral("amp"), QLatin1Char('&')},
        {QStringLiteral("lt"), QLatin1Char('<')}, {QStringLiteral("gt"), QLatin1Char('>')}};
    QString result;
    result.reserve(int(text.size()));
    for (int i = 0; i < text.size(); ++i) {
        const int end = text.at(i) == QLatin1Char('&') ? htmlEntityEnd(text, i) : -1;
        const QStringView name = end < 0 ? QStringView() : text.mid(i + 1, end - i - 2);
        const QChar sign = name.startsWith(QLatin1Char('#')) ? numericEntity(name.mid(1))
                                                             : names.value(name.toString());
        if (sign.isNull()) {
            result += text.at(i);
        } else {
            result += sign;
            i = end - 1;
        }
    }
    return result;
}
