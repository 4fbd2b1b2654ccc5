// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <vemo/vemotreewidget.h>

#include <QSet>

#include <vector>

/// Hides the items of a tree that neither match nor are above one that does. Below a hidden item
/// nothing is hidden, because every hidden item makes all changes of the tree slower.
class VemoTreeWidget::Filter
{
public:
    explicit Filter(VemoTreeWidget *tree);

    /// Tests all items. Returns the items to be expanded, like the next two functions.
    QList<QPersistentModelIndex> apply(const FilterFunction &matches);
    QList<QPersistentModelIndex> handleInsertion(const QModelIndex &parent, int first, int last);
    QList<QPersistentModelIndex> handleChange(const QModelIndex &first, const QModelIndex &last);
    /// Shows all items.
    void showAll();
    /// The items that are or are not expanded, and were the opposite before the filter was set.
    QList<QPersistentModelIndex> changedItems(bool areExpanded) const;

    /// To be called before items are removed.
    void forget(const QTreeWidgetItem &parent, int first, int last);
    void forgetAll();

private:
    struct Row;

    QList<QPersistentModelIndex> test(QTreeWidgetItem *parent, int first, int last);
    std::vector<Row> rowsOf(const std::vector<QTreeWidgetItem *> &items) const;
    QList<QPersistentModelIndex> show(std::vector<Row> rows);
    void setHidden(QTreeWidgetItem *item, bool isHidden);
    bool isHiddenByHost(QTreeWidgetItem *item) const;
    bool isNotice(const QTreeWidgetItem *item) const;

    VemoTreeWidget *m_tree;
    FilterFunction m_matches;
    QSet<QTreeWidgetItem *> m_hidden; ///< by the filter, not by the host
    QSet<QTreeWidgetItem *> m_expanded; ///< before the filter was set
};
