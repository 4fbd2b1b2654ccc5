// SPDX-License-Identifier: MIT
#include <vemo/vemotablewidget.h>

#include "core/scaling_p.h"
#include "support/activewindow.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/stylemanager.h>

#include <QAccessible>
#include <QHeaderView>
#include <QLineEdit>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace {

/// A fixed, a proportional and a draggable column.
VemoTableColumnsInfo threeColumns()
{
    VemoTableColumnsInfo columns;
    columns.addColumn("Size", 80, false, 0.0);
    columns.addColumn("Name", 100, true, 0.5);
    columns.addColumn("Owner", 60, true, 0.0);
    return columns;
}

struct Table
{
    explicit Table(const VemoTableColumnsInfo &columns) : widget(columns, nullptr) { }

    VemoTableWidget widget;
    QHeaderView *header = widget.getHeader();
    QTableWidget *table = widget.getTable();
    QHeaderView *columns = table->horizontalHeader();
    QScrollArea *area = widget.findChild<QScrollArea *>();
    /// The header of the invisible table that stores the labels.
    QHeaderView *labels =
        static_cast<QTableWidget *>(header->model()->QObject::parent())->horizontalHeader();
};

} // namespace

Q_DECLARE_METATYPE(Qt::Key)

class VemoTableWidgetTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void numbersTheColumnsThatAreAdded();
    void isAPlainWidget();
    void copiesItsColumns();
    void labelsItsHeader();
    void namesItsColumnsForAScreenReader();
    void sizesTheSectionsOfBothHeaders();
    void makesProportionalSectionsDraggable();
    void keepsAnExtraSectionAboveTheScrollBar();
    void setsUpItsHeader();
    void setsUpItsTable();
    void stacksHeaderAndTable();
    void showsNoOtherTable();
    void makesColumnsAsWideAsTheirSections();
    void scrollsTheHeaderSideways();
    void hidesTheScrollBarThatHasNothingToScroll();
    void showsTheScrollBarWhenRowsDoNotFit();
    void reportsItsSizeBeforeItLaysItselfOut();
    void reportsEachResizeOnce();
    void letsTabLeave_data();
    void letsTabLeave();
    void movesInsideByArrows();
    void selectsWholeRowsAndEditsNothing();
    void holdsManyRowsAndColumns();
    void survivesItsDeletionWhileItIsResized();
};

void VemoTableWidgetTest::numbersTheColumnsThatAreAdded()
{
    VemoTableColumnsInfo columns;
    QCOMPARE(columns.addColumn("Name", 100, true, 1.0), 0);
    QCOMPARE(columns.addColumn("Name", 100, true, 1.0), 1);
    VemoTableColumnsInfo copy = columns;
    QCOMPARE(copy.addColumn("Size", 80, false, 0.0), 2);
    QCOMPARE(columns.addColumn("Date", 80, false, 0.0), 2);
    VemoTableColumnsInfo moved = std::move(copy);
    QCOMPARE(moved.addColumn("Type", 80, false, 0.0), 3);
    columns = VemoTableColumnsInfo();
    QCOMPARE(columns.addColumn("Name", 100, true, 1.0), 0);
}

void VemoTableWidgetTest::isAPlainWidget()
{
    QCOMPARE(VemoTableWidget::staticMetaObject.superClass(), &QWidget::staticMetaObject);
}

void VemoTableWidgetTest::copiesItsColumns()
{
    VemoTableColumnsInfo columns = threeColumns();
    const Table table(columns);
    columns.addColumn("Date", 80, false, 0.0);
    QCOMPARE(table.table->columnCount(), 3);
    QCOMPARE(table.header->count(), 4);
}

void VemoTableWidgetTest::labelsItsHeader()
{
    const Table table(threeColumns());
    QStringList labels;
    for (int section = 0; section < table.header->count(); ++section)
        labels << table.header->model()->headerData(section, Qt::Horizontal).toString();
    QCOMPARE(labels, QStringList({"Size", "Name", "Owner", ""}));
    QCOMPARE(table.header->model()->rowCount(), 0);
    QCOMPARE(table.table->rowCount(), 0);
}

void VemoTableWidgetTest::namesItsColumnsForAScreenReader()
{
    Table table(threeColumns());
    const auto names = [&] {
        QAccessibleTableInterface *cells =
            QAccessible::queryAccessibleInterface(table.table)->tableInterface();
        QStringList names;
        for (int column = 0; column < cells->columnCount(); ++column)
            names << cells->columnDescription(column);
        return names;
    };
    QCOMPARE(names(), QStringList({"Size", "Name", "Owner"}));
    VemoTableColumnsInfo columns = threeColumns();
    columns.addColumn("Date", 80, false, 0.0);
    table.widget.setColumns(columns);
    QCOMPARE(names(), QStringList({"Size", "Name", "Owner", "Date"}));
}

void VemoTableWidgetTest::sizesTheSectionsOfBothHeaders()
{
    VemoTableColumnsInfo columns = threeColumns();
    columns.addColumn("!", 6, false, 0.0);
    columns.addColumn("none", 0, false, 0.0);
    columns.addColumn("vast", 100'000, false, 0.0);
    const Table table(columns);
    const QList<int> widths {80, 100, 60, 6, 0, 100'000};
    for (int column = 0; column < widths.size(); ++column) {
        QCOMPARE(table.header->sectionSize(column), scaled(widths.at(column)));
        QCOMPARE(table.table->columnWidth(column), scaled(widths.at(column)));
        QCOMPARE(table.labels->sectionSize(column), scaled(widths.at(column)));
    }
    QCOMPARE(table.labels->sectionSize(widths.size()), scaled(12));
}

void VemoTableWidgetTest::makesProportionalSectionsDraggable()
{
    const Table table(threeColumns());
    for (const QHeaderView *header : {table.header, table.columns}) {
        QCOMPARE(header->sectionResizeMode(0), QHeaderView::Fixed);
        QCOMPARE(header->sectionResizeMode(1), QHeaderView::Interactive);
        QCOMPARE(header->sectionResizeMode(2), QHeaderView::Interactive);
    }
}

void VemoTableWidgetTest::keepsAnExtraSectionAboveTheScrollBar()
{
    const Table table(threeColumns());
    QCOMPARE(table.header->sectionSize(3), scaled(12));
    QCOMPARE(table.header->sectionResizeMode(3), QHeaderView::Fixed);
    const Table empty {VemoTableColumnsInfo()};
    QCOMPARE(empty.header->count(), 1);
    QCOMPARE(empty.header->sectionSize(0), scaled(12));
    QCOMPARE(empty.table->columnCount(), 0);
}

void VemoTableWidgetTest::setsUpItsHeader()
{
    const Table table(threeColumns());
    QCOMPARE(table.header->orientation(), Qt::Horizontal);
    QCOMPARE(table.header->defaultAlignment(), Qt::AlignLeft | Qt::AlignVCenter);
    QCOMPARE(table.header->horizontalScrollMode(), QAbstractItemView::ScrollPerPixel);
    QCOMPARE(table.header->styleSheet(), getStyleSheet("component.table_header"));
    QCOMPARE(table.header->size(), QSize(scaled(20000), scaled(30)));
    QCOMPARE(table.header->minimumSize(), table.header->maximumSize());
    QCOMPARE(table.area->widget(), table.header);
    QCOMPARE(table.area->minimumHeight(), scaled(30));
    QCOMPARE(table.area->maximumHeight(), scaled(30));
    QCOMPARE(table.area->focusPolicy(), Qt::NoFocus);
    QCOMPARE(table.area->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(table.area->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    QCOMPARE(table.area->styleSheet(), QString("QScrollArea { border: none; }"));
}

void VemoTableWidgetTest::setsUpItsTable()
{
    const Table table(threeColumns());
    QVERIFY(qobject_cast<ResizeSignalTableWidget *>(table.table));
    QCOMPARE(table.table->selectionBehavior(), QAbstractItemView::SelectRows);
    QCOMPARE(table.table->editTriggers(), QAbstractItemView::NoEditTriggers);
    QVERIFY(table.columns->isHidden());
    QVERIFY(table.table->verticalHeader()->isHidden());
    QCOMPARE(table.table->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOn);
    QVERIFY(table.table->verticalScrollBar()->isHidden());
    QCOMPARE(table.table->verticalScrollMode(), QAbstractItemView::ScrollPerPixel);
    QCOMPARE(table.table->horizontalScrollMode(), QAbstractItemView::ScrollPerPixel);
    QCOMPARE(table.table->verticalHeader()->defaultSectionSize(), scaled(28));
    QCOMPARE(table.table->styleSheet(),
        getStyleSheet("component.table") + getStyleSheet("component.scrollbar"));
    QVERIFY(!table.table->showGrid());
    table.table->setRowCount(1);
    QCOMPARE(table.table->rowHeight(0), scaled(28));
}

void VemoTableWidgetTest::stacksHeaderAndTable()
{
    const Table table(threeColumns());
    const QLayout *layout = table.widget.layout();
    QVERIFY(qobject_cast<const QVBoxLayout *>(layout));
    QCOMPARE(layout->spacing(), 0);
    QCOMPARE(layout->contentsMargins(), QMargins());
    QCOMPARE(layout->count(), 2);
    QCOMPARE(layout->itemAt(0)->widget(), table.area);
    QCOMPARE(layout->itemAt(1)->widget(), table.table);
}

void VemoTableWidgetTest::showsNoOtherTable()
{
    Table table(threeColumns());
    table.widget.show();
    const auto tables = table.widget.findChildren<QTableWidget *>();
    QCOMPARE(tables, QList<QTableWidget *>({table.table}));
    QCOMPARE(QApplication::topLevelWidgets().count(&table.widget), 1);
    for (const QWidget *window : QApplication::topLevelWidgets())
        QVERIFY(window == &table.widget || !window->isVisible());
}

void VemoTableWidgetTest::makesColumnsAsWideAsTheirSections()
{
    Table table(threeColumns());
    table.header->resizeSection(2, scaled(150));
    QCOMPARE(table.table->columnWidth(2), scaled(150));
    table.widget.slotSectionResized(0, 0, 33);
    QCOMPARE(table.table->columnWidth(0), 33);
    QCOMPARE(table.header->sectionSize(0), scaled(80));
    table.widget.slotSectionResized(99, 0, 33);
}

void VemoTableWidgetTest::scrollsTheHeaderSideways()
{
    Table table(threeColumns());
    table.widget.resize(scaled(200), scaled(200));
    table.widget.show();
    QTRY_VERIFY(table.table->horizontalScrollBar()->maximum() > 0);
    table.table->horizontalScrollBar()->setValue(table.table->horizontalScrollBar()->maximum());
    QCOMPARE(
        table.area->horizontalScrollBar()->value(), table.table->horizontalScrollBar()->maximum());
    const int section = table.header->mapTo(&table.widget, QPoint()).x();
    QCOMPARE(section + table.header->sectionPosition(2),
        table.table->viewport()->mapTo(&table.widget, QPoint()).x()
            + table.table->columnViewportPosition(2));
}

void VemoTableWidgetTest::hidesTheScrollBarThatHasNothingToScroll()
{
    Table table(threeColumns());
    QScrollBar *bar = table.table->verticalScrollBar();
    table.widget.slotVerticalScrollRangeChanged(0, 7);
    QVERIFY(!bar->isHidden());
    table.widget.slotVerticalScrollRangeChanged(0, 0);
    QVERIFY(bar->isHidden());
}

void VemoTableWidgetTest::showsTheScrollBarWhenRowsDoNotFit()
{
    Table table(threeColumns());
    table.widget.resize(scaled(400), scaled(200));
    table.widget.show();
    QScrollBar *bar = table.table->verticalScrollBar();
    table.table->setRowCount(2);
    QCoreApplication::processEvents();
    QVERIFY(!bar->isVisible());
    table.table->setRowCount(50);
    QTRY_VERIFY(bar->isVisible());
    table.table->setRowCount(2);
    QTRY_VERIFY(!bar->isVisible());
}

void VemoTableWidgetTest::reportsItsSizeBeforeItLaysItselfOut()
{
    ResizeSignalTableWidget table(0, 1);
    table.setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    table.setColumnWidth(0, 1000);
    table.resize(300, 200);
    table.show();
    QTRY_COMPARE(table.horizontalScrollBar()->pageStep(), table.viewport()->width());
    const int before = table.horizontalScrollBar()->pageStep();
    QList<int> during;
    connect(&table, &ResizeSignalTableWidget::sigResized, &table,
        [&] { during << table.horizontalScrollBar()->pageStep(); });
    table.resize(500, 200);
    QCOMPARE(during.value(0), before);
    QCOMPARE(table.horizontalScrollBar()->pageStep(), before + 200);
}

void VemoTableWidgetTest::reportsEachResizeOnce()
{
    ResizeSignalTableWidget table(0, 0);
    table.resize(300, 200);
    table.show();
    const QSignalSpy sizes(&table, SIGNAL(sigResized(QSize)));
    table.resize(310, 220);
    QCOMPARE(sizes.size(), 1);
    QCOMPARE(sizes.first().first().toSize(), table.viewport()->size());
}

void VemoTableWidgetTest::letsTabLeave_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QString>("focused");
    QTest::newRow("Tab") << Qt::Key_Tab << "after";
    QTest::newRow("Shift+Tab") << Qt::Key_Backtab << "before";
}

void VemoTableWidgetTest::letsTabLeave()
{
    QFETCH(Qt::Key, key);
    QWidget window;
    QLineEdit before(&window);
    before.setObjectName("before");
    VemoTableWidget widget(threeColumns(), &window);
    QLineEdit after(&window);
    after.setObjectName("after");
    widget.getTable()->setRowCount(3);
    QVERIFY(showActive(&window));
    widget.getTable()->setFocus();
    widget.getTable()->setCurrentCell(1, 1);
    QTest::keyClick(window.windowHandle(), key);
    QVERIFY(QApplication::focusWidget());
    QTEST(QApplication::focusWidget()->objectName(), "focused");
    QCOMPARE(widget.getTable()->currentColumn(), 1);
}

void VemoTableWidgetTest::movesInsideByArrows()
{
    Table table(threeColumns());
    table.table->setRowCount(3);
    table.table->setCurrentCell(0, 0);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Down, Qt::Key_Left, Qt::Key_Up})
        QTest::keyClick(table.table, key);
    QCOMPARE(table.table->currentRow(), 1);
    QCOMPARE(table.table->currentColumn(), 0);
}

void VemoTableWidgetTest::selectsWholeRowsAndEditsNothing()
{
    Table table(threeColumns());
    table.widget.resize(scaled(400), scaled(200));
    table.table->setRowCount(2);
    table.table->setItem(1, 0, new QTableWidgetItem("4 KB"));
    table.widget.show();
    const QPoint cell = table.table->visualItemRect(table.table->item(1, 0)).center();
    QTest::mouseClick(table.table->viewport(), Qt::LeftButton, {}, cell);
    QTest::mouseDClick(table.table->viewport(), Qt::LeftButton, {}, cell);
    QVERIFY(table.table->selectionModel()->isRowSelected(1, {}));
    QVERIFY(!table.table->isPersistentEditorOpen(table.table->item(1, 0)));
    QVERIFY(!table.table->viewport()->findChild<QLineEdit *>());
}

void VemoTableWidgetTest::holdsManyRowsAndColumns()
{
    VemoTableColumnsInfo columns;
    for (int column = 0; column < 200; ++column)
        columns.addColumn(QString::number(column), 40, true, 0.005);
    Table table(columns);
    table.table->setRowCount(100'000);
    table.table->setItem(99'999, 199, new QTableWidgetItem("last"));
    table.widget.resize(scaled(600), scaled(400));
    table.widget.show();
    table.table->scrollToItem(table.table->item(99'999, 199));
    QVERIFY(!table.widget.grab().isNull());
    QCOMPARE(table.table->columnWidth(199), scaled(40));
}

void VemoTableWidgetTest::survivesItsDeletionWhileItIsResized()
{
    auto *widget = new VemoTableWidget(threeColumns(), nullptr);
    widget->show();
    const auto *table = qobject_cast<ResizeSignalTableWidget *>(widget->getTable());
    connect(table, SIGNAL(sigResized(QSize)), widget, SLOT(deleteLater()));
    const QPointer<QWidget> guard(widget);
    widget->resize(scaled(600), scaled(400));
    QTRY_VERIFY(!guard);
}

VEMO_TEST_MAIN(VemoTableWidgetTest)
#include "tst_vemotablewidget.moc"
