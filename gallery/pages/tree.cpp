// SPDX-License-Identifier: MIT
#include "gallery/demotexts.h"
#include "gallery/page.h"
#include "gallery/pages/pages.h"

#include <vemo/defaulttheme.h>
#include <vemo/dpiinfo.h>
#include <vemo/filesystemtreewidgetitem.h>
#include <vemo/imagemanager.h>
#include <vemo/itemdelegate.h>
#include <vemo/stylemanager.h>
#include <vemo/vemofilterbar.h>
#include <vemo/vemoiconbutton.h>
#include <vemo/vemomenu.h>
#include <vemo/vemotreewidget.h>

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QVBoxLayout>

namespace {

// In design pixels.
constexpr int kTreeHeight = 300;
constexpr int kSmallTreeHeight = 120;

FileSystemTreeWidgetItem *folder(
    const QString &name, const QList<FileSystemTreeWidgetItem *> &children = {})
{
    auto *item = new FileSystemTreeWidgetItem;
    item->setText(0, name);
    item->setPath(name);
    item->setIcon(0, getGlobalIcon("folder"));
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    item->setTreeWidgetItemStatus(FileSystemTreeWidgetItem::LOADED);
    for (FileSystemTreeWidgetItem *child : children)
        item->addChild(child);
    return item;
}

FileSystemTreeWidgetItem *removedFolder(const QString &name)
{
    FileSystemTreeWidgetItem *item = folder(name);
    item->setRemoved(true);
    item->setIcon(0, getGlobalIcon("folder_removed"));
    return item;
}

/// Without the check box flag the tree draws it as disabled; it can be selected all the same.
FileSystemTreeWidgetItem *readOnlyFolder(const QString &name)
{
    FileSystemTreeWidgetItem *item = folder(name);
    item->setRO(true);
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    return item;
}

FileSystemTreeWidgetItem *checked(FileSystemTreeWidgetItem *item, Qt::CheckState state)
{
    item->setCheckState(0, state);
    return item;
}

/// Tab ends the renaming. With Qt's delegate it goes on to the next name, and never past the last.
class FolderDelegate : public ItemDelegate
{
public:
    bool eventFilter(QObject *object, QEvent *event) override
    {
        if (event->type() != QEvent::KeyPress || !isTab(static_cast<QKeyEvent *>(event)->key()))
            return ItemDelegate::eventFilter(object, event);
        auto *editor = static_cast<QWidget *>(object);
        Q_EMIT commitData(editor);
        Q_EMIT closeEditor(editor);
        return true;
    }

private:
    static bool isTab(int key) { return key == Qt::Key_Tab || key == Qt::Key_Backtab; }
};

VemoTreeWidget *newTree(const QString &name, int height)
{
    auto *tree = new VemoTreeWidget;
    tree->setAccessibleName(name);
    tree->setHeaderHidden(true);
    tree->setStyleSheet(getStyleSheet("component.tree") + getStyleSheet("component.scrollbar"));
    tree->setBackgroundColor(defaultThemeColor("selection"), defaultThemeColor("hover"));
    auto *delegate = new FolderDelegate;
    delegate->setParent(tree);
    tree->setItemDelegate(delegate);
    tree->setFixedHeight(DPIinfo::scaled(height));
    return tree;
}

/// Rename and sort.
void showMenu(VemoTreeWidget *tree, QTreeWidgetItem *item, const QPoint &place)
{
    auto *menu = new VemoMenu(tree);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setStyleSheet(getStyleSheet("component.menu"));
    QAction *rename = menu->addAction(demo("rename"));
    rename->setEnabled(item && (item->flags() & Qt::ItemIsEditable));
    QObject::connect(rename, &QAction::triggered, tree, [tree, item] { tree->editItem(item); });
    QObject::connect(menu->addAction(demo("sort_by_name")), &QAction::triggered, tree,
        [tree] { tree->sortItems(0, Qt::AscendingOrder); });
    menu->popup(place);
}

VemoTreeWidget *folderTree()
{
    VemoTreeWidget *tree = newTree("Folders", kTreeHeight);
    FileSystemTreeWidgetItem *home = folder(demo("home"),
        {folder(demo("documents"), {folder("2025"), folder("2026")}), folder(demo("pictures")),
            removedFolder(demo("old_drafts")), readOnlyFolder(demo("system")),
            folder("Gemeinsame Projektunterlagen der Abteilungen"), folder("项目资料")});
    tree->addTopLevelItem(home);
    tree->addTopLevelItem(folder(demo("shared"), {folder(demo("team"))}));
    home->setExpanded(true);
    home->child(0)->setExpanded(true);
    tree->setCurrentItem(home->child(1));
    QObject::connect(
        tree, &VemoTreeWidget::sigMouseRightClickEvent, tree, [tree](QMouseEvent *event) {
            showMenu(tree, tree->itemAt(event->pos()), tree->viewport()->mapToGlobal(event->pos()));
        });
    QObject::connect(tree, &VemoTreeWidget::sigMenuKeyEvent, tree,
        [tree](QTreeWidgetItem *item, const QPoint &position) {
            showMenu(tree, item, tree->viewport()->mapToGlobal(position));
        });
    return tree;
}

VemoTreeWidget *editedTree()
{
    VemoTreeWidget *tree = newTree("A folder being renamed", kSmallTreeHeight);
    tree->addTopLevelItem(folder(demo("new_folder")));
    tree->addTopLevelItem(folder(demo("pictures")));
    tree->editItem(tree->topLevelItem(0));
    return tree;
}

VemoTreeWidget *checkedTree()
{
    VemoTreeWidget *tree = newTree("Folders to check", kSmallTreeHeight);
    FileSystemTreeWidgetItem *documents =
        checked(folder(demo("documents"),
                    {checked(folder("2025"), Qt::Checked), checked(folder("2026"), Qt::Unchecked)}),
            Qt::PartiallyChecked);
    tree->addTopLevelItem(documents);
    tree->addTopLevelItem(checked(folder(demo("pictures")), Qt::Checked));
    documents->setExpanded(true);
    return tree;
}

/// The children of the last folder are added when it is expanded.
VemoTreeWidget *filteredTree()
{
    VemoTreeWidget *tree = newTree("Folders to filter and check", kSmallTreeHeight);
    tree->setCheckPropagation(true);
    tree->setDropSignalsEnabled(true);
    const auto box = [](FileSystemTreeWidgetItem *item) { return checked(item, Qt::Unchecked); };
    FileSystemTreeWidgetItem *documents = box(folder(demo("documents"),
        {checked(folder("2025"), Qt::Checked), box(folder("2026")), box(folder("2027"))}));
    FileSystemTreeWidgetItem *shared = box(folder(demo("shared")));
    tree->addTopLevelItems({documents, box(folder(demo("pictures"))), shared});
    tree->setChildrenState(shared, VemoTreeWidget::ChildrenOnDemand);
    QObject::connect(
        tree, &VemoTreeWidget::childrenRequested, tree, [box](QTreeWidgetItem *parent) {
            parent->addChild(box(folder(demo("team"))));
            parent->addChild(box(folder(demo("projects"))));
        });
    return tree;
}

/// Moves folders into another one.
void moveDropped(const QList<QTreeWidgetItem *> &items, QTreeWidgetItem *target,
    VemoTreeWidget::DropPosition position)
{
    if (position != VemoTreeWidget::DropOnItem)
        return;
    for (QTreeWidgetItem *item : items) {
        QTreeWidgetItem *parent =
            item->parent() ? item->parent() : item->treeWidget()->invisibleRootItem();
        parent->removeChild(item);
        target->addChild(item);
    }
}

QWidget *withFilter(VemoTreeWidget *tree)
{
    auto *specimen = new QWidget;
    auto *layout = new QVBoxLayout(specimen);
    layout->setContentsMargins(0, 0, 0, 0);
    auto *filter = new VemoFilterBar;
    filter->setAccessibleName("Filter of the folders");
    filter->setPlaceholderText(demo("filter_hint"));
    filter->findChild<VemoIconButton *>()->setAccessibleName("Kinds to show");
    filter->setClearedByEscape(true);
    QObject::connect(filter, &VemoFilterBar::sigKeywordChanged, tree,
        [tree](const QString &keyword) { tree->setFilterText(keyword); });
    QObject::connect(tree, &VemoTreeWidget::itemsDropped, tree, moveDropped);
    layout->addWidget(filter);
    layout->addWidget(tree);
    return specimen;
}

QWidget *sideBySide(const QList<QWidget *> &widgets)
{
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(DPIinfo::scaled(16));
    for (QWidget *widget : widgets)
        layout->addWidget(widget);
    return row;
}

} // namespace

void buildTreePage(Page &page)
{
    page.addSummary(
        "VemoTreeWidget highlights whole rows, FileSystemTreeWidgetItem knows its node, "
        "ItemDelegate renames it in place.");
    page.addSection("Folders",
        "Right-click or press Shift+F10 for a menu, F2 to rename. A row without a check box flag, "
        "such as the "
        "read-only one, is drawn as disabled.");
    page.add(folderTree());
    page.addCode(R"(auto *folders = new VemoTreeWidget(this);
folders->setStyleSheet(getStyleSheet("component.tree"));
folders->setBackgroundColor(defaultThemeColor("selection"), defaultThemeColor("hover"));
folders->setItemDelegate(delegate); // new ItemDelegate, its parent the tree
connect(folders, &VemoTreeWidget::sigMouseRightClickEvent, this, &MainWindow::showFolderMenu);)");
    page.addSection("Renaming and check boxes",
        "The editor takes no name that begins with a full stop or holds \\ / : * ? \" < > or |.");
    page.add(sideBySide({editedTree(), checkedTree()}));
    page.addSection("Filter, check boxes that depend on each other, children on demand",
        "Type a part of a name. Check a folder to check all below it. The children of the last "
        "folder are added when it is expanded. Drag a folder onto another one to move it.");
    page.add(withFilter(filteredTree()));
    page.addCode(R"(folders->setCheckPropagation(true);
folders->setChildrenState(shared, VemoTreeWidget::ChildrenOnDemand);
connect(folders, &VemoTreeWidget::childrenRequested, this, &MainWindow::addChildren);
connect(filter, &VemoFilterBar::sigKeywordChanged, folders,
    [folders](const QString &keyword) { folders->setFilterText(keyword); });
folders->setDropSignalsEnabled(true);
connect(folders, &VemoTreeWidget::itemsDropped, this, &MainWindow::moveFolders);)");
}
