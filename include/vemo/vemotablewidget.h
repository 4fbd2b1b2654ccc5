// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QTableWidget>
#include <QWidget>

#include <memory>
#include <vector>

class QHeaderView;
class QScrollArea;

/// The columns of a VemoTableWidget, from left to right.
///
///     VemoTableColumnsInfo columns;
///     columns.addColumn(tr("Name"), 120, true, 1.0);
///     columns.addColumn(tr("Size"), 80, false, 0.0);
///
/// \image html table-fixed-proportional-and-draggable-columns.png
class VEMO_EXPORT VemoTableColumnsInfo
{
public:
    /// Adds a column and returns its index. The width, in design pixels, is that of a fixed column
    /// and the least one of a proportional column, which the user can drag and which takes the
    /// share ratio (0.3 for 30 %) of what the other columns leave free. With ratio 0.0 it takes no
    /// share. Nothing is checked: ratios of more than 1.0 together make the table scroll sideways.
    int addColumn(const QString &name, int width, bool proportional, double ratio);

private:
    friend class VemoTableWidget;

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

/// A table that says when it is resized, before it lays itself out anew. It needs no resources.
///
///     auto *table = new ResizeSignalTableWidget(0, 3);
///     connect(table, SIGNAL(sigResized(QSize)), this, SLOT(slotFitColumns(QSize)));
///
/// \image html table-more-columns-than-fit.png
class VEMO_EXPORT ResizeSignalTableWidget : public QTableWidget
{
    Q_OBJECT

public:
    /// An empty table without a parent.
    ResizeSignalTableWidget(int rows, int columns);
    /// An empty table, as code made from a form needs it.
    explicit ResizeSignalTableWidget(QWidget *parent);

Q_SIGNALS:
    /// The table was resized, for whatever reason. The new size of the viewport, in screen pixels.
    void sigResized(QSize size);

protected:
    void resizeEvent(QResizeEvent *event) override;
};

/// A read-only table of whole rows under a header of its own, with fixed columns and columns that
/// share the free width. Not for data of any size: it holds an item for each cell; page through a
/// long list with a VemoPagingBar.
///
/// The header is a widget beside the table, which reaches over the table's scroll bar too and
/// scrolls sideways with it. Its clicks are not wired: a host that sorts makes the sections
/// clickable and listens to getHeader(). The header is 30, a row 28 design pixels high. Load the
/// style files before: without the sections "component.table_header", "component.table" and
/// "component.scrollbar" it looks plain, with a warning each. It belongs to its parent.
///
///     VemoTableColumnsInfo columns;
///     columns.addColumn(tr("Name"), 120, true, 1.0);
///     columns.addColumn(tr("Size"), 80, false, 0.0);
///     auto *files = new VemoTableWidget(columns, this);
///     files->getTable()->setRowCount(1);
///
/// \image html table-fixed-proportional-and-draggable-columns.png
class VEMO_EXPORT VemoTableWidget : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QStringList columnTexts READ columnTexts WRITE setColumnTexts)

public:
    /// A table without rows. The columns are copied.
    VemoTableWidget(const VemoTableColumnsInfo &columns, QWidget *parent);

    /// Without columns until setColumns(), as code made from a form needs it.
    explicit VemoTableWidget(QWidget *parent);
    ~VemoTableWidget() override;

    /// Other columns; the cells of those that stay keep their items.
    void setColumns(const VemoTableColumnsInfo &columns);

    /// The same as texts, for forms: "name|width" is a fixed column, "name|width|ratio" a
    /// proportional one. A width that is missing or no number is 100.
    void setColumnTexts(const QStringList &texts);
    /// All columns as such texts.
    QStringList columnTexts() const;

    /// The header; it stays the widget's. It has one section more than the table has columns.
    QHeaderView *getHeader();
    /// The table; it stays the widget's. Fill it as any QTableWidget.
    QTableWidget *getTable();

public Q_SLOTS:
    /// Gives the proportional columns their shares of size's width, in screen pixels, also after
    /// the user dragged them. The widget itself connects this and the next two.
    void slotTableResized(QSize size);

    /// Makes a column of the table as wide as its section of the header, new_size screen pixels.
    void slotSectionResized(int index, int old_size, int new_size);

    /// Hides the vertical scroll bar when there is nothing to scroll; its room stays.
    void slotVerticalScrollRangeChanged(int min, int max);

protected:
    /// Moves the header to the other side when the layout direction changes.
    void changeEvent(QEvent *event) override;

private Q_SLOTS:
    void slotHeaderScrolled(int value);

private:
    void initailze(); // deliberately spelt so
    void makeHeader();
    void setLabels();
    void setSectionSizes();
    void setupTable();
    void setupLayout();
    void connectParts();

    VemoTableColumnsInfo m_columns;
    /// Never shown, and no child, which would be shown with its parent; holds the header's labels.
    std::unique_ptr<QTableWidget> m_header_table;
    QScrollArea *m_header_scroll_area = nullptr;
    QHeaderView *m_header = nullptr;
    ResizeSignalTableWidget *m_table = nullptr;
};
