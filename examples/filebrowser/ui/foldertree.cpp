// SPDX-License-Identifier: MIT
#include "foldertree.h"

#include "entryfilter.h"
#include "folderreader.h"
#include "kinds.h"
#include "paths.h"
#include "texts.h"

#include <vemo/defaulttheme.h>
#include <vemo/dpiinfo.h>
#include <vemo/imagemanager.h>
#include <vemo/itemdelegate.h>
#include <vemo/stylemanager.h>
#include <vemo/tooltiptext.h>

#include <QDir>
#include <QHeaderView>
#include <QScrollBar>
#include <QSet>
#include <QSignalBlocker>
#include <QTreeWidgetItemIterator>

#include <algorithm>
#include <iterator>
#include <memory>

namespace {

constexpr int kIndentation = 16; // design pixels
constexpr int kIconSize = 16; // design pixels
constexpr int kMoreFolders =
    Qt::UserRole + 100; // number of entries that a placeholder represents; 0: not read yet
constexpr int kMaxChildren = 1000; // More would block the window, and nobody scrolls that far.

FileSystemTreeWidgetItem *folderItem(QTreeWidgetItem *item)
{
    return static_cast<FileSystemTreeWidgetItem *>(item);
}

bool isOnTheWay(const QString &folder, const QString &target)
{
    return target == folder || target.startsWith(childPath(folder, {}));
}

QString placeholderText(int moreFolders)
{
    return moreFolders > 0 ? text("more_folders", numberText(moreFolders)) : text("reading");
}

/// The path of the child of folder that is or contains target.
QString stepTo(const QString &folder, const QString &target)
{
    const QString start = childPath(folder, {});
    return start + target.mid(start.size()).section('/', 0, 0);
}

} // namespace

FolderTree::FolderTree(QWidget *parent) : VemoTreeWidget(parent)
{
    setObjectName("folderTree");
    setUpLook();
    m_home = addRoot({}, pathFromQt(QDir::homePath()));
    m_computer = addRoot({}, "/");
    translate(this, [this] { showTexts(); });
    connect(this, &QTreeWidget::itemClicked, this, &FolderTree::choose);
    connect(this, &QTreeWidget::itemActivated, this, &FolderTree::choose);
    connect(this, &QTreeWidget::itemExpanded, this, [this](QTreeWidgetItem *item) {
        if (folderItem(item)->isFakeChildExist())
            load(folderItem(item));
    });
}

void FolderTree::setUpLook()
{
    setHeaderHidden(true);
    setIndentation(DPIinfo::scaled(kIndentation));
    setIconSize(QSize(DPIinfo::scaled(kIconSize), DPIinfo::scaled(kIconSize)));
    setUniformRowHeights(true);
    setStyleSheet(getStyleSheet("component.tree") + getStyleSheet("component.scrollbar"));
    setBackgroundColor(defaultThemeColor("selection"), defaultThemeColor("hover"));
    setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    auto *delegate = new ItemDelegate;
    delegate->setParent(this);
    setItemDelegate(delegate);
}

void FolderTree::showTexts()
{
    setAccessibleName(text("accessible_folders"));
    m_home->setText(0, text("home"));
    m_computer->setText(0, text("computer"));
    for (QTreeWidgetItemIterator item(this); *item; ++item) {
        if (folderItem(*item)->isFake())
            (*item)->setText(0, placeholderText((*item)->data(0, kMoreFolders).toInt()));
    }
}

FolderTree::Item *FolderTree::addRoot(const QString &caption, const QString &path)
{
    Item *item = newFolderItem(path, caption);
    addTopLevelItem(item);
    return item;
}

FolderTree::Item *FolderTree::newFolderItem(const QString &path, const QString &caption) const
{
    FileEntry folder;
    folder.isFolder = true;
    auto *item = new Item;
    item->setPath(path);
    item->setText(0, caption);
    item->setIcon(0, getGlobalIcon(pictureOf(folder)));
    item->setToolTip(0, getHtmlEscapedStringForToolTip(displayPath(path)));
    addPlaceholder(item);
    return item;
}

/// Adds a placeholder for contents that are not known yet, which makes the folder expandable.
void FolderTree::addPlaceholder(Item *item, int moreFolders) const
{
    auto *placeholder = new Item;
    placeholder->setFake(true);
    placeholder->setText(0, placeholderText(moreFolders));
    placeholder->setData(0, kMoreFolders, moreFolders);
    // Without Qt::ItemIsUserCheckable the tree draws its text as disabled.
    placeholder->setFlags(Qt::ItemIsEnabled);
    item->addChild(placeholder);
    item->setFakeChildExist(true);
}

void FolderTree::dropPlaceholder(Item *item) const
{
    for (int i = item->childCount() - 1; i >= 0; --i) {
        if (folderItem(item->child(i))->isFake())
            delete item->takeChild(i);
    }
    item->setFakeChildExist(false);
}

void FolderTree::choose(QTreeWidgetItem *item)
{
    if (!folderItem(item)->isFake())
        Q_EMIT folderChosen(folderItem(item)->getPath());
}

void FolderTree::load(Item *item)
{
    if (item->getTreeWidgetItemStatus() == Item::LOADING)
        return;
    item->setTreeWidgetItemStatus(Item::LOADING);
    auto *reader = new FolderReader(this);
    const auto folders = std::make_shared<QVector<FileEntry>>();
    const QString path = item->getPath();
    connect(reader, &FolderReader::entriesRead, this, [folders](const QVector<FileEntry> &entries) {
        std::copy_if(entries.begin(), entries.end(), std::back_inserter(*folders),
            [](const FileEntry &entry) { return entry.isFolder; });
    });
    connect(reader, &FolderReader::finished, this, [this, reader, folders, path] {
        reader->deleteLater();
        fill(path, *folders);
    });
    connect(reader, &FolderReader::failed, this, [this, reader, path] {
        reader->deleteLater();
        giveUp(path);
    });
    reader->read(path);
}

void FolderTree::fill(const QString &path, QVector<FileEntry> folders)
{
    Item *item = find(path);
    if (!item)
        return;
    // There are too many hidden folders; the list on the right shows them.
    folders.erase(std::remove_if(folders.begin(), folders.end(),
                      [](const FileEntry &entry) { return entry.name.startsWith('.'); }),
        folders.end());
    sortEntries(folders);
    item->setTreeWidgetItemStatus(Item::LOADED);
    updateChildren(item, folders);
    walkToTarget();
}

void FolderTree::giveUp(const QString &path)
{
    Item *item = find(path);
    if (!item)
        return;
    item->setTreeWidgetItemStatus(Item::FAILED);
    dropPlaceholder(item);
    walkToTarget();
}

/// Keeps the items of folders that still exist, with their contents.
void FolderTree::updateChildren(Item *item, const QVector<FileEntry> &folders)
{
    const QVector<FileEntry> shown = folders.mid(0, kMaxChildren);
    dropPlaceholder(item);
    dropVanished(item, shown);
    for (int i = 0; i < shown.size(); ++i) {
        const QString path = childPath(item->getPath(), shown.at(i).name);
        if (i >= item->childCount() || folderItem(item->child(i))->getPath() != path)
            item->insertChild(i, newFolderItem(path, displayName(shown.at(i).name)));
    }
    if (folders.size() > kMaxChildren)
        addPlaceholder(item, folders.size() - kMaxChildren);
    item->setFakeChildExist(false);
}

void FolderTree::dropVanished(Item *item, const QVector<FileEntry> &folders) const
{
    QSet<QString> paths;
    for (const FileEntry &folder : folders)
        paths.insert(childPath(item->getPath(), folder.name));
    for (int i = item->childCount() - 1; i >= 0; --i) {
        const QString path = folderItem(item->child(i))->getPath();
        // A hidden folder may have an item because the user has opened it.
        const bool isLeftOut = nameOf(path).startsWith('.') && isFolderAt(path);
        if (!paths.contains(path) && !isLeftOut)
            delete item->takeChild(i);
    }
}

void FolderTree::showFolder(const QString &path)
{
    m_target = path;
    walkToTarget();
}

void FolderTree::refresh(const QString &path)
{
    Item *item = find(path);
    if (item && item->getTreeWidgetItemStatus() != Item::NORMAL)
        load(item);
}

FolderTree::Item *FolderTree::rootFor(const QString &path) const
{
    return isOnTheWay(m_home->getPath(), path) ? m_home : m_computer;
}

FolderTree::Item *FolderTree::childFor(Item *item, const QString &path) const
{
    for (int i = 0; i < item->childCount(); ++i) {
        if (folderItem(item->child(i))->getPath() == path)
            return folderItem(item->child(i));
    }
    return nullptr;
}

FolderTree::Item *FolderTree::find(const QString &path) const
{
    Item *item = rootFor(path);
    while (item && item->getPath() != path)
        item = childFor(item, stepTo(item->getPath(), path));
    return item;
}

/// Moves towards the target as far as folders are known, and starts to read the next one.
void FolderTree::walkToTarget()
{
    if (m_target.isEmpty())
        return;
    Item *item = rootFor(m_target);
    while (item->getPath() != m_target) {
        const auto status = item->getTreeWidgetItemStatus();
        const QString step = stepTo(item->getPath(), m_target);
        Item *child = childFor(item, step);
        if (!child && (status == Item::NORMAL || status == Item::LOADING)) {
            load(item);
            return;
        }
        if (!child) {
            // It is hidden, exceeds kMaxChildren, or its parent cannot be read.
            child = newFolderItem(step, displayName(nameOf(step)));
            item->addChild(child);
        }
        item->setExpanded(true);
        item = child;
    }
    makeCurrent(item);
}

void FolderTree::makeCurrent(Item *item)
{
    m_target.clear();
    const QSignalBlocker quiet(this);
    setCurrentItem(item);
    scrollToItem(item, QAbstractItemView::PositionAtCenter);
    // Scroll horizontally no further than necessary.
    horizontalScrollBar()->setValue(0);
    updateScrollArea(item);
}
