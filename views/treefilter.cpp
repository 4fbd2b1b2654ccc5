// SPDX-License-Identifier: MIT
#include "views/treefilter_p.h"

#include "views/treechildren_p.h"
#include "views/treeitems_p.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int kNoParent = -1;

/// The hidden item at or above item that is nearest to the root, or null.
QTreeWidgetItem *topmostHidden(QTreeWidgetItem *item)
{
    QTreeWidgetItem *hidden = nullptr;
    for (; item; item = item->parent()) {
        if (item->isHidden())
            hidden = item;
    }
    return hidden;
}

/// Leaves are left out, because asking the view is expensive.
bool isOpen(const QTreeWidgetItem *item)
{
    const bool mayBe =
        item->childCount() > 0 || item->childIndicatorPolicy() == QTreeWidgetItem::ShowIndicator;
    return mayBe && item->isExpanded();
}

} // namespace

struct VemoTreeWidget::Filter::Row
{
    QTreeWidgetItem *item;
    int parent; ///< its place in the list
    bool isVisible;
    bool isMatchBelow = false;
};

VemoTreeWidget::Filter::Filter(VemoTreeWidget *tree) : m_tree(tree)
{
    for (QTreeWidgetItem *item : withItemsBelow(childrenOf(*tree->invisibleRootItem()))) {
        if (isOpen(item))
            m_expanded.insert(item);
    }
}

QList<QPersistentModelIndex> VemoTreeWidget::Filter::apply(const FilterFunction &matches)
{
    m_matches = matches;
    return show(rowsOf(childrenOf(*m_tree->invisibleRootItem())));
}

QList<QPersistentModelIndex> VemoTreeWidget::Filter::handleInsertion(
    const QModelIndex &parent, int first, int last)
{
    return test(m_tree->itemFromIndex(parent), first, last);
}

QList<QPersistentModelIndex> VemoTreeWidget::Filter::handleChange(
    const QModelIndex &first, const QModelIndex &last)
{
    QList<QPersistentModelIndex> expanded;
    for (int row = first.row(); row <= last.row(); ++row) {
        QTreeWidgetItem *item = m_tree->itemFromIndex(first.sibling(row, 0));
        // Deliberate: an item that no longer matches is not hidden while the user works on it.
        if (topmostHidden(item))
            expanded << test(item->parent(), row, row);
    }
    return expanded;
}

void VemoTreeWidget::Filter::showAll()
{
    const QSet<QTreeWidgetItem *> hidden = std::exchange(m_hidden, {});
    // In the order of the rows, in which Qt finds an item's row at once.
    for (QTreeWidgetItem *item : withItemsBelow(childrenOf(*m_tree->invisibleRootItem()))) {
        if (hidden.contains(item))
            item->setHidden(false);
    }
}

QList<QPersistentModelIndex> VemoTreeWidget::Filter::changedItems(bool areExpanded) const
{
    QList<QPersistentModelIndex> items;
    for (QTreeWidgetItem *item : withItemsBelow(childrenOf(*m_tree->invisibleRootItem()))) {
        if (isOpen(item) == areExpanded && m_expanded.contains(item) != areExpanded)
            items << m_tree->indexFromItem(item);
    }
    return items;
}

void VemoTreeWidget::Filter::forget(const QTreeWidgetItem &parent, int first, int last)
{
    for (QTreeWidgetItem *item : withItemsBelow(childrenOf(parent, first, last))) {
        m_hidden.remove(item);
        m_expanded.remove(item);
    }
}

void VemoTreeWidget::Filter::forgetAll()
{
    m_hidden.clear();
    m_expanded.clear();
}

/// Tests children of parent, which is null for the root, and what is below them.
QList<QPersistentModelIndex> VemoTreeWidget::Filter::test(
    QTreeWidgetItem *parent, int first, int last)
{
    const QTreeWidgetItem &above = parent ? *parent : *m_tree->invisibleRootItem();
    std::vector<Row> rows = rowsOf(childrenOf(above, first, last));
    QTreeWidgetItem *hidden = topmostHidden(parent);
    if (!hidden)
        return show(std::move(rows));
    const bool isMatch =
        std::any_of(rows.begin(), rows.end(), [](const Row &row) { return row.isVisible; });
    // The items beside them were not hidden, because an item above them was.
    return isMatch ? show(rowsOf({hidden})) : QList<QPersistentModelIndex>();
}

/// The given items and those below them, each after its parent, visible if it matches.
std::vector<VemoTreeWidget::Filter::Row> VemoTreeWidget::Filter::rowsOf(
    const std::vector<QTreeWidgetItem *> &items) const
{
    std::vector<Row> rows;
    const auto append = [&](QTreeWidgetItem *item, int parent) {
        if (!isHiddenByHost(item) && !isNotice(item))
            rows.push_back({item, parent, m_matches(*item)});
    };
    for (QTreeWidgetItem *item : items)
        append(item, kNoParent);
    for (size_t i = 0; i < rows.size(); ++i) {
        for (QTreeWidgetItem *child : childrenOf(*rows[i].item))
            append(child, int(i));
    }
    return rows;
}

/// Shows or hides items whose parents are visible, and those below them.
QList<QPersistentModelIndex> VemoTreeWidget::Filter::show(std::vector<Row> rows)
{
    for (auto row = rows.rbegin(); row != rows.rend(); ++row) {
        row->isVisible |= row->isMatchBelow;
        if (row->isVisible && row->parent != kNoParent)
            rows[size_t(row->parent)].isMatchBelow = true;
    }
    QList<QPersistentModelIndex> expanded;
    for (const Row &row : rows) {
        if (row.parent == kNoParent || rows[size_t(row.parent)].isVisible)
            setHidden(row.item, !row.isVisible);
        if (row.isMatchBelow && !row.item->isExpanded())
            expanded << m_tree->indexFromItem(row.item);
    }
    return expanded;
}

void VemoTreeWidget::Filter::setHidden(QTreeWidgetItem *item, bool isHidden)
{
    const auto old = m_hidden.find(item);
    if (isHidden == (old != m_hidden.end()))
        return;
    if (isHidden)
        m_hidden.insert(item);
    else
        m_hidden.erase(old);
    item->setHidden(isHidden);
}

bool VemoTreeWidget::Filter::isHiddenByHost(QTreeWidgetItem *item) const
{
    return item->isHidden() && !m_hidden.contains(item);
}

/// Whether item is a row with a text about its parent, which is visible whenever the parent is.
bool VemoTreeWidget::Filter::isNotice(const QTreeWidgetItem *item) const
{
    return m_tree->m_children && m_tree->m_children->isNotice(item);
}
