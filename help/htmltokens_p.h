// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QString>
#include <QVector>

#include <array>

/// One attribute of a tag.
struct HtmlAttribute
{
    QString name; ///< In lower case, entities resolved.
    QStringView value; ///< As in the page, without quotes; "1" if there is none.
    bool hasEntities = true; ///< Whether an ampersand in value may begin an entity.
};

/// A text or a tag of a page. Comments and declarations are left out.
struct HtmlToken
{
    enum Kind { TEXT, OPENING, CLOSING };

    Kind kind = TEXT;
    QStringView text; ///< Of a text, with entities as in the page.
    QString name; ///< Of a tag, in lower case, entities resolved.
    QVector<HtmlAttribute> attributes;
    bool endsItself = false; ///< Whether the tag ends with a slash.
};

/// Splits a page into tokens, as leniently as Qt's text engine: accepts blanks before a name,
/// quoted names and entities in names. The page must outlive the tokens.
class HtmlTokens
{
public:
    explicit HtmlTokens(const QString &html);

    /// Stores the next token in token. Returns false at the end of the page.
    bool next(HtmlToken *token);

private:
    QChar at(int position) const { return position < m_end ? m_html.at(position) : QChar(); }
    void skipBlanks();
    void skipDeclaration();
    void readTag(HtmlToken *token);
    void readAttributes(HtmlToken *token);
    QStringView readWord(bool *hasEntities);
    QString nameOf(QStringView word, bool hasEntities);
    void skipTo(QChar end);

    const QString m_text;
    QStringView m_html;
    int m_end = 0;
    int m_position = 0;
    std::array<QString, 64> m_names; // Recent ones, each in the place that its letters give it.
};

/// The end, past the semicolon, of the entity that begins with the ampersand at position of text;
/// -1 if it does not begin an entity.
int htmlEntityEnd(QStringView text, int position);

/// Resolves numeric entities and those of characters with a meaning in HTML.
QString resolvedHtml(QStringView text);
