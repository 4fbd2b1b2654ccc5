// SPDX-License-Identifier: MIT
// The columns of a VemoTableWidget after its construction, and its options, which are off at first.
#include <vemo/vemotablewidget.h>

#include "core/scaling_p.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/stylemanager.h>

#include <QAccessible>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QStyledItemDelegate>

#include <functional>

namespace {

VemoTableColumnsInfo columnsInfo()
{
    VemoTableColumnsInfo columns;
    columns.addColumn("Name", 100, true, 1.0);
    columns.addColumn("Changed", 80, true, 0.0);
    columns.addColumn("Size", 60);
    return columns;
}

struct Files
{
    explicit Files(int rows = 1)
    {
        widget.getTable()->setRowCount(rows);
        widget.resize(scaled(400), scaled(200));
        widget.show();
        QCoreApplication::processEvents();
    }
    QTableWidget *table() const { return widget.getTable(); }
    QHeaderView *columns() const { return table()->horizontalHeader(); }
    QHeaderView *header() const { return widget.getHeader(); }
    QString label(int column) const
    {
        return header()->model()->headerData(column, Qt::Horizontal).toString();
    }
    /// Size, place and visibility of each column, as the header and as the table has them.
    QVector<QVector<int>> of(const QHeaderView *view) const
    {
        QVector<QVector<int>> all;
        for (int column = 0; column < table()->columnCount(); ++column)
            all.append({view->sectionSize(column), view->visualIndex(column),
                int(view->isSectionHidden(column))});
        return all;
    }
    void click(int section) const
    {
        const QPoint point(header()->sectionViewportPosition(section) + 6, header()->height() / 2);
        QTest::mouseClick(header()->viewport(), Qt::LeftButton, {}, point);
    }
    QLabel *emptyLabel() const
    {
        return table()->findChild<QLabel *>({}, Qt::FindDirectChildrenOnly);
    }

    QProgressBar *busyBar() const { return table()->findChild<QProgressBar *>(); }

    VemoTableWidget widget {columnsInfo()};
};

using Change = std::function<void(Files &)>;

} // namespace
Q_DECLARE_METATYPE(Change)

class TableOptionsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qRegisterMetaType<Qt::SortOrder>();
        startDefaultTheme();
    }
    void startsWithoutAnyOption();
    void headersStayTogether_data();
    void headersStayTogether();
    void labelsOfTheTableAreThoseOfTheHeader();
    void hiddenColumnLeavesItsRoomToTheOthers();
    void aligns_data();
    void aligns();
    void asksForSorting();
    void showsTheArrowOfTheProgram();
    void assistiveToolsGetAColumnForEachCaption();
    void extraSectionAsksForNothing();
    void keepsDraggedWidths_data();
    void keepsDraggedWidths();
    void showsItsEmptyText();
    void showsThatItIsBusy();
    void busyBarIsThatWideAndNamed();
    void restoresItsState();
    void refusesAnotherState_data();
    void refusesAnotherState();
};

void TableOptionsTest::startsWithoutAnyOption()
{
    const Files files;
    const QSignalSpy requests(&files.widget, &VemoTableWidget::sortRequested);
    files.click(0);
    QCOMPARE(requests.size(), 0);
    QVERIFY(!files.header()->isSortIndicatorShown());
    QVERIFY(!files.widget.areSortRequestsEnabled());
    QVERIFY(!files.widget.areDraggedWidthsKept());
    QCOMPARE(files.widget.emptyText(), QString());
    QVERIFY(!files.emptyLabel());
}

void TableOptionsTest::headersStayTogether_data()
{
    QTest::addColumn<Change>("change");
    QTest::newRow("setColumnWidth") << Change([](Files &f) { f.table()->setColumnWidth(1, 130); });
    QTest::newRow("resizeColumnToContents")
        << Change([](Files &f) { f.table()->resizeColumnToContents(2); });
    QTest::newRow("resizeSection of the header")
        << Change([](Files &f) { f.header()->resizeSection(1, 130); });
    QTest::newRow("hidden") << Change([](Files &f) { f.table()->setColumnHidden(1, true); });
    QTest::newRow("hidden, shown") << Change([](Files &f) {
        f.table()->setColumnHidden(1, true);
        f.table()->setColumnHidden(1, false);
    });
    QTest::newRow("hidden, resized, shown") << Change([](Files &f) {
        f.widget.setColumnHidden(0, true);
        f.widget.resize(scaled(500), scaled(200));
        f.widget.setColumnHidden(0, false);
    });
    QTest::newRow("moved in the table") << Change([](Files &f) { f.columns()->moveSection(0, 2); });
    QTest::newRow("moved in the header") << Change([](Files &f) { f.header()->moveSection(2, 0); });
    QTest::newRow("restored") << Change([](Files &f) {
        f.columns()->moveSection(0, 2);
        f.table()->setColumnWidth(1, 130);
        const QByteArray state = f.columns()->saveState();
        f.columns()->moveSection(2, 0);
        f.table()->setColumnWidth(1, 90);
        QVERIFY(f.columns()->restoreState(state));
        QCOMPARE(f.columns()->sectionSize(1), 130);
    });
}

void TableOptionsTest::headersStayTogether()
{
    QFETCH(Change, change);
    Files files;
    change(files);
    QCOMPARE(files.of(files.header()), files.of(files.columns()));
    QCOMPARE(files.header()->visualIndex(3), 3);
}

void TableOptionsTest::labelsOfTheTableAreThoseOfTheHeader()
{
    const Files files;
    files.table()->setHorizontalHeaderLabels({"Titel", "Datum", "Umfang"});
    QCOMPARE(files.label(0), QString("Titel"));
    QCOMPARE(files.label(2), QString("Umfang"));
    files.table()->setHorizontalHeaderItem(1, new QTableWidgetItem("Tag"));
    QCOMPARE(files.label(1), QString("Tag"));
    QCOMPARE(files.label(3), QString());
}

void TableOptionsTest::hiddenColumnLeavesItsRoomToTheOthers()
{
    Files files;
    const int before = files.header()->sectionSize(0);
    files.widget.setColumnHidden(2, true);
    QVERIFY(files.widget.isColumnHidden(2));
    QVERIFY(files.table()->isColumnHidden(2));
    // Each length is truncated on its own.
    QVERIFY(qAbs(files.header()->sectionSize(0) - before - scaled(60)) <= 1);
    files.widget.setColumnHidden(2, false);
    QCOMPARE(files.header()->sectionSize(0), before);
    QCOMPARE(files.header()->sectionSize(2), scaled(60));
}

void TableOptionsTest::aligns_data()
{
    QTest::addColumn<bool>("hasOwn");
    QTest::addColumn<Qt::Alignment>("alignment");
    QTest::newRow("by the column") << false << (Qt::AlignRight | Qt::AlignVCenter);
    QTest::newRow("of its own") << true << Qt::Alignment(Qt::AlignCenter);
}

void TableOptionsTest::aligns()
{
    QFETCH(bool, hasOwn);
    Files files;
    auto *item = new QTableWidgetItem("1");
    files.table()->setItem(0, 2, item);
    if (hasOwn)
        item->setTextAlignment(Qt::AlignCenter);
    const Qt::Alignment right = Qt::AlignRight | Qt::AlignVCenter;
    files.widget.setColumnAlignment(2, Qt::AlignCenter);
    files.widget.setColumnAlignment(2, right);
    files.widget.setColumnAlignment(9, right);
    QCOMPARE(files.header()->model()->headerData(2, Qt::Horizontal, Qt::TextAlignmentRole).toInt(),
        int(right));
    struct Probe : QStyledItemDelegate
    {
        using QStyledItemDelegate::initStyleOption;
    };
    QStyleOptionViewItem option;
    const auto *delegate =
        static_cast<QStyledItemDelegate *>(files.table()->itemDelegateForColumn(2));
    (delegate->*&Probe::initStyleOption)(&option, files.table()->model()->index(0, 2));
    QTEST(option.displayAlignment, "alignment");
}

void TableOptionsTest::asksForSorting()
{
    Files files;
    files.widget.setSortRequestsEnabled(true);
    const QSignalSpy requests(&files.widget, &VemoTableWidget::sortRequested);
    const auto last = [&requests] {
        return qMakePair(requests.last()[0].toInt(), requests.last()[1].value<Qt::SortOrder>());
    };
    files.click(1);
    QCOMPARE(last(), qMakePair(1, Qt::AscendingOrder));
    QVERIFY(files.header()->isSortIndicatorShown());
    QCOMPARE(files.header()->sortIndicatorSection(), 1);
    files.click(1);
    QCOMPARE(last(), qMakePair(1, Qt::DescendingOrder));
    files.click(0);
    QCOMPARE(last(), qMakePair(0, Qt::AscendingOrder));
    QCOMPARE(requests.size(), 3);
    files.widget.setSortRequestsEnabled(false);
    files.click(1);
    QCOMPARE(requests.size(), 3);
}

void TableOptionsTest::showsTheArrowOfTheProgram()
{
    Files files;
    files.widget.setSortRequestsEnabled(true);
    const QSignalSpy requests(&files.widget, &VemoTableWidget::sortRequested);
    QCOMPARE(files.header()->sortIndicatorSection(), -1);
    files.widget.setSortIndicator(2, Qt::DescendingOrder);
    QCOMPARE(files.header()->sortIndicatorSection(), 2);
    QCOMPARE(files.header()->sortIndicatorOrder(), Qt::DescendingOrder);
    for (const int none : {3, -1, -7}) {
        files.widget.setSortIndicator(none, Qt::AscendingOrder);
        QCOMPARE(files.header()->sortIndicatorSection(), -1);
    }
    QCOMPARE(requests.size(), 0);
}

void TableOptionsTest::assistiveToolsGetAColumnForEachCaption()
{
    Files files;
    files.table()->setAccessibleName("Files");
    files.widget.setColumnHidden(2, true);
    QAccessibleInterface *row = QAccessible::queryAccessibleInterface(files.header());
    QCOMPARE(row->role(), QAccessible::Row);
    QCOMPARE(row->text(QAccessible::Name), QString("Files"));
    QCOMPARE(row->childCount(), files.table()->columnCount());
    QCOMPARE(row->rect().width(), files.header()->visibleRegion().boundingRect().width());
    QVERIFY(row->rect().width() <= files.widget.width());
    for (int column = 0; column < row->childCount(); ++column) {
        QAccessibleInterface *header = row->child(column);
        QCOMPARE(header->role(), QAccessible::ColumnHeader);
        QCOMPARE(
            header->text(QAccessible::Name), files.table()->horizontalHeaderItem(column)->text());
        QCOMPARE(header->state().invisible, column == 2);
        QCOMPARE(header->parent(), row);
        QCOMPARE(row->indexOfChild(header), column);
        QVERIFY(!header->actionInterface());
    }
    QAccessibleInterface *second = row->child(1);
    QCOMPARE(row->childAt(second->rect().center().x(), second->rect().center().y()), second);

    files.widget.setSortRequestsEnabled(true);
    const QSignalSpy requests(&files.widget, &VemoTableWidget::sortRequested);
    for (const auto order : {Qt::AscendingOrder, Qt::DescendingOrder}) {
        second->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        QCOMPARE(requests.last()[0].toInt(), 1);
        QCOMPARE(requests.last()[1].value<Qt::SortOrder>(), order);
    }
    QCOMPARE(requests.size(), 2);
}

void TableOptionsTest::extraSectionAsksForNothing()
{
    Files files;
    files.widget.setSortRequestsEnabled(true);
    files.widget.setSortIndicator(1, Qt::DescendingOrder);
    const QSignalSpy requests(&files.widget, &VemoTableWidget::sortRequested);
    files.click(3);
    QCOMPARE(requests.size(), 0);
    QCOMPARE(files.header()->sortIndicatorSection(), 1);
    QCOMPARE(files.header()->sortIndicatorOrder(), Qt::DescendingOrder);
}

void TableOptionsTest::keepsDraggedWidths_data()
{
    QTest::addColumn<bool>("areKept");
    QTest::newRow("told to") << true;
    QTest::newRow("by default") << false;
}

void TableOptionsTest::keepsDraggedWidths()
{
    QFETCH(bool, areKept);
    Files files;
    if (areKept)
        files.widget.setDraggedWidthsKept(true);
    QCOMPARE(files.widget.areDraggedWidthsKept(), areKept);
    const int share = files.header()->sectionSize(0);
    files.widget.resize(scaled(450), scaled(200));
    QVERIFY(files.header()->sectionSize(0) > share); // not dragged yet
    files.header()->resizeSection(0, 150);
    files.widget.resize(scaled(500), scaled(200));
    QCOMPARE(files.header()->sectionSize(0) == 150, areKept);
    files.widget.setDraggedWidthsKept(true); // forgets
    files.widget.resize(scaled(400), scaled(200));
    QCOMPARE(files.header()->sectionSize(0), share);
}

void TableOptionsTest::showsItsEmptyText()
{
    Files files(0);
    files.widget.setEmptyText("No files");
    QCOMPARE(files.widget.emptyText(), QString("No files"));
    QVERIFY(files.emptyLabel()->isVisible());
    QCOMPARE(files.emptyLabel()->styleSheet(), getStyleSheet("component.table_empty_text"));
    files.widget.resize(scaled(300), scaled(120));
    QCOMPARE(files.emptyLabel()->geometry(), files.table()->viewport()->geometry());
    files.table()->setRowCount(1);
    QVERIFY(!files.emptyLabel()->isVisible());
    files.table()->setRowCount(0);
    QVERIFY(files.emptyLabel()->isVisible());
    files.widget.setEmptyText({});
    QVERIFY(!files.emptyLabel()->isVisible());
}

void TableOptionsTest::showsThatItIsBusy()
{
    Files files(0);
    QVERIFY(!files.widget.isBusy());
    QVERIFY(!files.busyBar());
    files.widget.setEmptyText("No files");
    files.widget.setBusyText("Reading");
    QCOMPARE(files.widget.busyText(), QString("Reading"));
    QCOMPARE(files.emptyLabel()->text(), QString("No files"));

    files.widget.setBusy(true);
    QVERIFY(files.widget.isBusy());
    QVERIFY(files.busyBar()->isVisible());
    QVERIFY(files.emptyLabel()->isVisible());
    QCOMPARE(files.emptyLabel()->text(), QString("Reading"));
    files.table()->setRowCount(1);
    QVERIFY(files.busyBar()->isVisible());
    QVERIFY(!files.emptyLabel()->isVisible());
    QTest::mouseClick(files.table()->viewport(), Qt::LeftButton, {}, {5, scaled(1)});
    QCOMPARE(files.table()->currentRow(), 0); // also where the bar is

    files.table()->setRowCount(0);
    files.widget.setBusy(false);
    QVERIFY(!files.busyBar()->isVisible());
    QCOMPARE(files.emptyLabel()->text(), QString("No files"));
    QVERIFY(files.emptyLabel()->isVisible());
}

void TableOptionsTest::busyBarIsThatWideAndNamed()
{
    Files files;
    files.widget.setBusy(true);
    files.widget.setBusyText("Reading");
    QCOMPARE(files.busyBar()->styleSheet(), getStyleSheet("component.table_busy"));
    files.widget.resize(scaled(300), scaled(120));
    const QRect rows = files.table()->viewport()->geometry();
    QCOMPARE(files.busyBar()->geometry(), QRect(rows.topLeft(), QSize(rows.width(), scaled(3))));
    const QAccessibleInterface *bar = QAccessible::queryAccessibleInterface(files.busyBar());
    QCOMPARE(bar->role(), QAccessible::ProgressBar);
    QCOMPARE(bar->text(QAccessible::Name), QString("Reading"));
}

void TableOptionsTest::restoresItsState()
{
    Files files;
    files.widget.setDraggedWidthsKept(true);
    files.header()->resizeSection(0, 170);
    files.header()->resizeSection(1, 93);
    files.columns()->moveSection(0, 1);
    files.widget.setColumnHidden(2, true);
    files.header()->resizeSection(0, 170);
    files.widget.setSortIndicator(1, Qt::DescendingOrder);
    const QByteArray state = files.widget.saveState();

    Files other;
    other.widget.setSortRequestsEnabled(true);
    other.widget.setDraggedWidthsKept(true);
    const QSignalSpy requests(&other.widget, &VemoTableWidget::sortRequested);
    QVERIFY(other.widget.restoreState(state));
    QCOMPARE(other.of(other.header()), files.of(files.header()));
    QCOMPARE(other.of(other.columns()), files.of(files.columns()));
    QCOMPARE(other.header()->sectionSize(0), 170);
    QVERIFY(other.widget.isColumnHidden(2));
    QCOMPARE(other.header()->sortIndicatorSection(), 1);
    QCOMPARE(other.header()->sortIndicatorOrder(), Qt::DescendingOrder);
    QCOMPARE(requests.size(), 0);
    QCOMPARE(other.widget.saveState(), state);
}

void TableOptionsTest::refusesAnotherState_data()
{
    QTest::addColumn<QByteArray>("state");
    const QByteArray state = Files().widget.saveState();
    QTest::newRow("none") << QByteArray();
    QTest::newRow("of Qt's header") << Files().columns()->saveState();
    QTest::newRow("cut") << state.left(state.size() - 3);
    QByteArray renamed = state;
    renamed.replace(QByteArray("\0N\0a", 4), QByteArray("\0M\0a", 4));
    QTest::newRow("another name") << renamed;
    QByteArray counted = state;
    counted[4] = '\x7f';
    QTest::newRow("a huge count") << counted;
}

void TableOptionsTest::refusesAnotherState()
{
    QFETCH(QByteArray, state);
    Files files;
    const auto before = files.of(files.header());
    QVERIFY(!files.widget.restoreState(state));
    QCOMPARE(files.of(files.header()), before);
}

VEMO_TEST_MAIN(TableOptionsTest)
#include "tst_tableoptions.moc"
