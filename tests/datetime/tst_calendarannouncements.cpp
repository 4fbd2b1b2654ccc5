// SPDX-License-Identifier: MIT
// The announcements for screen readers while a day is selected with the keyboard.
#include "datetime/calendar.h"
#include "support/activewindow.h"
#include "support/testhost.h"

#include <QAccessible>

#include <private/qguiapplication_p.h>
#include <qpa/qplatformaccessibility.h>
#include <qpa/qplatformintegration.h>

namespace {

QStringList announced;

void record(QAccessibleEvent *event)
{
    const QAccessibleInterface *part = event->accessibleInterface();
    if (event->type() == QAccessible::Focus && part)
        announced += part->text(QAccessible::Name);
    else if (event->type() == QAccessible::DescriptionChanged && part)
        announced += part->text(QAccessible::Description);
}

/// A calendar in an active window.
struct ShownCalendar
{
    ShownCalendar()
    {
        view.setSelectedDate({2024, 3, 30});
        isActive = showActive(&view);
    }

    VemoCalanderView view {nullptr};
    const Parts parts {&view};
    bool isActive = false;
};

} // namespace

class CalendarAnnouncementsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void theDayWithTheFocusIsAnnouncedWithItsMonth();
    void theDayIsAnnouncedWhileTheViewHasTheFocus();
    void pagingAnnouncesTheMonthAndNoDay();
};

void CalendarAnnouncementsTest::initTestCase()
{
    startDefaultTheme();
    // As if a screen reader were running.
    QGuiApplicationPrivate::platformIntegration()->accessibility()->setActive(true);
    QAccessible::installUpdateHandler(record);
}

void CalendarAnnouncementsTest::theDayWithTheFocusIsAnnouncedWithItsMonth()
{
    ShownCalendar shown;
    QVERIFY(shown.isActive);
    shown.parts.grid->setFocus();
    for (const QDate &day : {QDate(2024, 3, 31), QDate(2024, 4, 1)}) {
        announced.clear();
        QTest::keyClick(shown.view.windowHandle(), Qt::Key_Right);
        QVERIFY(announced.contains(QLocale().toString(day, QLocale::LongFormat)));
        QVERIFY(announced.contains(day.toString(Qt::ISODate)));
    }
}

void CalendarAnnouncementsTest::theDayIsAnnouncedWhileTheViewHasTheFocus()
{
    ShownCalendar shown;
    QVERIFY(shown.isActive);
    shown.view.setFocus();
    announced.clear();
    QTest::keyClick(shown.view.windowHandle(), Qt::Key_Down);
    QVERIFY(announced.contains(QLocale().toString(QDate(2024, 4, 6), QLocale::LongFormat)));
}

void CalendarAnnouncementsTest::pagingAnnouncesTheMonthAndNoDay()
{
    ShownCalendar shown;
    QVERIFY(shown.isActive);
    for (QToolButton *arrow : {shown.parts.next, shown.parts.previous}) {
        arrow->setFocus();
        announced.clear();
        QTest::keyClick(shown.view.windowHandle(), Qt::Key_Space);
        const QString page = arrow == shown.parts.next ? "April 2024" : "March 2024";
        // Both arrows have it; the one with the focus is announced.
        QCOMPARE(announced, QStringList({page, page}));
    }
    shown.parts.grid->setFocus();
    announced.clear();
    QTest::keyClick(shown.view.windowHandle(), Qt::Key_Right);
    QVERIFY(announced.contains(QLocale().toString(QDate(2024, 3, 31), QLocale::LongFormat)));
}

VEMO_TEST_MAIN(CalendarAnnouncementsTest)
#include "tst_calendarannouncements.moc"
