// SPDX-License-Identifier: MIT
#include "help/htmlelement_p.h"

#include <QHash>

namespace {

using Html = HtmlElement;

struct Row
{
    const char *tag;
    Html::Name name;
    int traits;
};

constexpr int kLine = Html::BLOCK | Html::LINES;
constexpr int kHeading = kLine | Html::BOLD | Html::SIZED | Html::MARGINS;

constexpr Row kRows[] {
    {"a", Html::OTHER, 0},
    {"address", Html::OTHER, kLine | Html::ITALIC},
    {"area", Html::OTHER, Html::EMPTY},
    {"b", Html::OTHER, Html::BOLD},
    {"base", Html::OTHER, Html::EMPTY},
    {"big", Html::OTHER, Html::SIZED},
    {"blockquote", Html::OTHER, kLine | Html::MARGINS | Html::INDENTED},
    {"body", Html::BODY, Html::BLOCK},
    {"br", Html::BR, Html::EMPTY},
    {"caption", Html::CAPTION, Html::BLOCK},
    {"center", Html::OTHER, kLine},
    {"cite", Html::OTHER, Html::ITALIC},
    {"code", Html::OTHER, Html::MONOSPACED},
    {"col", Html::OTHER, Html::EMPTY},
    {"dd", Html::DD, kLine | Html::INDENTED},
    {"dfn", Html::OTHER, Html::ITALIC},
    {"div", Html::OTHER, kLine},
    {"dl", Html::DL, kLine | Html::MARGINS},
    {"dt", Html::DT, kLine},
    {"em", Html::OTHER, Html::ITALIC},
    {"embed", Html::OTHER, Html::EMPTY},
    {"font", Html::OTHER, 0},
    {"h1", Html::OTHER, kHeading},
    {"h2", Html::OTHER, kHeading},
    {"h3", Html::OTHER, kHeading},
    {"h4", Html::OTHER, kHeading},
    {"h5", Html::OTHER, kHeading},
    {"h6", Html::OTHER, kHeading},
    {"head", Html::HEAD, 0},
    {"hr", Html::OTHER, Html::EMPTY | kLine | Html::MARGINS},
    {"html", Html::OTHER, Html::BLOCK},
    {"i", Html::OTHER, Html::ITALIC},
    {"img", Html::IMG, Html::EMPTY},
    {"input", Html::OTHER, Html::EMPTY},
    {"kbd", Html::OTHER, Html::MONOSPACED},
    {"li", Html::LI, kLine},
    {"link", Html::LINK, Html::EMPTY},
    {"meta", Html::META, Html::EMPTY},
    {"ol", Html::LIST, kLine | Html::MARGINS | Html::INDENTED},
    {"option", Html::OPTION, 0},
    {"p", Html::P, kLine | Html::MARGINS},
    {"param", Html::OTHER, Html::EMPTY},
    {"pre", Html::PRE, kLine | Html::MONOSPACED | Html::MARGINS},
    {"samp", Html::OTHER, Html::MONOSPACED},
    {"small", Html::OTHER, Html::SIZED},
    {"source", Html::OTHER, Html::EMPTY},
    {"span", Html::OTHER, 0},
    {"strong", Html::OTHER, Html::BOLD},
    {"style", Html::STYLE, 0},
    {"sub", Html::OTHER, Html::SIZED},
    {"sup", Html::OTHER, Html::SIZED},
    {"table", Html::TABLE, Html::BLOCK},
    {"tbody", Html::SECTION, Html::BLOCK},
    {"td", Html::TD, kLine},
    {"tfoot", Html::SECTION, Html::BLOCK},
    {"th", Html::TH, kLine | Html::BOLD},
    {"thead", Html::SECTION, Html::BLOCK},
    {"title", Html::TITLE, 0},
    {"tr", Html::TR, Html::BLOCK},
    {"track", Html::OTHER, Html::EMPTY},
    {"tt", Html::OTHER, Html::MONOSPACED},
    {"u", Html::OTHER, 0},
    {"ul", Html::LIST, kLine | Html::MARGINS | Html::INDENTED},
    {"var", Html::OTHER, Html::ITALIC},
    {"wbr", Html::OTHER, Html::EMPTY},
};

QHash<QString, HtmlElement> knownElements()
{
    QHash<QString, HtmlElement> elements;
    for (const Row &row : kRows) {
        const QString tag = QString::fromLatin1(row.tag);
        elements.insert(tag,
            {row.name, row.traits, QLatin1Char('<') + tag,
                QLatin1String("</") + tag + QLatin1Char('>')});
    }
    return elements;
}

} // namespace

const HtmlElement &HtmlElement::of(const QString &name)
{
    static const QHash<QString, HtmlElement> elements = knownElements();
    static const HtmlElement unknown;
    const auto element = elements.constFind(name);
    return element == elements.constEnd() ? unknown : *element;
}
