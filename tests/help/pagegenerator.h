// SPDX-License-Identifier: MIT
#pragma once

#include <QRandomGenerator>
#include <QStringList>

/// Makes pages out of what has hurt before: tags in all spellings, attributes, entities, comments,
/// style sheets, tables, spans, lists and pictures, in runs and inside each other. A seed always
/// makes the same page.
class PageGenerator
{
public:
    explicit PageGenerator(quint32 seed) : m_random(seed) { }

    QString page()
    {
        QString html = QStringLiteral("<html>");
        for (int i = below(8); i >= 0; --i)
            html += run();
        return html;
    }

private:
    int below(int end) { return int(m_random.bounded(quint32(end))); }
    QString oneOf(const QStringList &texts) { return texts.at(below(texts.size())); }

    /// Repeats a piece: usually a few times, occasionally hundreds of times.
    QString run()
    {
        const QString piece = below(3) == 0 ? tag() + text() : block();
        const int most = below(12) == 0 ? 150 : 6;
        return piece.repeated(1 + below(most));
    }

    QString block()
    {
        switch (below(9)) {
        case 0:
            return "<table" + attributes() + "><tr><td" + attributes() + '>' + text();
        case 1:
            return "<td" + attributes() + '>' + tag();
        case 2:
            return oneOf({"<ul>", "<ol>", "<dl>"}) + oneOf({"<li>", "<dt>", "<dd>"}) + text();
        case 3:
            return "<img" + attributes() + '>';
        case 4:
            return "<style>" + css() + "</style>";
        case 5:
            return comment();
        case 6:
            return "</" + name() + oneOf({">", " x>", "/>", ".y>"});
        case 7:
            return "<p" + attributes() + '>' + text() + tag();
        default:
            return tag() + tag() + text();
        }
    }

    QString tag()
    {
        return '<' + oneOf({"", "", "", " ", "\n", "/"}) + spelt(name()) + attributes()
            + oneOf({">", ">", ">", " />", "/>", "", "<"});
    }

    QString spelt(const QString &name)
    {
        switch (below(8)) {
        case 0:
            return '"' + name + '"';
        case 1:
            return '\'' + name + '\'';
        case 2:
            return QStringLiteral("&#%1;").arg(name.at(0).unicode()) + name.mid(1);
        case 3:
            return name.toUpper();
        default:
            return name;
        }
    }

    QString name()
    {
        return oneOf({"table", "tr", "td", "th", "tbody", "caption", "p", "div", "b", "i", "span",
            "font", "a", "ul", "ol", "li", "dl", "dt", "dd", "pre", "h1", "blockquote", "center",
            "img", "br", "hr", "wbr", "input", "option", "param", "col", "area", "base", "link",
            "meta", "title", "style", "script", "html", "body", "head", "big", "sub", "x-y"});
    }

    QString attributes()
    {
        QString all;
        for (int i = below(4); i > 0; --i) {
            all += oneOf({" ", "\n", "  "})
                + oneOf({"colspan", "rowspan", "width", "height", "style", "class", "align", "src",
                    "background", "border", "x", "size", "face", "bgcolor", "cellpadding"})
                + oneOf({"=", "=", " = "}) + value();
        }
        return all;
    }

    QString value()
    {
        return oneOf({"\"20480\"", "9", "\"/>\"", "\"</table>\"", "'<!--'", "\"100%\"", "left",
            "\"float:left\"", "\"display:inline\"", "\"white-space:pre\"", "'font-size:40px'",
            "\"fl\\6f at:left\"", "\"margin:99999999px\"", "\"margin:9e9px\"", "\"margin:9999px\"",
            "\"-qt-list-indent:9999\"", "9e9", "inf", "9999", "\"&nbsp;99999999\"", "\"-1\"",
            "99999999999", "\"a b\"", "\"data:image/png;base64,AAAA\"", "\"../x.png\"",
            "\"unended"});
    }

    QString text()
    {
        const QString unit = oneOf({"word ", "w", ") ", "( a", "&amp;", "&#65;", "&", "&nbsp;",
            "\n", "\t", QString(QChar(0)), QString(QChar(0x5D0)) + "a", QString(QChar(0x301)),
            QString(QChar(0x56FE)), QString(QChar(0x200D)), QString(QChar(0x2028)),
            QString(QChar(0x202E)), QString(QChar(0xD800))});
        return unit.repeated(below(below(8) == 0 ? 600 : 20));
    }

    QString comment()
    {
        return oneOf({"<!-- x -->", "<!--<table>-->", "<!-- > ", "<!x>", "<![CDATA[<table>]]>",
            "<?php <table> ?>", "<!---->", "<!--StartFragment-->"});
    }

    QString css()
    {
        const QString rule = oneOf({"p", "*", "td", ".a", "b + b", "div p b", "a:link",
                                 "@media x{p", "@import 'x'; p", "/*p", "<!-- p"})
            + oneOf({"{color:red}", "{float:left}", "{display:inline}", "{font-size:9px;color:red}",
                "{margin:1e9px}", "{white-space:pre}", "{margin:9px", "{background:url(x}", "{",
                "}"});
        return rule.repeated(1 + below(below(8) == 0 ? 200 : 4));
    }

    QRandomGenerator m_random;
};
