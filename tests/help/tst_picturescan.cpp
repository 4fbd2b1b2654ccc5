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
    QTest::newRow("empty") << "<base href=\"\">" << true << "";
    QTest::newRow("the first of two") << "<base href=\"a\"><base href=\"b\">" << true << "a";
    QTest::newRow("anywhere in the page")
        << "<p>x</p><base href=\"a\" target=\"_blank\">" << true << "a";
    QTest::newRow("over a line break") << "<base href=\"a\nb\">" << true << "a\nb";
    QTest::newRow("none") << "<html></html>" << false << "";
    QTest::newRow("no closing quote") << "<base href=\"a>" << false << "";
    QTest::newRow("single quotes") << "<base href='a'>" << false << "";
    QTest::newRow("no quotes") << "<base href=a>" << false << "";
    QTest::newRow("capitals") << "<BASE HREF=\"a\">" << false << "";
    QTest::newRow("two blanks") << "<base  href=\"a\">" << false << "";
    QTest::newRow("another attribute first") << "<base target=\"x\" href=\"a\">" << false << "";
    QTest::newRow("empty page") << "" << false << "";
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

    QTest::newRow("none") << "<p>text</p>" << QStringList();
    QTest::newRow("one") << "<img src=\"a.png\">" << QStringList("a.png");
    QTest::newRow("two") << "<img src=\"b\"><img src=\"a\">" << QStringList({"b", "a"});
    QTest::newRow("three times the same")
        << "<img src=\"a\"><img src=\"a\"><p><img src=\"a\">" << QStringList("a");
    QTest::newRow("again after another")
        << "<img src=\"a\"><img src=\"b\"><img src=\"a\">" << QStringList({"a", "b"});
    QTest::newRow("other attributes first") << "<img alt=\"x\" src=\"a\">" << QStringList("a");
    QTest::newRow("empty source") << "<img src=\"\">" << QStringList("");
    QTest::newRow("capitals") << "<IMG SRC=\"a\">" << QStringList();
    QTest::newRow("capital attribute") << "<img SRC=\"a\">" << QStringList();
    QTest::newRow("single quotes") << "<img src='a'>" << QStringList();
    QTest::newRow("blank before the equals sign") << "<img src =\"a\">" << QStringList();
    QTest::newRow("no closing quote takes the rest")
        << "<img src=\"a\"><img src=\"b.png><p>x" << QStringList({"a", "b.png><p>x"});
    QTest::newRow("no source at all") << "<img alt=\"x\"><p>" << QStringList();
    QTest::newRow("no source takes the next tag's")
        << "<img alt=\"x\"><script src=\"s.js\"></script>" << QStringList("s.js");
    QTest::newRow("a longer tag name") << "<imgage src=\"a\">" << QStringList("a");
    QTest::newRow("a longer attribute name")
        << "<img data-src=\"a\" src=\"b\">" << QStringList("a");
    QTest::newRow("a tag inside a source")
        << "<img src=\"<img src=\"a\">" << QStringList({"<img src=", "a"});
    QTest::newRow("sources are case-sensitive")
        << "<img src=\"a\"><img src=\"A\">" << QStringList({"a", "A"});
    QTest::newRow("in a comment") << "<!-- <img src=\"a\"> -->" << QStringList("a");
    QTest::newRow("entities stay") << "<img src=\"a&amp;b\">" << QStringList("a&amp;b");
    QTest::newRow("outside of the basic plane")
        << QString::fromUtf8("<img src=\"\xF0\x9F\x98\x80.png\">")
        << QStringList(QString::fromUtf8("\xF0\x9F\x98\x80.png"));
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
