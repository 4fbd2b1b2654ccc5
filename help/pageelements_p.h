// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "help/htmlelement_p.h"
#include "help/htmltokens_p.h"
#include "help/pagework_p.h"

#include <QHash>
#include <QStringList>
#include <QVector>

/// Height in pixels of a line in a font of usual size.
constexpr int kLinePixels = 20;

/// The properties that distinguish the fonts of a page.
struct PageFont
{
    int traits = 0;
    uint size = 0;
    uint family = 0;
    uint other = 0;

    uint hash() const { return uint(traits) + 31 * (size + 31 * (family + 31 * other)); }
    /// Changes it as the declarations of a style do.
    void apply(const QString &declarations);
};

/// An element of a page between its start tag and its end tag.
struct OpenElement
{
    QString name;
    const HtmlElement *kind = nullptr;
    bool isWritten = true; ///< False for those that the text engine inserts itself.
    PageFont font;
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

/// The open elements of a page, and the work that the page has been for the text engine so far.
///
/// For each start tag, beginTag(), a function for each attribute and endTag() are called in this
/// order, and then push() unless the element is empty.
class PageElements
{
public:
    PageElements();

    const PageWork &work() const { return m_work; }
    int pictures() const { return m_pictures; }
    int textLength() const { return m_text_length; }
    int lines() const { return m_lines; }

    int count() const { return m_open.size(); }
    bool isEmpty() const { return m_open.isEmpty(); }
    bool isTooDeep() const { return m_is_too_deep; }
    const OpenElement &innermost() const { return m_open.last(); }
    /// The innermost of these elements; -1 if none is open. The outermost element has index 0.
    int indexOf(int names) const;
    bool isInnermost(int names) const;
    /// The innermost block, if that is a paragraph; else -1.
    int indexOfParagraph() const;
    /// The element that ends at the end tag of name; -1 if none does.
    int indexOfEnded(const QString &name);

    void beginTag(const QString &name, int traits);
    void addAttribute(const HtmlAttribute &attribute);
    void addSpan(const QString &attribute, int span);
    void addStyle(const QString &declarations, const CssEffort &effort);
    void endTag(const QString &name, const HtmlElement &kind);

    void push(const QString &name, const HtmlElement &kind);
    /// Opens an element that the text engine inserts.
    void pushImplied(const QString &name);
    void pop();

    void addText(QStringView text, TextWork *letters);
    void addLength(qint64 length) { m_work.addAttribute(length); }
    /// Rewrites css like plainStyleSheet(). It also applies to the elements around it.
    QString addStyleSheet(const QString &css);
    /// Begins a line, where a block begins or ends. Returns false if a style made it inline.
    bool beginLine();

private:
    /// The attributes of the last start tag.
    struct Tag
    {
        PageFont font;
        int columns = 1;
        int rows = 1;
        bool floats = false;
        int length = 0; ///< The largest of its style.
        int cellHeight = 0;
        int line = 0;
        QStringList marks;
    };

    void push(const QString &name, const HtmlElement &kind, const PageFont &font, bool isWritten);
    void addCell(bool isRow);
    void addHeight(const HtmlElement &kind);
    void noteMarks(const QString &attribute, const QString &value);
    qint64 styleWork(const QString &name, const QStringList &marks, int depth) const;
    TextWork::Width width() const;
    int lineHeight() const;

    QVector<OpenElement> m_open;
    Tag m_tag;
    PageWork m_work;
    CssEffort m_css;
    qint64 m_style = 0; // The work for the styles of the open elements.
    int m_tables = 0; // Of them.
    int m_indent = 0; // Of them, in pixels.
    bool m_is_too_deep = false;
    bool m_keeps_lines = false; // Whether line breaks of the page may be kept in the text.
    bool m_has_floats = false;
    int m_paragraph = 0; // Letters since the start of the line.
    int m_loose_items = 0;
    int m_pictures = 0;
    int m_text_length = 0;
    int m_lines = 0; // A row of a table counts as one.
};
