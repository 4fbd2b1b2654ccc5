// SPDX-License-Identifier: MIT
#include "views/sidebarlist_p.h"

#include "core/scaling_p.h"
#include "views/sidebardelegate_p.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>

namespace {

constexpr int kIconSize = 16; // design pixels

} // namespace

SideBarList::SideBarList(QWidget *parent) : QListView(parent), m_delegate(new SideBarDelegate(this))
{
    setEditTriggers(NoEditTriggers);
    setSelectionMode(SingleSelection);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setTabKeyNavigation(false);
    setIconSize({scaled(kIconSize), scaled(kIconSize)});
    viewport()->setAttribute(Qt::WA_Hover);
    setItemDelegate(m_delegate);
}

void SideBarList::setCollapsed(bool collapsed)
{
    m_is_collapsed = collapsed;
    scheduleDelayedItemsLayout();
    viewport()->update();
}

QModelIndex SideBarList::indexAt(const QPoint &point) const
{
    const QModelIndex row = rowAt(point);
    return pageRect(row).contains(point) ? row : QModelIndex();
}

QRect SideBarList::pageRect(const QModelIndex &index) const
{
    return m_delegate->pageRect(index, visualRect(index));
}

void SideBarList::pick(const QModelIndex &index)
{
    setCurrentIndex(index);
    Q_EMIT inputHandled();
}

int SideBarList::widthOfTexts() const
{
    int width = 0;
    for (int row = 0; row < model()->rowCount(); ++row)
        width = qMax(width, m_delegate->rowWidth(model()->index(row, 0)));
    const QScrollBar *bar = verticalScrollBar();
    // The range depends on a height that is not known before the first show.
    const bool isScrolling = isVisible() && bar->maximum() > bar->minimum();
    const int scrollWidth = isScrolling ? bar->sizeHint().width() : 0;
    return width + 2 * frameWidth() + scrollWidth;
}

void SideBarList::changeEvent(QEvent *event)
{
    QListView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        m_delegate->setFont(font());
}

QItemSelectionModel::SelectionFlags SideBarList::selectionCommand(
    const QModelIndex &index, const QEvent * /*event*/) const
{
    // Otherwise a click with Ctrl would leave the current row without a selection.
    return isPageEnabled(index) ? QItemSelectionModel::ClearAndSelect
                                : QItemSelectionModel::NoUpdate;
}

void SideBarList::keyPressEvent(QKeyEvent *event)
{
    // Not left to the default button of a dialog.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        Q_EMIT returnPressed();
        return;
    }
    QListView::keyPressEvent(event);
    Q_EMIT inputHandled();
}

void SideBarList::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const QModelIndex index = indexAt(event->pos());
    setPressed(isPageEnabled(index) ? index : QModelIndex());
    QListView::mousePressEvent(event);
    Q_EMIT inputHandled();
}

void SideBarList::mouseMoveEvent(QMouseEvent *event)
{
    // With a button held down, Qt would make each row under the pointer current.
    if (event->buttons() == Qt::NoButton)
        QListView::mouseMoveEvent(event);
}

void SideBarList::mouseReleaseEvent(QMouseEvent *event)
{
    setPressed({});
    QListView::mouseReleaseEvent(event);
}

void SideBarList::setPressed(const QModelIndex &index)
{
    const QModelIndex before = m_pressed;
    m_pressed = index;
    for (const QModelIndex &changed : {before, index}) {
        if (changed.isValid())
            update(changed);
    }
}
