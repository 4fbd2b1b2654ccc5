// SPDX-License-Identifier: MIT
// The table of contents of a help window, which is off at first.
#include "help/navigationtest.h"
#include "help/testcertificates.h"
#include "support/testhost.h"

#include <vemo/ComponentStrings>
#include <vemo/ContentsEntry>
#include <vemo/HelpContext>

#include <QLayout>
#include <QTreeWidget>

#include <numeric>

class PageContentsTest : public NavigationTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init() { NavigationTest::init(); }
    void cleanup() { NavigationTest::cleanup(); }

    void nothingIsOfferedAtFirst();
    void entriesOpenPages_data();
    void entriesOpenPages();
    void currentEntryFollowsThePage();
    void targetsAreFileNames_data();
    void targetsAreFileNames();
    void entryWithoutAPageReturnsToTheCurrentOne_data();
    void entryWithoutAPageReturnsToTheCurrentOne();
    void headingsOpenNoPage();
    void levelsAreLimited_data();
    void levelsAreLimited();
    void tableIsHiddenAndShown_data();
    void tableIsHiddenAndShown();
    void tabLeadsFromTheTableToThePage();
    void f6MovesTheFocusBetweenTheParts_data();
    void f6MovesTheFocusBetweenTheParts();
    void titlesArePlainText();
    void tableIsNamedInTheLanguageShown();
    void tableIsMirroredFromRightToLeft();
    void tableIsRemovedAgain();
    void knowledgeBaseIsAskedForEntries();

private:
    QTreeWidget *tree() const { return m_window->findChild<QTreeWidget *>(); }
    QString current() const
    {
        return tree()->currentItem() ? tree()->currentItem()->text(0) : QString();
    }
    void openHelp(const QVector<ContentsEntry> &entries);
    void openHelp();
    void clickEntry(const QString &title);

    TestCertificates m_certificates;
};

void PageContentsTest::initTestCase()
{
    startDefaultTheme();
    if (m_certificates.isValid())
        m_certificates.trust();
}

/// A window that shows the page "one.html" of the local help.
void PageContentsTest::openHelp(const QVector<ContentsEntry> &entries)
{
    write("enu/one.html", "one");
    HelpContext context;
    context.lang = "enu";
    context.helpPath = m_folder->path();
    context.link = "one.html";
    m_window.reset(new HelpWindow(context));
    m_window->setHistoryEnabled(true);
    m_window->setContents(entries);
    QTRY_VERIFY(!text().isEmpty());
    showWindow();
}

void PageContentsTest::openHelp()
{
    writeLongPage("enu/two.html", "two");
    openHelp({{"First", 0, QUrl("one.html")}, {"More", 0, QUrl()}, {"Second", 1, QUrl("two.html")},
        {"End", 2, QUrl("two.html#end")}});
}

void PageContentsTest::clickEntry(const QString &title)
{
    const auto found = tree()->findItems(title, Qt::MatchExactly | Qt::MatchRecursive);
    QCOMPARE(found.size(), 1);
    tree()->scrollToItem(found.first());
    QTest::mouseClick(
        tree()->viewport(), Qt::LeftButton, {}, tree()->visualItemRect(found.first()).center());
}

void PageContentsTest::nothingIsOfferedAtFirst()
{
    QVERIFY(m_window->contents().isEmpty());
    m_window->setContents({});
    fetch("one");
    press(Qt::Key_F9);
    QCOMPARE(childCount(), 1);
}

void PageContentsTest::entriesOpenPages_data()
{
    QTest::addColumn<int>("how");
    addRow("click", 0);
    addRow("double click", 1);
    addRow("Return", int(Qt::Key_Return));
    addRow("Enter", int(Qt::Key_Enter));
}

void PageContentsTest::entriesOpenPages()
{
    QFETCH(int, how);
    openHelp();
    QCOMPARE(current(), QString("First"));
    if (how <= 1) {
        clickEntry("Second");
        if (how == 1) {
            const QRect entry = tree()->visualItemRect(tree()->currentItem());
            QTest::mouseDClick(tree()->viewport(), Qt::LeftButton, {}, entry.center());
        }
    } else {
        tree()->setFocus();
        press(Qt::Key_Down);
        press(Qt::Key_Right); // opens the level
        press(Qt::Key_Down);
        QCOMPARE(text(), QString("one")); // Moving alone opens no page.
        press(Qt::Key(how));
    }
    QTRY_VERIFY(text().startsWith("two"));
    QCOMPARE(current(), QString("Second"));
    QVERIFY(m_window->isVisible());
    back();
    QCOMPARE(text(), QString("one"));
    QCOMPARE(current(), QString("First"));
}

void PageContentsTest::currentEntryFollowsThePage()
{
    openHelp();
    follow("two.html");
    QCOMPARE(current(), QString("Second"));
    QVERIFY(tree()->currentItem()->parent()->isExpanded());
    follow("#end");
    QCOMPARE(current(), QString("End"));
    back();
    QCOMPARE(current(), QString("Second"));
    forward();
    QCOMPARE(current(), QString("End"));
    clickEntry("Second");
    QCOMPARE(topRow(), 0);
    clickEntry("End");
    QVERIFY(topRow() > 0);
    QCOMPARE(current(), QString("End"));
    write("enu/other.html", "other");
    follow("other.html");
    QCOMPARE(current(), QString());
    QVERIFY(tree()->selectedItems().isEmpty());
}

void PageContentsTest::targetsAreFileNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QUrl>("target");
    addRow("plain", QString("two.html"), QUrl("two.html"));
    addRow("in a folder", QString("sub/two.html"), QUrl("sub/two.html"));
    addRow("with a space", QString("t o.html"), QUrl("t o.html"));
    addRow(
        "with encoded characters", QString::fromUtf8("#%1 ö.html"), QUrl("%23%251%20%C3%B6.html"));
}

void PageContentsTest::targetsAreFileNames()
{
    QFETCH(QString, name);
    QFETCH(QUrl, target);
    write("enu/" + name, "two");
    openHelp({{"First", 0, QUrl("one.html")}, {"Second", 0, target}});
    clickEntry("Second");
    QTRY_COMPARE(text(), QString("two"));
    QCOMPARE(current(), QString("Second"));
}

void PageContentsTest::entryWithoutAPageReturnsToTheCurrentOne_data()
{
    QTest::addColumn<QString>("target");
    addRow("no such file", QString("missing.html"));
    addRow("a folder", QString("sub"));
    addRow("another host", QString("http://127.0.0.1:%1/page"));
    addRow("another file", QString("file://%2/secret.html"));
    addRow("a script", QString("javascript:alert(1)"));
    addRow("the page itself", QString("data:text/html,secret"));
    addRow("a zero byte", QString("one.html%00x"));
    addRow("more to be asked", QString("x&link=one.html"));
}

void PageContentsTest::entryWithoutAPageReturnsToTheCurrentOne()
{
    QFETCH(QString, target);
    target.replace("%1", QString::number(m_server->url().port()));
    target.replace("%2", m_folder->path());
    m_server->setAnswer("/page", page("<html>secret</html>"));
    write("secret.html", "secret");
    write("enu/sub/x.html", "secret");
    openHelp({{"First", 0, QUrl("one.html")}, {"Odd", 0, QUrl(target)}});
    clickEntry("Odd");
    QCOMPARE(current(), QString("Odd"));
    QTRY_COMPARE(current(), QString("First"));
    QCOMPARE(text(), QString("one"));
    QCOMPARE(m_server->requests().size(), 0);
    QVERIFY(!m_window->isBackwardAvailable());
}

void PageContentsTest::headingsOpenNoPage()
{
    openHelp();
    QTreeWidgetItem *heading = tree()->topLevelItem(1);
    QVERIFY(!heading->isExpanded());
    clickEntry("More");
    QVERIFY(heading->isExpanded());
    QCOMPARE(text(), QString("one"));
}

void PageContentsTest::levelsAreLimited_data()
{
    QTest::addColumn<QVector<int>>("levels");
    QTest::addColumn<QVector<int>>("depths");
    addRow("in order", QVector<int> {0, 1, 2, 1, 0}, QVector<int> {0, 1, 2, 1, 0});
    addRow("left out", QVector<int> {3, 5, 0, 2}, QVector<int> {0, 1, 0, 1});
    addRow("negative", QVector<int> {-1, -2, 1}, QVector<int> {0, 0, 1});
    QVector<int> levels(100000);
    std::iota(levels.begin(), levels.end(), 0);
    QVector<int> depths = levels;
    for (int &depth : depths)
        depth = qMin(depth, 9);
    addRow("ever deeper", levels, depths);
}

void PageContentsTest::levelsAreLimited()
{
    QFETCH(QVector<int>, levels);
    QVector<ContentsEntry> entries;
    for (int level : levels)
        entries += {QString::number(entries.size()), level, QUrl()};
    m_window->setContents(entries);
    QCOMPARE(m_window->contents().size(), entries.size());
    QVector<int> depths;
    for (QTreeWidgetItemIterator item(tree()); *item; ++item) {
        QCOMPARE((*item)->text(0), QString::number(depths.size()));
        int depth = 0;
        for (QTreeWidgetItem *parent = (*item)->parent(); parent; parent = parent->parent())
            ++depth;
        depths += depth;
    }
    QTEST(depths, "depths");
}

void PageContentsTest::tableIsHiddenAndShown_data()
{
    QTest::addColumn<bool>("isKey");
    addRow("F9", true);
    addRow("button", false);
}

void PageContentsTest::tableIsHiddenAndShown()
{
    QFETCH(bool, isKey);
    openHelp();
    const auto toggle = [this, isKey] {
        if (isKey)
            press(Qt::Key_F9);
        else
            button("Contents")->click();
    };
    QVERIFY(button("Contents")->isChecked());
    QCOMPARE(button("Contents")->parentWidget()->height(), button("Contents")->height());
    tree()->setFocus();
    const int width = view()->width();
    toggle();
    QVERIFY(!tree()->isVisible());
    QVERIFY(!button("Contents")->isChecked());
    QVERIFY(view()->hasFocus());
    QTRY_VERIFY(view()->width() > width);
    toggle();
    QVERIFY(tree()->isVisible());
    QVERIFY(button("Contents")->isChecked());
    QTRY_COMPARE(view()->width(), width);
}

void PageContentsTest::tabLeadsFromTheTableToThePage()
{
    openHelp();
    QVERIFY(view()->hasFocus()); // so that the arrow keys scroll it
    tree()->setFocus();
    press(Qt::Key_Tab);
    QTRY_VERIFY(view()->hasFocus());
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    QTRY_VERIFY(tree()->hasFocus());
}

void PageContentsTest::f6MovesTheFocusBetweenTheParts_data()
{
    QTest::addColumn<QString>("offered");
    QTest::addColumn<QStringList>("parts"); // in the order of F6, from the page back to it
    addRow("history and contents", QString("contents, history, earlier page"),
        QStringList {"Contents", "table", "page"});
    addRow("contents", QString("contents"), QStringList {"Contents", "table", "page"});
    addRow("hidden contents", QString("hidden contents"), QStringList {"Contents", "page"});
    addRow("history", QString("history, earlier page"), QStringList {"Back", "page"});
    addRow("history of one page", QString("history"), QStringList {"page"});
}

void PageContentsTest::f6MovesTheFocusBetweenTheParts()
{
    QFETCH(QString, offered);
    QFETCH(QStringList, parts);
    openHelp();
    if (offered.contains("earlier page"))
        follow("two.html");
    m_window->setHistoryEnabled(offered.contains("history"));
    if (offered.contains("hidden"))
        press(Qt::Key_F9);
    else if (!offered.contains("contents"))
        m_window->setContents({});
    view()->setFocus();
    const auto focused = [this] {
        const QWidget *part = m_window->focusWidget();
        return part == view() ? "page" : part == tree() ? "table" : part->accessibleName();
    };
    for (const QString &part : qAsConst(parts)) {
        press(Qt::Key_F6);
        QCOMPARE(focused(), part);
    }
    for (int i = parts.size() - 1; i > 0; --i) {
        press(Qt::Key_F6, Qt::ShiftModifier);
        QCOMPARE(focused(), parts.at(i - 1));
    }
    if (offered.contains("earlier page")) {
        button("Back")->setFocus(); // any button of the bar
        press(Qt::Key_F6, Qt::ShiftModifier);
        QCOMPARE(focused(), QString("page"));
    }
}

void PageContentsTest::titlesArePlainText()
{
    m_window->setContents({{"<b>1 < 2</b>", 0, QUrl()}});
    QCOMPARE(tree()->topLevelItem(0)->text(0), QString("<b>1 < 2</b>"));
    QVERIFY(tree()->topLevelItem(0)->toolTip(0).contains("&lt;b&gt;"));
}

void PageContentsTest::tableIsNamedInTheLanguageShown()
{
    openHelp();
    QCOMPARE(tree()->accessibleName(), QString("Contents"));
    const QMap<QString, QString> english = ComponentStrings::getInstance().strings();
    QMap<QString, QString> texts = english;
    texts["help_contents"] = "Inhalt";
    ComponentStrings::getInstance().changeStrings(texts);
    QTRY_COMPARE(tree()->accessibleName(), QString("Inhalt"));
    QVERIFY(button("Inhalt"));
    ComponentStrings::getInstance().changeStrings(english);
    QTRY_COMPARE(tree()->accessibleName(), QString("Contents"));
}

void PageContentsTest::tableIsMirroredFromRightToLeft()
{
    openHelp();
    const auto left = [this](const QWidget *part) {
        return part->mapTo(m_window.get(), QPoint()).x();
    };
    QVERIFY(left(tree()) < left(view()));
    const int width = tree()->width();
    m_window->setLayoutDirection(Qt::RightToLeft);
    QTRY_VERIFY(left(tree()) > left(view()));
    QVERIFY(qAbs(tree()->width() - width) <= 1);
    QVERIFY(tree()->parentWidget()->rect().contains(tree()->geometry()));
    QVERIFY(tree()->parentWidget()->rect().contains(view()->geometry()));
    QTRY_VERIFY(left(button("Contents")) > left(button("Back")));
}

void PageContentsTest::tableIsRemovedAgain()
{
    openHelp();
    tree()->setFocus();
    m_window->setContents({});
    QVERIFY(m_window->contents().isEmpty());
    QVERIFY(!tree());
    QVERIFY(!button("Contents"));
    QVERIFY(view()->isVisible());
    QVERIFY(view()->hasFocus());
    QVERIFY(button("Back"));
    m_window->setHistoryEnabled(false);
    QCOMPARE(childCount(), 1);
    QCOMPARE(m_window->layout()->count(), 1);
    m_window->setContents({{"First", 0, QUrl("one.html")}});
    QCOMPARE(current(), QString("First"));
}

void PageContentsTest::knowledgeBaseIsAskedForEntries()
{
    if (!m_certificates.isValid())
        QSKIP("There is no openssl command to make certificates with");
    TestServer server(m_certificates.server(TestCertificates::GOOD));
    server.setAnswer("/cgi/knowledgebase/", page("<html>online</html>"));
    HelpWindow::setKnowledgeBaseUrl(server.url());
    write("enu/two.html", "local two");
    openHelp({{"First", 0, QUrl("one.html")}, {"Second", 0, QUrl("two.html#end")},
        {"Odd", 0, QUrl("a&action=x.html")}});
    QCOMPARE(text(), QString("online"));
    QCOMPARE(current(), QString("First"));
    server.setAnswer("/cgi/knowledgebase/", status("404 Not Found"));
    clickEntry("Second");
    QTRY_COMPARE(text(), QString("local two"));
    QCOMPARE(current(), QString("Second"));
    QVERIFY(server.requests().last().contains("&link=two.html&"));
    QVERIFY(!server.requests().last().contains("end"));
    back();
    QCOMPARE(text(), QString("online"));
    QCOMPARE(current(), QString("First"));
    clickEntry("Odd");
    QTRY_COMPARE(server.requests().size(), 3);
    QVERIFY(server.requests().last().contains("&link=a%26action%3Dx.html&"));
    QTRY_COMPARE(current(), QString("First"));
}

VEMO_TEST_MAIN(PageContentsTest)
#include "tst_pagecontents.moc"
