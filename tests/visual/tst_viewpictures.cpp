// SPDX-License-Identifier: MIT
#include "core/scaling_p.h"
#include "visual/baselinetest.h"

#include <vemo/defaulttheme.h>
#include <vemo/filesystemtreewidgetitem.h>
#include <vemo/imagemanager.h>
#include <vemo/itemdelegate.h>
#include <vemo/stylemanager.h>
#include <vemo/vemotablewidget.h>
#include <vemo/vemotreewidget.h>

#include <QHeaderView>

namespace {

using Item = FileSystemTreeWidgetItem;

constexpr QSize kTableSize(128, 120); // design pixels
constexpr QSize kTreeSize(112, 118);

VemoTableWidget *newTable(int rows = 3)
{
    VemoTableColumnsInfo columns;
    columns.addColumn("ab", 40, true, 1.0);
    columns.addColumn("cd", 48, false, 0.0);
    auto *widget = new VemoTableWidget(columns, nullptr);
    QTableWidget *table = widget->getTable();
    table->setRowCount(rows);
    for (int row = 0; row < rows; ++row) {
        table->setItem(row, 0, new QTableWidgetItem("e"));
        table->item(row, 0)->setIcon(getGlobalImage("pdf"));
        table->setItem(row, 1, new QTableWidgetItem("fg"));
    }
    return widget;
}

QImage tablePicture(const std::function<void(Stage &, VemoTableWidget *)> &change, int rows = 3)
{
    VemoTableWidget *table = newTable(rows);
    Stage stage(table, kTableSize);
    change(stage, table);
    return stage.picture();
}

QPoint middleOf(QTableWidget *table, int row)
{
    return table->visualItemRect(table->item(row, 1)).center();
}

QPoint middleOf(const QHeaderView *header, int section)
{
    return {
        header->sectionPosition(section) + header->sectionSize(section) / 2, header->height() / 2};
}

void hoverRow(Stage &stage, VemoTableWidget *table)
{
    stage.hover(table->getTable()->viewport(), middleOf(table->getTable(), 1));
}

void selectRow(Stage &stage, VemoTableWidget *table)
{
    // Not selectRow(), which from right to left makes no cell the current one.
    table->getTable()->setCurrentCell(1, 0);
    table->getTable()->setFocus();
    hoverRow(stage, table);
}

void disableWithSelection(Stage &, VemoTableWidget *table)
{
    table->getTable()->selectRow(1);
    table->setEnabled(false);
}

void hoverHeader(Stage &stage, VemoTableWidget *table)
{
    table->getHeader()->setSectionsClickable(true);
    stage.hover(table->getHeader()->viewport(), middleOf(table->getHeader(), 0));
}

void pressHeader(Stage &stage, VemoTableWidget *table)
{
    hoverHeader(stage, table);
    stage.press(table->getHeader()->viewport(), middleOf(table->getHeader(), 0));
}

void sortHeader(VemoTableWidget *table, Qt::SortOrder order)
{
    table->getHeader()->setSortIndicatorShown(true);
    table->getHeader()->setSortIndicator(0, order);
}

void addTables(Looks &looks)
{
    const auto add = [&looks](const char *name, void (*change)(Stage &, VemoTableWidget *),
                         int rows = 3) {
        looks.append({name, [=] { return tablePicture(change, rows); }});
    };
    add("table", [](Stage &, VemoTableWidget *) {});
    add(
        "table-scrolled", [](Stage &, VemoTableWidget *) {}, 6);
    add("table-hover", hoverRow);
    add("table-selected", selectRow);
    add("table-disabled", disableWithSelection);
    add("header-hover", hoverHeader);
    add("header-pressed", pressHeader);
    add("header-up",
        [](Stage &, VemoTableWidget *table) { sortHeader(table, Qt::DescendingOrder); });
    add("header-down",
        [](Stage &, VemoTableWidget *table) { sortHeader(table, Qt::AscendingOrder); });
}

Item *newItem(const QString &text, Qt::CheckState state)
{
    auto *item = new Item;
    item->setText(0, text);
    item->setIcon(0, getGlobalImage("folder"));
    item->setCheckState(0, state);
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    return item;
}

VemoTreeWidget *newTree(bool isExpanded)
{
    auto *tree = new VemoTreeWidget;
    tree->setHeaderHidden(true);
    tree->setStyleSheet(getStyleSheet("component.tree") + getStyleSheet("component.scrollbar"));
    tree->setBackgroundColor(defaultThemeColor("selection"), defaultThemeColor("hover"));
    auto *delegate = new ItemDelegate;
    delegate->setParent(tree);
    tree->setItemDelegate(delegate);
    Item *parent = newItem("ab", Qt::PartiallyChecked);
    parent->addChild(newItem("cd", Qt::Checked));
    tree->addTopLevelItem(parent);
    tree->addTopLevelItem(newItem("ef", Qt::Unchecked));
    parent->setExpanded(isExpanded);
    return tree;
}

QImage treePicture(
    bool isExpanded, const std::function<void(Stage &, VemoTreeWidget *)> &change = {})
{
    VemoTreeWidget *tree = newTree(isExpanded);
    Stage stage(tree, kTreeSize);
    if (change)
        change(stage, tree);
    return stage.picture();
}

void hoverItem(Stage &stage, VemoTreeWidget *tree)
{
    stage.hover(tree->viewport(), tree->visualItemRect(tree->topLevelItem(1)).center());
}

void focusItem(Stage &stage, VemoTreeWidget *tree)
{
    tree->setCurrentItem(tree->topLevelItem(1));
    stage.put(State::Focus, tree);
}

void disableTree(Stage &stage, VemoTreeWidget *tree)
{
    tree->setCurrentItem(tree->topLevelItem(1));
    stage.put(State::Disabled, tree);
}

void addTrees(Looks &looks)
{
    const auto add = [&looks](const char *name, void (*change)(Stage &, VemoTreeWidget *)) {
        looks.append({name, [=] { return treePicture(true, change); }});
    };
    looks.append({"tree-closed", [] { return treePicture(false); }});
    looks.append({"tree-open", [] { return treePicture(true); }});
    add("tree-hover", hoverItem);
    add("tree-selected", focusItem);
    add("tree-disabled", disableTree);
    add("tree-editor",
        [](Stage &, VemoTreeWidget *tree) { tree->editItem(tree->topLevelItem(1)); });
}

} // namespace

class ViewPictures : public BaselineTest
{
    Q_OBJECT

public:
    ViewPictures() : BaselineTest("view") { }

protected:
    Looks looks() const override;
};

Looks ViewPictures::looks() const
{
    Looks looks;
    addTables(looks);
    addTrees(looks);
    return looks;
}

VEMO_TEST_MAIN(ViewPictures)
#include "tst_viewpictures.moc"
