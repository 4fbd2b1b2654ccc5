// SPDX-License-Identifier: MIT
#include "core/scaling_p.h"
#include "datetime/calendar.h"
#include "support/activewindow.h"
#include "support/eventcounter.h"
#include "support/testhost.h"

#include <vemo/stylemanager.h>

namespace {

const QColor kAccent(0x17, 0x69, 0xE0);

/// A calendar in the theme's style that shows this month, with a day other than today selected.
struct View
{
    View()
    {
        view.setStyleSheet(getStyleSheet("component.date_selector"));
        view.resize(scaled(280), scaled(260));
        parts.calendar->setSelectedDate(day(today().day() == 20 ? 21 : 20));
        view.show();
        isExposed = QTest::qWaitForWindowExposed(&view);
        // The pointer might be over the calendar.
        QTest::mouseMove(parts.today);
    }

    static QDate today() { return QDate::currentDate(); }
    static QDate day(int number) { return {today().year(), today().month(), number}; }
    static int otherDay() { return today().day() == 10 ? 11 : 10; }

    QColor cornerOf(int number, int inset = 0) const
    {
        return pixelAt(parts.grid->viewport(), parts.cell(number).topLeft() + QPoint(inset, inset));
    }
    /// The darkest grey in a day's number.
    int inkOf(int number) const { return inkIn(parts.cell(number)); }
    int inkIn(const QRect &day) const
    {
        const QPixmap picture = parts.grid->viewport()->grab();
        const qreal ratio = picture.devicePixelRatio();
        const QRect cell = day.adjusted(2, 2, -2, -2);
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
    void todaysFrameIsOfOneWidth_data();
    void todaysFrameIsOfOneWidth();
    void fillsTheSelectedDay();
    void tintsTheDayUnderThePointer();
    void losesThePointerToAMenu();
    void veilsDaysOutOfRange();
    void veilsADisabledCalendar();
    void showsTheFocusOfItsArrows();
    void showsTheFocusOnItsDay_data();
    void showsTheFocusOnItsDay();
    void framesTheViewWithTheFocus();
    void showsThatDaysOfOtherMonthsCanBePicked();
    void showsNoWeekendAsEnabledThatIsNot_data();
    void showsNoWeekendAsEnabledThatIsNot();
};

void DayCalendarTest::framesToday()
{
    const View view;
    QVERIFY(view.isExposed);
    QCOMPARE(view.cornerOf(View::today().day(), scaled(1) - 1), kAccent);
    QCOMPARE(view.cornerOf(View::today().day(), scaled(1)), QColor(Qt::white));
    QCOMPARE(view.cornerOf(View::otherDay()), QColor(Qt::white));
}

void DayCalendarTest::todaysFrameIsOfOneWidth_data()
{
    QTest::addColumn<int>("growth");
    // At a fractional pixel ratio its sides begin at any fraction of a pixel.
    for (int growth = 0; growth < 8; ++growth)
        QTest::addRow("%d pixels larger", growth) << growth;
}

void DayCalendarTest::todaysFrameIsOfOneWidth()
{
    QFETCH(const int, growth);
    View view;
    QVERIFY(view.isExposed);
    view.view.resize(view.view.size() + QSize(7 * growth, 6 * growth));
    const QImage picture = view.parts.grid->viewport()->grab().toImage();
    const qreal ratio = picture.devicePixelRatio();
    const QRect today = view.parts.cell(View::today().day());
    const QRect area = QRectF(QPointF(today.topLeft()) * ratio, QSizeF(today.size()) * ratio)
                           .toAlignedRect()
                           .intersected(picture.rect());
    const auto accentIn = [&](const QRect &line) {
        int count = 0;
        for (int y = line.top(); y <= line.bottom(); ++y) {
            for (int x = line.left(); x <= line.right(); ++x)
                count += picture.pixelColor(x, y) == kAccent;
        }
        return count;
    };
    const QSize half = area.size() / 2;
    const int inset = qRound(4 * ratio); // between the frame and the number
    const int left = accentIn({area.left(), area.top() + inset, half.width(), 1});
    QVERIFY(left > 0);
    QCOMPARE(accentIn({area.center().x() + 1, area.top() + inset, half.width(), 1}), left);
    QCOMPARE(accentIn({area.left() + inset, area.top(), 1, half.height()}), left);
    QCOMPARE(accentIn({area.left() + inset, area.center().y() + 1, 1, half.height()}), left);
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

// While a menu is open, Qt sends no hover event to what the pointer leaves.
void DayCalendarTest::losesThePointerToAMenu()
{
    const View view;
    QVERIFY(view.isExposed);
    QWidget *days = view.parts.grid->viewport();
    const int pointed = View::otherDay();
    QTest::mouseMove(days, view.parts.cell(pointed).center());
    QTRY_VERIFY(view.cornerOf(pointed, 3) != QColor(Qt::white));
    QMenu menu;
    menu.addAction("Go to today");
    menu.popup(QPoint());
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
    QCoreApplication::processEvents();
    const EventCounter paints(days, QEvent::Paint);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(days, &leave);
    QTRY_VERIFY(paints.count() > 0);
    QCOMPARE(view.cornerOf(pointed, 3), QColor(Qt::white));
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
    QVERIFY(showActive(&view.view));
    for (QToolButton *arrow : {view.parts.previous, view.parts.next}) {
        const QPoint edge = arrow->mapTo(&view.view, QPoint(arrow->width() / 2, 0));
        view.parts.grid->setFocus();
        QCOMPARE(pixelAt(&view.view, edge), QColor(Qt::white));
        arrow->setFocus();
        QCOMPARE(pixelAt(&view.view, edge), kAccent);
    }
}

void DayCalendarTest::showsTheFocusOnItsDay_data()
{
    QTest::addColumn<bool>("isSelected");
    QTest::addColumn<QColor>("rest");
    QTest::addColumn<QColor>("focused");
    // White on the accent colour and the other way round: 5.1 to 1.
    QTest::newRow("selected day") << true << kAccent << QColor(Qt::white);
    QTest::newRow("another day") << false << QColor(Qt::white) << kAccent;
}

void DayCalendarTest::showsTheFocusOnItsDay()
{
    QFETCH(bool, isSelected);
    View view;
    QVERIFY(showActive(&view.view));
    if (!isSelected) {
        // Shows another month, in which the day with that number is current but not selected.
        const QDate next = View::today().addMonths(1);
        view.view.setCurrentPage(next.year(), next.month());
    }
    const int number = view.parts.calendar->selectedDate().day();
    view.parts.next->setFocus();
    QTEST(view.cornerOf(number, scaled(1)), "rest");
    for (QWidget *part :
        {static_cast<QWidget *>(&view.view), static_cast<QWidget *>(view.parts.grid)}) {
        QCoreApplication::processEvents();
        const EventCounter paints(view.parts.grid->viewport(), QEvent::Paint);
        part->setFocus();
        QTRY_VERIFY(paints.count() > 0);
        for (int inset = 0; inset < scaled(2); ++inset)
            QTEST(view.cornerOf(number, scaled(1) + inset), "focused");
        QTEST(view.cornerOf(number, scaled(1) + scaled(2)), "rest");
        view.parts.next->setFocus();
        QTRY_VERIFY(paints.count() > 1);
        QTEST(view.cornerOf(number, scaled(1)), "rest");
    }
}

void DayCalendarTest::framesTheViewWithTheFocus()
{
    View view;
    QVERIFY(showActive(&view.view));
    view.parts.next->setFocus();
    QVERIFY(pixelAt(&view.view, {20, 0}) != kAccent);
    QCoreApplication::processEvents();
    const EventCounter paints(&view.view, QEvent::Paint);
    view.view.setFocus();
    QTRY_VERIFY(paints.count() > 0);
    QCOMPARE(pixelAt(&view.view, {20, 0}), kAccent);
}

void DayCalendarTest::showsThatDaysOfOtherMonthsCanBePicked()
{
    View view;
    QVERIFY(view.isExposed);
    // Offscreen, Qt 6 has a smaller font, in which thin digits cover no pixel as a whole.
    QFont font = view.view.font();
    font.setPointSize(12);
    view.view.setFont(font);
    // Without a font for the digits of a language, Qt draws thin frames in their places.
    view.view.setLocale(QLocale::c());
    view.view.setCurrentPage(2024, 4); // From Sunday, March 31, to Saturday, May 11.
    const QAbstractItemModel *days = view.parts.grid->model();
    for (const auto &place : {qMakePair(0, 0), qMakePair(4, 3), qMakePair(5, 6)}) {
        const QRect cell = view.parts.grid->visualRect(days->index(place.first, place.second));
        const int ink = view.inkIn(cell);
        // A grey of 118 has 4.5 to 1 on white.
        QVERIFY2(ink <= 118, qPrintable(QString::number(ink)));
        QVERIFY2(ink >= view.inkOf(15) + 30, qPrintable(QString::number(ink)));
    }
}

void DayCalendarTest::showsNoWeekendAsEnabledThatIsNot_data()
{
    QTest::addColumn<bool>("isDisabled");
    QTest::newRow("disabled") << true;
    QTest::newRow("out of range") << false;
}

void DayCalendarTest::showsNoWeekendAsEnabledThatIsNot()
{
    QFETCH(bool, isDisabled);
    View view;
    QVERIFY(view.isExposed);
    if (isDisabled)
        view.view.setEnabled(false);
    else
        view.view.setMaximumDate({2024, 2, 20});
    view.view.setCurrentPage(2024, 3);
    // A Sunday, a Saturday and days between.
    const int ink = view.inkOf(13);
    for (const int number : {10, 11, 15, 16})
        QVERIFY(qAbs(view.inkOf(number) - ink) <= 16);
    QVERIFY(ink > 118);
}

VEMO_TEST_MAIN(DayCalendarTest)
#include "tst_daycalendar.moc"
