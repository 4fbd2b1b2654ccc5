// SPDX-License-Identifier: MIT
#include "help/picturescan_p.h"

#include <QSet>
#include <QStringView>

namespace {

const QLatin1String kBase("<base href=\"");
const QLatin1String kPicture("<img");
const QLatin1String kSource("src=\"");
constexpr QLatin1Char kQuote('"');

} // namespace

BaseAddress findBaseAddress(const QString &html)
{
    const int base = html.indexOf(kBase);
    if (base < 0)
        return {};
    const int start = base + kBase.size();
    const int end = html.indexOf(kQuote, start);
    return end < 0 ? BaseAddress {} : BaseAddress {start, end};
}

QStringList pictureSources(const QString &html, int from)
{
    QStringList sources;
    QSet<QStringView> seen;
    int position = from;
    for (;;) {
        const int picture = html.indexOf(kPicture, position);
        if (picture < 0)
            return sources;
        // Also found in a later tag, where this one has no source.
        position = html.indexOf(kSource, picture);
        if (position < 0)
            return sources;
        const int start = position + kSource.size();
        const int quote = html.indexOf(kQuote, start);
        const int end = quote < 0 ? html.size() : quote;
        const QStringView source = QStringView(html).mid(start, end - start);
        const int seenBefore = seen.size();
        seen.insert(source);
        if (seen.size() != seenBefore)
            sources += source.toString();
    }
}
