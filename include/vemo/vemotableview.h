// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QTableView>
#include <QWidget>

#include <memory>
#include <set>
#include <vector>

class QAbstractItemModel;
class QHeaderView;
class QScrollArea;
class QTableWidget;
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
    friend class VemoTableView;

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
class VEMO_EXPORT VemoTableView : public QWidget
{
    Q_OBJECT
    /// The columns as texts: "name|width" or "name|width|ratio".
    Q_PROPERTY(QStringList columnTexts READ columnTexts WRITE setColumnTexts)

public:
    /// Creates a table without a model. The columns are copied.
    explicit VemoTableView(const VemoTableColumnsInfo &columns, QWidget *parent = nullptr);
    /// Creates a table without columns. Call setColumns().
    explicit VemoTableView(QWidget *parent = nullptr);
    ~VemoTableView() override;

    /// Sets the model, which may be null; the caller keeps ownership. Columns of the model beyond
    /// those of the table are hidden. A column with an empty name shows the model's label; screen
    /// readers read the model's labels for all columns. Call it here, not on getView().
    void setModel(QAbstractItemModel *model);
    QAbstractItemModel *model() const; ///< initially null

    /// Changes the columns. What the model contains does not change.
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
    /// For a table of another class, which becomes a child. Call initailze() next.
    VemoTableView(const VemoTableColumnsInfo &columns, QTableView *table, QWidget *parent);
    void initailze(); // The misspelling is deliberate.

    /// Called when the labels change, with one for each column and an empty one for the section
    /// above the scroll bar. Shows the model's labels in columns without a name.
    virtual void showLabels(const QStringList &labels);

    /// Moves the header to the other side when the layout direction changes.
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void slotHeaderScrolled(int value);
    void slotHeaderClicked(int section);
    void slotColumnResized(int column, int old_size, int new_size);
    void slotSectionMoved(int section);
    void slotColumnMoved(int column);
    void slotLabelsChanged(Qt::Orientation orientation, int first, int last);
    void slotColumnsRestored();
    void slotColumnCountChanged();

private:
    int columnCount() const { return static_cast<int>(m_columns.m_columns.size()); }
    void connectModel();
    void copyLabel(int column);
    void copyColumns();
    void makeHeader();
    void setLabels();
    void setSectionSizes();
    void setupTable();
    void setupLayout();
    void connectParts();
    void connectColumns();
    TableNotice *notice();

    VemoTableColumnsInfo m_columns;
    /// Stores the header's labels. Never shown; not a child, which would be shown with its parent.
    std::unique_ptr<QTableWidget> m_header_table;
    QScrollArea *m_header_scroll_area = nullptr;
    QHeaderView *m_header = nullptr;
    QTableView *m_table; ///< a child
    TableNotice *m_notice = nullptr; ///< a child of the table, created when it is needed
    bool m_are_sort_requests_enabled = false;
    int m_sort_column = -1;
    Qt::SortOrder m_sort_order = Qt::AscendingOrder;
    bool m_are_dragged_widths_kept = false;
    bool m_is_header_leading = false; ///< while the table's columns follow the header
    std::set<int> m_dragged; ///< sections that were resized other than by sharing
};
