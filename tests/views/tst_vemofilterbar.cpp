// SPDX-License-Identifier: MIT
#include <vemo/vemofilterbar.h>

#include "core/scaling_p.h"
#include "support/activewindow.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/imagemanager.h>
#include <vemo/stylemanager.h>
#include <vemo/vemoiconbutton.h>

#include <QGuiApplication>
#include <QMenu>
#include <QScreen>
#include <QTimer>

namespace {

struct Filter
{
    Filter()
    {
        bar.resize(scaled(300), bar.height());
        bar.show();
    }
    VemoIconButton *button() const { return bar.findChild<VemoIconButton *>(); }

    /// The button as the user sees it. If grabbed on its own, its background is the window colour
    /// of its palette, which Qt takes from the style sheet's ":open" rule while the window is
    /// active.
    QImage buttonOnScreen() { return bar.grab(button()->geometry()).toImage(); }

    VemoFilterBar bar;
    QSignalSpy keywords {&bar, SIGNAL(sigKeywordChanged(QString))};
};

} // namespace

class VemoFilterBarTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void setsUpItsButton();
    void joinsTwoStyles();
    void keepsTheTextClearOfTheButton();
    void movesItsButtonRightToLeft();
    void keepsSilentWhileTyping();
    void handsOnTheWholeTextOnReturn_data();
    void handsOnTheWholeTextOnReturn();
    void handsOnTheSameTextAgain();
    void swallowsDownWithoutAMenu();
    void opensItsMenuOnDown();
    void opensItsMenuOnPress();
    void leavesTheMenuToItsOwner();
    void namesItsButtonForAScreenReader_data();
    void namesItsButtonForAScreenReader();
    void forgetsAMenu();
    void passesOtherKeysOn();
    void survivesItsDeletionUnderTheOpenMenu_data();
    void survivesItsDeletionUnderTheOpenMenu();
};

void VemoFilterBarTest::setsUpItsButton()
{
    const Filter filter;
    const VemoIconButton *button = filter.button();
    QCOMPARE(button->geometry(), QRect(scaled(4), scaled(2), scaled(34), scaled(24)));
    QCOMPARE(button->minimumSize(), button->maximumSize());
    QCOMPARE(button->focusPolicy(), Qt::NoFocus);
    QCOMPARE(button->cursor().shape(), Qt::ArrowCursor);
    QCOMPARE(button->styleSheet(), getStyleSheet("component.filter_search_button"));
    const QPixmap expected = getGlobalImage("bt_search_dropdown");
    QCOMPARE(button->icon().pixmap(expected.size() / expected.devicePixelRatio()).toImage(),
        expected.toImage());
}

void VemoFilterBarTest::joinsTwoStyles()
{
    const Filter filter;
    QCOMPARE(filter.bar.styleSheet(),
        getStyleSheet("component.lineedit") + getStyleSheet("component.filter_bar_padding"));
    QCOMPARE(filter.bar.minimumHeight(), scaled(28));
    QCOMPARE(filter.bar.maximumHeight(), scaled(28));
    QVERIFY(!filter.bar.testAttribute(Qt::WA_MacShowFocusRect));
}

void VemoFilterBarTest::keepsTheTextClearOfTheButton()
{
    Filter filter;
    filter.bar.setText("keyword");
    for (const bool focused : {false, true}) {
        if (focused)
            filter.bar.setFocus();
        filter.bar.setCursorPosition(0);
        const QRect cursor = filter.bar.inputMethodQuery(Qt::ImCursorRectangle).toRect();
        QVERIFY(cursor.center().x() > filter.button()->geometry().right());
    }
}

void VemoFilterBarTest::movesItsButtonRightToLeft()
{
    QWidget window;
    VemoFilterBar bar(&window);
    const auto *button = bar.findChild<VemoIconButton *>();
    QCOMPARE(button->pos(), QPoint(scaled(4), scaled(2)));
    bar.resize(scaled(200), bar.height());
    window.resize(scaled(400), scaled(100));
    window.show();
    bar.setText("report");
    for (const auto direction : {Qt::RightToLeft, Qt::LeftToRight, Qt::RightToLeft}) {
        window.setLayoutDirection(direction);
        bar.resize(bar.width() + scaled(10), bar.height());
        const int left =
            direction == Qt::LeftToRight ? scaled(4) : bar.width() - scaled(4) - button->width();
        QTRY_COMPARE(button->geometry(), QRect(left, scaled(2), scaled(34), scaled(24)));
        for (const int position : {0, 6}) {
            bar.setCursorPosition(position);
            const QRect cursor = bar.inputMethodQuery(Qt::ImCursorRectangle).toRect();
            QVERIFY(!button->geometry().contains(cursor.center()));
        }
    }
    window.setLayoutDirection(Qt::LeftToRight);
    QTRY_COMPARE(button->x(), scaled(4));
    QCOMPARE(bar.minimumWidth(), 0);
}

void VemoFilterBarTest::keepsSilentWhileTyping()
{
    Filter filter;
    QTest::keyClicks(&filter.bar, "report");
    filter.bar.clear();
    filter.bar.setText("letter");
    QCOMPARE(filter.keywords.size(), 0);
}

void VemoFilterBarTest::handsOnTheWholeTextOnReturn_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("key");
    QTest::newRow("return") << "annual report" << int(Qt::Key_Return);
    QTest::newRow("enter") << "annual report" << int(Qt::Key_Enter);
    QTest::newRow("empty") << "" << int(Qt::Key_Return);
    QTest::newRow("blanks") << "  a " << int(Qt::Key_Return);
    QTest::newRow("Chinese") << QString::fromUtf8("年度报告") << int(Qt::Key_Return);
}

void VemoFilterBarTest::handsOnTheWholeTextOnReturn()
{
    QFETCH(QString, text);
    QFETCH(int, key);
    Filter filter;
    filter.bar.setText(text);
    filter.bar.setCursorPosition(0);
    QTest::keyClick(&filter.bar, Qt::Key(key));
    QCOMPARE(filter.keywords.size(), 1);
    QCOMPARE(filter.keywords.first().first().toString(), text);
}

void VemoFilterBarTest::handsOnTheSameTextAgain()
{
    Filter filter;
    filter.bar.setText("report");
    QTest::keyClick(&filter.bar, Qt::Key_Return);
    QTest::keyClick(&filter.bar, Qt::Key_Return);
    QCOMPARE(filter.keywords.size(), 2);
}

void VemoFilterBarTest::swallowsDownWithoutAMenu()
{
    Filter filter;
    filter.bar.setText("report");
    filter.bar.setCursorPosition(2);
    QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    down.ignore();
    QCoreApplication::sendEvent(&filter.bar, &down);
    QVERIFY(down.isAccepted());
    QCOMPARE(filter.bar.cursorPosition(), 2);
    QCOMPARE(filter.keywords.size(), 0);
}

void VemoFilterBarTest::opensItsMenuOnDown()
{
    Filter filter;
    QVERIFY(showActive(&filter.bar));
    QMenu menu;
    menu.addAction("Documents");
    filter.bar.setMenu(&menu);
    QPoint position;
    QTimer::singleShot(0, &menu, [&] {
        position = menu.pos();
        menu.close();
    });
    QTest::keyClick(&filter.bar, Qt::Key_Down);
    const QPoint below = filter.button()->mapToGlobal(QPoint(0, filter.button()->height()));
    QCOMPARE(position, below);
    QCOMPARE(filter.keywords.size(), 0);
}

void VemoFilterBarTest::opensItsMenuOnPress()
{
    // When a pop-up closes, Qt 6 sends an enter event to the widget under the pointer.
    QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
    Filter filter;
    QVERIFY(showActive(&filter.bar));
    QMenu menu;
    const QAction *action = menu.addAction("Documents");
    const QSignalSpy choices(action, SIGNAL(triggered()));
    filter.bar.setMenu(&menu);
    QImage during;
    QTimer::singleShot(0, &menu, [&menu, &filter, &during] {
        during = filter.buttonOnScreen();
        QTest::keyClick(&menu, Qt::Key_Down);
        QTest::keyClick(&menu, Qt::Key_Return);
    });
    const QImage before = filter.buttonOnScreen();
    QTest::mousePress(filter.button(), Qt::LeftButton);
    QCOMPARE(choices.size(), 1);
    QVERIFY(during != before);
    QCOMPARE(filter.buttonOnScreen(), before);
}

void VemoFilterBarTest::leavesTheMenuToItsOwner()
{
    QMenu menu;
    {
        VemoFilterBar bar;
        bar.setMenu(&menu);
    }
    QVERIFY(!menu.parent());
    menu.addAction("Documents");
    QCOMPARE(menu.actions().size(), 1);
}

void VemoFilterBarTest::namesItsButtonForAScreenReader_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<QString>("placeholder");
    QTest::addColumn<QString>("name");
    addRow("title of the menu", "&Kinds", "Search", "Kinds");
    addRow("menu without a title", "", "Search", "Search");
}

void VemoFilterBarTest::namesItsButtonForAScreenReader()
{
    QFETCH(QString, title);
    QFETCH(QString, placeholder);
    Filter filter;
    filter.bar.setPlaceholderText(placeholder);
    QMenu menu(title);
    filter.bar.setMenu(&menu);
    QTEST(filter.button()->accessibleName(), "name");
}

void VemoFilterBarTest::forgetsAMenu()
{
    Filter filter;
    {
        QMenu menu;
        filter.bar.setMenu(&menu);
    }
    QTest::keyClick(&filter.bar, Qt::Key_Down);
    QMenu other;
    filter.bar.setMenu(&other);
    filter.bar.setMenu(nullptr);
    QTest::keyClick(&filter.bar, Qt::Key_Down);
    QVERIFY(!other.isVisible());
}

void VemoFilterBarTest::passesOtherKeysOn()
{
    Filter filter;
    filter.bar.setText("report");
    QTest::keyClick(&filter.bar, Qt::Key_Home);
    QCOMPARE(filter.bar.cursorPosition(), 0);
    QTest::keyClick(&filter.bar, Qt::Key_Delete);
    QCOMPARE(filter.bar.text(), QString("eport"));
}

void VemoFilterBarTest::survivesItsDeletionUnderTheOpenMenu_data()
{
    QTest::addColumn<bool>("byKey");
    QTest::newRow("opened by key") << true;
    QTest::newRow("opened by press") << false;
}

void VemoFilterBarTest::survivesItsDeletionUnderTheOpenMenu()
{
    QFETCH(bool, byKey);
    auto *bar = new VemoFilterBar;
    QMenu menu;
    menu.addAction("Documents");
    bar->setMenu(&menu);
    bar->show();
    const QPointer<VemoFilterBar> guard(bar);
    QTimer::singleShot(0, qApp, [&] {
        delete bar;
        menu.close();
    });
    if (byKey)
        QTest::keyPress(bar, Qt::Key_Down);
    else
        QTest::mousePress(bar->findChild<VemoIconButton *>(), Qt::LeftButton);
    QVERIFY(!guard);
}

VEMO_TEST_MAIN(VemoFilterBarTest)
#include "tst_vemofilterbar.moc"
