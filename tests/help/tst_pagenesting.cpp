// SPDX-License-Identifier: MIT
#include "help/pagenesting_p.h"
#include "support/vemotest.h"

class tst_pagenesting : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void pagesAreJudgedByTheirDepth_data();
    void pagesAreJudgedByTheirDepth();
};

static QString times(int count, const QString &part)
{
    return part.repeated(count);
}

void tst_pagenesting::pagesAreJudgedByTheirDepth_data()
{
    QTest::addColumn<QString>("html");
    QTest::addColumn<bool>("isTooDeep");
    const QString table = QStringLiteral("<table><tr><td>");
    QTest::newRow("empty") << "" << false;
    QTest::newRow("12 tables") << times(12, table) << false;
    QTest::newRow("13 tables") << times(13, table) << true;
    QTest::newRow("13 tables in capitals") << times(13, "<TABLE ><tr>") << true;
    QTest::newRow("many tables side by side") << times(500, table + "</td></tr></table>") << false;
    QTest::newRow("1000 tags") << times(1000, "<b>") << false;
    QTest::newRow("1001 tags") << times(1001, "<b>") << true;
    QTest::newRow("many tags, ended") << times(5000, "<b>x</b>") << false;
    QTest::newRow("many tags that end themselves") << times(5000, "<a name=\"x\"/>") << false;
    QTest::newRow("many empty tags") << times(5000, "<br><img src=\"x\"><hr>") << false;
    QTest::newRow("many paragraphs without end") << times(5000, "<p>x<li>y") << false;
    QTest::newRow("tables in a comment") << "<!-- " + times(50, table) + " --><p>" << false;
    QTest::newRow("after a comment") << "<!-- x -->" + times(50, table) << true;
    QTest::newRow("in a comment without end") << "<!-- " + times(50, table) << false;
    QTest::newRow("more ends than beginnings") << times(2000, "</b>") + times(1000, "<b>") << false;
    QTest::newRow("no tags at all") << times(5000, "a < b ") << false;
    QTest::newRow("tags without end") << times(5000, "<b ") << false;
    QTest::newRow("a bracket at the end") << "text<" << false;
}

void tst_pagenesting::pagesAreJudgedByTheirDepth()
{
    QFETCH(const QString, html);
    QTEST(isNestedTooDeeply(html), "isTooDeep");
}

VEMO_TEST_MAIN(tst_pagenesting)
#include "tst_pagenesting.moc"
