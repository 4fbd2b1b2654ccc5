// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QString>
#include <QVector>

/// One attribute of a tag.
struct HtmlAttribute
{
    QString name; ///< In small letters, entities resolved.
    QStringView value; ///< As in the page, without its quotes; "1" if there is none.
    bool hasEntities = true; ///< Whether an ampersand in value may begin an entity.
};

/// What a page consists of: texts and tags. Comments and declarations are left out.
struct HtmlToken
{
    enum Kind { TEXT, OPENING, CLOSING };

    Kind kind = TEXT;
    QStringView text; ///< Of a text, its entities as in the page.
    QString name; ///< Of a tag, in small letters, entities resolved.
    QVector<HtmlAttribute> attributes;
    bool endsItself = false; ///< Whether the tag has a slash at its end.
};

/// Splits a page into tokens, as tolerantly as Qt's text engine: blanks before a name, quoted names
/// and entities in names count. The page has to live as long as the tokens.
class HtmlTokens
{
public:
    explicit HtmlTokens(const QString &html);

    /// The next token, in token; false at the end of the page.
    bool next(HtmlToken *token);

private:
    QChar at(int position) const { return position < m_end ? m_html.at(position) : QChar(); }
    void skipBlanks();
    void skipDeclaration();
    void readTag(HtmlToken *token);
    void readAttributes(HtmlToken *token);
    QStringView readWord(bool *hasEntities);
    void skipTo(QChar end);

    const QString m_text;
    QStringView m_html;
    int m_end = 0;
    int m_position = 0;
};

/// Where the entity ends that begins with the ampersand at position of text, past its semicolon; -1
/// if there is no entity.
int htmlEntityEnd(QStringView text, int position);
