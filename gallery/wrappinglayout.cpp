// SPDX-License-Identifier: MIT
#include "gallery/wrappinglayout.h"

#include <QStyle>
#include <QWidget>

#include <algorithm>

WrappingLayout::~WrappingLayout()
{
    qDeleteAll(m_items);
}

QLayoutItem *WrappingLayout::takeAt(int index)
{
    return index >= 0 && index < m_items.size() ? m_items.takeAt(index) : nullptr;
}

QSize WrappingLayout::sizeHint() const
{
    QSize size(-spacing(), 0);
    for (const QLayoutItem *item : m_items) {
        size.rwidth() += item->sizeHint().width() + spacing();
        size.setHeight(std::max(size.height(), item->sizeHint().height()));
    }
    return size.expandedTo({0, 0});
}

QSize WrappingLayout::minimumSize() const
{
    QSize size;
    for (const QLayoutItem *item : m_items)
        size = size.expandedTo(item->minimumSize());
    return size;
}

void WrappingLayout::setGeometry(const QRect &rect)
{
    QLayout::setGeometry(rect);
    place(rect, true);
}

int WrappingLayout::place(const QRect &rect, bool isForReal) const
{
    QVector<QLayoutItem *> line;
    QRect room(rect.topLeft(), QSize(-spacing(), 0));
    const auto finishLine = [&] {
        if (isForReal)
            placeLine(line, {rect.left(), room.top(), rect.width(), room.height()});
        line.clear();
    };
    for (QLayoutItem *item : m_items) {
        if (item->isEmpty())
            continue;
        const QSize size = item->sizeHint();
        if (!line.isEmpty() && room.width() + spacing() + size.width() > rect.width()) {
            finishLine();
            room = QRect(rect.left(), room.bottom() + 1 + spacing(), -spacing(), 0);
        }
        line.append(item);
        room.setWidth(room.width() + spacing() + size.width());
        room.setHeight(std::max(room.height(), size.height()));
    }
    finishLine();
    return room.bottom() + 1 - rect.top();
}

void WrappingLayout::placeLine(const QVector<QLayoutItem *> &line, const QRect &room) const
{
    const Qt::LayoutDirection direction =
        parentWidget() ? parentWidget()->layoutDirection() : Qt::LeftToRight;
    int left = room.left();
    for (QLayoutItem *item : line) {
        const QSize size = item->sizeHint();
        const QRect place(left, room.top(), size.width(), room.height());
        item->setGeometry(QStyle::visualRect(direction, room, place));
        left += size.width() + spacing();
    }
}
