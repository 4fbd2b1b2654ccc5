// SPDX-License-Identifier: MIT
#include "core/scaling_p.h"
#include "datetime/calendar.h"
#include "support/testhost.h"

#include <vemo/stylemanager.h>

namespace {

const QColor kAccent(0x17, 0x69, 0xE0);

/// A calendar in the theme's style, of this month, with another day than today selected.
struct View
{
    View()
    {
        view.setStyleSheet(getStyleSheet("component.date_selector"));
        view.resize(scaled(280), scaled(260));
        parts.calendar->setSelectedDate(day(today().day() == 20 ? 21 : 20));
        view.show();
        isExposed = QTest::qWaitForWindowExposed(&view);
        // The pointer may be over it by chance.
        QTest::mouseMove(parts.today);
    }

    static QDate today() { return QDate::currentDate(); }
    static QDate day(int number) { return {today().year(), today().month(), number}; }
    static int otherDay() { return today().day() == 10 ? 11 : 10; }

    QColor cornerOf(int number, int inset = 0) const
    {
        return pixelAt(parts.grid->viewport(), parts.cell(number).topLeft() + QPoint(inset, inset));
    }
    /// The darkest there is of a day's number.
    int inkOf(int number) const
    {
        const QPixmap picture = parts.grid->viewport()->grab();
        const qreal ratio = picture.devicePixelRatio();
        const QRect cell = parts.cell(number).adjusted(2, 2, -2, -2);
        const QImage image =
            picture.toImage().copy(QRect(cell.topLeft() * ratio, cell.size() * ratio));
        int darkest = 255;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x)
                darkest = qMin(darkest, qGray(image.pixel(x, y)));
        }
        return darkest;
    }

    VemoCalanderView view {nullptr};
    Parts parts {&view};
    bool isExposed = false;
};

} // namespace

class DayCalendarTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void framesToday();
    void fillsTheSelectedDay();
    void tintsTheDayUnderThePointer();
    void veilsDaysOutOfRange();
    void veilsADisabledCalendar();
    void showsTheFocusOfItsArrows();
};

void DayCalendarTest::framesToday()
{
    const View view;
    QVERIFY(view.isExposed);
    QCOMPARE(view.cornerOf(View::today().day()), kAccent);
    QCOMPARE(view.cornerOf(View::otherDay()), QColor(Qt::white));
}

void DayCalendarTest::fillsTheSelectedDay()
{
    const View view;
    QVERIFY(view.isExposed);
    QCOMPARE(view.cornerOf(view.parts.calendar->selectedDate().day(), 3), kAccent);
}

void DayCalendarTest::tintsTheDayUnderThePointer()
{
    const View view;
    QVERIFY(view.isExposed);
    const int pointed = View::otherDay();
    QTest::mouseMove(view.parts.grid->viewport(), view.parts.cell(pointed).center());
    QTRY_VERIFY(view.cornerOf(pointed, 3) != QColor(Qt::white));
    QCOMPARE(view.cornerOf(pointed + 2, 3), QColor(Qt::white));
    QTest::mouseMove(view.parts.grid->viewport(), view.parts.cell(pointed + 2).center());
    QTRY_COMPARE(view.cornerOf(pointed, 3), QColor(Qt::white));
}

void DayCalendarTest::veilsDaysOutOfRange()
{
    View view;
    QVERIFY(view.isExposed);
    const int number = View::otherDay();
    const int ink = view.inkOf(number);
    view.view.setMinimumDate(View::day(number).addDays(1));
    QVERIFY(view.inkOf(number) > ink + 60);
    view.view.setMinimumDate(View::day(number));
    QCOMPARE(view.inkOf(number), ink);
    view.view.setMaximumDate(View::day(number).addDays(-1));
    QVERIFY(view.inkOf(number) > ink + 60);
}

void DayCalendarTest::veilsADisabledCalendar()
{
    View view;
    QVERIFY(view.isExposed);
    const int ink = view.inkOf(View::otherDay());
    view.view.setEnabled(false);
    QVERIFY(view.inkOf(View::otherDay()) > ink + 60);
}

void DayCalendarTest::showsTheFocusOfItsArrows()
{
    View view;
    QVERIFY(view.isExposed);
    view.view.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&view.view));
    for (QToolButton *arrow : {view.parts.previous, view.parts.next}) {
        const QPoint edge = arrow->mapTo(&view.view, {arrow->width() / 2, 0});
        view.parts.grid->setFocus();
        QCOMPARE(pixelAt(&view.view, edge), QColor(Qt::white));
        arrow->setFocus();
        QCOMPARE(pixelAt(&view.view, edge), kAccent);
    }
}

VEMO_TEST_MAIN(DayCalendarTest)
#include "tst_daycalendar.moc"
