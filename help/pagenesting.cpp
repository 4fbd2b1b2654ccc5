// SPDX-License-Identifier: MIT
#include "help/pagenesting_p.h"

#include "help/helplimits_p.h"

#include <QSet>

namespace {

/// Tags that hold nothing, or that the text engine ends by itself.
bool isNesting(const QString &name)
{
    static const QSet<QString> others {QStringLiteral("area"), QStringLiteral("base"),
        QStringLiteral("br"), QStringLiteral("col"), QStringLiteral("dd"), QStringLiteral("dt"),
        QStringLiteral("hr"), QStringLiteral("img"), QStringLiteral("input"), QStringLiteral("li"),
        QStringLiteral("link"), QStringLiteral("meta"), QStringLiteral("option"),
        QStringLiteral("p"), QStringLiteral("param"), QStringLiteral("tbody"), QStringLiteral("td"),
        QStringLiteral("tfoot"), QStringLiteral("th"), QStringLiteral("thead"),
        QStringLiteral("tr"), QStringLiteral("wbr")};
    return !name.isEmpty() && !others.contains(name);
}

/// The letters and digits from position on, in small letters.
QString nameAt(const QString &html, int position)
{
    int end = position;
    while (end < html.size() && html.at(end).isLetterOrNumber())
        ++end;
    return html.mid(position, end - position).toLower();
}

} // namespace

bool isNestedTooDeeply(const QString &html)
{
    int depth = 0;
    int tableDepth = 0;
    int tagEnd = -1;
    for (int tag = html.indexOf(QLatin1Char('<')); tag >= 0;
         tag = html.indexOf(QLatin1Char('<'), tag + 1)) {
        if (html.midRef(tag, 4) == QLatin1String("<!--")) {
            tag = html.indexOf(QLatin1String("-->"), tag);
            if (tag < 0)
                return false;
            continue;
        }
        const bool isClosing = html.midRef(tag + 1, 1) == QLatin1String("/");
        const QString name = nameAt(html, tag + (isClosing ? 2 : 1));
        if (tagEnd < tag)
            tagEnd = html.indexOf(QLatin1Char('>'), tag);
        if (tagEnd < 0)
            return false; // A tag without end: the engine ignores it, and there is no more.
        if (!isNesting(name) || html.at(tagEnd - 1) == QLatin1Char('/'))
            continue;
        const int step = isClosing ? -1 : 1;
        depth = qMax(0, depth + step);
        if (name == QLatin1String("table"))
            tableDepth = qMax(0, tableDepth + step);
        if (depth > kMostNestedTags || tableDepth > kMostNestedTables)
            return true;
    }
    return false;
}
