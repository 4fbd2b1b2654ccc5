// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QString>
#include <QTreeWidgetItem>

/// A tree item that represents a node of a file system.
///
/// The fields are for the host: no setter changes the item's text, icon or check state. The library
/// only reads the path, for sorting. Requires: nothing. It belongs to its tree or parent item.
///
///     auto *item = new FileSystemTreeWidgetItem;
///     item->setText(0, tr("Projects"));
///     item->setPath("home/projects");
///     tree->addTopLevelItem(item);
///
/// \image html tree-folders.png
class VEMO_EXPORT FileSystemTreeWidgetItem : public QTreeWidgetItem
{
public:
    /// The loading state of the node.
    enum ItemStatus : int {
        NORMAL = 0, ///< its children have not been requested
        LOADING = 1, ///< its children are being listed
        LOADED = 2, ///< all its children are in the tree
        FAILED = 3, ///< its children cannot be listed
    };

    /// Creates an empty item of type QTreeWidgetItem::Type without a parent, with all flags false.
    FileSystemTreeWidgetItem();
    /// The same as the last top-level item of a tree, which owns it.
    explicit FileSystemTreeWidgetItem(QTreeWidget *parent);
    /// The same as the last child of an item, which owns it.
    explicit FileSystemTreeWidgetItem(QTreeWidgetItem *parent);
    /// Copies the fields and the columns, but not the children, and not into a tree.
    FileSystemTreeWidgetItem(const FileSystemTreeWidgetItem &other);
    /// Copies other, which stays in its tree and keeps its fields.
    FileSystemTreeWidgetItem(FileSystemTreeWidgetItem &&other) noexcept;
    /// Copies the fields and the columns.
    FileSystemTreeWidgetItem &operator=(const FileSystemTreeWidgetItem &other);
    /// Same as copy assignment.
    FileSystemTreeWidgetItem &operator=(FileSystemTreeWidgetItem &&other) noexcept;
    ~FileSystemTreeWidgetItem() override;

    /// Compares the texts of the sort column, but no item is less than one whose path is "home".
    bool operator<(const QTreeWidgetItem &other) const override;

    /// The path; initially empty.
    const QString &getPath() const;
    /// Sets the path, which may be any text, such as "home/projects"; "home" is special for
    /// sorting.
    void setPath(const QString &path);

    /// The host's number of the view that shows the node; initially 0.
    unsigned long long getBelongViewId() const;
    /// Sets the number of the view.
    void setBelongViewId(unsigned long long id);

    /// The host's number of the node; initially 0.
    unsigned long long getNodeId() const;
    /// Sets the number of the node.
    void setNodeId(unsigned long long id);

    /// Whether the item is a placeholder, for example for children that are not listed yet.
    bool isFake() const;
    /// Marks the item as a placeholder; initially false.
    void setFake(bool fake);

    /// Whether the node has been deleted but is still shown.
    bool isRemoved() const;
    /// Marks the node as deleted; initially false.
    void setRemoved(bool removed);

    /// Whether the node is read-only.
    bool getRO() const;
    /// Marks the node as read-only; initially false.
    void setRO(bool readOnly);

    /// Whether the item has a placeholder child, which makes it expandable before its children are
    /// known.
    bool isFakeChildExist() const;
    /// Stores whether there is a placeholder child; does not add or remove it.
    void setFakeChildExist(bool exists);

    /// The loading state of the node; initially NORMAL.
    ItemStatus getTreeWidgetItemStatus() const;
    /// Stores the loading state; does not load anything.
    void setTreeWidgetItemStatus(ItemStatus status);

private:
    QString m_path;
    unsigned long long m_belong_view_id = 0;
    unsigned long long m_node_id = 0;
    bool m_fake = false;
    bool m_removed = false;
    bool m_ro = false;
    bool m_fake_child_exist = false;
    ItemStatus m_status = NORMAL;
};
