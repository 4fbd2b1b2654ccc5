// SPDX-License-Identifier: MIT
// The Close item of real windows, on every road that greys and restores it.
#include "sheets/anysheet.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <QTimer>

#include <memory>

#include <windows.h>

namespace {

bool isGreyed(const QWidget &window)
{
    const HMENU menu = GetSystemMenu(reinterpret_cast<HWND>(window.winId()), FALSE);
    const UINT state = GetMenuState(menu, SC_CLOSE, MF_BYCOMMAND);
    if (state == UINT(-1))
        QTest::qFail("The window has no Close item", __FILE__, __LINE__);
    return state & (MF_GRAYED | MF_DISABLED);
}

struct Window : QWidget
{
    Window()
    {
        resize(500, 400);
        show();
    }
};

} // namespace

class WindowsCloseItemTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void isGreyedWhileASheetRuns_data() { kinds(); }
    void isGreyedWhileASheetRuns();
    void isLeftAloneWhereAskedFor_data() { kinds(); }
    void isLeftAloneWhereAskedFor();
    void comesBackThoughTheFlagChanged_data() { kinds(); }
    void comesBackThoughTheFlagChanged();
    void isGreyedByShowSheetForContentAlone_data() { kinds(); }
    void isGreyedByShowSheetForContentAlone();
    void comesBackWhenTheSheetIsDeleted_data() { kinds(); }
    void comesBackWhenTheSheetIsDeleted();
    void comesBackWhenTheApplicationQuits_data() { kinds(); }
    void comesBackWhenTheApplicationQuits();
    void staysGreyedWhileASecondSheetIsOpen();
    void isThatOfTheSheetsWindowAlone();
    void keepsTheWindowOpenAndClosesItAgain();

private:
    static void kinds();
};

void WindowsCloseItemTest::kinds()
{
    QTest::addColumn<QString>("kind");
    for (const char *kind : {"message", "input", "content", "progress"})
        QTest::newRow(kind) << QString(kind);
}

void WindowsCloseItemTest::isGreyedWhileASheetRuns()
{
    QFETCH(const QString, kind);
    const Window window;
    QVERIFY(!isGreyed(window));
    const AnySheet any(kind, const_cast<Window *>(&window));
    bool wasGreyed = false;
    any.execUntil([&] {
        wasGreyed = isGreyed(window);
        any.done(1);
    });
    QVERIFY(wasGreyed);
    QVERIFY(!isGreyed(window));
}

void WindowsCloseItemTest::isLeftAloneWhereAskedFor()
{
    QFETCH(const QString, kind);
    Window window;
    const AnySheet any(kind, &window);
    any.setBlocking(false);
    bool wasGreyed = true;
    any.execUntil([&] {
        wasGreyed = isGreyed(window);
        any.done(1);
    });
    QVERIFY(!wasGreyed);
}

void WindowsCloseItemTest::comesBackThoughTheFlagChanged()
{
    QFETCH(const QString, kind);
    Window window;
    const AnySheet any(kind, &window);
    any.execUntil([&] {
        any.setBlocking(false);
        any.done(1);
    });
    QVERIFY(!isGreyed(window));
}

void WindowsCloseItemTest::isGreyedByShowSheetForContentAlone()
{
    QFETCH(const QString, kind);
    Window window;
    const AnySheet any(kind, &window);
    any.showSheet();
    QCOMPARE(isGreyed(window), !any.content.isNull());
    any.done(1);
    QVERIFY(!isGreyed(window));
}

void WindowsCloseItemTest::comesBackWhenTheSheetIsDeleted()
{
    QFETCH(const QString, kind);
    Window window;
    const AnySheet any(kind, &window);
    bool wasGreyed = false;
    any.execUntil([&] {
        wasGreyed = isGreyed(window);
        delete any.sheet();
    });
    QVERIFY(wasGreyed);
    QTRY_VERIFY(!isGreyed(window));
}

void WindowsCloseItemTest::comesBackWhenTheApplicationQuits()
{
    QFETCH(const QString, kind);
    Window window;
    const AnySheet any(kind, &window);
    bool wasGreyed = false;
    QTimer::singleShot(0, &window, [&] {
        any.execUntil([&] {
            wasGreyed = isGreyed(window);
            QCoreApplication::quit();
        });
    });
    QCoreApplication::exec();
    QVERIFY(wasGreyed);
    QVERIFY(!isGreyed(window));
}

void WindowsCloseItemTest::staysGreyedWhileASecondSheetIsOpen()
{
    Window window;
    const AnySheet outer("message", &window);
    const AnySheet inner("input", &window);
    bool wasGreyed = false;
    outer.execUntil([&] {
        inner.execUntil([&] {
            wasGreyed = isGreyed(window);
            inner.done(1);
        });
        outer.done(1);
    });
    QVERIFY(wasGreyed);
    QVERIFY(!isGreyed(window));
}

void WindowsCloseItemTest::isThatOfTheSheetsWindowAlone()
{
    Window window;
    Window other;
    const AnySheet any("message", &window);
    any.execUntil([&] {
        QVERIFY(isGreyed(window));
        QVERIFY(!isGreyed(other));
        any.done(1);
    });
}

void WindowsCloseItemTest::keepsTheWindowOpenAndClosesItAgain()
{
    Window window;
    const auto close = [&] {
        SendMessageW(reinterpret_cast<HWND>(window.winId()), WM_SYSCOMMAND, SC_CLOSE, 0);
        QCoreApplication::processEvents();
    };
    const AnySheet any("message", &window);
    any.execUntil([&] {
        close();
        QVERIFY(window.isVisible());
        any.done(1);
    });
    close();
    QTRY_VERIFY(!window.isVisible());
}

VEMO_TEST_MAIN(WindowsCloseItemTest)
#include "tst_windowscloseitem.moc"
