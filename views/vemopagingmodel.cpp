// SPDX-License-Identifier: MIT
#include <vemo/vemopagingmodel.h>

#include "core/logging_p.h"

#include <limits>

namespace {

/// Clamps value to the range of int, which extreme counts and pages exceed.
int toInt(qint64 value)
{
    constexpr qint64 lowest = std::numeric_limits<int>::min();
    constexpr qint64 highest = std::numeric_limits<int>::max();
    return static_cast<int>(qBound(lowest, value, highest));
}

} // namespace

VemoPagingModel::VemoPagingModel(int rowLimit, QObject *parent)
    : QObject(parent), m_row_limit(rowLimit)
{
}

int VemoPagingModel::rowLimit() const
{
    return m_row_limit;
}

void VemoPagingModel::setRowLimit(int rowLimit)
{
    m_row_limit = rowLimit;
}

int VemoPagingModel::itemCount() const
{
    return m_item_count;
}

void VemoPagingModel::setItemCount(int itemCount)
{
    m_item_count = itemCount;
}

int VemoPagingModel::nowPage() const
{
    return m_now_page;
}

void VemoPagingModel::setNowPage(int nowPage)
{
    m_now_page = nowPage;
}

int VemoPagingModel::pageCount() const
{
    if (m_row_limit == 0) {
        qCWarning(vemoLog) << "Paging model has row limit" << 0;
        return 1;
    }
    const qint64 items = m_item_count;
    const qint64 pages = items / m_row_limit + (items % m_row_limit != 0 ? 1 : 0);
    return toInt(qMax<qint64>(pages, 1));
}

int VemoPagingModel::startItem() const
{
    return toInt((qint64(m_now_page) - 1) * m_row_limit);
}
