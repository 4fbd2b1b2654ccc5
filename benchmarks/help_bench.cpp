// SPDX-License-Identifier: MIT
#include "benchmarks/harness.h"
#include "help/picturescan_p.h"

namespace {

QString pageWithPictures(int count)
{
    QString html =
        QStringLiteral("<html><head><base href=\"https://help.vemo.invalid/\"></head><body>");
    for (int i = 0; i < count; ++i) {
        html +=
            QStringLiteral("<p>Step %1: choose a folder, then press the button below.</p>"
                           "<img alt=\"step\" src=\"images/topic/picture_%1.png\" width=\"64\">\n")
                .arg(i);
    }
    return html;
}

/// The searches that any way of finding the sources must make; counts what they find.
int foundSources(const QString &html)
{
    int count = 0;
    int position = 0;
    for (;;) {
        const int picture = html.indexOf(QLatin1String("<img"), position);
        if (picture < 0)
            return count;
        position = html.indexOf(QLatin1String("src=\""), picture);
        if (position < 0 || html.indexOf(QLatin1Char('"'), position + 5) < 0)
            return count;
        ++count;
    }
}

void scanPage(bench::Case &c, int pictures)
{
    const QString html = pageWithPictures(pictures);
    c.goal(1.5, 1.3);
    c.items(pictures);
    c.reference(QStringLiteral("searches only"), [html] { return foundSources(html); });
    c.ours([html] { return pictureSources(html, 0).size(); });
}

void addCases(bench::Cases &cases)
{
    for (const int pictures : {10, 100, 1000, 4000, 10000}) {
        cases.add(QStringLiteral("html.scan/%1").arg(pictures),
            [pictures](bench::Case &c) { scanPage(c, pictures); });
    }
}

const bool isRegistered = bench::addFamily(addCases);

} // namespace
