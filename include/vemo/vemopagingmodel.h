// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QObject>

/// The arithmetic of paging through a list: rows per page, number of items, current page.
///
/// The host owns it and hands it to a VemoPagingBar, which writes the current page. Nothing is
/// clamped: what is set is stored as it comes. It needs no resources and has no signals.
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
    /// Page 1 of no items, with that many rows to a page.
    explicit VemoPagingModel(int rowLimit, QObject *parent = nullptr);

    /// Rows of a page.
    int rowLimit() const;

    /// A row limit of 0 puts everything on one page: pageCount() then is 1, with a warning.
    void setRowLimit(int rowLimit);

    /// Items of the whole list; 0 at first.
    int itemCount() const;
    /// Stores the number; the current page stays as it is.
    void setItemCount(int itemCount);

    /// Counted from 1, which it is at first.
    int nowPage() const;
    /// Stores the page; whether there is such a page is not looked at.
    void setNowPage(int nowPage);

    /// At least 1, also without items.
    int pageCount() const;

    /// Index, counted from 0, of the first item of the current page; beyond the items where the
    /// page is beyond the last one.
    int startItem() const;

private:
    int m_row_limit;
    int m_item_count = 0;
    int m_now_page = 1;
};
