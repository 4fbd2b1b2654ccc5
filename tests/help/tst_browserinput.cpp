// SPDX-License-Identifier: MIT
#include "core/scaling_p.h"
#include "help/helphost.h"
#include "help/testserver.h"
#include "support/activewindow.h"
#include "support/vemotest.h"

#include <vemo/BrowserWindow>

#include <QClipboard>
#include <QDesktopServices>
#include <QScreen>
#include <QScrollBar>
#include <QTextBrowser>
#include <QWheelEvent>

/// User input in the window.
class BrowserInputTest : public VemoTest
{
    Q_OBJECT

public Q_SLOTS:
    void openAddress(const QUrl &url) { m_opened = url; }

private Q_SLOTS:
    void init();
    void cleanup();

    void itOpensAtASensibleSize();
    void aPageThatComesBeforeTheWindowIsShownBeginsAtItsTop();
    void theTitleIsThePagesUnlessTheHostSetOne();
    void escapeCloses();
    void theTextIsCopiedByTheKeyboard();
    void theArrowKeysScrollUntilTheTextCursorIsAskedFor();
    void theKeyboardZooms_data();
    void theKeyboardZooms();
    void theWheelZooms();
    void aLinkIsOpenedByTheKeyboard();

private:
    QTextBrowser *view() const { return m_window->findChild<QTextBrowser *>(); }
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(m_window->windowHandle(), key, modifiers);
    }
    void showPage(const QByteArray &html);

    HelpHost m_host;
    QScopedPointer<TestServer> m_server;
    QScopedPointer<BrowserWindow> m_window;
    QUrl m_opened;
};

void BrowserInputTest::init()
{
    VemoTest::init();
    m_server.reset(new TestServer);
    m_window.reset(new BrowserWindow(nullptr));
}

void BrowserInputTest::cleanup()
{
    m_window.reset();
    m_server.reset();
    VemoTest::cleanup();
}

void BrowserInputTest::showPage(const QByteArray &html)
{
    m_server->setAnswer("/", page(html));
    QSignalSpy changed(view(), SIGNAL(textChanged()));
    m_window->reload(m_server->url());
    QVERIFY(changed.wait());
    QVERIFY(showActive(m_window.data()));
}

void BrowserInputTest::itOpensAtASensibleSize()
{
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    const QSize size = m_window->size();
    QVERIFY(size.width() < screen.width() && size.height() < screen.height());
    QVERIFY(size.width() == scaled(760) || size.width() > screen.width() * 0.85);
    QVERIFY(size.height() == scaled(560) || size.height() > screen.height() * 0.85);
}

void BrowserInputTest::aPageThatComesBeforeTheWindowIsShownBeginsAtItsTop()
{
    showPage(
        "<html><h1>Heading</h1>" + QByteArray("<p>a line of text</p>").repeated(200) + "</html>");
    QVERIFY(view()->verticalScrollBar()->maximum() > 0);
    QCOMPARE(view()->verticalScrollBar()->value(), 0);
}

void BrowserInputTest::theTitleIsThePagesUnlessTheHostSetOne()
{
    showPage("<html><title>First page</title>text</html>");
    QCOMPARE(m_window->windowTitle(), QStringLiteral("First page"));
    showPage("<html><title>Second page</title>text</html>");
    QCOMPARE(m_window->windowTitle(), QStringLiteral("Second page"));
    showPage("<html>no title</html>");
    QCOMPARE(m_window->windowTitle(), QString());
    m_window->setWindowTitle(QStringLiteral("The host's"));
    showPage("<html><title>Third page</title>text</html>");
    QCOMPARE(m_window->windowTitle(), QStringLiteral("The host's"));
}

void BrowserInputTest::escapeCloses()
{
    showPage("<html>text</html>");
    QSignalSpy rejected(m_window.data(), SIGNAL(rejected()));
    press(Qt::Key_Escape);
    QVERIFY(!m_window->isVisible());
    QCOMPARE(rejected.size(), 1);
}

void BrowserInputTest::theTextIsCopiedByTheKeyboard()
{
    showPage("<html>some text</html>");
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("some text"));
    QVERIFY(view()->isReadOnly());
    press(Qt::Key_X);
    QCOMPARE(view()->toPlainText(), QStringLiteral("some text"));
}

void BrowserInputTest::theArrowKeysScrollUntilTheTextCursorIsAskedFor()
{
    showPage("<html>" + QByteArray("<p>a line of text</p>").repeated(200) + "</html>");
    press(Qt::Key_Down);
    QVERIFY(view()->verticalScrollBar()->value() > 0);
    press(Qt::Key_F7);
    press(Qt::Key_Right, Qt::ShiftModifier);
    press(Qt::Key_Right, Qt::ShiftModifier);
    QCOMPARE(view()->textCursor().selectedText(), QStringLiteral("a "));
    press(Qt::Key_F7);
    const int before = view()->verticalScrollBar()->value();
    press(Qt::Key_Down);
    QVERIFY(view()->verticalScrollBar()->value() > before);
}

void BrowserInputTest::theKeyboardZooms_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<int>("direction");
    QTest::newRow("plus") << Qt::Key_Plus << 1;
    QTest::newRow("equals sign, the plus key of many keyboards") << Qt::Key_Equal << 1;
    QTest::newRow("minus") << Qt::Key_Minus << -1;
}

void BrowserInputTest::theKeyboardZooms()
{
    QFETCH(const Qt::Key, key);
    QFETCH(const int, direction);
    showPage("<html>text</html>");
    const qreal before = view()->font().pointSizeF();
    press(key, Qt::ControlModifier);
    QCOMPARE(view()->font().pointSizeF(), before + direction);
    press(key, Qt::ControlModifier);
    press(Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(view()->font().pointSizeF(), before);
    QCOMPARE(view()->document()->defaultFont().pointSizeF(), before);
}

void BrowserInputTest::theWheelZooms()
{
    showPage("<html>text</html>");
    const qreal before = view()->font().pointSizeF();
    const QPointF place(20, 20);
    QWheelEvent wheel(place, view()->viewport()->mapToGlobal(place.toPoint()), {}, {0, 120},
        Qt::NoButton, Qt::ControlModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(view()->viewport(), &wheel);
    QCOMPARE(view()->font().pointSizeF(), before + 1);
}

void BrowserInputTest::aLinkIsOpenedByTheKeyboard()
{
    QDesktopServices::setUrlHandler(QStringLiteral("https"), this, "openAddress");
    showPage("<html>text <a href=\"https://vemo.invalid/\">a link</a></html>");
    press(Qt::Key_Tab);
    press(Qt::Key_Return);
    QCOMPARE(m_opened, QUrl(QStringLiteral("https://vemo.invalid/")));
    QVERIFY(m_window->isVisible());
    QDesktopServices::unsetUrlHandler(QStringLiteral("https"));
}

VEMO_TEST_MAIN(BrowserInputTest)
#include "tst_browserinput.moc"
