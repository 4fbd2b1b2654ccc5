// SPDX-License-Identifier: MIT
#include <vemo/vemotreewidget.h>

#include "core/qtcompat_p.h"
#include "core/scaling_p.h"
#include "views/itemdelegate_p.h"
#include "views/treechecks_p.h"
#include "views/treechildren_p.h"
#include "views/treefilter_p.h"

#include <vemo/stylemanager.h>

#include <QApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <functional>
#include <utility>
#include <vector>

namespace {

constexpr int kRoomAtRight = 100; // design pixels
// Deliberate: in every theme that names no other.
constexpr Qt::GlobalColor kHighlightOutline = Qt::white;

void drawHighlight(QPainter *painter, QRect row, const QColor &color)
{
    const int inset = scaled(kHighlightInset); // Also the radius of its corners.
    row.setWidth(row.width() - inset);
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setBrush(QBrush(color, Qt::SolidPattern));
    painter->setPen(
        StyleManager::getInstance().getColor(QStringLiteral("tree-outline"), kHighlightOutline));
    painter->drawRoundedRect(row, inset, inset, Qt::AbsoluteSize);
    painter->restore();
}

bool isMenuKey(const QKeyEvent &event)
{
    return event.key() == Qt::Key_Menu
        || (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier);
}

/// The rows in which at least one column is selected.
class TouchedRows
{
public:
    explicit TouchedRows(const QItemSelection &selection)
    {
        m_runs.reserve(selection.size());
        for (const QItemSelectionRange &range : selection)
            m_runs.push_back({range.parent().internalPointer(), range.top(), range.bottom()});
        std::sort(m_runs.begin(), m_runs.end());
        joinRuns();
    }

    bool contains(const QModelIndex &index) const
    {
        const Run row {index.parent().internalPointer(), index.row(), index.row()};
        auto run = std::upper_bound(m_runs.begin(), m_runs.end(), row);
        if (run == m_runs.begin())
            return false;
        --run;
        return run->parent == row.parent && run->bottom >= row.top;
    }

private:
    struct Run
    {
        const void *parent;
        int top;
        int bottom;

        bool operator<(const Run &other) const
        {
            return parent != other.parent ? std::less<>()(parent, other.parent) : top < other.top;
        }
    };

    /// Merges overlapping runs, so that a row can only be in the last run that begins at or before
    /// it.
    void joinRuns()
    {
        size_t joined = 0;
        for (size_t i = 1; i < m_runs.size(); ++i) {
            Run &last = m_runs[joined];
            if (m_runs[i].parent == last.parent && m_runs[i].top <= last.bottom)
                last.bottom = qMax(last.bottom, m_runs[i].bottom);
            else
                m_runs[++joined] = m_runs[i];
        }
        if (!m_runs.empty())
            m_runs.resize(joined + 1);
    }

    std::vector<Run> m_runs;
};

/// Calls back once no pop-up is open any more.
class PopupWatch : public QObject
{
public:
    PopupWatch(QObject *parent, std::function<void()> call)
        : QObject(parent), m_call(std::move(call))
    {
        watchNext();
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Hide) {
            watched->removeEventFilter(this);
            watchNext();
        }
        return false;
    }

private:
    void watchNext()
    {
        if (QWidget *popup = QApplication::activePopupWidget()) {
            popup->installEventFilter(this);
            return;
        }
        m_call();
        deleteLater();
    }

    std::function<void()> m_call;
};

} // namespace

/// Values that are read once per paint event instead of once per row: querying the pointer may
/// require a round trip to the display, and querying the selection model iterates over the whole
/// selection.
struct VemoTreeWidget::Paint
{
    QPoint pointer;
    TouchedRows touchedRows;
};

VemoTreeWidget::VemoTreeWidget(QWidget *parent) : QTreeWidget(parent)
{
    // Not for the viewport, which would then also draw its rows with the style's hover look.
    setAttribute(Qt::WA_Hover);
}

VemoTreeWidget::~VemoTreeWidget() = default;

void VemoTreeWidget::setBackgroundColor(QColor selected, QColor hover)
{
    m_selected_color = std::move(selected);
    m_hover_color = std::move(hover);
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

bool VemoTreeWidget::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::HoverEnter:
    case QEvent::HoverMove:
    case QEvent::HoverLeave:
        setPointer(positionOf(static_cast<QHoverEvent *>(event)));
        // QWidget repaints itself completely on hover events. Only styles with a hover look need
        // that, and these also enable hover events for the viewport.
        return !viewport()->testAttribute(Qt::WA_Hover) || QTreeWidget::event(event);
    case QEvent::Leave:
        // While a pop-up is open there are no hover events. On Windows the pointer leaves the tree
        // when a menu opens under it.
        if (QApplication::activePopupWidget())
            new PopupWatch(this, [this] { setPointer(mapFromGlobal(QCursor::pos())); });
        return QTreeWidget::event(event);
    default:
        return QTreeWidget::event(event);
    }
}

void VemoTreeWidget::mousePressEvent(QMouseEvent *event)
{
    const QPointer<VemoTreeWidget> self(this);
    if (event->button() == Qt::RightButton)
        Q_EMIT sigMouseRightClickEvent(event);
    // The tree may have been deleted while a slot ran a menu.
    if (self)
        QTreeWidget::mousePressEvent(event);
}

void VemoTreeWidget::keyPressEvent(QKeyEvent *event)
{
    const QPointer<VemoTreeWidget> self(this);
    // A slot may change the event, or delete the tree.
    const bool asksForMenu = isMenuKey(*event);
    Q_EMIT sigKeyPressEvent(event);
    if (self && asksForMenu)
        Q_EMIT sigMenuKeyEvent(currentItem(), menuPosition());
    if (self)
        QTreeWidget::keyPressEvent(event);
}

void VemoTreeWidget::focusInEvent(QFocusEvent * /*event*/)
{
    // Deliberate: the base class is not called.
    if (!currentItem()) {
        setCurrentItem(itemAt(QPoint(0, 0)));
        return;
    }
    const QPersistentModelIndex current = indexFromItem(currentItem());
    setCurrentItem(itemAt(QPoint(-1, -1)));
    // A slot may have deleted the item and set another one.
    if (current.isValid())
        setCurrentItem(itemFromIndex(current));
}

void VemoTreeWidget::scrollContentsBy(int dx, int dy)
{
    QTreeWidget::scrollContentsBy(dx, dy);
    // QTreeView scrolls horizontally by moving pixels, and would move the ends of the highlights
    // too.
    if (dx != 0)
        viewport()->update();
}

void VemoTreeWidget::paintEvent(QPaintEvent *event)
{
    const Paint paint {mapFromGlobal(QCursor::pos()), TouchedRows(selectionModel()->selection())};
    // The pointer may have moved since the last event.
    setPointer(paint.pointer);
    const QScopedValueRollback<const Paint *> whilePainting(m_paint, &paint);
    QTreeWidget::paintEvent(event);
}

void VemoTreeWidget::drawRow(
    QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    const QTreeWidgetItem *item = itemFromIndex(index);
    if (item) {
        if (isSelected(index))
            drawHighlight(painter, option.rect, m_selected_color);
        else if (isHovered(option.rect))
            drawHighlight(painter, option.rect, m_hover_color);
    }
    if (!item || item->flags() & Qt::ItemIsUserCheckable) {
        QTreeView::drawRow(painter, option, index);
        return;
    }
    // Deliberate: the text of a row without a check box looks disabled, although it can be
    // selected.
    QStyleOptionViewItem row = option;
    row.state &= ~QStyle::State_Enabled;
    QTreeView::drawRow(painter, row, index);
}

/// Of the menu of the current item: where its row ends, at the side where it begins.
QPoint VemoTreeWidget::menuPosition() const
{
    if (!currentItem())
        return {};
    const QRect row = visualItemRect(currentItem()) & viewport()->rect();
    return isRightToLeft() ? row.bottomRight() : row.bottomLeft();
}

bool VemoTreeWidget::isSelected(const QModelIndex &index) const
{
    if (m_paint && !m_paint->touchedRows.contains(index))
        return false;
    return selectionModel()->isRowSelected(index.row(), index.parent());
}

/// Whether the pointer is over the row drawn at rect.
bool VemoTreeWidget::isHovered(const QRect &rect) const
{
    const QPoint pointer = m_paint ? m_paint->pointer : mapFromGlobal(QCursor::pos());
    // Deliberate: one pixel lower, and relative to the tree, not to its viewport.
    return rect.translated(0, 1).contains(pointer);
}

/// Repaints the affected rows if the pointer has moved to another row.
void VemoTreeWidget::setPointer(const QPoint &pointer)
{
    const QModelIndex row = rowAt(pointer);
    if (m_hovered_row == row)
        return;
    updateRow(m_hovered_row);
    updateRow(row);
    m_hovered_row = row;
}

/// The first visible column of the row for which isHovered() is true at pointer.
QModelIndex VemoTreeWidget::rowAt(const QPoint &pointer) const
{
    const QPoint inRow = pointer - QPoint(0, 1);
    if (!viewport()->rect().contains(inRow))
        return {};
    return indexAt({columnViewportPosition(header()->logicalIndex(0)), inRow.y()});
}

void VemoTreeWidget::updateRow(const QModelIndex &row)
{
    if (!row.isValid())
        return;
    const QRect rect = visualRect(row);
    // The pen extends half a pixel into the rows above and below.
    viewport()->update(0, rect.top() - 1, viewport()->width(), rect.height() + 2);
}
