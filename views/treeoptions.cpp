// SPDX-License-Identifier: MIT
// The options of VemoTreeWidget, which are off at first.
#include "core/qtcompat_p.h"
#include "views/treechecks_p.h"
#include "views/treechildren_p.h"
#include "views/treefilter_p.h"

#include <vemo/vemotreewidget.h>

#include <QDrag>
#include <QDragMoveEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QPointer>

namespace {

const char *const kUriList = "text/uri-list";
const char *const kDragged = "vemoDraggedItems"; // a property of the data of a drag

bool isAtOrBelow(const QTreeWidgetItem *item, const QTreeWidgetItem *top)
{
    while (item && item != top)
        item = item->parent();
    return item != nullptr;
}

bool isVisible(const QTreeWidgetItem *item)
{
    while (item && !item->isHidden())
        item = item->parent();
    return !item;
}

/// The items of a drag that still exist.
QList<QTreeWidgetItem *> draggedItems(const QMimeData &data)
{
    QList<QTreeWidgetItem *> items;
    const QVariantList indexes = data.property(kDragged).toList();
    for (const QVariant &dragged : indexes) {
        const auto index = dragged.value<QPersistentModelIndex>();
        if (index.isValid())
            items << static_cast<QTreeWidgetItem *>(QModelIndex(index).internalPointer());
    }
    return items;
}

} // namespace

void VemoTreeWidget::setCheckPropagation(bool enabled)
{
    if (enabled && !m_checks)
        m_checks = std::make_unique<Checks>(this);
    else if (!enabled)
        m_checks.reset();
}

void VemoTreeWidget::setFilterFunction(const FilterFunction &matches)
{
    if (!matches) {
        clearFilter();
        return;
    }
    if (!m_filter)
        m_filter = std::make_unique<Filter>(this);
    expandItems(m_filter->apply(matches), true);
    leaveHiddenItems();
}

void VemoTreeWidget::setFilterText(const QString &text, int column)
{
    if (text.isEmpty()) {
        clearFilter();
        return;
    }
    setFilterFunction([text, column](const QTreeWidgetItem &item) {
        return item.text(column).contains(text, Qt::CaseInsensitive);
    });
}

void VemoTreeWidget::clearFilter()
{
    if (!m_filter)
        return;
    const std::unique_ptr<Filter> filter = std::move(m_filter);
    filter->showAll();
    const QList<QPersistentModelIndex> closed = filter->changedItems(false);
    expandItems(filter->changedItems(true), false);
    expandItems(closed, true);
}

void VemoTreeWidget::setChildrenState(
    QTreeWidgetItem *item, ChildrenState state, const QString &text)
{
    if (!item || item->treeWidget() != this || item == invisibleRootItem())
        return;
    if (!m_children)
        m_children = std::make_unique<Children>(this);
    const bool isLoaded = state == ChildrenLoaded && childrenState(item) != ChildrenLoaded;
    m_children->setState(item, state, text);
    if (m_checks && isLoaded)
        m_checks->handleLoaded(item);
}

VemoTreeWidget::ChildrenState VemoTreeWidget::childrenState(const QTreeWidgetItem *item) const
{
    return m_children ? m_children->state(item) : ChildrenLoaded;
}

void VemoTreeWidget::setDropSignalsEnabled(bool enabled)
{
    if (enabled == m_are_drop_signals_enabled)
        return;
    m_are_drop_signals_enabled = enabled;
    setDragDropMode(enabled ? DragDrop : NoDragDrop);
}

bool VemoTreeWidget::edit(const QModelIndex &index, EditTrigger trigger, QEvent *event)
{
    const QPersistentModelIndex toggled = index.sibling(index.row(), 0);
    const QVariant before = toggled.data(Qt::CheckStateRole);
    const QPointer<VemoTreeWidget> self(this);
    const bool isHandled = QTreeWidget::edit(index, trigger, event);
    if (self && toggled.isValid() && toggled.data(Qt::CheckStateRole) != before) {
        QTreeWidgetItem *item = itemFromIndex(toggled);
        Q_EMIT itemToggled(item, item->checkState(0));
    }
    return isHandled;
}

void VemoTreeWidget::dataChanged(
    const QModelIndex &topLeft, const QModelIndex &bottomRight, const QVector<int> &roles)
{
    // A view looks for the rows, which takes long for many changes; all are painted at the end.
    if (!m_checks || !m_checks->isNotifying())
        QTreeWidget::dataChanged(topLeft, bottomRight, roles);
    if (!topLeft.isValid())
        return;
    const bool isState = roles.isEmpty() || roles.contains(Qt::CheckStateRole);
    if (m_checks && isState && topLeft.column() == 0)
        m_checks->handleChange(topLeft, bottomRight);
    if (m_filter)
        expandItems(m_filter->handleChange(topLeft, bottomRight), true);
}

void VemoTreeWidget::rowsInserted(const QModelIndex &parent, int start, int end)
{
    QTreeWidget::rowsInserted(parent, start, end);
    if (m_checks)
        m_checks->handleInsertion(parent, start, end);
    if (m_filter)
        expandItems(m_filter->handleInsertion(parent, start, end), true);
}

void VemoTreeWidget::rowsAboutToBeRemoved(const QModelIndex &parent, int start, int end)
{
    const QTreeWidgetItem *item = itemFromIndex(parent);
    const QTreeWidgetItem &above = item ? *item : *invisibleRootItem();
    if (m_children)
        m_children->forget(above, start, end);
    if (m_filter)
        m_filter->forget(above, start, end);
    QTreeWidget::rowsAboutToBeRemoved(parent, start, end);
}

void VemoTreeWidget::reset()
{
    if (m_children)
        m_children->forgetAll();
    if (m_filter)
        m_filter->forgetAll();
    QTreeWidget::reset();
}

QStringList VemoTreeWidget::mimeTypes() const
{
    QStringList types = QTreeWidget::mimeTypes();
    if (m_are_drop_signals_enabled)
        types << QString::fromLatin1(kUriList);
    return types;
}

Qt::DropActions VemoTreeWidget::supportedDropActions() const
{
    if (m_are_drop_signals_enabled)
        return Qt::CopyAction | Qt::MoveAction | Qt::LinkAction;
    return QTreeWidget::supportedDropActions();
}

void VemoTreeWidget::startDrag(Qt::DropActions supportedActions)
{
    if (!m_are_drop_signals_enabled) {
        QTreeWidget::startDrag(supportedActions);
        return;
    }
    QList<QTreeWidgetItem *> items;
    QVariantList dragged;
    const QList<QTreeWidgetItem *> selected = selectedItems();
    for (QTreeWidgetItem *item : selected) {
        if (!(item->flags() & Qt::ItemIsDragEnabled))
            continue;
        items << item;
        dragged << QVariant::fromValue(QPersistentModelIndex(indexFromItem(item)));
    }
    if (items.isEmpty())
        return;
    QMimeData *data = mimeData(items);
    data->setProperty(kDragged, dragged);
    auto *drag = new QDrag(this);
    drag->setMimeData(data);
    drag->setPixmap(draggedPicture(items));
    // Deliberate: QAbstractItemView would remove the items after they were moved.
    drag->exec(supportedActions, defaultDropAction());
}

void VemoTreeWidget::dragMoveEvent(QDragMoveEvent *event)
{
    QTreeWidget::dragMoveEvent(event);
    if (!m_are_drop_signals_enabled)
        return;
    const bool isTarget = canDrop(*event->mimeData(), itemAt(positionOf(event)));
    if (!isTarget)
        event->ignore();
    // The indicator is only painted in this state.
    setState(isTarget ? DraggingState : NoState);
}

void VemoTreeWidget::dropEvent(QDropEvent *event)
{
    if (!m_are_drop_signals_enabled) {
        QTreeWidget::dropEvent(event);
        return;
    }
    stopAutoScroll();
    setState(NoState);
    viewport()->update();
    QTreeWidgetItem *target = itemAt(positionOf(event));
    if (!canDrop(*event->mimeData(), target)) {
        event->ignore();
        return;
    }
    event->acceptProposedAction();
    const QList<QTreeWidgetItem *> items = draggedItems(*event->mimeData());
    const Qt::DropAction action = event->dropAction();
    if (!items.isEmpty())
        Q_EMIT itemsDropped(items, target, dropPosition(), action);
    else
        Q_EMIT urlsDropped(event->mimeData()->urls(), target, dropPosition(), action);
}

void VemoTreeWidget::expandItems(const QList<QPersistentModelIndex> &items, bool isExpanded)
{
    if (items.isEmpty())
        return;
    // Otherwise the view would be laid out again for each of them.
    scheduleDelayedItemsLayout();
    for (const QPersistentModelIndex &item : items) {
        if (item.isValid())
            setExpanded(item, isExpanded);
    }
}

/// Deselects hidden items, and makes a visible one current.
void VemoTreeWidget::leaveHiddenItems()
{
    QItemSelection hidden;
    const QList<QTreeWidgetItem *> selected = selectedItems();
    for (const QTreeWidgetItem *item : selected) {
        if (!::isVisible(item))
            hidden.select(indexFromItem(item), indexFromItem(item, columnCount() - 1));
    }
    if (!hidden.isEmpty())
        selectionModel()->select(hidden, QItemSelectionModel::Deselect);
    QTreeWidgetItem *current = currentItem();
    while (current && !::isVisible(current))
        current = current->parent();
    if (current != currentItem())
        setCurrentItem(current, currentColumn(), QItemSelectionModel::NoUpdate);
}

/// Whether data can be dropped on or beside target, which is null outside of all items.
bool VemoTreeWidget::canDrop(const QMimeData &data, const QTreeWidgetItem *target) const
{
    const QList<QTreeWidgetItem *> items = draggedItems(data);
    if (items.isEmpty() && !data.hasUrls())
        return false;
    const bool isBeside = target && dropPosition() != DropOnItem;
    const QTreeWidgetItem *parent = isBeside ? target->parent() : target;
    for (const QTreeWidgetItem *item : items) {
        if (isAtOrBelow(parent, item))
            return false;
    }
    return (parent ? parent : invisibleRootItem())->flags() & Qt::ItemIsDropEnabled;
}

VemoTreeWidget::DropPosition VemoTreeWidget::dropPosition() const
{
    switch (dropIndicatorPosition()) {
    case OnItem:
        return DropOnItem;
    case AboveItem:
        return DropAboveItem;
    case BelowItem:
        return DropBelowItem;
    default:
        return DropOnViewport;
    }
}

/// What follows the pointer during a drag: the rows of the visible items.
QPixmap VemoTreeWidget::draggedPicture(const QList<QTreeWidgetItem *> &items) const
{
    QRect rows;
    for (const QTreeWidgetItem *item : items)
        rows |= visualItemRect(item) & viewport()->rect();
    return rows.isEmpty() ? QPixmap() : viewport()->grab(rows);
}
