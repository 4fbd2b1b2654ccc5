// SPDX-License-Identifier: MIT
#include "gallery/demotexts.h"
#include "gallery/page.h"
#include "gallery/pages/pages.h"

#include <vemo/dpiinfo.h>
#include <vemo/imagemanager.h>
#include <vemo/vemotableview.h>
#include <vemo/vemotablewidget.h>

#include <QAbstractTableModel>
#include <QHeaderView>

namespace {

constexpr int kFewRows = 150; // design pixels
constexpr int kManyRows = 240;

void addFile(QTableWidget *table, const QString &picture, const QStringList &cells)
{
    const int row = table->rowCount();
    table->insertRow(row);
    for (int column = 0; column < cells.size(); ++column)
        table->setItem(row, column, new QTableWidgetItem(cells.at(column)));
    table->item(row, 0)->setIcon(getGlobalIcon(picture));
}

VemoTableWidget *finished(VemoTableWidget *widget, const QString &name, int height)
{
    widget->getTable()->setAccessibleName(name);
    widget->setFixedHeight(DPIinfo::scaled(height));
    return widget;
}

VemoTableWidget *fileTable()
{
    VemoTableColumnsInfo columns;
    columns.addColumn(demo("name"), 160, true, 0.7);
    columns.addColumn(demo("owner"), 80, true, 0.3);
    columns.addColumn(demo("changed"), 120, true, 0.0);
    columns.addColumn(demo("size"), 112, false, 0.0);
    auto *widget = new VemoTableWidget(columns, nullptr);
    QTableWidget *table = widget->getTable();
    addFile(table, "folder", {demo("projects"), "Ada", "2026-11-20", ""});
    addFile(
        table, "pdf", {demo("annual_report") + ".pdf", "Grace", "2026-11-18", demoSize(1.2, "MB")});
    addFile(table, "image",
        {"Jahresübersicht der Abteilungen.png", "Änne", "2026-10-02", demoSize(640, "KB")});
    addFile(table, "doc", {"年度报告（最终版）.docx", "王小明", "2026-09-30", demoSize(88, "KB")});
    table->setCurrentCell(1, 0); // QTableView::selectRow() does nothing from right to left.
    return finished(widget, "Files", kFewRows);
}

VemoTableWidget *sortedTable()
{
    VemoTableColumnsInfo columns;
    columns.addColumn(demo("number"), 160, true, 0.5);
    columns.addColumn(demo("square"), 160, true, 0.5);
    auto *widget = new VemoTableWidget(columns, nullptr);
    QTableWidget *table = widget->getTable();
    table->setRowCount(200);
    for (int row = 0; row < table->rowCount(); ++row) {
        const int values[] = {row, row * row};
        for (int column = 0; column < 2; ++column) {
            auto *item = new QTableWidgetItem;
            item->setData(Qt::DisplayRole, values[column]);
            item->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
            table->setItem(row, column, item);
        }
    }
    QHeaderView *header = widget->getHeader();
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);
    header->setSortIndicator(0, Qt::AscendingOrder);
    QObject::connect(header, &QHeaderView::sortIndicatorChanged, table,
        [table](int column, Qt::SortOrder order) { table->sortItems(column, order); });
    return finished(widget, "Squares", kManyRows);
}

VemoTableWidget *wideTable()
{
    VemoTableColumnsInfo columns;
    for (int column = 1; column <= 16; ++column)
        columns.addColumn(demo("column").arg(column), 120, true, 0.0);
    auto *widget = new VemoTableWidget(columns, nullptr);
    QTableWidget *table = widget->getTable();
    table->setRowCount(3);
    for (int row = 0; row < 3; ++row) {
        for (int column = 0; column < 16; ++column) {
            table->setItem(
                row, column, new QTableWidgetItem(QString("%1.%2").arg(column + 1).arg(row + 1)));
        }
    }
    return finished(widget, "Many columns", kFewRows);
}

/// Numbers and their squares.
class Squares : public QAbstractTableModel
{
public:
    using QAbstractTableModel::QAbstractTableModel;

    int rowCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : 1'000'000;
    }
    int columnCount(const QModelIndex &parent = {}) const override
    {
        return parent.isValid() ? 0 : 2;
    }
    QVariant data(const QModelIndex &index, int role) const override
    {
        const qint64 number = index.row() + 1;
        return role == Qt::DisplayRole ? QVariant(index.column() == 0 ? number : number * number)
                                       : QVariant();
    }
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
            return {};
        return demo(section == 0 ? "number" : "square");
    }
};

VemoTableView *longTable()
{
    VemoTableColumnsInfo columns;
    columns.addColumn(demo("number"), 160, true, 0.5);
    columns.addColumn(demo("square"), 160, true, 0.5);
    auto *table = new VemoTableView(columns);
    table->setModel(new Squares(table));
    table->setColumnAlignment(0, Qt::AlignLeft | Qt::AlignVCenter);
    table->setColumnAlignment(1, Qt::AlignLeft | Qt::AlignVCenter);
    table->getView()->setCurrentIndex(table->model()->index(499'999, 0));
    table->getView()->setAccessibleName("A million squares");
    table->setFixedHeight(DPIinfo::scaled(kFewRows));
    return table;
}

VemoTableWidget *busyTable()
{
    VemoTableWidget *widget = fileTable();
    widget->getTable()->setRowCount(2);
    widget->getTable()->setAccessibleName("Busy");
    widget->setBusyText(demo("copying"));
    widget->setBusy(true);
    return widget;
}

VemoTableWidget *disabledTable()
{
    VemoTableWidget *widget = fileTable();
    widget->setEnabled(false);
    return widget;
}

} // namespace

void buildTablesPage(Page &page)
{
    page.addSummary(
        "VemoTableWidget is a read-only table of whole rows under a header of its own.");
    page.addSection("Fixed, proportional and draggable columns",
        "Name and Owner share the free width, 70 to 30; Changed can be dragged and stays as it is; "
        "Size is fixed. Make the window wider.");
    page.add(fileTable());
    page.addCode(R"(VemoTableColumnsInfo columns;
columns.addColumn("Name", 160, true, 0.7); // at least 160 wide
columns.addColumn("Changed", 120, true, 0.0);
columns.addColumn("Size", 112, false, 0.0);
auto *files = new VemoTableWidget(columns, this);)");
    page.addSection("More rows than fit",
        "The header reaches over the scroll bar. Here the host "
        "has wired its clicks: they sort.");
    page.add(sortedTable());
    page.addCode(R"(files->getHeader()->setSectionsClickable(true);
files->getHeader()->setSortIndicatorShown(true);
connect(files->getHeader(), &QHeaderView::sortIndicatorChanged, this, &MainWindow::sort);)");
    page.addSection("More columns than fit", "The header scrolls sideways with the table.");
    page.add(wideTable());
    page.addSection("A million rows",
        "VemoTableView shows a model of the host and only reads the rows that are visible.");
    page.add(longTable());
    page.addCode(R"(auto *squares = new VemoTableView(columns, this);
squares->setModel(model);)");
    page.addSection("Busy", "While the rows are read, a bar moves at their top.");
    page.add(busyTable());
    page.addCode(R"(files->setBusyText("Copying …"); // while there are no rows
files->setBusy(true);)");
    page.addSection("Disabled");
    page.add(disabledTable());
}
