// SPDX-License-Identifier: MIT
#include "help/safepage_p.h"
#include "support/vemotest.h"

#include <QTextDocument>
#include <QTextTable>

#include <ctime>

class SafePageTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void ordinaryPagesStayAsTheyAre_data();
    void ordinaryPagesStayAsTheyAre();
    void aPageIsWrittenInOneSpelling_data();
    void aPageIsWrittenInOneSpelling();
    void pagesAreJudgedByTheirDepth_data();
    void pagesAreJudgedByTheirDepth();
    void pagesAreJudgedByTheirWork_data();
    void pagesAreJudgedByTheirWork();
    void aPageIsNoHigherThanTheEngineTakes_data();
    void aPageIsNoHigherThanTheEngineTakes();
    void hostilePagesTakeNoLongerThanAPlainPage_data();
    void hostilePagesTakeNoLongerThanAPlainPage();
    void lengthsOfLocalPagesAreNoTroubleEither_data();
    void lengthsOfLocalPagesAreNoTroubleEither();
    void spansAreCut_data();
    void spansAreCut();
    void endlessWordsAreBroken_data();
    void endlessWordsAreBroken();
    void ordinaryTextIsNotBroken_data();
    void ordinaryTextIsNotBroken();
    void theTitleIsCut();
    void styleSheetsAreWrittenPlainly_data();
    void styleSheetsAreWrittenPlainly();
    void lengthsThatOverflowAreLeftOut_data();
    void lengthsThatOverflowAreLeftOut();
    void attributesThatOverflowAreLeftOut_data();
    void attributesThatOverflowAreLeftOut();
};

namespace {

constexpr int kMebibyte = 1024 * 1024;

QString times(int count, const QString &part)
{
    return part.repeated(count);
}

class Document : public QTextDocument
{
protected:
    QVariant loadResource(int, const QUrl &) override { return QPixmap(16, 16); }
};

/// The processor time that it takes to lay a page out, in milliseconds.
double timeFor(const QString &html, bool isFromNetwork)
{
    const auto now = [] {
        timespec time {};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return time.tv_sec * 1e3 + time.tv_nsec / 1e6;
    };
    const double start = now();
    const SafePage page = safePage(html, isFromNetwork);
    Document document;
    document.setHtml(page.html);
    document.setTextWidth(700);
    document.size();
    return now() - start;
}

/// How many tables lie inside each other, as the text engine sees it.
int tableDepth(const QTextFrame *frame)
{
    int depth = 0;
    const QList<QTextFrame *> children = frame->childFrames();
    for (const QTextFrame *child : children)
        depth = qMax(depth, tableDepth(child));
    return depth + (qobject_cast<const QTextTable *>(frame) ? 1 : 0);
}

} // namespace

void SafePageTest::ordinaryPagesStayAsTheyAre_data()
{
    QTest::addColumn<QString>("html");
    const QStringList pages {
        "<html><body><p>Hello <b>bold</b> <i>it</i></p><p>Second</p></body></html>",
        "<html>text<br>more<br/>x<hr>y",
        "<p>a<p>b<p>c",
        "<b>x<p>y<p>z</b>w",
        "<p><b>a<p>b",
        "<body><b><p>Foo<p>Bar",
        "<p>a<div>b</div>c</p>d",
        "<ul><li>a<li>b<ul><li>c</ul><li>d</ul>e",
        "<ol start=3 type=a><li>x</li><li>y</li></ol>",
        "<dl><dt>a<dd>b<dt>c<dd>d</dl>e",
        "<dd>x<dt>y",
        "<table border=1><tr><td>a</td><td>b</td></tr><tr><td colspan=2>c</td></tr></table>z",
        "<table><tr><td>a<td>b<tr><td>c<td>d</table>z",
        "<table><thead><tr><th>h</th></tr></thead><tbody><tr><td>b</td></tr></tbody></table>",
        "x<td>a<td>b</td>y",
        "<table><td>a<td>b</table>y",
        "<tr><td>a</tr>b",
        "<table><caption>cap</caption><tr><td>a</table>",
        "<table><tr><td><table><tr><td>in</td></tr></table></td></tr></table>",
        "<pre>\nline1\n  line2\n</pre>after",
        "<pre>a<!-- c -->  b</pre>",
        "a <!-- c --> b",
        "<pre><b>x\n</b></pre>y",
        "a &amp; b &lt;x&gt; &nbsp;&eacute;&copy; &unknown; &#65;&#x42; &#8364; & x &;",
        "a < b and c > d",
        "<a href=\"x?a=1&amp;b=2\">l</a>",
        "<a href='x?a=1&amp;b=2'>l</a>",
        "<a href=x?a=1&b=2>l</a>",
        "<a href=\"a b'c\" title='q\"q'>l</a>",
        "<img src=\"a.png\" width=20 height=30><img src='b.png' alt=\"x\"><IMG SRC=c.png>",
        "<style>p {color:red} .c { font-size:20px }</style><p class=c>a</p>",
        "<style type=\"text/css\"><!-- p {color:red} --></style><p>a",
        "<style>/* c */ h1, h2 > b{color:#00f}\n@media screen { p {color:green} } @import "
        "url(x.css);</style><p>a<h1>x</h1>",
        "<p style=\"margin-left:20px; color : red;background-image:url(x.png)\">a</p><p "
        "style='font-family:\"Arial\", serif; font-size:12pt'>b</p><p "
        "style=\"font-family:&quot;Arial Black&quot;;color:blue\">c",
        "<font color=red size=+2 "
        "face=\"Courier\">x</font><u>y</u><s>z</s><sub>1</sub><sup>2</sup><big>b</big><small>s</"
        "small><tt>t</tt><code>c</code>",
        "<h1>T</h1><h2>U</h2><center>c</center><blockquote>q</blockquote><address>a</address>",
        "<p align=center>x<p align=right>y<div align=justify>z</div>",
        "<html><head><title>My title &amp; more</title><meta charset=utf-8><link rel=icon "
        "href=x></head><body bgcolor=\"#ffeeee\" text=red>x</body></html>",
        "<script>if (a<b) alert('x')</script>after",
        "<section class=a><nav>n</nav></section>text",
        "<div><span style=\"color:red\">a</span> <span>b</span></div>",
        "<a name=\"top\"/><p>x</p><a name=x></a>y",
        "<p>a</b>c</p></p>d",
        "</td></tr>x",
        "<b><i>x</b>y</i>z",
        "<b/>x",
        "<p/>x<p>y",
        "<div/>x",
        "<input><input>x<wbr>y<option>a<option>b",
        "<!DOCTYPE html><html>x",
        "<?xml version=\"1.0\"?><html>x</html>",
        "text <b\nclass=x\n>y</b>",
        "<p\t>x",
        "< p>x",
        "<p>x</ p>y",
        "<P ALIGN=\"CENTER\">x",
        "<p align=\"&#99;enter\">x",
        "<p>unclosed <b",
        "<p>x<b title=\"a>b\">y</b>",
        "<p>x<b title=\"a",
        "x<img src=\"a>b.png\">y",
        "<!--StartFragment--><p>x</p><!--EndFragment-->y",
        "a<!--StartFragment-->x",
        "<qt>rich</qt>",
        "<table width=100% cellpadding=3 cellspacing=0 bgcolor=red><tr bgcolor=blue><td "
        "width=\"30%\" valign=top align=right rowspan=2>a<td>b<tr><td>c</table>",
        "<table style=\"float:right\"><tr><td>x</table>y",
        "<img src=a align=left>text",
        "<hr width=\"50%\" noshade>",
        "<ul type=square><li value=4>x</ul>",
        "<nobr>a b</nobr>",
        "<p style=\"white-space:pre\">a  <!-- x -->  b</p>",
        "<p>&#0;x&#55296;y</p>",
        "a\u200bb  c\n\nd\te",
        "<body><p>x</p>\n<p>y</p>\n</body>\n",
        "<div>a</div>\n\n<div>b</div> c <div>d</div>",
        "<td>x</td><table><tr><td>y</table>",
        "<ul><p>x<li>y<p>z</ul>",
        "<li>a<li>b",
        "<p><ul><li>a</ul></p>b",
        "<a href=\"x\"><img src=\"y\"></a>",
        "<span><p>x</span>y",
        "<b>a<table><tr><td>x</table>b",
        "<table><tr><td><p>a<p>b<td><ul><li>x</table>",
        "<table>text<tr>text2<td>x</table>",
        "<th>x<td>y",
        "<h1>a<h2>b</h1>c",
        "<center><table><tr><td>x</table></center>y",
        "<table><tr><td>a</tr></td><td>b</table>c",
        "<form><select><option>1</option></select></form>x",
        "<dl><dd>a<dl><dt>b</dl></dl>c",
    };
    for (const QString &page : pages)
        QTest::addRow("%s", qPrintable(page.left(100).simplified())) << page;
}

void SafePageTest::ordinaryPagesStayAsTheyAre()
{
    QFETCH(const QString, html);
    for (const bool isFromNetwork : {true, false}) {
        const SafePage safe = safePage(html, isFromNetwork);
        QCOMPARE(safe.verdict, SafePage::FINE);
        Document shown;
        shown.setHtml(safe.html);
        Document before;
        before.setHtml(html);
        QCOMPARE(shown.toHtml(), before.toHtml());
        QCOMPARE(shown.metaInformation(QTextDocument::DocumentTitle),
            before.metaInformation(QTextDocument::DocumentTitle));
    }
}

void SafePageTest::aPageIsWrittenInOneSpelling_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<QString>("safe");
    const auto row = [](const char *html, const char *safe) {
        QTest::addRow("%s", html) << QString::fromLatin1(html) << QString::fromLatin1(safe);
    };
    row("< table>", "<table>");
    row("<\n\"table\">", "<table>");
    row("<t&#97;ble>", "<table>");
    row("<'table'>", "<table>");
    row("<'t&#97;ble'><t&#97;ble>", "<table>");
    row("<TABLE X=y>", "<table x=\"y\">");
    row("<table x=\"/>\">", "<table x=\"/&gt;\">");
    row("<table x=\"</table>\">", "<table x=\"&lt;/table&gt;\">");
    row("<table></table.x>", "<table>");
    row("<a title=\"<!--\">", "<a title=\"&lt;!--\">");
    row("<a title='\"x&amp;'>", "<a title=\"&quot;x&amp;amp;\">");
    row("<b/>x", "<b />x");
    row("<b />x", "<b />x");
    row("<b ></b >", "<b></b>");
    row("<wbr><base href=x>", "<wbr /><base href=\"x\" />");
    row("<b><i></b>", "<b><i></i></b>");
    row("</b>", "");
    row("<t\"able>", "");
    row("<b on\"x=1 y>", "<b y=\"1\">");
    row("a > \"b\" & &amp;", "a &gt; &quot;b&quot; &amp; &amp;");
    row("<option>a<option>b", "<option>a</option><option>b");
    row("<link rel=stylesheet href=x.css>x", "x");
    row("<!DOCTYPE x><!-- y -->z", "z");
    row("<b", "<b>");
}

void SafePageTest::aPageIsWrittenInOneSpelling()
{
    QFETCH(const QString, html);
    QTEST(safePage(html, true).html, "safe");
}

void SafePageTest::pagesAreJudgedByTheirDepth_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<bool>("isTooDeep");
    const QString cell = QStringLiteral("<tr><td>");
    const auto tables = [&cell](int count, const QString &spelling) {
        return "<html>" + times(count, spelling + cell);
    };
    addRow("12 tables", tables(12, "<table>"), false);
    addRow("13 tables", tables(13, "<table>"), true);
    for (const char *spelling : {"< table>", "<\n table>", "<\"table\">", "<'table'>",
             "<t&#97;ble>", "<&#x54;able>", "<TABLE\t>", "<table x=\"/>\">", "<table x='</table>'>",
             "<table x=\"</table>\">", "<table></table.x>", "<table></ tabl>"})
        QTest::addRow("22 times %s", spelling) << tables(22, spelling) << true;
    addRow("after a comment in an attribute", "<a title=\"<!--\">" + tables(22, "<table>"), true);
    addRow("after a comment in a paragraph's attribute", "<p x=\"<!--\">" + tables(22, "<table>"),
        true);
    addRow("in a comment", "<!-- " + tables(50, "<table>") + " --><p>", false);
    addRow("tables side by side", times(500, "<table><tr><td></td></tr></table>"), false);
    addRow("1000 tags", times(1000, "<b>"), false);
    addRow("1001 tags", times(1001, "<b>"), true);
    addRow("tags, ended", times(5000, "<b>x</b>"), false);
    addRow("tags that end themselves", times(5000, "<a name=\"x\" />"), false);
    for (const char *tag : {"<wbr>", "<param>", "<input>", "<area>", "<base>", "<col>", "<br>",
             "<img src=\"x\">", "<p>x", "<option>"})
        QTest::addRow("5000 times %s", tag) << times(5000, tag) << false;
    addRow("<b x=\"/>\">", times(200000, "<b x=\"/>\">"), true);
    addRow("<b x=\"</b>\">", times(200000, "<b x=\"</b>\">"), true);
    addRow("<div x=\"</b>\">", times(200000, "<div x=\"</b>\">"), true);
    addRow("items inside paragraphs", times(15000, "<p><li>"), true);
    addRow("ends without a beginning", times(2000, "</b>") + times(1000, "<b>"), false);
    addRow("a bracket at the end", "text<", false);
}

void SafePageTest::pagesAreJudgedByTheirDepth()
{
    QFETCH(const QString, html);
    const SafePage safe = safePage(html, true);
    QTEST(safe.verdict == SafePage::TOO_DEEP, "isTooDeep");
    Document document;
    document.setHtml(safe.html);
    QVERIFY(tableDepth(document.rootFrame()) <= 12);
}

void SafePageTest::pagesAreJudgedByTheirWork_data()
{
    QTest::addColumn<QString>("unit");
    QTest::addColumn<int>("fine");
    QTest::addColumn<int>("tooMuch");
    const auto row = [](const char *name, const QString &unit, int fine, int tooMuch) {
        addRow(name, unit, fine, tooMuch);
    };
    row("letters", "word ", 600000, 800000);
    row("ideographs", QChar(0x56FE), 1500000, 2000000);
    row("paragraphs", "<p>x</p>", 50000, 130000);
    row("headings", "<h1>x</h1>", 20000, 40000);
    row("monospaced texts", "<code>x</code> ", 8000, 10000);
    row("pictures in a paragraph", "<img src=\"a\">", 2500, 4000);
    row("pictures in paragraphs of their own", "<p><img src=\"a\">", 10000, 40000);
    row("items of a list", "<li>x</li>", 3500, 5000);
    row("lists of one item", "<ul><li>x</ul>", 35000, 70000);
    row("cells", "<tr><td>x", 7500, 9500);
    row("cells of one row", "<td>x", 14000, 18000);
    row("cells that span a hundred columns", "<tr><td colspan=\"100\">x", 1000, 1500);
    row("cells that span a hundred rows", "<tr><td rowspan=\"100\">x", 100, 500);
    row("words in 5 tables", times(5, "<table><tr><td>") + times(1000, "w ") + times(5, "</table>"),
        20, 45);
    row("floating tables", "<table align=left><tr><td>x</table>", 1000, 2000);
    row("preformatted texts", "<pre>x\n</pre>", 7000, 10000);
    row("lines of preformatted text", "<pre>" + times(500, "x\n") + "</pre>", 100, 1000);
}

void SafePageTest::pagesAreJudgedByTheirWork()
{
    QFETCH(const QString, unit);
    QFETCH(const int, fine);
    QFETCH(const int, tooMuch);
    QCOMPARE(safePage("<html>" + times(fine, unit), true).verdict, SafePage::FINE);
    QCOMPARE(safePage("<html>" + times(tooMuch, unit), true).verdict, SafePage::TOO_SLOW);
}

void SafePageTest::aPageIsNoHigherThanTheEngineTakes_data()
{
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("unit");
    const auto row = [](const char *name, const QString &start, const QString &unit) {
        addRow(name, "<html>" + start, unit);
    };
    row("breaks", {}, "<br>");
    row("headings", {}, "<h1>x</h1>");
    row("margins", {}, "<p style=\"margin-top:9999px\">x");
    row("margins of a rule", "<style>p{margin-top:9999px;padding-top:9999px}</style>", "<p>x");
    row("heights", {}, "<p><img height=\"9999\">");
    row("fonts", {}, "<p style=\"font-size:999px\">x");
    row("a font", "<p style=\"font-size:999px\">", "w ");
    row("fonts of a rule", "<style>h1{font-size:999px}</style>", "<h1><b>x</b></h1>");
    row("a font of no size of its own", "<big><big><big>", "x<br>");
    row("lines", {}, "<p style=\"line-height:9999%\">x");
    row("cells", "<table cellpadding=\"999\">", "<tr><td>x");
    row("one letter a line", times(20, "<blockquote>"), "w ");
    row("one letter beside a margin", "<p style=\"margin-right:690px\">", "w ");
    row("one word a line", "<table width=\"1\"><tr><td>", "w ");
    const QString narrow = QStringLiteral("<table width=\"1\"><tr><td>");
    row("one ideograph a line", narrow, QChar(0x56FE));
    row("one syllable a line", narrow, "w-");
    row("one letter a line by entities", narrow, "w&#32;");
    row("separators", {}, QString("w") + QChar(0x2028));
    row("separators as entities", {}, "x&#8232;");
}

/// It never returns from one of more than 8 million pixels: so only a part of it is laid out.
void SafePageTest::aPageIsNoHigherThanTheEngineTakes()
{
    QFETCH(const QString, start);
    QFETCH(const QString, unit);
    constexpr int kPart = 100;
    constexpr int kMaxUnits = 1 << 20; // too much of any unit
    const auto isFine = [&](int count) {
        return safePage(start + times(count, unit), true).verdict == SafePage::FINE;
    };
    int tooMuch = 1;
    while (tooMuch < kMaxUnits && isFine(tooMuch))
        tooMuch *= 2;
    QVERIFY(tooMuch > 1 && tooMuch < kMaxUnits);
    for (int step = tooMuch / 4; step > tooMuch / 64; step /= 2) {
        if (!isFine(tooMuch - step))
            tooMuch -= step;
    }
    Document document;
    document.setHtml(start + times(kPart, unit));
    document.setTextWidth(700);
    const double height = document.size().height() * tooMuch / kPart;
    QVERIFY2(height < 4000000, qPrintable(QString::number(height)));
}

static QString distinct(int count, const QString &unit)
{
    QString html = QStringLiteral("<html>");
    for (int i = 0; i < count; ++i)
        html += QString(unit).replace(QLatin1Char('#'), QString::number(i + 1));
    return html;
}

/// Lengths at which the text engine's numbers overflow, or nearly so.
static void addLengthRows()
{
    addRow("margins beyond the engine's numbers",
        "<html>" + times(5, "<table style=\"margin:99999999px\"><tr><td>\n"));
    addRow("lengths beyond the engine's numbers",
        "<html>"
            + times(5, "<table border=99999999 cellpadding=99999999 width=99999999><tr><td>\n"));
    addRow("lengths with exponents",
        "<html>"
            + times(5,
                "<table style=\"margin:9e9px\" border=9e9 cellpadding=1e30 width=inf><tr><td>\n"));
    addRow("lengths after blanks that are entities",
        "<html>" + times(5, "<table cellspacing=\"&nbsp;99999999\" width=99999999><tr><td>\n"));
    addRow("the largest lengths",
        "<html>"
            + times(12,
                "<table style=\"margin:9999px\" border=9999 cellpadding=9999 width=9999>"
                "<tr><td>\n"));
    addRow("the largest heights",
        "<html>" + times(8000, "<p style=\"margin-top:9999px\">x<img height=9999>"));
    addRow("the largest indents",
        "<html>" + times(450, "<ul style=\"-qt-list-indent:9999;margin-left:9999px\"><li>x"));
}

/// Rows with fewer cells than others, which the text engine fills.
static void addEmptyCellRows()
{
    QTest::newRow("149 rows, the first of 500 columns") // Generated page 79388.
        << "<html><table><tr>" + times(5, "<td colspan=\"100\">x") + times(148, "<tr><td>x");
    addRow("299 rows, the last of 500 columns",
        "<html><table>" + times(298, "<tr><td>x") + "<tr>" + times(5, "<td colspan=\"100\">x"));
    addRow("rows of 400 columns through cells of earlier rows",
        "<html><table>" + times(4, "<tr>" + times(100, "<td rowspan=\"5\">x"))
            + times(300, "<tr><td>x"));
}

/// The text engine considers the styles of all elements around each element.
static void addStyleRows()
{
    const auto row = [](const char *name, int rules, const QString &rule, const QString &page) {
        addRow(name, "<html><style>" + times(rules, rule) + "</style>" + page);
    };
    row("15,000 rules for any element", 15000, "*{white-space:pre}", times(100, "<td>x")); // 88322
    row("11,000 rules for paragraphs", 11000, "p{white-space:pre}", times(20, "<p>x")); // 5288
    row("a rule of 20,000 fonts", 1, "*{" + times(20000, "font-size:9px;") + "}",
        times(100, "<p>x"));
    row("rules for the elements around", 126, "b{font-size:9px;color:red}",
        times(200, "<b>x") + times(100, "<i>y</i>"));
    row("rules for classes of the elements around", 126, ".c{text-align:left}",
        times(200, "<b class=c>x") + times(100, "<i>y</i>"));
    QTest::newRow("rules after the elements around") // Generated page 92445.
        << "<html>" + times(200, "<b>x") + "<style>" + times(126, "*{font-size:9px;color:red}")
            + "</style>" + times(4, "<table><tr><td>") + times(50, "<i>y</i>");
}

void SafePageTest::hostilePagesTakeNoLongerThanAPlainPage_data()
{
    QTest::addColumn<QString>("html");
    const auto fill = [](const char *name, const QString &unit) {
        QTest::addRow("1 MiB of %s", name)
            << "<html>" + times((kMebibyte - 6) / unit.toUtf8().size(), unit);
    };
    fill("one word", QStringLiteral("w"));
    fill("brackets", QStringLiteral(") "));
    fill("opening brackets", QStringLiteral("( a"));
    fill("blanks that don't break", QString(QChar(0xA0)));
    fill("word joiners", QString(QChar(0x56FE)) + QChar(0x2060));
    fill("commas that don't break", QString(QChar(0x3001)));
    fill("both directions", QString(QChar(0x5D0)) + "a");
    fill("accents", QString(QChar(0x301)));
    fill("two scripts", "a" + QString(QChar(0x3B1)));
    fill("NUL", QString(QChar(0)));
    fill("pictures", QStringLiteral("<img>"));
    fill("paragraphs", QStringLiteral("<p>w"));
    fill("cells", QStringLiteral("<td>"));
    fill("items", QStringLiteral("<li>"));
    fill("breaks", QStringLiteral("<br>"));
    fill("tags", QStringLiteral("<b></b>"));
    fill("preformatted lines", QStringLiteral("<pre>\n"));
    fill("options", QStringLiteral("<option>"));
    fill("closing tags", QStringLiteral("</b>"));
    fill("headings", QStringLiteral("<h1>x</h1>"));
    fill("monospaced texts", QStringLiteral("<code>x</code> "));
    addRow("100,000 pictures in a paragraph", "<html><p>" + times(100000, "<img src=\"a\">"));
    addRow(
        "rows of 20480 columns", "<html><table>" + times(10, "<tr><td colspan=\"20480\">a<td>b"));
    addRow("4,000 rules and 4,000 tags",
        "<html><style>" + times(4000, "p{color:red}") + "</style>" + times(4000, "<p>x"));
    addRow("a rule of 100,000 declarations",
        "<html><style>p{" + times(100000, "color:red;") + "}</style>" + times(4000, "<p>x"));
    addRow("rules for descendants",
        "<html><style>" + times(100, "q b b b b b p{color:red}") + "</style>" + times(100, "<b>")
            + times(4000, "<p>x"));
    for (const char *rule : {"b", "*", ".c", "#c", "i b", "[x=\"a q\"]"})
        QTest::addRow("rules for nested tags: %s", rule) << "<html><style>"
                + times(600, QLatin1String(rule) + QLatin1String("{color:red}")) + "</style>"
                + times(800, "<b class=c id=c x=\"a q\">");
    addRow("rules for descendants of nested tags",
        "<html><style>" + times(30, "i b{color:red}") + "</style>" + times(300, "<b>"));
    addRow("rules for siblings",
        "<html><style>" + times(100, "b + p + p{color:red}") + "</style>" + times(9000, "<p>x"));
    addRow("22 tables in 371 bytes", "<html>" + times(22, "< table><tr><td>"));
    addRow("text in 12 tables", "<html>" + times(12, "<table><tr><td>") + times(2000, "word "));
    addRow("two scripts in narrow columns",
        "<html><table><tr>"
            + times(40, "<th rowspan=9>" + times(207, QString(QChar(0x5D0)) + "a")));
    addRow("two scripts in 9 tables",
        "<html>" + times(9, "<table><tr><td>") + times(314, QString(QChar(0x5D0)) + "a"));
    addRow("floating tables in tables",
        "<html>" + times(2, "<table><tr><td>")
            + times(1000, "<table style=\"fl\\6f at:left;float:left\"><tr><td>x</table>"));
    QTest::newRow("240,000 accents of one letter") // Generated page 16165.
        << "<html>a" + times(240000, QChar(0x301));
    addEmptyCellRows();
    addStyleRows();
    addLengthRows();
    addRow("fonts", distinct(5000, QStringLiteral("<p style=\"font-size:#px\">x")));
    addRow("families", distinct(5000, QStringLiteral("<font face=\"f#\">x</font>")));
    addRow("blocks made parts of a line",
        "<html><style>p{display:inline}</style>" + times(50000, "<p>w</p><p>.</p>"));
}

/// It takes less time than ten pages of a megabyte of text.
static void verifyTime(const QString &html, bool isFromNetwork)
{
    static const double plain = timeFor("<html>" + times(kMebibyte / 5, "word "), true);
    const double taken = timeFor(html, isFromNetwork);
    QVERIFY2(
        taken < 10 * plain, qPrintable(QStringLiteral("%1 ms, plain %2 ms").arg(taken).arg(plain)));
}

void SafePageTest::hostilePagesTakeNoLongerThanAPlainPage()
{
    QFETCH(const QString, html);
    verifyTime(html, true);
}

void SafePageTest::lengthsOfLocalPagesAreNoTroubleEither_data()
{
    QTest::addColumn<QString>("html");
    addLengthRows();
}

void SafePageTest::lengthsOfLocalPagesAreNoTroubleEither()
{
    QFETCH(const QString, html);
    verifyTime(html, false);
}

void SafePageTest::spansAreCut_data()
{
    QTest::addColumn<QString>("span");
    QTest::addColumn<QString>("written");
    addRow("100", "100", "100");
    addRow("101", "101", "100");
    addRow("20480", "20480", "100");
    addRow("an entity in it", "2&#48;48", "100");
    addRow("beyond integers", "99999999999", "1");
    addRow("zero", "0", "1");
    addRow("negative", "-5", "1");
    addRow("no number", "many", "1");
}

void SafePageTest::spansAreCut()
{
    QFETCH(const QString, span);
    QFETCH(const QString, written);
    for (const char *name : {"colspan", "rowspan"}) {
        const QString page = QStringLiteral("<td %1=\"%2\">").arg(QLatin1String(name));
        QCOMPARE(
            safePage("<table><tr>" + page.arg(span), true).html, "<table><tr>" + page.arg(written));
    }
}

void SafePageTest::endlessWordsAreBroken_data()
{
    QTest::addColumn<QString>("unit");
    addRow("letters", "w");
    addRow("letters over tags", "w<b></b>");
    addRow("entities", "&amp;");
    addRow("brackets and blanks", ") ");
    addRow("blanks that don't break", QString(QChar(0xA0)));
    addRow("ideographs that are joined", QString(QChar(0x56FE)) + QChar(0x2060));
}

void SafePageTest::endlessWordsAreBroken()
{
    QFETCH(const QString, unit);
    const QChar breakSign(0x200B);
    Document document;
    document.setHtml(safePage("<html><p>x</p>" + times(5000, unit), true).html);
    const QStringList words = document.toPlainText().split(breakSign);
    QVERIFY(words.size() > 5);
    for (const QString &word : words)
        QVERIFY(word.size() <= 510);
    QCOMPARE(safePlainText(times(5000, "w")).html.count(breakSign), 9);
}

void SafePageTest::ordinaryTextIsNotBroken_data()
{
    QTest::addColumn<QString>("html");
    addRow("words", "<html>" + times(5000, "some words, and more. "));
    addRow("a word of 500 letters", "<html>" + times(500, "w") + " and more");
    addRow("ideographs", "<html>" + times(5000, QChar(0x56FE)));
    addRow("paragraphs without a blank", times(5000, "<p>w</p>"));
    addRow("cells without a blank", "<table>" + times(500, "<tr><td>w</td></tr>"));
    addRow("lines without a blank", "<html>" + times(5000, "w<br>"));
    addRow("a picture inside the page",
        "<html><img src=\"data:image/png;base64," + times(5000, "w") + "\">");
}

void SafePageTest::ordinaryTextIsNotBroken()
{
    QFETCH(const QString, html);
    const SafePage safe = safePage(html, true);
    QCOMPARE(safe.verdict, SafePage::FINE);
    QVERIFY(!safe.html.contains(QChar(0x200B)));
}

void SafePageTest::theTitleIsCut()
{
    const SafePage safe =
        safePage("<html><title>" + times(17 * kMebibyte, "t") + "</title>text</html>", true);
    Document document;
    document.setHtml(safe.html);
    QCOMPARE(document.metaInformation(QTextDocument::DocumentTitle), times(200, "t"));
    QCOMPARE(document.toPlainText(), QStringLiteral("text"));
}

void SafePageTest::styleSheetsAreWrittenPlainly_data()
{
    QTest::addColumn<QString>("css");
    QTest::addColumn<QString>("plain");
    const auto row = [](const char *css, const char *plain) {
        QTest::addRow("%s", css) << QString::fromLatin1(css) << QString::fromLatin1(plain);
    };
    row("p { color : red }", "p{color:red;}");
    row("p,h1 > b{color:red;;margin:0 1px}", "p,h1 &gt; b{color:red;margin:0 1px;}");
    row("p{fl\\6f at:left;color:red}", "p{color:red;}");
    row("\\70 {color:red}", "");
    row("/* x */p/* y */{color:/* z */red}", "p{color:red;}");
    row("@import url(x.css);p{color:red}", "p{color:red;}");
    row("@import 'x.css';", "");
    row("@media screen{p{color:red}}", "@media screen{p{color:red;}}");
    row("@media a{@media b{p{color:red}}}", "@media a{}");
    row("p{color:red", "p{color:red;}");
    row("p{background:url(x;y)}", "p{background:url(x;y);}");
    row("p{background:url(x}b{color:red}", "p{}");
    row("p{font-family:'a}b'}", "p{}");
    row("}p{color:red}", "p{color:red;}");
    row("p{color:#123456;margin:9999px}", "p{color:#123456;margin:9999px;}");
}

void SafePageTest::styleSheetsAreWrittenPlainly()
{
    QFETCH(const QString, css);
    QFETCH(const QString, plain);
    QCOMPARE(safePage("<style>" + css + "</style>", true).html, "<style>" + plain + "</style>");
    // A local page may do as it likes.
    QCOMPARE(safePage("<style>" + css + "</style>", false).html,
        "<style>" + QString(css).replace('>', "&gt;") + "</style>");
}

void SafePageTest::lengthsThatOverflowAreLeftOut_data()
{
    QTest::addColumn<QString>("css");
    QTest::addColumn<QString>("fromNetwork");
    QTest::addColumn<QString>("local"); // Otherwise as it was.
    const auto row = [](const char *css, const char *fromNetwork, const char *local) {
        QTest::addRow("%s", css) << QString::fromLatin1(css) << QString::fromLatin1(fromNetwork)
                                 << QString::fromLatin1(local);
    };
    row("margin:10000px;color:#123456", "color:#123456;", ";color:#123456");
    row("margin:9999px", "margin:9999px;", "margin:9999px");
    row("margin:100em", "", "");
    row("margin:9e9px", "", "");
    row("margin:1.5E9px; color:red", "color:red;", "; color:red");
    row("font-size:1000px", "", "");
    row("font-size:999px", "font-size:999px;", "font-size:999px");
    row("color:red;/* ; */margin/**/:99999px", "color:red;", "color:red;");
    row("co\\lor:red;margin:9px", "margin:9px;", "co\\lor:red;margin:9px");
    row("margin:x(2000000000pt)", "margin:x(2000000000pt);", "margin:x(2000000000pt)");
    row("background:url(99999.png)", "background:url(99999.png);", "background:url(99999.png)");
}

void SafePageTest::lengthsThatOverflowAreLeftOut()
{
    QFETCH(const QString, css);
    QFETCH(const QString, fromNetwork);
    QFETCH(const QString, local);
    const QString inBlock = QStringLiteral("<style>a:link{%1}</style>");
    const QString inTag = QStringLiteral("<p style=\"%1\">");
    for (const bool isFromNetwork : {true, false}) {
        const QString expected = isFromNetwork ? fromNetwork : local;
        for (const QString &page : {inBlock, inTag})
            QCOMPARE(safePage(page.arg(css), isFromNetwork).html, page.arg(expected));
    }
}

void SafePageTest::attributesThatOverflowAreLeftOut_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("isWritten");
    const QVector<QPair<const char *, bool>> values {{"9999", true}, {"100%", true}, {"+2", true},
        {"many", true}, {"", false}, {"10000", false}, {"-10000", false}, {"10000%", false},
        {"9e9", false}, {"1E5%", false}, {"inf", false}, {"nan", false}, {"99999999999", false},
        {"1&#48;000", false}, {"&nbsp;10000", false}};
    for (const auto &[value, isWritten] : values)
        QTest::addRow("\"%s\"", value) << QString::fromLatin1(value) << isWritten;
}

void SafePageTest::attributesThatOverflowAreLeftOut()
{
    QFETCH(const QString, value);
    QFETCH(const bool, isWritten);
    for (const bool isFromNetwork : {true, false}) {
        const QString html = QStringLiteral("<td width=\"%1\">").arg(value);
        QCOMPARE(safePage("<table><tr>" + html, isFromNetwork).html,
            "<table><tr>" + (isWritten ? html : QStringLiteral("<td>")));
    }
}

VEMO_TEST_MAIN(SafePageTest)
#include "tst_safepage.moc"
