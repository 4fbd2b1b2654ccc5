// SPDX-License-Identifier: MIT
#include <vemo/vemotreewidget.h>

#include "core/scaling_p.h"

#include <QKeyEvent>
#include <QPainter>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QScrollBar>

namespace {

constexpr int kRoomAtRight = 100; // design pixels
constexpr int kHighlightInset = 3; // design pixels; also the radius of its corners

void drawHighlight(QPainter *painter, QRect row, const QColor &color)
{
    const int inset = scaled(kHighlightInset);
    row.setWidth(row.width() - inset);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(QBrush(color, Qt::SolidPattern));
    painter->setPen(QColor("#FFFFFF"));
    painter->drawRoundedRect(row, inset, inset, Qt::AbsoluteSize);
    painter->restore();
}

} // namespace

VemoTreeWidget::VemoTreeWidget(QWidget *parent) : QTreeWidget(parent) { }

void VemoTreeWidget::setBackgroundColor(QColor selected, QColor hover)
{
    m_selected_color = selected;
    m_hover_color = hover;
}

void VemoTreeWidget::updateScrollArea(QTreeWidgetItem *item)
{
    if (!item || item->treeWidget() != this)
        return;
    const int width = viewport()->width();
    const int left = visualItemRect(item).x();
    if (left >= 0 && left + scaled(kRoomAtRight) <= width)
        return;
    horizontalScrollBar()->setValue(left - width / 2 + horizontalScrollBar()->value());
}

void VemoTreeWidget::mousePressEvent(QMouseEvent *event)
{
    const QPointer<VemoTreeWidget> self(this);
    if (event->button() == Qt::RightButton)
        Q_EMIT sigMouseRightClickEvent(event);
    // A menu that the slot ran may have taken the tree with it.
    if (self)
        QTreeWidget::mousePressEvent(event);
}

void VemoTreeWidget::keyPressEvent(QKeyEvent *event)
{
    const QPointer<VemoTreeWidget> self(this);
    Q_EMIT sigKeyPressEvent(event);
    if (self)
        QTreeWidget::keyPressEvent(event);
}

void VemoTreeWidget::focusInEvent(QFocusEvent * /*event*/)
{
    // Deliberate: the base class is left out.
    if (!currentItem()) {
        setCurrentItem(itemAt(QPoint(0, 0)));
        return;
    }
    const QPointer<VemoTreeWidget> self(this);
    const QPersistentModelIndex current = indexFromItem(currentItem());
    setCurrentItem(itemAt(QPoint(-1, -1)));
    // A slot may have deleted the item, or the tree.
    if (self && current.isValid())
        setCurrentItem(itemFromIndex(current));
}

void VemoTreeWidget::paintEvent(QPaintEvent *event)
{
    // Asking for the pointer may be a round trip to the display: once a paint, not once a row.
    m_pointer_in_paint = mapFromGlobal(QCursor::pos());
    QTreeWidget::paintEvent(event);
    m_pointer_in_paint.reset();
}

void VemoTreeWidget::drawRow(
    QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QTreeWidgetItem *item = itemFromIndex(index);
    QStyleOptionViewItem row = option;
    if (item) {
        if (selectionModel()->isRowSelected(index.row(), index.parent()))
            drawHighlight(painter, option.rect, m_selected_color);
        else if (isHovered(option.rect))
            drawHighlight(painter, option.rect, m_hover_color);
        // Deliberate: a row without a check box looks disabled, although it can be selected.
        if (!(item->flags() & Qt::ItemIsUserCheckable))
            row.state &= ~QStyle::State_Enabled;
    }
    QTreeView::drawRow(painter, row, index);
}

/// Whether the pointer is over the row that is drawn at rect.
bool VemoTreeWidget::isHovered(const QRect &rect) const
{
    const QPoint pointer = m_pointer_in_paint ? *m_pointer_in_paint : mapFromGlobal(QCursor::pos());
    // Deliberate: one pixel lower, and the pointer is taken in the tree, not in its viewport.
    return rect.translated(0, 1).contains(pointer);
}
