// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QString>
#include <QTreeWidgetItem>

/// A tree item that knows which node of a file system it stands for.
///
/// The fields are the host's: no setter changes the item's text, icon or check state. The library
/// reads the path alone, to sort. Needs no resources; belongs to its tree or parent item.
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
    /// How much of the node is known.
    enum ItemStatus : int {
        NORMAL = 0, ///< its children were never asked for
        LOADING = 1, ///< its children are being listed
        LOADED = 2, ///< its children are all in the tree
        FAILED = 3, ///< its children can't be listed
    };

    /// An item of the type QTreeWidgetItem::Type that belongs to nobody yet: empty, all flags off.
    FileSystemTreeWidgetItem();
    /// The same as the last top-level item of a tree, which owns it.
    explicit FileSystemTreeWidgetItem(QTreeWidget *parent);
    /// The same as the last child of an item, which owns it.
    explicit FileSystemTreeWidgetItem(QTreeWidgetItem *parent);
    /// Copies the fields and the columns, but neither children nor tree.
    FileSystemTreeWidgetItem(const FileSystemTreeWidgetItem &other);
    /// A copy: other stays in its tree and keeps its fields.
    FileSystemTreeWidgetItem(FileSystemTreeWidgetItem &&other) noexcept;
    /// Copies the fields and the columns.
    FileSystemTreeWidgetItem &operator=(const FileSystemTreeWidgetItem &other);
    /// As the copying assignment.
    FileSystemTreeWidgetItem &operator=(FileSystemTreeWidgetItem &&other) noexcept;
    ~FileSystemTreeWidgetItem() override;

    /// By the text of the sort column; but no item is less than one whose path is "home".
    bool operator<(const QTreeWidgetItem &other) const override;

    /// The path, empty until set.
    const QString &getPath() const;
    /// Any text, such as "home/projects"; "home" has a meaning for sorting.
    void setPath(const QString &path);

    /// The view that the node is shown in.
    unsigned long long getBelongViewId() const;
    /// Stores the view's number, which is the host's; 0 at first.
    void setBelongViewId(unsigned long long id);

    /// The node's number, 0 until set.
    unsigned long long getNodeId() const;
    /// Stores the node's number, which is the host's.
    void setNodeId(unsigned long long id);

    /// A row that stands in for what is not there (yet).
    bool isFake() const;
    /// Marks a row that stands in; false at first.
    void setFake(bool fake);

    /// The node is deleted, but still shown.
    bool isRemoved() const;
    /// Marks the node as deleted; false at first.
    void setRemoved(bool removed);

    /// The node is read-only.
    bool getRO() const;
    /// Marks the node as read-only; false at first.
    void setRO(bool readOnly);

    /// The item has a fake child, so that it can be expanded before its children are known.
    bool isFakeChildExist() const;
    /// Notes whether there is a fake child; adds and removes none.
    void setFakeChildExist(bool exists);

    /// How much of the node is known; NORMAL until set.
    ItemStatus getTreeWidgetItemStatus() const;
    /// Stores how much is known; loads nothing.
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
