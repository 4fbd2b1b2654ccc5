// SPDX-License-Identifier: MIT
#include <vemo/vemocalanderview.h>

#include "core/scaling_p.h"
#include "datetime/calendar.h"
#include "support/activewindow.h"
#include "support/testhost.h"

#include <vemo/dpiinfo.h>
#include <vemo/imagemanager.h>
#include <vemo/stylemanager.h>

#include <QAction>
#include <QProxyStyle>
#include <QScrollBar>
#include <QStringListModel>
#include <QTextCharFormat>
#include <QVBoxLayout>

#include <limits>

namespace {

/// A calendar that shows March 2024, which begins on a Friday, in an active window as large as a
/// pop-up.
struct View
{
    View()
    {
        view.setCurrentPage(2024, 3);
        view.resize(scaled(280), scaled(260));
        isActive = showActive(&view);
    }

    VemoCalanderView view {nullptr};
    Parts parts {&view};
    QSignalSpy picks {&view, SIGNAL(sigDateSelect(QDate))};
    bool isActive = false;
};

/// Gives access to protected members of a view.
struct Open : VemoCalanderView
{
    Open() : VemoCalanderView(nullptr) { }
    using VemoCalanderView::horizontalOffset;
    using VemoCalanderView::isIndexHidden;
    using VemoCalanderView::moveCursor;
    using VemoCalanderView::MoveDown;
    using VemoCalanderView::setSelection;
    using VemoCalanderView::verticalOffset;
    using VemoCalanderView::visualRegionForSelection;
};

/// Counts the mouse events that arrive.
struct MouseLog : QObject
{
    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        count += event->type() >= QEvent::MouseButtonPress
            && event->type() <= QEvent::MouseButtonDblClick;
        return false;
    }
    int count = 0;
};

QDate march(int day)
{
    return {2024, 3, day};
}

} // namespace

class VemoCalanderViewTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void isAViewOfNothing();
    void stacksCalendarAndTodayButton();
    void hidesQtsHeadersAndBeginsWithSunday();
    void paintsWeekendsBlack();
    void stylesTheNavigationBar();
    void keepsClicksOnTheNavigationBar();
    void shortensTheNamesOfTheMonthMenu();
    void startsWithTheNameOfThisMonth();
    void namesTheMonthThatIsShown_data();
    void namesTheMonthThatIsShown();
    void namesTheMonthOfAnAction();
    void insertsTheWeekdayRow();
    void stylesTheWeekdayRow();
    void reportsAClickOnce();
    void reportsADoubleClickTwice();
    void reportsReturnOnTheGrid();
    void reportsTodayByItsButton();
    void reportsTodayWhateverTheRange_data();
    void reportsTodayWhateverTheRange();
    void keepsToItsRange();
    void pagesByMouse();
    void picksAMonthFromTheMenu();
    void takesAYearThatIsTyped();
    void survivesPagesBeyondTheCalendar_data();
    void survivesPagesBeyondTheCalendar();
    void survivesRangesOfNothing_data();
    void survivesRangesOfNothing();
};

void VemoCalanderViewTest::isAViewOfNothing()
{
    Open view;
    QCOMPARE(view.metaObject()->className(), "VemoCalanderView");
    QCOMPARE(view.selectionMode(), QAbstractItemView::NoSelection);
    QStringListModel model({"one", "two"});
    view.setModel(&model);
    const QModelIndex index = model.index(0, 0);
    QCOMPARE(view.visualRect(index), QRect(0, 0, 0, 0));
    QVERIFY(!view.indexAt({1, 1}).isValid());
    QVERIFY(!view.moveCursor(Open::MoveDown, Qt::NoModifier).isValid());
    QCOMPARE(view.horizontalOffset(), 0);
    QCOMPARE(view.verticalOffset(), 0);
    QVERIFY(view.isIndexHidden(index));
    view.scrollTo(index, QAbstractItemView::EnsureVisible);
    view.setSelection({0, 0, 9, 9}, QItemSelectionModel::Select);
    QVERIFY(!view.selectionModel()->hasSelection());
    QVERIFY(view.visualRegionForSelection({index, index}).isEmpty());
}

void VemoCalanderViewTest::stacksCalendarAndTodayButton()
{
    const VemoCalanderView view(nullptr);
    const Parts parts(&view);
    const auto *layout = qobject_cast<QVBoxLayout *>(view.layout());
    QVERIFY(layout);
    QCOMPARE(layout->count(), 2);
    QCOMPARE(layout->itemAt(0)->widget(), parts.calendar);
    QCOMPARE(layout->itemAt(0)->alignment(), Qt::Alignment());
    QCOMPARE(layout->itemAt(1)->widget(), parts.today);
    QCOMPARE(layout->itemAt(1)->alignment(), Qt::AlignHCenter);
    QCOMPARE(layout->stretch(0) + layout->stretch(1), 0);
    QWidget plain;
    const QVBoxLayout asQtHasIt(&plain);
    QCOMPARE(layout->contentsMargins(), asQtHasIt.contentsMargins());
    QCOMPARE(layout->spacing(), asQtHasIt.spacing());
    QCOMPARE(parts.calendar->parent(), &view);
    QCOMPARE(parts.today->text(), QString("Today"));
    QCOMPARE(parts.today->styleSheet(), getStyleSheet("component.cancel_button"));
    QCOMPARE(parts.today->minimumHeight(), scaled(24));
    QCOMPARE(parts.today->maximumHeight(), scaled(24));
}

void VemoCalanderViewTest::hidesQtsHeadersAndBeginsWithSunday()
{
    const VemoCalanderView view(nullptr);
    const Parts parts(&view);
    QCOMPARE(parts.calendar->firstDayOfWeek(), Qt::Sunday);
    QCOMPARE(parts.calendar->horizontalHeaderFormat(), QCalendarWidget::NoHorizontalHeader);
    QCOMPARE(parts.calendar->verticalHeaderFormat(), QCalendarWidget::NoVerticalHeader);
}

void VemoCalanderViewTest::paintsWeekendsBlack()
{
    const VemoCalanderView view(nullptr);
    const Parts parts(&view);
    for (const auto day : {Qt::Saturday, Qt::Sunday})
        QCOMPARE(parts.calendar->weekdayTextFormat(day).foreground(),
            QBrush(Qt::black, Qt::SolidPattern));
    QCOMPARE(parts.calendar->weekdayTextFormat(Qt::Monday), QTextCharFormat());
}

void VemoCalanderViewTest::stylesTheNavigationBar()
{
    const VemoCalanderView view(nullptr);
    const Parts parts(&view);
    for (const QToolButton *button : {parts.previous, parts.next, parts.month, parts.year})
        QCOMPARE(button->focusPolicy(), Qt::StrongFocus);
    struct LargeIcons : QProxyStyle
    {
        int pixelMetric(
            PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override
        {
            return metric == PM_ButtonIconSize ? 99
                                               : QProxyStyle::pixelMetric(metric, option, widget);
        }
    } largeIcons;
    const auto showsPicture = [&](QToolButton *button, const char *name) {
        button->setStyle(&largeIcons); // must have no effect
        const QPixmap expected = getGlobalImage(name);
        QCOMPARE(button->iconSize(), expected.size() / DPIinfo::getInstance().getDPR());
        QCOMPARE(button->icon().pixmap(button->iconSize()).toImage(), expected.toImage());
    };
    showsPicture(parts.previous, "bt_pagebar_backend");
    showsPicture(parts.next, "bt_pagebar_nextend");
    QVERIFY(!parts.yearEdit->testAttribute(Qt::WA_MacShowFocusRect));
    QVERIFY(!parts.bar->autoFillBackground());
}

// Otherwise a click next to the buttons would reach the pop-up, which would treat it as one on a
// row.
void VemoCalanderViewTest::keepsClicksOnTheNavigationBar()
{
    const View view;
    MouseLog log;
    view.parts.calendar->installEventFilter(&log);
    const QPoint beside(1, view.parts.bar->height() / 2);
    QTest::mouseClick(view.parts.bar, Qt::LeftButton, {}, beside);
    QTest::mouseDClick(view.parts.bar, Qt::LeftButton, {}, beside);
    QCOMPARE(log.count, 0);
    QTest::mouseClick(view.parts.calendar, Qt::LeftButton);
    QCOMPARE(log.count, 2);
}

void VemoCalanderViewTest::shortensTheNamesOfTheMonthMenu()
{
    const VemoCalanderView view(nullptr);
    QStringList shown;
    QStringList expected;
    for (const QAction *action : Parts(&view).month->menu()->actions())
        shown += action->text();
    for (const QString &month : englishMonths())
        expected += month.left(3);
    QCOMPARE(shown, expected);
}

void VemoCalanderViewTest::startsWithTheNameOfThisMonth()
{
    const VemoCalanderView view(nullptr);
    QCOMPARE(Parts(&view).month->text(), englishMonths().at(QDate::currentDate().month() - 1));
}

void VemoCalanderViewTest::namesTheMonthThatIsShown_data()
{
    QTest::addColumn<int>("month");
    for (int month = 1; month <= 12; ++month)
        QTest::newRow(qPrintable(englishMonths().at(month - 1))) << month;
}

void VemoCalanderViewTest::namesTheMonthThatIsShown()
{
    QFETCH(int, month);
    VemoCalanderView view(nullptr);
    view.setCurrentPage(2023, month);
    QCOMPARE(Parts(&view).month->text(), QString(QTest::currentDataTag()));
    QCOMPARE(Parts(&view).year->text(), yearText(2023));
}

void VemoCalanderViewTest::namesTheMonthOfAnAction()
{
    VemoCalanderView view(nullptr);
    QAction action;
    for (const int month : {1, 12, 0, 13}) {
        action.setData(month);
        QVERIFY(QMetaObject::invokeMethod(&view, "slotMonthTriggered", Q_ARG(QAction *, &action)));
        QCOMPARE(Parts(&view).month->text(), englishMonths().value(month - 1));
    }
}

void VemoCalanderViewTest::insertsTheWeekdayRow()
{
    const View view;
    const QTableWidget *row = view.parts.weekdays;
    QCOMPARE(view.parts.calendar->layout()->itemAt(1)->widget(), row);
    QCOMPARE(view.parts.calendar->layout()->itemAt(0)->widget(), view.parts.bar);
    QCOMPARE(row->rowCount(), 1);
    QCOMPARE(row->columnCount(), 7);
    QString letters;
    for (int column = 0; column < 7; ++column) {
        const QTableWidgetItem *item = row->item(0, column);
        letters += item->text();
        QCOMPARE(item->textAlignment(), int(Qt::AlignHCenter | Qt::AlignVCenter));
        const QRect day = view.parts.grid->visualRect(view.parts.grid->model()->index(1, column));
        QVERIFY(qAbs(row->visualItemRect(item).center().x() - day.center().x()) <= 1);
    }
    QCOMPARE(letters, QString("SMTWTFS"));
}

void VemoCalanderViewTest::stylesTheWeekdayRow()
{
    const View view;
    const QTableWidget *row = view.parts.weekdays;
    QCOMPARE(row->focusPolicy(), Qt::NoFocus);
    QCOMPARE(row->styleSheet(), getStyleSheet("component.table"));
    QCOMPARE(row->horizontalHeader()->styleSheet(), getStyleSheet("component.table_header"));
    QCOMPARE(row->minimumHeight(), scaled(30));
    QCOMPARE(row->maximumHeight(), scaled(30));
    QVERIFY(row->horizontalHeader()->isHidden() && row->verticalHeader()->isHidden());
    QCOMPARE(row->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QVERIFY(!row->verticalScrollBar()->isVisible());
    QCOMPARE(row->sizeAdjustPolicy(), QAbstractScrollArea::AdjustToContents);
    QCOMPARE(row->editTriggers(), QAbstractItemView::NoEditTriggers);
    QCOMPARE(row->selectionMode(), QAbstractItemView::NoSelection);
    QCOMPARE(row->frameStyle(), 0);
    QVERIFY(!row->showGrid());
    for (const QTableView *table :
        {view.parts.grid, static_cast<QTableView *>(view.parts.weekdays)}) {
        const QHeaderView *columns = table->horizontalHeader();
        QCOMPARE(columns->defaultSectionSize(), 30);
    }
    QCOMPARE(row->horizontalHeader()->sectionResizeMode(0), QHeaderView::Stretch);
}

void VemoCalanderViewTest::reportsAClickOnce()
{
    const View view;
    view.parts.clickDay(7);
    QCOMPARE(view.picks.size(), 1);
    QCOMPARE(view.picks[0][0].toDate(), march(7));
    QCOMPARE(view.parts.calendar->selectedDate(), march(7));
}

void VemoCalanderViewTest::reportsADoubleClickTwice()
{
    const View view;
    view.parts.clickDay(7);
    QTest::mouseDClick(
        view.parts.grid->viewport(), Qt::LeftButton, {}, view.parts.cell(7).center());
    QCOMPARE(view.picks.size(), 2);
    QCOMPARE(view.picks[1][0].toDate(), march(7));
}

void VemoCalanderViewTest::reportsReturnOnTheGrid()
{
    const View view;
    view.parts.calendar->setSelectedDate(march(30));
    view.parts.grid->setFocus();
    QTest::keyClick(view.view.windowHandle(), Qt::Key_Right);
    QTest::keyClick(view.view.windowHandle(), Qt::Key_Right);
    QCOMPARE(view.picks.size(), 0);
    QTest::keyClick(view.view.windowHandle(), Qt::Key_Return);
    QCOMPARE(view.picks.size(), 1);
    QCOMPARE(view.picks[0][0].toDate(), QDate(2024, 4, 1));
    QCOMPARE(view.parts.month->text(), QString("April"));
}

void VemoCalanderViewTest::reportsTodayByItsButton()
{
    const View view;
    QDate selected;
    connect(&view.view, &VemoCalanderView::sigDateSelect, &view.view,
        [&] { selected = view.view.selectedDate(); });
    QTest::mouseClick(view.parts.today, Qt::LeftButton);
    QCOMPARE(view.picks.size(), 1);
    QCOMPARE(selected, QDate::currentDate());
    QCOMPARE(view.picks[0][0].toDate(), QDate::currentDate());
    QCOMPARE(view.parts.calendar->selectedDate(), QDate::currentDate());
}

void VemoCalanderViewTest::reportsTodayWhateverTheRange_data()
{
    QTest::addColumn<int>("firstFromToday");
    QTest::addColumn<int>("lastFromToday");
    QTest::newRow("all past") << -20 << -10;
    QTest::newRow("all to come") << 10 << 20;
}

void VemoCalanderViewTest::reportsTodayWhateverTheRange()
{
    QFETCH(int, firstFromToday);
    QFETCH(int, lastFromToday);
    View view;
    const QDate today = QDate::currentDate();
    view.view.setMinimumDate(today.addDays(firstFromToday));
    view.view.setMaximumDate(today.addDays(lastFromToday));
    view.view.selectToday();
    QCOMPARE(view.picks.size(), 1);
    QCOMPARE(view.picks[0][0].toDate(), today);
    QVERIFY(view.parts.calendar->selectedDate() != today);
}

void VemoCalanderViewTest::keepsToItsRange()
{
    View view;
    view.parts.calendar->setSelectedDate(march(15));
    view.view.setMinimumDate(march(10));
    view.view.setMaximumDate(march(20));
    QCOMPARE(view.parts.calendar->minimumDate(), march(10));
    QCOMPARE(view.parts.calendar->maximumDate(), march(20));
    view.parts.clickDay(9);
    view.parts.clickDay(21);
    QCOMPARE(view.picks.size(), 0);
    view.parts.clickDay(10);
    view.parts.clickDay(20);
    QCOMPARE(view.picks.size(), 2);
}

void VemoCalanderViewTest::pagesByMouse()
{
    const View view;
    QTest::mouseClick(view.parts.next, Qt::LeftButton);
    QCOMPARE(view.parts.month->text(), QString("April"));
    for (int click = 0; click < 4; ++click)
        QTest::mouseClick(view.parts.previous, Qt::LeftButton);
    QCOMPARE(view.parts.month->text(), QString("December"));
    QCOMPARE(view.parts.year->text(), yearText(2023));
    QCOMPARE(view.picks.size(), 0);
}

void VemoCalanderViewTest::picksAMonthFromTheMenu()
{
    const View view;
    view.parts.pickMonth(11);
    QCOMPARE(view.parts.calendar->monthShown(), 11);
    QCOMPARE(view.parts.month->text(), QString("November"));
    view.parts.pickMonth(2, true);
    QCOMPARE(view.parts.month->text(), QString("February"));
    QCOMPARE(view.picks.size(), 0);
}

void VemoCalanderViewTest::takesAYearThatIsTyped()
{
    const View view;
    QTest::mouseClick(view.parts.year, Qt::LeftButton);
    QVERIFY(view.parts.yearEdit->isVisible());
    for (const char digit : {'1', '9', '9', '9'})
        QTest::keyClick(view.view.windowHandle(), digit);
    QTest::keyClick(view.view.windowHandle(), Qt::Key_Return);
    QVERIFY(!view.parts.yearEdit->isVisible());
    QCOMPARE(view.parts.calendar->yearShown(), 1999);
    QCOMPARE(view.parts.month->text(), QString("March"));
}

void VemoCalanderViewTest::survivesPagesBeyondTheCalendar_data()
{
    QTest::addColumn<int>("year");
    QTest::addColumn<int>("month");
    QTest::newRow("first year") << 1 << 1;
    QTest::newRow("no year") << 0 << 1;
    QTest::newRow("before all years") << -1 << 12;
    QTest::newRow("last year of four digits") << 9999 << 12;
    QTest::newRow("first of five") << 10000 << 1;
    QTest::newRow("beyond all") << std::numeric_limits<int>::max() << 1;
    QTest::newRow("before all") << std::numeric_limits<int>::min() << 1;
    QTest::newRow("month 0") << 2024 << 0;
    QTest::newRow("month 13") << 2024 << 13;
    QTest::newRow("negative month") << 2024 << std::numeric_limits<int>::min();
}

void VemoCalanderViewTest::survivesPagesBeyondTheCalendar()
{
    QFETCH(int, year);
    QFETCH(int, month);
    View view;
    view.view.setCurrentPage(year, month);
    view.view.grab();
    QCOMPARE(view.parts.month->text(), englishMonths().value(month < 1 ? -1 : month - 1));
    QTest::mouseClick(view.parts.next, Qt::LeftButton);
    QTest::mouseClick(view.parts.previous, Qt::LeftButton);
    view.view.grab();
    view.view.setCurrentPage(2024, 2);
    QCOMPARE(view.parts.month->text(), QString("February"));
    view.parts.clickDay(29);
    QCOMPARE(view.picks.size(), 1);
}

void VemoCalanderViewTest::survivesRangesOfNothing_data()
{
    QTest::addColumn<QDate>("first");
    QTest::addColumn<QDate>("last");
    QTest::newRow("one day") << march(5) << march(5);
    QTest::newRow("minimum after maximum") << march(20) << march(5);
    QTest::newRow("no dates") << QDate() << QDate();
    QTest::newRow("no such days") << QDate(2024, 2, 30) << QDate(2023, 2, 29);
    QTest::newRow("all that there are") << QDate::fromJulianDay(std::numeric_limits<int>::min())
                                        << QDate::fromJulianDay(std::numeric_limits<int>::max());
}

void VemoCalanderViewTest::survivesRangesOfNothing()
{
    QFETCH(QDate, first);
    QFETCH(QDate, last);
    View view;
    view.view.setMinimumDate(first);
    view.view.setMaximumDate(last);
    QVERIFY(view.parts.calendar->minimumDate() <= view.parts.calendar->maximumDate());
    view.view.grab();
    view.view.selectToday();
    QCOMPARE(view.picks.size(), 1);
    QTest::keyClick(view.parts.grid, Qt::Key_PageUp);
    QTest::keyClick(view.parts.grid, Qt::Key_Home);
    view.view.grab();
}

VEMO_TEST_MAIN(VemoCalanderViewTest)
#include "tst_vemocalanderview.moc"
