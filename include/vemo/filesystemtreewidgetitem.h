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

    FileSystemTreeWidgetItem();
    FileSystemTreeWidgetItem(const FileSystemTreeWidgetItem &other);
    FileSystemTreeWidgetItem(FileSystemTreeWidgetItem &&other) noexcept;
    FileSystemTreeWidgetItem &operator=(const FileSystemTreeWidgetItem &other);
    FileSystemTreeWidgetItem &operator=(FileSystemTreeWidgetItem &&other) noexcept;
    ~FileSystemTreeWidgetItem() override;

    /// By the text of the sort column; but no item is less than one whose path is "home".
    bool operator<(const QTreeWidgetItem &other) const override;

    const QString &getPath() const;
    void setPath(const QString &path);

    /// The view that the node is shown in.
    unsigned long long getBelongViewId() const;
    void setBelongViewId(unsigned long long id);

    unsigned long long getNodeId() const;
    void setNodeId(unsigned long long id);

    /// A row that stands in for what is not there (yet).
    bool isFake() const;
    void setFake(bool fake);

    /// The node is deleted, but still shown.
    bool isRemoved() const;
    void setRemoved(bool removed);

    /// The node is read-only.
    bool getRO() const;
    void setRO(bool readOnly);

    /// The item has a fake child, so that it can be expanded before its children are known.
    bool isFakeChildExist() const;
    void setFakeChildExist(bool exists);

    ItemStatus getTreeWidgetItemStatus() const;
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
