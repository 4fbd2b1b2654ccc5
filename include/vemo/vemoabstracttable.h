// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QSize>
#include <QStringList>

#include <memory>
#include <set>
#include <vector>

class QHeaderView;
class QObject;
class QScrollArea;
class QTableView;
class QTableWidget;
class QWidget;
class TableNotice;

/// The columns of a VemoTableWidget or VemoTableView, from left to right.
///
///     VemoTableColumnsInfo columns;
///     columns.addColumn(tr("Name"), 120, true, 1.0);
///     columns.addColumn(tr("Size"), 80, false, 0.0);
///
/// \image html table-fixed-proportional-and-draggable-columns.png
class VEMO_EXPORT VemoTableColumnsInfo
{
public:
    /// Adds a column and returns its index. width, in design pixels, is the width of a fixed column
    /// and the minimum width of a proportional column. The user can resize a proportional column;
    /// it gets the share ratio (0.3 for 30 %) of the width that the other columns leave free, and
    /// none if ratio is 0.0. Values are not checked: with ratios that exceed 1.0 in total the table
    /// scrolls horizontally.
    int addColumn(const QString &name, int width, bool proportional = false, double ratio = 0.0);

private:
    friend class VemoAbstractTable;

    struct Column
    {
        QString name;
        int width = 0; ///< in design pixels
        bool proportional = false;
        double ratio = 0.0;

        bool takesShare() const { return proportional && ratio != 0.0; }
    };

    std::vector<Column> m_columns;
};

/// What VemoTableWidget and VemoTableView have in common: the columns, the header, and what is
/// shown over the rows. Not a widget itself.
///
///     QSettings().setValue("files", files->saveState()); // files is one of the two
///
/// \image html table-fixed-proportional-and-draggable-columns.png
class VEMO_EXPORT VemoAbstractTable
{
public:
    /// Changes the columns. A VemoTableWidget keeps the items of the remaining columns.
    void setColumns(const VemoTableColumnsInfo &columns);

    /// Sets the columns as texts, for forms: "name|width" is a fixed column, "name|width|ratio" a
    /// proportional one. A missing or malformed width means 100.
    void setColumnTexts(const QStringList &texts);
    /// The columns as such texts.
    QStringList columnTexts() const;

    /// Hides a column in the table and in the header; the others share its room. The same as on
    /// getView().
    void setColumnHidden(int column, bool hidden);
    bool isColumnHidden(int column) const; ///< false by default

    /// Aligns the label of a column and the text of its items, unless an item has an alignment of
    /// its own. Left and vertically centred by default.
    void setColumnAlignment(int column, Qt::Alignment alignment);

    /// Whether a click on the header requests sorting and shows an arrow there, see
    /// sortRequested(). False by default.
    void setSortRequestsEnabled(bool enabled);
    bool areSortRequestsEnabled() const { return m_are_sort_requests_enabled; } ///< see the setter
    /// Shows the arrow in a column, -1 for none; neither emits a signal nor sorts.
    void setSortIndicator(int column, Qt::SortOrder order);

    /// Whether a proportional column that the user dragged, or whose width was set on getView(),
    /// keeps its width when the table is resized. False by default; each call forgets the widths
    /// that were kept.
    void setDraggedWidthsKept(bool kept);
    bool areDraggedWidthsKept() const { return m_are_dragged_widths_kept; } ///< see the setter

    /// A plain text shown in the middle of a table without rows; empty by default. Looks up the
    /// section "component.table_empty_text".
    void setEmptyText(const QString &text);
    QString emptyText() const; ///< empty by default

    /// Shows a bar that moves without end at the top of the rows, for as long as the host reads
    /// them. The rows stay usable. False by default. Looks up the section "component.table_busy".
    void setBusy(bool busy);
    bool isBusy() const; ///< false by default
    /// A plain text shown instead of the empty text while the table is busy; empty by default.
    /// Screen readers announce the bar by it.
    void setBusyText(const QString &text);
    QString busyText() const; ///< empty by default

    /// The widths, places and visibility of the columns and the sort arrow, for QSettings. Widths
    /// are stored in design pixels.
    QByteArray saveState() const;
    /// Restores what saveState() returned for the same columns. Returns false and changes nothing
    /// if state is damaged or of other columns. Proportional columns get their shares again at the
    /// next resize, unless areDraggedWidthsKept().
    bool restoreState(const QByteArray &state);

    /// The header, which belongs to the widget. It has one section more than the table has columns.
    QHeaderView *getHeader() const;
    /// The inner view, which belongs to the widget.
    QTableView *getView() const;

protected:
    /// For widget, of which view becomes a child. Call initailze() next.
    VemoAbstractTable(QWidget *widget, const VemoTableColumnsInfo &columns, QTableView *view);
    virtual ~VemoAbstractTable();
    /// Creates the header and sets up the view. The misspelling is deliberate.
    void initailze();

    /// The number of columns without the section above the scroll bar.
    int columnCount() const { return static_cast<int>(m_columns.m_columns.size()); }
    /// The context of connections that must end before the parts of this class.
    QObject *context() const { return m_context.get(); }

    /// Called when the labels change, with one for each column and an empty one for the section
    /// above the scroll bar. Shows the model's labels in columns without a name.
    virtual void showLabels(const QStringList &labels);
    /// Emits sortRequested().
    virtual void requestSort(int column, Qt::SortOrder order) = 0;

    /// Resets the proportional columns to their shares of the width of size.
    void shareWidth(QSize size);
    /// Sets the width of a column to that of its header section.
    void followHeader(int column, int old_size, int new_size);
    /// Hides the vertical scroll bar if there is nothing to scroll.
    void hideIdleScrollBar(int maximum);
    /// Moves the header to the other side when the layout direction has changed.
    void followDirection();
    /// For a view that has another model.
    void connectModel();
    /// For a model with another number of columns, which have Qt's sizes.
    void restoreColumns();
    TableNotice *notice(); ///< the texts over the rows, created when it is needed
    bool hasNotice() const { return m_notice; } ///< whether there is one

private:
    void makeHeader();
    void setLabels();
    void setSectionSizes();
    void setupTable();
    void setupLayout();
    void connectParts();
    void connectColumns();
    void followScrolledHeader(int value);
    void headerClicked(int section);
    void columnResized(int column, int old_size, int new_size);
    void copyLabels(int first, int last);
    void copyLabel(int column);
    void copyColumns();
    void copyRestoredColumns();

    QWidget *m_widget;
    VemoTableColumnsInfo m_columns;
    /// Stores the header's labels. Never shown; not a child, which would be shown with its parent.
    std::unique_ptr<QTableWidget> m_header_table;
    QScrollArea *m_header_scroll_area = nullptr;
    QHeaderView *m_header = nullptr;
    QTableView *m_table; ///< a child
    TableNotice *m_notice = nullptr; ///< a child of the table, created when it is needed
    std::unique_ptr<QObject> m_context;
    bool m_are_sort_requests_enabled = false;
    int m_sort_column = -1;
    Qt::SortOrder m_sort_order = Qt::AscendingOrder;
    bool m_are_dragged_widths_kept = false;
    bool m_is_header_leading = false; ///< while the table's columns follow the header
    std::set<int> m_dragged; ///< sections that were resized other than by sharing
};
