// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <vemo/vemotreewidget.h>

#include <vector>

/// Makes the check boxes of a tree depend on each other. Between calls every item with a check box
/// shows the common state of its children that have one.
class VemoTreeWidget::Checks : public QObject
{
public:
    /// Updates all items that have children.
    explicit Checks(VemoTreeWidget *tree);

    /// To be called when the states of items in column 0 may have changed.
    void handleChange(const QModelIndex &first, const QModelIndex &last);
    void handleInsertion(const QModelIndex &parent, int first, int last);
    /// To be called when all children of item were added.
    void handleLoaded(QTreeWidgetItem *item);
    /// Whether the tree is being notified of changes that were made here.
    bool isNotifying() const { return m_is_notifying; }

private:
    void handleRemoval(const QModelIndex &parent);
    void spread(QTreeWidgetItem *item, int row);
    void setState(QTreeWidgetItem *item, Qt::CheckState state);
    void setStateBelow(QTreeWidgetItem *item, Qt::CheckState state);
    void settle(const std::vector<QTreeWidgetItem *> &items);
    void updateParents(QTreeWidgetItem *item, int row);
    void updateFromChildren(QTreeWidgetItem *item);
    void notify();

    VemoTreeWidget *m_tree;
    std::vector<QTreeWidgetItem *> m_changed; ///< since the last notification
    bool m_is_notifying = false;
};
