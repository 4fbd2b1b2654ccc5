// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QObject>

/// The arithmetic of paging through a list: rows per page, number of items, current page.
///
/// The host owns it and passes it to a VemoPagingBar, which sets the current page. Values are
/// stored as they are, without clamping. It has no signals. Requires: nothing.
///
///     VemoPagingModel model(50, nullptr);
///     model.setItemCount(120);
///     model.setNowPage(3);
///     show(items.mid(model.startItem(), model.rowLimit())); // from item 100 on
///
/// \image html paging-a-list-of-10-000-items.png
class VEMO_EXPORT VemoPagingModel : public QObject // clazy:exclude=missing-qobject-macro
{
public:
    /// Creates a model with the given rows per page and no items, at page 1.
    explicit VemoPagingModel(int rowLimit, QObject *parent = nullptr);

    /// The number of rows per page.
    int rowLimit() const;

    /// Sets the rows per page. A row limit of 0 puts everything on one page: pageCount() is then 1,
    /// with a warning.
    void setRowLimit(int rowLimit);

    /// The number of items in the whole list; initially 0.
    int itemCount() const;
    /// Sets the number of items; the current page does not change.
    void setItemCount(int itemCount);

    /// The current page, counted from 1; initially 1.
    int nowPage() const;
    /// Sets the current page, without checking whether it exists.
    void setNowPage(int nowPage);

    /// The number of pages; at least 1, even without items.
    int pageCount() const;

    /// Index, counted from 0, of the first item on the current page. It exceeds the number of items
    /// if the page is beyond the last one.
    int startItem() const;

private:
    int m_row_limit;
    int m_item_count = 0;
    int m_now_page = 1;
};
