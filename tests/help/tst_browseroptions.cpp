// SPDX-License-Identifier: MIT
// What a window offers on request: finding in the page, printing, a zoom that is kept. All of it is
// off at first.
#include "help/helphost.h"
#include "help/navigationtest.h"
#include "support/activewindow.h"
#include "support/testhost.h"

#include <vemo/ComponentStrings>

#include <QAction>
#include <QBuffer>
#include <QLabel>
#include <QLineEdit>
#include <QPdfWriter>
#include <QScrollBar>
#include <QTextDocument>

class BrowserOptionsTest : public NavigationTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void init() { NavigationTest::init(); }
    void cleanup() { NavigationTest::cleanup(); }

    void nothingIsOfferedAtFirst();
    void findsWhileTyping();
    void findsATextInThePage_data();
    void findsATextInThePage();
    void keysFindTheNextMatch_data();
    void keysFindTheNextMatch();
    void f3OpensAnEmptyBar();
    void buttonsFindTheNextMatch();
    void escapeClosesTheBarBeforeTheWindow_data();
    void escapeClosesTheBarBeforeTheWindow();
    void selectedTextIsSearched_data();
    void selectedTextIsSearched();
    void matchIsScrolledIntoView();
    void anotherPageForgetsTheMatch();
    void barIsNamedInTheLanguageShown();
    void barIsMirroredFromRightToLeft();
    void losesItsBarAgain();
    void longPageIsSearched();
    void frameShowsTheFocus();
    void printingIsLeftToTheHost();
    void zoomIsForgottenAtFirst();
    void zoomIsKeptForTheNextWindow_data();
    void zoomIsKeptForTheNextWindow();
    void keptZoomIsLimited();

private:
    QLineEdit *field() const { return m_window->findChild<QLineEdit *>(); }
    QString result() const { return m_window->findChild<QLabel *>()->text(); }
    QString match() const { return view()->textCursor().selectedText(); }
    void type(const QString &text)
    {
        for (const QChar letter : text)
            QTest::keyClick(m_window->windowHandle(), letter.toLatin1());
    }
    void showPage(const QByteArray &html);
    void openBar(const QByteArray &html);
    void zoom(int steps);
    qreal size() const { return view()->font().pointSizeF(); }
};

void BrowserOptionsTest::showPage(const QByteArray &html)
{
    m_server->setAnswer("/", page("<html>" + html + "</html>"));
    QSignalSpy changed(view(), SIGNAL(textChanged()));
    m_window->reload(m_server->url());
    QVERIFY(changed.wait());
    showWindow();
}

void BrowserOptionsTest::openBar(const QByteArray &html)
{
    m_window->setFindEnabled(true);
    showPage(html);
    press(Qt::Key_F, Qt::ControlModifier);
    QVERIFY(field()->isVisible());
    QVERIFY(field()->hasFocus());
}

void BrowserOptionsTest::nothingIsOfferedAtFirst()
{
    const QSignalSpy prints(m_window.get(), &BrowserWindow::printRequested);
    QVERIFY(!m_window->isFindEnabled());
    QVERIFY(!m_window->isPrintingEnabled());
    showPage("some text");
    press(Qt::Key_F, Qt::ControlModifier);
    press(Qt::Key_F3);
    press(Qt::Key_P, Qt::ControlModifier);
    QVERIFY(!field());
    QCOMPARE(prints.size(), 0);
    QCOMPARE(childCount(), 1);
}

void BrowserOptionsTest::findsWhileTyping()
{
    openBar("<p>A man, a plan, a canal</p>");
    type("an");
    QCOMPARE(match(), QString("an"));
    QCOMPARE(view()->textCursor().selectionStart(), 3);
    QCOMPARE(result(), QString("1 of 3"));
    QCOMPARE(field()->accessibleDescription(), QString("1 of 3"));
    type("al");
    QCOMPARE(match(), QString("anal"));
    QCOMPARE(result(), QString("1 of 1"));
    type("x");
    QCOMPARE(result(), QString("Not found"));
    QCOMPARE(field()->property("error"), QVariant(true));
    press(Qt::Key_Backspace);
    QCOMPARE(field()->property("error"), QVariant(false));
    field()->selectAll();
    press(Qt::Key_Delete);
    QCOMPARE(result(), QString());
    QVERIFY(view()->extraSelections().isEmpty());
}

void BrowserOptionsTest::findsATextInThePage_data()
{
    QTest::addColumn<QByteArray>("html");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("found");
    addRow("other case", QByteArray("<p>Backup BACKUP</p>"), QString("backup"), QString("1 of 2"));
    addRow("no-break space", QByteArray("<p>10&nbsp;files</p>"), QString("10 files"),
        QString("1 of 1"));
    addRow("across tags", QByteArray("<p>b<b>ac</b>k</p>"), QString("back"), QString("1 of 1"));
    addRow("cells", QByteArray("<table><tr><td>one</td><td>one</td></tr></table>"), QString("one"),
        QString("1 of 2"));
    addRow("not across paragraphs", QByteArray("<p>ab</p><p>cd</p>"), QString("bc"),
        QString("Not found"));
    addRow("without overlap", QByteArray("<p>aaaa</p>"), QString("aa"), QString("1 of 2"));
    addRow("not a pattern", QByteArray("<p>a.c abc</p>"), QString("a.c"), QString("1 of 1"));
    addRow("empty page", QByteArray("<p></p>"), QString("a"), QString("Not found"));
}

void BrowserOptionsTest::findsATextInThePage()
{
    QFETCH(QByteArray, html);
    QFETCH(QString, text);
    openBar(html);
    type(text);
    QTEST(result(), "found");
}

void BrowserOptionsTest::keysFindTheNextMatch_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("step");
    QTest::newRow("Return") << Qt::Key_Return << 1;
    QTest::newRow("F3") << Qt::Key_F3 << 1;
    QTest::newRow("Shift+Return") << Qt::Key_Return << -1;
    QTest::newRow("Shift+F3") << Qt::Key_F3 << -1;
}

void BrowserOptionsTest::keysFindTheNextMatch()
{
    QFETCH(Qt::Key, key);
    QFETCH(int, step);
    openBar("<p>one one one</p>");
    type("one");
    int expected = 0;
    for (int i = 0; i < 4; ++i) {
        press(key, step < 0 ? Qt::ShiftModifier : Qt::NoModifier);
        expected = (expected + step + 3) % 3; // goes round
        QCOMPARE(view()->textCursor().selectionStart(), 4 * expected);
        QCOMPARE(result(), QString("%1 of 3").arg(expected + 1));
    }
    QVERIFY(m_window->isVisible());
}

void BrowserOptionsTest::f3OpensAnEmptyBar()
{
    m_window->setFindEnabled(true);
    showPage("<p>one one one</p>");
    press(Qt::Key_F3);
    QVERIFY(field()->isVisible());
    type("one");
    press(Qt::Key_Escape);
    QVERIFY(!field()->isVisible());
    press(Qt::Key_F3); // finds on without the bar
    QCOMPARE(view()->textCursor().selectionStart(), 4);
    QVERIFY(!field()->isVisible());
    QVERIFY(view()->extraSelections().isEmpty());
}

void BrowserOptionsTest::buttonsFindTheNextMatch()
{
    openBar("<p>one one one</p>");
    type("one");
    button("Find next")->click();
    QCOMPARE(result(), QString("2 of 3"));
    button("Find previous")->click();
    QCOMPARE(result(), QString("1 of 3"));
    QVERIFY(field()->hasFocus());
    button("Close")->click();
    QVERIFY(!field()->isVisible());
    QVERIFY(view()->hasFocus());
    QCOMPARE(match(), QString("one"));
}

void BrowserOptionsTest::escapeClosesTheBarBeforeTheWindow_data()
{
    QTest::addColumn<bool>("isInPage");
    QTest::newRow("in the bar") << false;
    QTest::newRow("in the page") << true;
}

void BrowserOptionsTest::escapeClosesTheBarBeforeTheWindow()
{
    QFETCH(bool, isInPage);
    openBar("<p>one</p>");
    if (isInPage)
        view()->setFocus();
    press(Qt::Key_Escape);
    QVERIFY(!field()->isVisible());
    QVERIFY(m_window->isVisible());
    press(Qt::Key_Escape);
    QVERIFY(!m_window->isVisible());
}

void BrowserOptionsTest::selectedTextIsSearched_data()
{
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("text");
    addRow("a word", 3, QString("one"));
    addRow("two paragraphs", 7, QString());
}

void BrowserOptionsTest::selectedTextIsSearched()
{
    QFETCH(int, length);
    m_window->setFindEnabled(true);
    showPage("<p>one</p><p>one</p>");
    QTextCursor selection = view()->textCursor();
    selection.setPosition(length, QTextCursor::KeepAnchor);
    view()->setTextCursor(selection);
    press(Qt::Key_F, Qt::ControlModifier);
    QTEST(field()->text(), "text");
}

void BrowserOptionsTest::matchIsScrolledIntoView()
{
    openBar(QByteArray("<p>a line of text</p>").repeated(300) + "<p>the end</p>");
    type("the end");
    QTRY_VERIFY(view()->verticalScrollBar()->value() > 0);
    QVERIFY(view()->viewport()->rect().contains(view()->cursorRect()));
    const auto marks = view()->extraSelections();
    QCOMPARE(marks.size(), 1);
    QCOMPARE(marks[0].cursor.selectedText(), QString("the end"));
    QCOMPARE(marks[0].format.background().color(),
        view()->palette().color(QPalette::Active, QPalette::Highlight));
}

void BrowserOptionsTest::anotherPageForgetsTheMatch()
{
    openBar("<p>one</p>");
    type("one");
    QCOMPARE(result(), QString("1 of 1"));
    showPage("<p>two, one, one</p>");
    QCOMPARE(result(), QString());
    QVERIFY(view()->extraSelections().isEmpty());
    QCOMPARE(field()->text(), QString("one"));
    press(Qt::Key_F3);
    QCOMPARE(result(), QString("1 of 2"));
}

void BrowserOptionsTest::barIsNamedInTheLanguageShown()
{
    openBar("<p>one</p>");
    QCOMPARE(field()->accessibleName(), QString("Find in page"));
    const QMap<QString, QString> english = ComponentStrings::getInstance().strings();
    QMap<QString, QString> texts = english;
    texts["find_in_page"] = "Suchen";
    texts["find_next"] = "Weiter";
    ComponentStrings::getInstance().changeStrings(texts);
    QTRY_COMPARE(field()->accessibleName(), QString("Suchen"));
    QCOMPARE(field()->toolTip(), QString("Suchen"));
    QVERIFY(button("Weiter"));
    ComponentStrings::getInstance().changeStrings(english);
    QTRY_COMPARE(field()->accessibleName(), QString("Find in page"));
}

void BrowserOptionsTest::barIsMirroredFromRightToLeft()
{
    openBar("<p>one</p>");
    QVERIFY(field()->x() < button("Close")->x());
    m_window->setLayoutDirection(Qt::RightToLeft);
    QTRY_VERIFY(field()->x() > button("Close")->x());
}

void BrowserOptionsTest::losesItsBarAgain()
{
    openBar("<p>one</p>");
    m_window->setFindEnabled(true);
    QCOMPARE(m_window->findChildren<QLineEdit *>().size(), 1);
    m_window->setFindEnabled(false);
    QVERIFY(!field());
    press(Qt::Key_F, Qt::ControlModifier);
    QVERIFY(!field());
    press(Qt::Key_Escape);
    QVERIFY(!m_window->isVisible());
}

void BrowserOptionsTest::longPageIsSearched()
{
    const QByteArray words = QByteArray("many words in a paragraph ").repeated(20);
    openBar(QByteArray("<p>" + words + "</p>").repeated(1000));
    type("a");
    QCOMPARE(result(), QString("1 of 100,000"));
    press(Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(result(), QString("100,000 of 100,000"));
    QTRY_VERIFY(view()->viewport()->rect().contains(view()->cursorRect()));
}

void BrowserOptionsTest::frameShowsTheFocus()
{
    QVERIFY(showActive(m_window.get()));
    view()->setFocus();
    QTRY_VERIFY(view()->hasFocus());
    const QPoint frame(0, view()->height() / 2);
    const auto colour = [this, frame] { return pixelAt(view(), frame); };
    QTRY_COMPARE(colour(), QColor("#1769e0"));
    view()->clearFocus();
    QTRY_COMPARE(colour(), QColor("#c8d2dc"));
}

void BrowserOptionsTest::printingIsLeftToTheHost()
{
    m_window->setPrintingEnabled(true);
    m_window->setPrintingEnabled(true);
    QVERIFY(m_window->isPrintingEnabled());
    showPage("<p>some text <img src=\"data:image/png;base64,"
        + pictureBytes({8, 8}, Qt::red).toBase64() + "\"></p>");
    QSignalSpy prints(m_window.get(), &BrowserWindow::printRequested);
    press(Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(prints.size(), 1);
    const auto *document = prints[0][0].value<QTextDocument *>();
    QCOMPARE(document, view()->document());
    // As a host prints it, with its pictures.
    QBuffer file;
    file.open(QIODevice::WriteOnly);
    {
        QPdfWriter printer(&file);
        document->print(&printer);
    }
    QVERIFY(file.data().startsWith("%PDF"));
    QCOMPARE(file.data().count("/Subtype /Image"), 1);
    m_window->setPrintingEnabled(false);
    press(Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(prints.size(), 1);
}

void BrowserOptionsTest::zoom(int steps)
{
    for (int i = 0; i < qAbs(steps); ++i)
        press(steps > 0 ? Qt::Key_Plus : Qt::Key_Minus, Qt::ControlModifier);
}

void BrowserOptionsTest::zoomIsForgottenAtFirst()
{
    QVERIFY(!BrowserWindow::isZoomKept());
    const qreal original = size();
    showPage("<p>text</p>");
    zoom(2);
    QCOMPARE(size(), original + 2);
    m_window.reset(new BrowserWindow);
    QCOMPARE(size(), original);
}

void BrowserOptionsTest::zoomIsKeptForTheNextWindow_data()
{
    QTest::addColumn<int>("steps");
    QTest::newRow("larger") << 3;
    QTest::newRow("smaller") << -2;
}

void BrowserOptionsTest::zoomIsKeptForTheNextWindow()
{
    QFETCH(int, steps);
    const qreal original = size();
    BrowserWindow::setZoomKept(true);
    QVERIFY(BrowserWindow::isZoomKept());
    m_window.reset(new BrowserWindow);
    QCOMPARE(size(), original);
    showPage("<p>text</p>");
    zoom(steps);
    QCOMPARE(size(), original + steps);
    showPage("<p>another page</p>");
    QCOMPARE(size(), original + steps);
    m_window.reset(new BrowserWindow);
    QCOMPARE(size(), original + steps);
    QCOMPARE(view()->document()->defaultFont().pointSizeF(), original + steps);
    showPage("<p>text</p>");
    press(Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(size(), original);
    m_window.reset(new BrowserWindow);
    QCOMPARE(size(), original);
    BrowserWindow::setZoomKept(false);
}

void BrowserOptionsTest::keptZoomIsLimited()
{
    const qreal original = size();
    BrowserWindow::setZoomKept(true);
    m_window.reset(new BrowserWindow);
    showPage("<p>text</p>");
    zoom(60);
    QCOMPARE(size(), 3 * original);
    press(Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(size(), original);
    zoom(-60);
    QCOMPARE(size(), original / 2);
    QCOMPARE(view()->document()->defaultFont().pointSizeF(), original / 2);
    press(Qt::Key_0, Qt::ControlModifier);
    BrowserWindow::setZoomKept(false);
}

VEMO_TEST_MAIN(BrowserOptionsTest)
#include "tst_browseroptions.moc"
