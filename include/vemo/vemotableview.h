// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/vemoabstracttable.h>

#include <QTableView>
#include <QWidget>

class QAbstractItemModel;

/// A read-only table over a model of the host, with its own header, in which the user selects whole
/// rows. It has fixed columns and columns that share the free width. It asks the model only for the
/// rows that are visible, so it is suited for millions of them; for a table with an item for each
/// cell, use VemoTableWidget.
///
/// The header is a separate widget above the table and its scroll bar, and scrolls horizontally
/// with the table. Widths, places and hidden columns that are set on getView(), and labels that the
/// model changes, are also those of the header. Clicking it does nothing by itself: to sort, see
/// setSortRequestsEnabled(). The header is 30 and a row 28 design pixels high. Requires: style
/// files; without the sections "component.table_header", "component.table_view" and
/// "component.scrollbar" it looks plain, with warnings. It belongs to its parent.
///
///     VemoTableColumnsInfo columns;
///     columns.addColumn(tr("Name"), 120, true, 1.0);
///     columns.addColumn(tr("Size"), 80, false, 0.0);
///     auto *log = new VemoTableView(columns, this);
///     log->setModel(model);
///
/// \image html table-a-million-rows.png
class VEMO_EXPORT VemoTableView : public QWidget, public VemoAbstractTable
{
    Q_OBJECT
    /// The columns as texts: "name|width" or "name|width|ratio".
    Q_PROPERTY(QStringList columnTexts READ columnTexts WRITE setColumnTexts)

public:
    /// Creates a table without a model. The columns are copied.
    explicit VemoTableView(const VemoTableColumnsInfo &columns, QWidget *parent = nullptr);
    /// Creates a table without columns. Call setColumns().
    explicit VemoTableView(QWidget *parent = nullptr);

    /// Sets the model, which may be null; the caller keeps ownership. Columns of the model beyond
    /// those of the table are hidden. A column with an empty name shows the model's label; screen
    /// readers read the model's labels for all columns. Call it here, not on getView().
    void setModel(QAbstractItemModel *model);
    QAbstractItemModel *model() const; ///< initially null

Q_SIGNALS:
    /// The user clicked the header of a column, which shows the arrow now. The table does not sort:
    /// sort your data and fill the rows again.
    void sortRequested(int column, Qt::SortOrder order);

public Q_SLOTS:
    /// Resets the proportional columns to their shares of the width of size, in screen pixels, even
    /// if the user has resized them. The widget itself connects this slot and the next two.
    void slotTableResized(QSize size);

    /// Sets the width of a column to that of its header section, new_size screen pixels.
    void slotSectionResized(int index, int old_size, int new_size);

    /// Hides the vertical scroll bar if there is nothing to scroll; its space remains.
    void slotVerticalScrollRangeChanged(int min, int max);

protected:
    void changeEvent(QEvent *event) override;
    void requestSort(int column, Qt::SortOrder order) override;
};
