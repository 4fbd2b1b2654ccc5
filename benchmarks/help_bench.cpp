// SPDX-License-Identifier: MIT
#include "benchmarks/families.h"
#include "benchmarks/fixture.h"
#include "benchmarks/harness.h"
#include "help/htmltextbrowser_p.h"
#include "help/picturescan_p.h"
#include "help/safepage_p.h"

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

QString times(int count, const QString &unit)
{
    return QStringLiteral("<html>") + unit.repeated(count);
}

/// A chapter of a manual: headings, paragraphs, lists, a table.
QString manual(int chapters)
{
    return times(chapters,
        QStringLiteral("<h2>Backup of a folder</h2><p>Choose a <b>folder</b> and the <a "
                       "href=\"when.html\">time</a> at which it is to be copied, then press "
                       "<i>Start</i>. What was copied before is kept.</p><ul><li>Files that are "
                       "open are copied, too.</li><li>Links stay links.</li></ul><table "
                       "border=\"1\"><tr><th>Button</th><th>Meaning</th></tr><tr><td>Start</td>"
                       "<td>copies at once</td></tr><tr><td>Stop</td><td>leaves nothing half "
                       "done</td></tr></table>\n"));
}

template <typename Browser> using Place = std::shared_ptr<std::unique_ptr<Browser>>;

template <typename Browser> std::function<void()> opened(const Place<Browser> &place)
{
    return [place] {
        *place = std::make_unique<Browser>(nullptr);
        (*place)->resize(760, 560);
        (*place)->show();
    };
}

/// Lays the page out to its end.
int laidOutLetters(const QTextBrowser &browser)
{
    const QSizeF size = browser.document()->size();
    return size.isEmpty() ? 0 : browser.document()->characterCount();
}

void showPage(bench::Case &c, const QString &html)
{
    bench::useTheme();
    c.goal(1.0);
    const auto stock = std::make_shared<std::unique_ptr<QTextBrowser>>();
    const auto own = std::make_shared<std::unique_ptr<HtmlTextBrowser>>();
    c.reference(
        QStringLiteral("QTextBrowser"),
        [stock, html] {
            (*stock)->setText(html);
            return laidOutLetters(**stock);
        },
        opened<QTextBrowser>(stock));
    c.ours(
        [own, html] {
            (*own)->setHtmlContent(html);
            return laidOutLetters(**own);
        },
        opened<HtmlTextBrowser>(own));
}

/// As many of the unit as the limits let pass, within a megabyte.
QString longestPage(const QString &unit)
{
    constexpr int kMebibyte = 1024 * 1024;
    int fine = 0;
    int tooMuch = kMebibyte / unit.toUtf8().size() + 1;
    while (tooMuch - fine > 1) {
        const int count = (fine + tooMuch) / 2;
        const bool isFine = safePage(times(count, unit), true).verdict == SafePage::FINE;
        (isFine ? fine : tooMuch) = count;
    }
    return times(fine, unit);
}

void showLongest(bench::Case &c, const QString &unit)
{
    bench::useTheme();
    c.goal(2e9); // Nanoseconds.
    const QString html = longestPage(unit);
    const auto own = std::make_shared<std::unique_ptr<HtmlTextBrowser>>();
    c.ours(
        [own, html] {
            (*own)->setHtmlContent(html);
            return laidOutLetters(**own);
        },
        opened<HtmlTextBrowser>(own));
}

void addLongest(bench::Cases &cases)
{
    const QVector<QPair<QString, QString>> units {{"letters", "word "},
        {"arabic", QString(QChar(0x628)).repeated(5) + ' '},
        {"both directions", QString("a ") + QChar(0x5D0) + ' '}, {"brackets", ") "},
        {"paragraphs", "<p>w"}, {"tags", "<b>w</b>"}, {"breaks", "<br>"}, {"cells", "<tr><td>x"},
        {"one row", "<td>x"}, {"spanning cells", "<tr><td colspan=\"100\">x"},
        {"cells over rows", "<tr><td rowspan=\"100\">x"}, {"pictures", "<img src=\"a.png\">"},
        {"pictures in paragraphs", "<p><img src=\"a.png\">"}, {"items", "<li>x"},
        {"lists", "<ul><li>x</ul>"}, {"floating tables", "<table align=left><tr><td>x</table>"},
        {"tables", "<table><tr><td>x</table>"}, {"preformatted lines", "<pre>x\n</pre>"},
        {"words in tables",
            "<table><tr><td><table><tr><td><table><tr><td>" + QString("word ").repeated(1000)
                + "</table></table></table>"}};
    for (const auto &[name, unit] : units) {
        cases.add(QStringLiteral("html.longest/") + name,
            [unit = unit](bench::Case &c) { showLongest(c, unit); });
    }
}

void addShown(bench::Cases &cases)
{
    cases.add(QStringLiteral("html.show/manual"), [](bench::Case &c) { showPage(c, manual(20)); });
    cases.add(
        QStringLiteral("html.show/long manual"), [](bench::Case &c) { showPage(c, manual(500)); });
    cases.add(QStringLiteral("html.show/1 MiB of text"),
        [](bench::Case &c) { showPage(c, times(1024 * 1024 / 5, QStringLiteral("word "))); });
    for (const int pictures : {100, 1000, 4000, 10000}) {
        cases.add(QStringLiteral("html.show/%1 pictures").arg(pictures),
            [pictures](bench::Case &c) { showPage(c, pageWithPictures(pictures)); });
    }
}

} // namespace

void bench::helpCases(Cases &cases)
{
    addShown(cases);
    addLongest(cases);
    for (const int pictures : {10, 100, 1000, 4000, 10000}) {
        cases.add(QStringLiteral("html.scan/%1").arg(pictures),
            [pictures](bench::Case &c) { scanPage(c, pictures); });
    }
}
