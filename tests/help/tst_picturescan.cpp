// SPDX-License-Identifier: MIT
#include "help/picturescan_p.h"
#include "support/vemotest.h"

class PictureScanTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void theBaseAddressStandsBetweenItsQuotes_data();
    void theBaseAddressStandsBetweenItsQuotes();
    void sourcesAreFoundOnceEachInTheirOrder_data();
    void sourcesAreFoundOnceEachInTheirOrder();
    void nothingBeforeThePositionCounts();
    void thousandsOfSourcesAreFound();
};

static QStringList foundIn(const QString &html, int from = 0)
{
    QStringList sources;
    for (const QStringView source : pictureSources(html, from))
        sources += source.toString();
    return sources;
}

void PictureScanTest::theBaseAddressStandsBetweenItsQuotes_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<bool>("isFound");
    QTest::addColumn<QString>("address");

    QTest::newRow("plain") << "<base href=\"https://a/b/\">" << true << "https://a/b/";
    addRow("empty", "<base href=\"\">", true, "");
    addRow("the first of two", "<base href=\"a\"><base href=\"b\">", true, "a");
    addRow("anywhere in the page", "<p>x</p><base href=\"a\" target=\"_blank\">", true, "a");
    addRow("over a line break", "<base href=\"a\nb\">", true, "a\nb");
    addRow("none", "<html></html>", false, "");
    addRow("no closing quote", "<base href=\"a>", false, "");
    addRow("single quotes", "<base href='a'>", false, "");
    addRow("no quotes", "<base href=a>", false, "");
    addRow("capitals", "<BASE HREF=\"a\">", false, "");
    addRow("two blanks", "<base  href=\"a\">", false, "");
    addRow("another attribute first", "<base target=\"x\" href=\"a\">", false, "");
    addRow("empty page", "", false, "");
}

void PictureScanTest::theBaseAddressStandsBetweenItsQuotes()
{
    QFETCH(const QString, html);
    QFETCH(const QString, address);
    const BaseAddress base = findBaseAddress(html);
    QTEST(base.start >= 0, "isFound");
    if (base.start >= 0)
        QCOMPARE(html.mid(base.start, base.end - base.start), address);
}

void PictureScanTest::sourcesAreFoundOnceEachInTheirOrder_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<QStringList>("sources");

    addRow("none", "<p>text</p>", QStringList());
    addRow("one", "<img src=\"a.png\">", QStringList("a.png"));
    addRow("two", "<img src=\"b\"><img src=\"a\">", QStringList({"b", "a"}));
    addRow("three times the same", "<img src=\"a\"><img src=\"a\"><p><img src=\"a\">",
        QStringList("a"));
    addRow("again after another", "<img src=\"a\"><img src=\"b\"><img src=\"a\">",
        QStringList({"a", "b"}));
    addRow("other attributes first", "<img alt=\"x\" src=\"a\">", QStringList("a"));
    addRow("empty source", "<img src=\"\">", QStringList(""));
    addRow("capitals", "<IMG SRC=\"a\">", QStringList());
    addRow("capital attribute", "<img SRC=\"a\">", QStringList());
    addRow("single quotes", "<img src='a'>", QStringList());
    addRow("blank before the equals sign", "<img src =\"a\">", QStringList());
    addRow("no closing quote takes the rest", "<img src=\"a\"><img src=\"b.png><p>x",
        QStringList({"a", "b.png><p>x"}));
    addRow("no source at all", "<img alt=\"x\"><p>", QStringList());
    addRow("no source takes the next tag's", "<img alt=\"x\"><script src=\"s.js\"></script>",
        QStringList("s.js"));
    addRow("a longer tag name", "<imgage src=\"a\">", QStringList("a"));
    addRow("a longer attribute name", "<img data-src=\"a\" src=\"b\">", QStringList("a"));
    addRow("a tag inside a source", "<img src=\"<img src=\"a\">", QStringList({"<img src=", "a"}));
    addRow("sources are case-sensitive", "<img src=\"a\"><img src=\"A\">", QStringList({"a", "A"}));
    addRow("in a comment", "<!-- <img src=\"a\"> -->", QStringList("a"));
    addRow("entities stay", "<img src=\"a&amp;b\">", QStringList("a&amp;b"));
    addRow("outside of the basic plane", QString::fromUtf8("<img src=\"\xF0\x9F\x98\x80.png\">"),
        QStringList(QString::fromUtf8("\xF0\x9F\x98\x80.png")));
}

void PictureScanTest::sourcesAreFoundOnceEachInTheirOrder()
{
    QFETCH(const QString, html);
    QTEST(foundIn(html), "sources");
}

void PictureScanTest::nothingBeforeThePositionCounts()
{
    const QString html = QStringLiteral("<img src=\"before\"><base href=\"x\"><img src=\"after\">");
    QCOMPARE(foundIn(html, findBaseAddress(html).end), QStringList("after"));
}

void PictureScanTest::thousandsOfSourcesAreFound()
{
    QString html;
    for (int i = 0; i < 10000; ++i)
        html += QStringLiteral("<img src=\"p%1.png\">").arg(i % 5000);
    const QStringList sources = foundIn(html);
    QCOMPARE(sources.size(), 5000);
    for (int i = 0; i < sources.size(); ++i)
        QCOMPARE(sources.at(i), QStringLiteral("p%1.png").arg(i));
}

VEMO_TEST_MAIN(PictureScanTest)
#include "tst_picturescan.moc"
