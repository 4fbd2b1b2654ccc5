// SPDX-License-Identifier: MIT
// Back and forward, which are off at first.
#include "help/helphost.h"
#include "help/navigationtest.h"
#include "support/testhost.h"

#include <vemo/ComponentStrings>

#include <QScrollBar>
#include <QTextBlock>

#include <functional>

class PageHistoryTest : public NavigationTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void init() { NavigationTest::init(); }
    void cleanup() { NavigationTest::cleanup(); }

    void nothingIsOfferedAtFirst();
    void goesBackAndForward_data();
    void goesBackAndForward();
    void reportsWhatIsAvailable();
    void keepsThePlaceThatWasRead_data();
    void keepsThePlaceThatWasRead();
    void anotherPageEndsTheWayForward();
    void linksOfLocalPagesArePartOfIt();
    void linkToTheSamePlaceAddsNothing_data();
    void linkToTheSamePlaceAddsNothing();
    void deletedPageIsShownAsItWas();
    void linkToNoPageIsNotFollowed_data();
    void linkToNoPageIsNotFollowed();
    void failedFetchAddsNothing();
    void pagesKeepTheRightsOfTheirOrigin();
    void fetchIsDroppedIfTheUserGoesBack();
    void numberOfPagesIsLimited();
    void lettersOfPagesAreLimited_data();
    void lettersOfPagesAreLimited();
    void historyMayEndInASlot();
    void windowMayBeDeletedInASlot();
    void historyIsRemovedAgain();
    void buttonsAreNamedInTheLanguageShown();
    void buttonsAreMirroredFromRightToLeft();

private:
    int stepsBack();
};

/// Goes back as far as possible and returns the number of steps.
int PageHistoryTest::stepsBack()
{
    int steps = 0;
    for (; m_window->isBackwardAvailable(); ++steps)
        back();
    return steps;
}

void PageHistoryTest::nothingIsOfferedAtFirst()
{
    QVERIFY(!m_window->isHistoryEnabled());
    m_window->setHistoryEnabled(false);
    fetch("one");
    fetch("two");
    back();
    m_window->backward();
    QTest::mouseClick(m_window.get(), Qt::BackButton);
    QCOMPARE(text(), QString("two"));
    QVERIFY(!m_window->isBackwardAvailable());
    QVERIFY(!m_window->isForwardAvailable());
    QCOMPARE(childCount(), 1);
}

using Step = std::function<void(PageHistoryTest *, bool isBack)>;
Q_DECLARE_METATYPE(Step)

void PageHistoryTest::goesBackAndForward_data()
{
    QTest::addColumn<Step>("go");
    const auto mouseButton = [](bool isBack) {
        return isBack ? Qt::BackButton : Qt::ForwardButton;
    };
    addRow("keys",
        Step([](PageHistoryTest *test, bool isBack) { isBack ? test->back() : test->forward(); }));
    addRow("keys of a multimedia keyboard", Step([](PageHistoryTest *test, bool isBack) {
        test->press(isBack ? Qt::Key_Back : Qt::Key_Forward);
    }));
    addRow("buttons", Step([](PageHistoryTest *test, bool isBack) {
        test->button(isBack ? "Back" : "Forward")->click();
    }));
    addRow("slots", Step([](PageHistoryTest *test, bool isBack) {
        isBack ? test->m_window->backward() : test->m_window->forward();
    }));
    addRow("mouse above the page", Step([mouseButton](PageHistoryTest *test, bool isBack) {
        QTest::mousePress(test->view()->viewport(), mouseButton(isBack));
    }));
    addRow("mouse elsewhere", Step([mouseButton](PageHistoryTest *test, bool isBack) {
        QTest::mousePress(test->m_window.get(), mouseButton(isBack));
    }));
    addRow("fast mouse", Step([mouseButton](PageHistoryTest *test, bool isBack) {
        QTest::mouseDClick(test->view()->viewport(), mouseButton(isBack));
    }));
}

void PageHistoryTest::goesBackAndForward()
{
    QFETCH(Step, go);
    m_window->setHistoryEnabled(true);
    QVERIFY(m_window->isHistoryEnabled());
    for (const char *word : {"one", "two", "three"})
        fetch(word);
    for (const char *word : {"two", "one", "one"}) { // It ends at the first page.
        go(this, true);
        QCOMPARE(text(), QString(word));
    }
    for (const char *word : {"two", "three", "three"}) {
        go(this, false);
        QCOMPARE(text(), QString(word));
    }
    QCOMPARE(m_server->requests().size(), 3);
}

void PageHistoryTest::reportsWhatIsAvailable()
{
    m_window->setHistoryEnabled(true);
    QSignalSpy changed(m_window.get(), &BrowserWindow::historyChanged);
    const auto available = [this] {
        const QString enabled = QString(button("Back")->isEnabled() ? "back " : "")
            + QString(button("Forward")->isEnabled() ? "forward" : "");
        const QString told = QString(m_window->isBackwardAvailable() ? "back " : "")
            + QString(m_window->isForwardAvailable() ? "forward" : "");
        return enabled == told ? told : "different";
    };
    QCOMPARE(available(), QString());
    fetch("one");
    QCOMPARE(available(), QString());
    fetch("two");
    QCOMPARE(available(), QString("back "));
    fetch("three");
    QCOMPARE(changed.size(), 3);
    back();
    QCOMPARE(changed.size(), 4);
    QCOMPARE(available(), QString("back forward"));
    back();
    QCOMPARE(available(), QString("forward"));
    back();
    QCOMPARE(changed.size(), 5);
}

void PageHistoryTest::keepsThePlaceThatWasRead_data()
{
    QTest::addColumn<bool>("isZoomed");
    addRow("same size", false);
    addRow("zoomed on another page", true);
}

void PageHistoryTest::keepsThePlaceThatWasRead()
{
    QFETCH(bool, isZoomed);
    constexpr int kColumn = 100; // pixels
    QByteArray html = "<pre>" + QByteArray("line 0 ").repeated(200) + "</pre>";
    for (int i = 1; i < 3000; ++i)
        html += "<p>line " + QByteArray::number(i) + "</p>";
    m_window->setHistoryEnabled(true);
    fetch(write("long.html", html), "line 0");
    QTRY_VERIFY(view()->verticalScrollBar()->maximum() > 20000);
    view()->verticalScrollBar()->setValue(20000);
    QTRY_VERIFY(view()->horizontalScrollBar()->maximum() > kColumn);
    view()->horizontalScrollBar()->setValue(kColumn);
    const auto lineAtTop = [this] {
        return view()->cursorForPosition(QPoint(0, 0)).block().text();
    };
    QTRY_VERIFY(lineAtTop() != QString("line 2999")); // The layout comes in steps.
    const QString line = lineAtTop();
    QVERIFY(!line.startsWith("line 0"));
    fetch(write("short.html", "short"), "short");
    if (isZoomed)
        press(Qt::Key_Plus, Qt::ControlModifier);
    back();
    QTRY_COMPARE(lineAtTop(), line);
    if (!isZoomed)
        QCOMPARE(topRow(), 20000);
    QCOMPARE(view()->horizontalScrollBar()->value(), kColumn);
    forward();
    QCOMPARE(topRow(), 0);
}

void PageHistoryTest::anotherPageEndsTheWayForward()
{
    m_window->setHistoryEnabled(true);
    fetch("one");
    fetch("two");
    back();
    fetch("three");
    forward();
    QCOMPARE(text(), QString("three"));
    back();
    QCOMPARE(text(), QString("one"));
}

void PageHistoryTest::linksOfLocalPagesArePartOfIt()
{
    writeLongPage("sub/two.html", "two");
    write("three.html", "three");
    m_window->setHistoryEnabled(true);
    fetch(write("one.html", "one <a href=\"sub/two.html\">x</a>"), "one");
    follow("sub/two.html");
    QVERIFY(text().startsWith("two"));
    follow("#end");
    const int end = topRow();
    QVERIFY(end > 0);
    follow("../three.html");
    QCOMPARE(text(), QString("three"));
    for (const int row : {end, 0}) {
        back();
        QVERIFY(text().startsWith("two"));
        QCOMPARE(topRow(), row);
    }
    back();
    QVERIFY(text().startsWith("one"));
    follow("sub/two.html#end");
    QVERIFY(text().startsWith("two"));
    QCOMPARE(topRow(), end);
}

void PageHistoryTest::linkToTheSamePlaceAddsNothing_data()
{
    QTest::addColumn<QString>("href");
    QTest::addColumn<int>("steps");
    addRow("page", QString("two.html"), 1);
    addRow("anchor", QString("#a"), 2);
    addRow("anchor with its page", QString("two.html#a"), 2);
}

void PageHistoryTest::linkToTheSamePlaceAddsNothing()
{
    QFETCH(QString, href);
    m_window->setHistoryEnabled(true);
    fetch(write("one.html", "one"), "one");
    fetch(write("two.html", "two <a name=\"a\">a</a>"), "two");
    for (int i = 0; i < 3; ++i)
        follow(href);
    QTEST(stepsBack(), "steps");
    QCOMPARE(text(), QString("one"));
}

void PageHistoryTest::deletedPageIsShownAsItWas()
{
    m_window->setHistoryEnabled(true);
    fetch(write("one.html", "one"), "one");
    fetch(write("two.html", "two"), "two");
    QVERIFY(QFile::remove(m_folder->filePath("one.html")));
    back();
    QCOMPARE(text(), QString("one"));
}

void PageHistoryTest::linkToNoPageIsNotFollowed_data()
{
    QTest::addColumn<QString>("href");
    QTest::addColumn<QString>("warning");
    addRow("no such file", QString("missing.html"), QString("Page is missing"));
    addRow("a folder", QString("folder"), QString("Page is missing"));
    addRow("a device", QString("/dev/zero"), QString("Page is missing"));
    addRow("no such resource", QString("qrc:/missing.html"), QString("Page is missing"));
    addRow("over the limits", QString("deep.html"), QString("Page is nested too deeply"));
}

void PageHistoryTest::linkToNoPageIsNotFollowed()
{
    QFETCH(QString, href);
    QFETCH(QString, warning);
    const QUrl first = write("one.html", "one");
    write("folder/two.html", "two");
    write("deep.html", QByteArray("<b>").repeated(2000));
    m_window->setHistoryEnabled(true);
    fetch(first, "one");
    follow(href);
    QCOMPARE(text(), QString("one"));
    QVERIFY(!m_window->isBackwardAvailable());
    QCOMPARE(messages.take(),
        QStringList(warning + " \"" + first.resolved(QUrl(href)).toString() + '"'));
    follow("folder/two.html"); // relative to the page that remained
    QCOMPARE(text(), QString("two"));
}

void PageHistoryTest::failedFetchAddsNothing()
{
    m_window->setHistoryEnabled(true);
    fetch("one");
    m_window->reload(m_server->url("/missing"));
    QTRY_COMPARE(m_server->requestCount("/missing"), 1);
    fetch("two");
    QCOMPARE(stepsBack(), 1);
    QCOMPARE(text(), QString("one"));
}

void PageHistoryTest::pagesKeepTheRightsOfTheirOrigin()
{
    const QString path = m_folder->filePath("red.png");
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(pictureBytes({20, 20}, Qt::red));
    file.close();
    const QByteArray picture = "<img src=\"" + path.toUtf8() + "\">";
    m_window->setHistoryEnabled(true);
    fetch(write("one.html", "one" + picture), "one");
    QCOMPARE(countPixels(m_window.get(), Qt::red), 400);
    m_server->setAnswer("/two", page("<html>two" + picture + "</html>"));
    fetch(m_server->url("/two"), "two");
    QCOMPARE(countPixels(m_window.get(), Qt::red), 0);
    back();
    QCOMPARE(countPixels(m_window.get(), Qt::red), 400);
    forward();
    QVERIFY(text().startsWith("two"));
    QCOMPARE(countPixels(m_window.get(), Qt::red), 0);
    const QString link = QUrl::fromLocalFile(m_folder->filePath("one.html")).toString();
    follow(link);
    QVERIFY(text().startsWith("two"));
    QCOMPARE(messages.take(), QStringList("Link is not opened \"" + link + '"'));
}

void PageHistoryTest::fetchIsDroppedIfTheUserGoesBack()
{
    m_window->setHistoryEnabled(true);
    fetch("one");
    fetch("two");
    m_server->setAnswer("/three", page("<html>three</html>"));
    m_window->reload(m_server->url("/three"));
    m_window->backward(); // Before the answer arrives: a key press would let events in first.
    QCOMPARE(text(), QString("one"));
    BrowserWindow later; // Its page arrives after the dropped one would have.
    later.reload(m_server->url("/two"));
    QTRY_COMPARE(later.findChild<QTextBrowser *>()->toPlainText(), QString("two"));
    QCOMPARE(text(), QString("one"));
    forward();
    QCOMPARE(text(), QString("two"));
}

void PageHistoryTest::numberOfPagesIsLimited()
{
    m_window->setHistoryEnabled(true);
    fetch(write("page.html", "page"), "page");
    for (int i = 0; i < 60; ++i)
        follow('#' + QString::number(i));
    QCOMPARE(stepsBack(), 49);
}

void PageHistoryTest::lettersOfPagesAreLimited_data()
{
    QTest::addColumn<bool>("isAddress");
    QTest::addColumn<QString>("first");
    addRow("of the pages", false, QString("three"));
    addRow("of the addresses of anchors", true, QString("one"));
}

void PageHistoryTest::lettersOfPagesAreLimited()
{
    QFETCH(bool, isAddress);
    const int count = 5 * 1024 * 1024;
    const QByteArray comment = isAddress ? "" : "<!--" + QByteArray(count, '-') + "-->";
    m_window->setHistoryEnabled(true);
    for (const QByteArray word : {"one", "two", "three", "four", "five"}) {
        if (!isAddress || word == "one")
            fetch(write(word + ".html", word + comment), word);
        else
            follow('#' + word + QString(count, 'x'));
    }
    if (!isAddress)
        follow("#a"); // shares the letters of its page
    QCOMPARE(stepsBack(), isAddress ? 2 : 3);
    QTEST(text(), "first");
}

void PageHistoryTest::historyMayEndInASlot()
{
    m_window->setHistoryEnabled(true);
    fetch(write("one.html", "<title>1</title>one"), "one");
    fetch(write("two.html", "<title>2</title>two"), "two");
    connect(m_window.get(), &QWidget::windowTitleChanged, this,
        [this] { m_window->setHistoryEnabled(false); });
    back();
    QCOMPARE(text(), QString("one"));
    QVERIFY(!button("Back"));
    forward();
    QCOMPARE(text(), QString("one"));
}

void PageHistoryTest::windowMayBeDeletedInASlot()
{
    m_window->setHistoryEnabled(true);
    m_window->setContents({{"One", 0, write("one.html", "<title>1</title>one")}});
    fetch(write("one.html", "<title>1</title>one"), "one");
    fetch(write("two.html", "<title>2</title>two"), "two");
    QToolButton *backButton = button("Back");
    const QPointer<BrowserWindow> window = m_window.release();
    connect(window, &QWidget::windowTitleChanged, window, &QObject::deleteLater);
    backButton->click();
    QTRY_VERIFY(!window);
}

void PageHistoryTest::historyIsRemovedAgain()
{
    m_window->setHistoryEnabled(true);
    m_window->setHistoryEnabled(true);
    QCOMPARE(m_window->findChildren<QToolButton *>().size(), 2);
    fetch("one");
    fetch("two");
    m_window->setHistoryEnabled(false);
    QCOMPARE(childCount(), 1);
    back();
    QTest::mousePress(view()->viewport(), Qt::BackButton);
    QCOMPARE(text(), QString("two"));
    m_window->setHistoryEnabled(true);
    fetch("three");
    fetch("four");
    QCOMPARE(stepsBack(), 1);
    QCOMPARE(text(), QString("three"));
}

void PageHistoryTest::buttonsAreNamedInTheLanguageShown()
{
    m_window->setHistoryEnabled(true);
    QVERIFY(button("Back") && button("Forward"));
    const QMap<QString, QString> english = ComponentStrings::getInstance().strings();
    QMap<QString, QString> texts = english;
    texts["help_back"] = "Zurück";
    ComponentStrings::getInstance().changeStrings(texts);
    QTRY_VERIFY(button("Zurück"));
    ComponentStrings::getInstance().changeStrings(english);
    QTRY_VERIFY(button("Back"));
}

void PageHistoryTest::buttonsAreMirroredFromRightToLeft()
{
    m_window->setHistoryEnabled(true);
    for (const char *word : {"one", "two", "three"})
        fetch(word);
    back(); // so that both buttons are enabled
    const auto picture = [this](const char *name) {
        return button(name)->icon().pixmap(16, 16).toImage();
    };
    const auto left = [this](const char *name) {
        return button(name)->mapTo(m_window.get(), QPoint()).x();
    };
    const QImage backward = picture("Back");
    QVERIFY(backward != picture("Forward"));
    QVERIFY(left("Back") < left("Forward"));
    m_window->setLayoutDirection(Qt::RightToLeft);
    QTRY_VERIFY(left("Back") > left("Forward"));
    QCOMPARE(picture("Forward"), backward);
}

VEMO_TEST_MAIN(PageHistoryTest)
#include "tst_pagehistory.moc"
