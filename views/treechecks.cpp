// SPDX-License-Identifier: MIT
#include "views/treechecks_p.h"

#include "views/treeitems_p.h"

#include <QScopedValueRollback>
#include <QSignalBlocker>

#include <optional>
#include <utility>

namespace {

constexpr int kNoRow = -1;

/// Without a value for an item that has no check box.
std::optional<Qt::CheckState> stateOf(const QTreeWidgetItem &item)
{
    const QVariant state = item.data(0, Qt::CheckStateRole);
    if (!state.isValid())
        return {};
    return static_cast<Qt::CheckState>(state.toInt());
}

bool hasBox(const QTreeWidgetItem &item)
{
    return stateOf(item).has_value();
}

/// The common state of the children. The ones around the row that has changed are compared first,
/// so that a loop over all children does not compare each with all others.
std::optional<Qt::CheckState> stateOfChildren(const QTreeWidgetItem &parent, int row = kNoRow)
{
    std::optional<Qt::CheckState> common;
    const auto differs = [&](int otherRow) {
        const QTreeWidgetItem *child = parent.child(otherRow);
        const std::optional<Qt::CheckState> state = child ? stateOf(*child) : std::nullopt;
        if (state && !common)
            common = state;
        return state && *state != *common;
    };
    if (row != kNoRow && (differs(row) || differs(row - 1) || differs(row + 1)))
        return Qt::PartiallyChecked;
    for (int i = 0; i < parent.childCount() && common != Qt::PartiallyChecked; ++i) {
        if (differs(i))
            return Qt::PartiallyChecked;
    }
    return common;
}

} // namespace

VemoTreeWidget::Checks::Checks(VemoTreeWidget *tree) : m_tree(tree)
{
    connect(tree->model(), &QAbstractItemModel::rowsRemoved, this, &Checks::handleRemoval);
    settle(childrenOf(*tree->invisibleRootItem()));
    notify();
}

void VemoTreeWidget::Checks::handleChange(const QModelIndex &first, const QModelIndex &last)
{
    if (m_is_notifying)
        return;
    for (int row = first.row(); row <= last.row(); ++row) {
        QTreeWidgetItem *item = m_tree->itemFromIndex(first.sibling(row, 0));
        spread(item, row);
    }
    notify();
}

void VemoTreeWidget::Checks::handleInsertion(const QModelIndex &parent, int first, int last)
{
    QTreeWidgetItem *item = m_tree->itemFromIndex(parent);
    settle(childrenOf(item ? *item : *m_tree->invisibleRootItem(), first, last));
    if (item) {
        for (int row = first; row <= last; ++row)
            updateParents(item->child(row), row);
    }
    notify();
}

void VemoTreeWidget::Checks::handleRemoval(const QModelIndex &parent)
{
    QTreeWidgetItem *item = m_tree->itemFromIndex(parent);
    if (!item || stateOf(*item) != Qt::PartiallyChecked)
        return; // All children had the same state.
    updateFromChildren(item);
    updateParents(item, parent.row());
    notify();
}

void VemoTreeWidget::Checks::handleLoaded(QTreeWidgetItem *item)
{
    spread(item, m_tree->indexFromItem(item).row());
    notify();
}

/// Makes the items above and below item, which is in row, follow it.
void VemoTreeWidget::Checks::spread(QTreeWidgetItem *item, int row)
{
    const std::optional<Qt::CheckState> state = stateOf(*item);
    if (state == Qt::PartiallyChecked)
        updateFromChildren(item);
    else if (state)
        setStateBelow(item, *state);
    updateParents(item, row);
}

void VemoTreeWidget::Checks::setState(QTreeWidgetItem *item, Qt::CheckState state)
{
    // Each signal of the model would make the view look for the row.
    const QSignalBlocker silence(m_tree->model());
    item->setCheckState(0, state);
    m_changed.push_back(item);
}

void VemoTreeWidget::Checks::setStateBelow(QTreeWidgetItem *item, Qt::CheckState state)
{
    for (QTreeWidgetItem *below : withItemsBelow(childrenOf(*item), hasBox)) {
        const std::optional<Qt::CheckState> old = stateOf(*below);
        if (old && old != state)
            setState(below, state);
    }
}

/// Updates the given items and the items below them.
void VemoTreeWidget::Checks::settle(const std::vector<QTreeWidgetItem *> &items)
{
    const std::vector<QTreeWidgetItem *> all = withItemsBelow(items);
    for (auto item = all.rbegin(); item != all.rend(); ++item)
        updateFromChildren(*item);
}

/// Updates the items above item, whose state may have changed.
void VemoTreeWidget::Checks::updateParents(QTreeWidgetItem *item, int row)
{
    for (QTreeWidgetItem *parent = item->parent(); parent; parent = item->parent()) {
        const std::optional<Qt::CheckState> old = stateOf(*parent);
        const std::optional<Qt::CheckState> child = stateOf(*item);
        // If the parent has the state of one child, it was the state of all others.
        if (!old || !child || old == child || m_tree->childrenState(parent) == ChildrenLoading)
            return;
        const std::optional<Qt::CheckState> state = stateOfChildren(*parent, row);
        if (!state || state == old)
            return;
        setState(parent, *state);
        item = parent;
        row = kNoRow;
    }
}

void VemoTreeWidget::Checks::updateFromChildren(QTreeWidgetItem *item)
{
    const std::optional<Qt::CheckState> old = stateOf(*item);
    const std::optional<Qt::CheckState> state = old ? stateOfChildren(*item) : std::nullopt;
    if (state && state != old)
        setState(item, *state);
}

/// Reports what was set, as one change for each run of neighbours.
void VemoTreeWidget::Checks::notify()
{
    if (m_changed.empty())
        return;
    std::vector<std::pair<QPersistentModelIndex, QPersistentModelIndex>> runs;
    const QTreeWidgetItem *lastParent = nullptr;
    for (const QTreeWidgetItem *item : std::exchange(m_changed, {})) {
        const QModelIndex index = m_tree->indexFromItem(item);
        const bool isNext = !runs.empty() && item->parent() == lastParent
            && index.row() == runs.back().second.row() + 1;
        if (isNext)
            runs.back().second = index;
        else
            runs.emplace_back(index, index);
        lastParent = item->parent();
    }
    const QScopedValueRollback<bool> notifying(m_is_notifying, true);
    // Deliberate: itemChanged() is only emitted for what the user or the program has checked.
    const QSignalBlocker silence(m_tree);
    for (const auto &[first, last] : runs) {
        if (first.isValid() && last.isValid())
            Q_EMIT m_tree->model()->dataChanged(first, last, {Qt::CheckStateRole});
    }
    m_tree->viewport()->update();
}
