// SPDX-License-Identifier: MIT
// The accessible interface of a calendar: all its parts, and a table of days.
#include "datetime/calendar.h"
#include "support/activewindow.h"
#include "support/testhost.h"

#include <vemo/vemodateselector.h>

#include <QAccessible>

namespace {

const QDate kSelected(2024, 3, 14);

struct View
{
    View()
    {
        view.resize(280, 260);
        view.setSelectedDate(kSelected);
        view.setCurrentPage(2024, 3);
        isActive = showActive(&view);
    }
    QAccessibleInterface *grid() const { return QAccessible::queryAccessibleInterface(parts.grid); }
    QAccessibleTableInterface *table() const { return grid()->tableInterface(); }
    /// March 2024 begins on a Friday.
    QAccessibleInterface *day(int number) const
    {
        return table()->cellAt((number + 4) / 7, (number + 4) % 7);
    }

    VemoCalanderView view {nullptr};
    Parts parts {&view};
    bool isActive = false;
};

QString fullDate(const QDate &date)
{
    return QLocale().toString(date, QLocale::LongFormat);
}

/// An interface and all its descendants.
QVector<QAccessibleInterface *> tree(QAccessibleInterface *top)
{
    QVector<QAccessibleInterface *> all {top};
    for (int child = 0; child < top->childCount(); ++child)
        all += tree(top->child(child));
    return all;
}

bool isControl(const QAccessibleInterface *part)
{
    switch (part->role()) {
    case QAccessible::Button:
    case QAccessible::ButtonMenu:
    case QAccessible::SpinBox:
    case QAccessible::Cell:
        return true;
    default:
        return false;
    }
}

} // namespace

class CalendarAccessTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void everyPartIsInTheTree();
    void everyControlHasANameAndAnAction();
    void aDayHasItsFullDate_data();
    void aDayHasItsFullDate();
    void aDayReportsItsStates();
    void aDisabledCalendarHasDisabledDays();
    void theDayWithTheFocusIsReported();
    void aDayIsPressed();
    void columnsAreNamedByWeekday();
    void aPointLeadsToItsDay();
    void cellsKnowTheirPlace();
};

void CalendarAccessTest::everyPartIsInTheTree()
{
    const View view;
    QAccessibleInterface *top =
        QAccessible::queryAccessibleInterface(const_cast<VemoCalanderView *>(&view.view));
    QCOMPARE(top->role(), QAccessible::Grouping);
    QCOMPARE(top->text(QAccessible::Name), QString("Calendar"));
    QVector<QObject *> found;
    for (const QAccessibleInterface *part : tree(top))
        found += part->object();
    // Without the row of weekdays, whose names are those of the grid's columns.
    for (QWidget *part : QVector<QWidget *> {view.parts.previous, view.parts.next, view.parts.month,
             view.parts.year, view.parts.grid, view.parts.today})
        QVERIFY2(found.contains(part), qPrintable(part->objectName()));
}

void CalendarAccessTest::everyControlHasANameAndAnAction()
{
    View view;
    int controls = 0;
    for (QAccessibleInterface *part : tree(QAccessible::queryAccessibleInterface(&view.view))) {
        if (!isControl(part))
            continue;
        ++controls;
        QVERIFY(!part->text(QAccessible::Name).isEmpty());
        QVERIFY(part->actionInterface());
        QVERIFY(!part->actionInterface()->actionNames().isEmpty());
    }
    QVERIFY(controls >= 42 + 5);
}

void CalendarAccessTest::aDayHasItsFullDate_data()
{
    QTest::addColumn<QDate>("page");
    QTest::newRow("begins on a Friday") << QDate(2024, 3, 1);
    QTest::newRow("begins on a Sunday") << QDate(2024, 9, 1);
    QTest::newRow("begins on a Monday") << QDate(2024, 4, 1);
    QTest::newRow("begins on a Saturday") << QDate(2024, 6, 1);
    QTest::newRow("four weeks from a Sunday") << QDate(2026, 2, 1);
    QTest::newRow("January") << QDate(2024, 1, 1);
    QTest::newRow("December") << QDate(2023, 12, 1);
}

void CalendarAccessTest::aDayHasItsFullDate()
{
    QFETCH(QDate, page);
    View view;
    view.view.setCurrentPage(page.year(), page.month());
    QCOMPARE(view.table()->rowCount(), 6);
    QCOMPARE(view.table()->columnCount(), 7);
    // The first of the month is in the row that is first or second, and the rest follows.
    const int before = page.dayOfWeek() == 7 ? 7 : page.dayOfWeek();
    for (int cell = 0; cell < 42; ++cell) {
        const QAccessibleInterface *day = view.table()->cellAt(cell / 7, cell % 7);
        QCOMPARE(day->role(), QAccessible::Cell);
        QCOMPARE(day->text(QAccessible::Name), fullDate(page.addDays(cell - before)));
        const QModelIndex index = view.parts.grid->model()->index(cell / 7, cell % 7);
        QCOMPARE(index.data().toInt(), page.addDays(cell - before).day());
    }
}

void CalendarAccessTest::aDayReportsItsStates()
{
    View view;
    view.view.setMinimumDate({2024, 3, 10});
    view.view.setMaximumDate({2024, 3, 20});
    for (int number = 1; number <= 31; ++number) {
        const QAccessible::State state = view.day(number)->state();
        QCOMPARE(bool(state.disabled), number < 10 || number > 20);
        QCOMPARE(bool(state.selectable), !state.disabled);
        QCOMPARE(bool(state.selected), number == 14);
        QVERIFY(!state.invisible);
    }
    QCOMPARE(view.table()->selectedCellCount(), 1);
    QCOMPARE(view.table()->selectedCells(), QList<QAccessibleInterface *> {view.day(14)});
    view.view.setCurrentPage(2024, 6);
    QCOMPARE(view.table()->selectedCellCount(), 0);
}

void CalendarAccessTest::aDisabledCalendarHasDisabledDays()
{
    View view;
    QVERIFY(!view.day(10)->state().disabled);
    view.view.setEnabled(false);
    QVERIFY(view.day(10)->state().disabled);
}

void CalendarAccessTest::theDayWithTheFocusIsReported()
{
    View view;
    QVERIFY(view.isActive);
    for (QWidget *part :
        {static_cast<QWidget *>(&view.view), static_cast<QWidget *>(view.parts.grid)}) {
        part->setFocus();
        QCOMPARE(view.grid()->focusChild(), view.day(14));
        QVERIFY(view.day(14)->state().focused);
        QVERIFY(!view.day(15)->state().focused);
    }
    view.parts.next->setFocus();
    QVERIFY(!view.grid()->focusChild());
    QVERIFY(!view.day(14)->state().focused);
}

void CalendarAccessTest::aDayIsPressed()
{
    View view;
    view.view.setMaximumDate({2024, 3, 20});
    const QSignalSpy picks(&view.view, SIGNAL(sigDateSelect(QDate)));
    const auto press = [&view](int number) {
        view.day(number)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    };
    press(21);
    QCOMPARE(picks.size(), 0);
    press(7);
    QCOMPARE(picks.size(), 1);
    QCOMPARE(picks[0][0].toDate(), QDate(2024, 3, 7));
    QCOMPARE(view.view.selectedDate(), QDate(2024, 3, 7));
}

void CalendarAccessTest::columnsAreNamedByWeekday()
{
    const View view;
    const QStringList names {
        "Sunday", "Monday", "Tuesday", "Wednesday", "Thursday", "Friday", "Saturday"};
    for (int column = 0; column < 7; ++column) {
        QCOMPARE(view.table()->columnDescription(column), names[column]);
        const QList<QAccessibleInterface *> headers =
            view.table()->cellAt(2, column)->tableCellInterface()->columnHeaderCells();
        QCOMPARE(headers.size(), 1);
        QCOMPARE(headers[0]->role(), QAccessible::ColumnHeader);
        QCOMPARE(headers[0]->text(QAccessible::Name), names[column]);
        QAccessibleInterface *letters = QAccessible::queryAccessibleInterface(view.parts.weekdays);
        QCOMPARE(
            letters->tableInterface()->cellAt(0, column)->text(QAccessible::Name), names[column]);
    }
}

void CalendarAccessTest::aPointLeadsToItsDay()
{
    const View view;
    for (const int number : {1, 14, 31}) {
        const QPoint point =
            view.parts.grid->viewport()->mapToGlobal(view.parts.cell(number).center());
        QCOMPARE(view.grid()->childAt(point.x(), point.y()), view.day(number));
        QVERIFY(view.day(number)->rect().contains(point));
    }
    QVERIFY(!view.grid()->childAt(-1000, -1000));
}

void CalendarAccessTest::cellsKnowTheirPlace()
{
    const View view;
    QAccessibleInterface *grid = view.grid();
    for (int child = 0; child < grid->childCount(); ++child) {
        QAccessibleInterface *cell = grid->child(child);
        QVERIFY(cell && cell->isValid());
        QCOMPARE(cell->parent(), grid);
        QCOMPARE(grid->indexOfChild(cell), child);
        const QAccessibleTableCellInterface *place = cell->tableCellInterface();
        QCOMPARE(place->table(), grid);
        if (cell->role() == QAccessible::Cell)
            QCOMPARE(view.table()->cellAt(place->rowIndex(), place->columnIndex()), cell);
        else
            QVERIFY(cell->state().invisible);
    }
    QVERIFY(!grid->child(-1));
    QVERIFY(!grid->child(grid->childCount()));
    QVERIFY(!view.table()->cellAt(6, 0));
    QVERIFY(!view.table()->cellAt(0, 7));
}

VEMO_TEST_MAIN(CalendarAccessTest)
#include "tst_calendaraccess.moc"
