// SPDX-License-Identifier: MIT
#include "gallery/demotexts.h"
#include "gallery/page.h"
#include "gallery/pages/pages.h"
#include "gallery/specimens.h"

#include <vemo/dpiinfo.h>
#include <vemo/imagemanager.h>

#include <QCalendarWidget>
#include <QCheckBox>
#include <QHeaderView>
#include <QLabel>
#include <QListWidget>
#include <QScrollArea>
#include <QTabWidget>
#include <QTableWidget>
#include <QToolBox>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

// In design pixels.
constexpr int kTabsHeight = 184;
constexpr int kHeight = 192;

template <typename Widget> Widget *sized(Widget *widget, int height)
{
    widget->setFixedHeight(DPIinfo::scaled(height));
    return widget;
}

QWidget *newPane(const QString &text)
{
    auto *pane = new QWidget;
    auto *layout = new QVBoxLayout(pane);
    layout->addWidget(new QCheckBox(text));
    layout->addStretch();
    return pane;
}

QTabWidget *newTabs(QTabWidget::TabPosition position)
{
    auto *tabs = new QTabWidget;
    tabs->setTabPosition(position);
    for (const char *title : {"Copy", "Sync", "Off"})
        tabs->addTab(newPane(QString("%1 at night").arg(title)), title);
    tabs->setTabEnabled(2, false);
    tabs->setMinimumHeight(DPIinfo::scaled(kTabsHeight));
    return tabs;
}

QTabWidget *newClosableTabs()
{
    QTabWidget *tabs = newTabs(QTabWidget::North);
    tabs->setTabsClosable(true);
    tabs->setMovable(true);
    return tabs;
}

QTabWidget *newDocumentTabs()
{
    QTabWidget *tabs = newTabs(QTabWidget::North);
    tabs->setDocumentMode(true);
    return tabs;
}

QTabWidget *newManyTabs()
{
    QTabWidget *tabs = newTabs(QTabWidget::North);
    for (int i = 1; i < 9; ++i)
        tabs->addTab(newPane("More"), QString("More %1").arg(i));
    return tabs;
}

QToolBox *newToolBox()
{
    auto *box = new QToolBox;
    box->addItem(newPane("At night"), getGlobalIcon("bt_clock"), "Times");
    box->addItem(newPane("All folders"), getGlobalIcon("folder"), "Folders");
    box->setMinimumHeight(DPIinfo::scaled(kTabsHeight));
    const QList<QScrollArea *> areas = box->findChildren<QScrollArea *>();
    for (QScrollArea *area : areas)
        area->setAccessibleName("Page");
    return box;
}

void addTabs(Page &page)
{
    page.addSection("Tabs and tool boxes");
    page.addGrid(3,
        {newTabs(QTabWidget::North), newTabs(QTabWidget::South), newClosableTabs(),
            newTabs(QTabWidget::West), newTabs(QTabWidget::East), newDocumentTabs(), newManyTabs(),
            newToolBox()});
}

QListWidget *newList()
{
    auto *list = named(sized(new QListWidget, kHeight), "Folders");
    for (const char *name : {"Documents", "Music", "Pictures", "Public", "Videos", "Work", "Zoo"})
        list->addItem(new QListWidgetItem(getGlobalIcon("folder"), name));
    list->item(2)->setCheckState(Qt::Checked);
    list->item(3)->setFlags(Qt::NoItemFlags);
    list->setCurrentRow(1);
    return list;
}

QTreeWidget *newTree()
{
    auto *tree = named(sized(new QTreeWidget, kHeight), "Backup");
    tree->setHeaderLabels({"Name", "Size"});
    auto *root = new QTreeWidgetItem(tree, {"Backup", demoSize(12, "MB")});
    auto *child = new QTreeWidgetItem(root, {"Music", demoSize(8, "MB")});
    new QTreeWidgetItem(child, {"Songs", demoSize(8, "MB")});
    auto *choice = new QTreeWidgetItem(root, {"Notes", demoSize(4, "MB")});
    choice->setCheckState(0, Qt::PartiallyChecked);
    tree->expandAll();
    tree->setCurrentItem(child);
    tree->setSortingEnabled(true);
    // In Arabic the calendar is wide, and leaves little for the other columns of the page.
    tree->header()->setStretchLastSection(false);
    tree->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    tree->header()->setSectionResizeMode(0, QHeaderView::Stretch);
    return tree;
}

QTableWidget *newTable()
{
    auto *table = named(sized(new QTableWidget(6, 3), kHeight), "Files");
    table->setHorizontalHeaderLabels({"Name", "Size", "Kind"});
    for (int row = 0; row < 6; ++row) {
        table->setItem(row, 0, new QTableWidgetItem(QString("File %1").arg(row + 1)));
        table->setItem(row, 1, new QTableWidgetItem(demoSize(row * 7 + 3, "KB")));
        table->setItem(row, 2, new QTableWidgetItem("Text"));
    }
    table->setCurrentCell(1, 1);
    return table;
}

QTableWidget *newPlainTable()
{
    QTableWidget *table = newTable();
    table->setAlternatingRowColors(true);
    table->setShowGrid(false);
    table->verticalHeader()->hide();
    table->horizontalHeader()->setStretchLastSection(true);
    table->setSelectionBehavior(QTableView::SelectRows);
    table->setCurrentCell(1, 0); // QTableView::selectRow() does nothing from right to left.
    return table;
}

QCalendarWidget *newCalendar()
{
    auto *calendar = new QCalendarWidget;
    for (const auto &[part, name] : {std::make_pair("qt_calendar_prevmonth", "Previous month"),
             std::make_pair("qt_calendar_nextmonth", "Next month"),
             std::make_pair("qt_calendar_calendarview", "Days")})
        named(calendar->findChild<QWidget *>(part), name);
    return named(calendar, "Calendar");
}

void addViews(Page &page)
{
    page.addSection("Lists, trees and tables", "Rows of 28 pixels, like ours.");
    page.addGrid(
        3, {newList(), newTree(), newTable(), newPlainTable(), disabled(newTree()), newCalendar()});
}

} // namespace

void buildStockViewsPage(Page &page)
{
    page.addSummary("Qt's own tabs, lists, trees, tables and its calendar.");
    addTabs(page);
    addViews(page);
}
