// SPDX-License-Identifier: MIT
#include "views/treechildren_p.h"

#include "views/treeitems_p.h"

#include <QPointer>

namespace {

QTreeWidgetItem *newNotice(const QString &text)
{
    auto *notice = new QTreeWidgetItem(QStringList(text));
    notice->setFlags(Qt::ItemNeverHasChildren);
    return notice;
}

} // namespace

VemoTreeWidget::Children::Children(VemoTreeWidget *tree) : m_tree(tree)
{
    connect(tree, &QTreeWidget::itemExpanded, this, &Children::handleExpansion);
}

void VemoTreeWidget::Children::setState(
    QTreeWidgetItem *item, ChildrenState state, const QString &text)
{
    delete m_entries.value(item).notice; // Which forgets it.
    if (state == ChildrenLoaded) {
        m_entries.remove(item);
        item->setChildIndicatorPolicy(QTreeWidgetItem::DontShowIndicatorWhenChildless);
        return;
    }
    m_entries[item].state = state;
    item->setChildIndicatorPolicy(QTreeWidgetItem::ShowIndicator);
    if (state == ChildrenOnDemand) {
        item->setExpanded(false);
    } else if (!text.isEmpty()) {
        QTreeWidgetItem *notice = newNotice(text);
        m_entries[item].notice = notice;
        item->insertChild(0, notice);
        notice->setFirstColumnSpanned(true);
    }
}

bool VemoTreeWidget::Children::isNotice(const QTreeWidgetItem *item) const
{
    return m_entries.value(item->parent()).notice == item;
}

/// Requests the children of item, which was expanded, if they are missing.
void VemoTreeWidget::Children::handleExpansion(QTreeWidgetItem *item)
{
    const ChildrenState old = state(item);
    if (old != ChildrenOnDemand && old != ChildrenFailed)
        return;
    m_tree->setChildrenState(item, ChildrenLoading);
    // Later, because QTreeView still uses the index of an item that it has just expanded.
    const QPersistentModelIndex index = m_tree->indexFromItem(item);
    QMetaObject::invokeMethod(
        this, [this, index] { request(index); }, Qt::QueuedConnection);
}

void VemoTreeWidget::Children::request(const QPersistentModelIndex &index)
{
    QTreeWidgetItem *item = m_tree->itemFromIndex(index);
    if (!item || state(item) != ChildrenLoading)
        return;
    const QPointer<VemoTreeWidget> tree(m_tree);
    Q_EMIT m_tree->childrenRequested(item);
    if (!tree || !index.isValid())
        return; // The slot has deleted them.
    const Entry entry = m_entries.value(item);
    if (entry.state == ChildrenLoading && item->childCount() > (entry.notice ? 1 : 0))
        tree->setChildrenState(item, ChildrenLoaded);
}

void VemoTreeWidget::Children::forget(const QTreeWidgetItem &parent, int first, int last)
{
    if (m_entries.isEmpty())
        return;
    const std::vector<QTreeWidgetItem *> removed = childrenOf(parent, first, last);
    const auto entry = m_entries.find(&parent);
    for (const QTreeWidgetItem *item : removed) {
        if (entry != m_entries.end() && entry->notice == item)
            entry->notice = nullptr;
    }
    for (const QTreeWidgetItem *item : withItemsBelow(removed))
        m_entries.remove(item);
}
