// SPDX-License-Identifier: MIT
// A date can be selected with the keyboard alone, starting with the initial focus.
#include "core/scaling_p.h"
#include "datetime/calendar.h"
#include "support/activewindow.h"
#include "support/realkeys.h"
#include "support/testhost.h"

#include <vemo/vemodateselector.h>

#include <QLineEdit>

namespace {

const QDate kStart(2024, 3, 14); // A Thursday.

struct Form
{
    Form()
    {
        window.resize(scaled(420), scaled(420));
        window.move(100, 60);
        other.move(0, scaled(380));
        field->move(scaled(10), scaled(10));
        view->setGeometry(scaled(10), scaled(60), scaled(280), scaled(260));
        for (const VemoCalanderView *calendar : {view, field->getCalendarView()})
            Parts(calendar).calendar->setSelectedDate(kStart);
        isActive = showActive(&window);
    }

    QWidget window;
    VemoDateSelector *field = new VemoDateSelector("Any date", &window);
    VemoCalanderView *view = new VemoCalanderView(&window);
    QLineEdit other {&window};
    bool isActive = false;
};

} // namespace

class DateByKeyboardTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void aFieldTakesTheDayThatTheKeysLeadTo_data();
    void aFieldTakesTheDayThatTheKeysLeadTo();
    void aFieldTakesTheDayOfItsGrid();
    void aFieldKeepsItsDateOnEscape();
    void aCalendarIsSteeredFromItsView_data() { aFieldTakesTheDayThatTheKeysLeadTo_data(); }
    void aCalendarIsSteeredFromItsView();
    void horizontalArrowsFollowTheDirection();
    void keysOfThePartsPickNothing_data();
    void keysOfThePartsPickNothing();
    void keysBeyondTheRangeStayInIt();
};

void DateByKeyboardTest::aFieldTakesTheDayThatTheKeysLeadTo_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QDate>("date");
    QTest::newRow("Right") << Qt::Key_Right << QDate(2024, 3, 15);
    QTest::newRow("Left") << Qt::Key_Left << QDate(2024, 3, 13);
    QTest::newRow("Up") << Qt::Key_Up << QDate(2024, 3, 7);
    QTest::newRow("Down") << Qt::Key_Down << QDate(2024, 3, 21);
    QTest::newRow("Page Up") << Qt::Key_PageUp << QDate(2024, 2, 14);
    QTest::newRow("Page Down") << Qt::Key_PageDown << QDate(2024, 4, 14);
    QTest::newRow("Home") << Qt::Key_Home << QDate(2024, 3, 1);
    QTest::newRow("End") << Qt::Key_End << QDate(2024, 3, 31);
}

void DateByKeyboardTest::aFieldTakesTheDayThatTheKeysLeadTo()
{
    QFETCH(Qt::Key, key);
    QFETCH(QDate, date);
    const Form form;
    QVERIFY(form.isActive);
    const QSignalSpy picks(form.field->getCalendarView(), SIGNAL(sigDateSelect(QDate)));
    const Parts parts(form.field->view());
    form.field->setFocus();
    pressRealKey(Qt::Key_F4);
    QTRY_VERIFY(form.field->view()->hasFocus());
    QVERIFY(QTest::qWaitForWindowExposed(form.field->view()->window()));
    pressRealKey(key);
    QTRY_COMPARE(parts.calendar->selectedDate(), date);
    QVERIFY(form.field->view()->hasFocus());
    QCOMPARE(picks.size(), 0);
    pressRealKey(Qt::Key_Return);
    QTRY_COMPARE(form.field->date(), date);
    QCOMPARE(form.field->currentText(), date.toString(Qt::ISODate));
    QCOMPARE(picks.size(), 1);
    QVERIFY(!form.field->view()->isVisible());
    QTRY_VERIFY(form.field->hasFocus());
}

void DateByKeyboardTest::aFieldTakesTheDayOfItsGrid()
{
    const Form form;
    QVERIFY(form.isActive);
    const QSignalSpy picks(form.field->getCalendarView(), SIGNAL(sigDateSelect(QDate)));
    const Parts parts(form.field->view());
    form.field->setFocus();
    pressRealKey(Qt::Key_F4);
    QTRY_VERIFY(form.field->view()->hasFocus());
    QVERIFY(QTest::qWaitForWindowExposed(form.field->view()->window()));
    parts.grid->setFocus();
    pressRealKey(Qt::Key_Down);
    QTRY_COMPARE(parts.calendar->selectedDate(), kStart.addDays(7));
    pressRealKey(Qt::Key_Enter);
    QTRY_COMPARE(form.field->date(), kStart.addDays(7));
    QCOMPARE(picks.size(), 1);
    QVERIFY(!form.field->view()->isVisible());
}

void DateByKeyboardTest::aFieldKeepsItsDateOnEscape()
{
    const Form form;
    QVERIFY(form.isActive);
    form.field->setDate(kStart);
    form.field->setFocus();
    pressRealKey(Qt::Key_Down, Qt::AltModifier);
    QTRY_VERIFY(form.field->view()->hasFocus());
    QVERIFY(QTest::qWaitForWindowExposed(form.field->view()->window()));
    pressRealKey(Qt::Key_Right);
    QTRY_COMPARE(Parts(form.field->view()).calendar->selectedDate(), kStart.addDays(1));
    pressRealKey(Qt::Key_Escape);
    QTRY_VERIFY(!form.field->view()->isVisible());
    QCOMPARE(form.field->date(), kStart);
}

void DateByKeyboardTest::aCalendarIsSteeredFromItsView()
{
    QFETCH(Qt::Key, key);
    QFETCH(QDate, date);
    const Form form;
    QVERIFY(form.isActive);
    const QSignalSpy picks(form.view, SIGNAL(sigDateSelect(QDate)));
    form.view->setFocus();
    pressRealKey(key);
    QTRY_COMPARE(form.view->selectedDate(), date);
    QCOMPARE(picks.size(), 0);
    pressRealKey(date.day() == 1 ? Qt::Key_Enter : Qt::Key_Return);
    QTRY_COMPARE(picks.size(), 1);
    QCOMPARE(picks[0][0].toDate(), date);
    QVERIFY(form.view->hasFocus());
}

void DateByKeyboardTest::horizontalArrowsFollowTheDirection()
{
    Form form;
    QVERIFY(form.isActive);
    form.window.setLayoutDirection(Qt::RightToLeft);
    form.view->setFocus();
    pressRealKey(Qt::Key_Left);
    QTRY_COMPARE(form.view->selectedDate(), kStart.addDays(1));
}

// For example, Return on an arrow must not select the current day.
void DateByKeyboardTest::keysOfThePartsPickNothing_data()
{
    QTest::addColumn<QString>("part");
    QTest::newRow("previous month") << "qt_calendar_prevmonth";
    QTest::newRow("month") << "qt_calendar_monthbutton";
    QTest::newRow("year") << "qt_calendar_yearbutton";
    QTest::newRow("today") << "qt_calendar_today_button";
}

void DateByKeyboardTest::keysOfThePartsPickNothing()
{
    QFETCH(QString, part);
    const Form form;
    QVERIFY(form.isActive);
    const QSignalSpy picks(form.view, SIGNAL(sigDateSelect(QDate)));
    form.view->findChild<QWidget *>(part)->setFocus();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_PageDown, Qt::Key_Home}) {
        QTest::keyClick(form.window.windowHandle(), key);
        QCOMPARE(picks.size(), 0);
        QCOMPARE(form.view->selectedDate(), kStart);
    }
}

void DateByKeyboardTest::keysBeyondTheRangeStayInIt()
{
    const Form form;
    QVERIFY(form.isActive);
    form.view->setMaximumDate(kStart.addDays(2));
    form.view->setFocus();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_PageDown, Qt::Key_End})
        QTest::keyClick(form.window.windowHandle(), key);
    QCOMPARE(form.view->selectedDate(), kStart.addDays(2));
}

VEMO_TEST_MAIN(DateByKeyboardTest)
#include "tst_datebykeyboard.moc"
