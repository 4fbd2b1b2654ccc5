// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QTreeWidgetItem>

#include <utility>
#include <vector>

/// All items below the given ones, after them: every item is after its parent, and the children of
/// an item are in the order of their rows. Only enters items for which the last function is true.
template <typename Enters>
std::vector<QTreeWidgetItem *> withItemsBelow(std::vector<QTreeWidgetItem *> items, Enters enters)
{
    for (size_t i = 0; i < items.size(); ++i) {
        QTreeWidgetItem *item = items[i];
        if (!enters(*item))
            continue;
        for (int row = 0; row < item->childCount(); ++row)
            items.push_back(item->child(row));
    }
    return items;
}

inline std::vector<QTreeWidgetItem *> withItemsBelow(std::vector<QTreeWidgetItem *> items)
{
    return withItemsBelow(std::move(items), [](const QTreeWidgetItem &) { return true; });
}

/// The children of parent in the rows first to last.
inline std::vector<QTreeWidgetItem *> childrenOf(const QTreeWidgetItem &parent, int first, int last)
{
    std::vector<QTreeWidgetItem *> items;
    for (int row = first; row <= last; ++row)
        items.push_back(parent.child(row));
    return items;
}

inline std::vector<QTreeWidgetItem *> childrenOf(const QTreeWidgetItem &parent)
{
    return childrenOf(parent, 0, parent.childCount() - 1);
}
