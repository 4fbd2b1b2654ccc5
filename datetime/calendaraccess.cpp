// SPDX-License-Identifier: MIT
#include "datetime/calendaraccess_p.h"

#include "datetime/daycalendar_p.h"

#include <vemo/vemocalanderview.h>

#include <QAccessibleWidget>
#include <QTableView>

#include <array>

namespace {

constexpr int kWeeks = 6;
constexpr int kDays = 7;
// The column numbers in Qt's events include the headers, even if these are hidden.
constexpr int kColumns = kDays + 1;
constexpr int kCells = (kWeeks + 1) * kColumns;

/// Null while QCalendarWidget is being constructed or destroyed.
DayCalendar *calendarOf(const QTableView *grid)
{
    return dynamic_cast<DayCalendar *>(grid->parent());
}

/// A day, or a header cell: the weekday above, or the week before.
class CellAccess : public QAccessibleInterface,
                   public QAccessibleTableCellInterface,
                   public QAccessibleActionInterface
{
public:
    CellAccess(QTableView *grid, int cell)
        : m_grid(grid), m_row(cell / kColumns - 1), m_column(cell % kColumns - 1)
    {
    }

    bool isValid() const override { return calendarOf(m_grid); }
    QObject *object() const override { return nullptr; }
    QAccessibleInterface *parent() const override { return grid(); }
    QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface *childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface * /*child*/) const override { return -1; }
    void setText(QAccessible::Text /*kind*/, const QString & /*text*/) override { }

    QString text(QAccessible::Text kind) const override
    {
        if (kind != QAccessible::Name || !isValid())
            return {};
        if (isDay())
            return m_grid->locale().toString(date(), QLocale::LongFormat);
        return m_column < 0 ? QString() : calendarOf(m_grid)->weekdayName(m_column);
    }

    QRect rect() const override
    {
        const QRect cell = isDay() ? m_grid->visualRect(index()) : QRect();
        return {m_grid->viewport()->mapToGlobal(cell.topLeft()), cell.size()};
    }

    QAccessible::Role role() const override
    {
        return isDay()  ? QAccessible::Cell
            : m_row < 0 ? QAccessible::ColumnHeader
                        : QAccessible::RowHeader;
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        const DayCalendar *calendar = calendarOf(m_grid);
        state.invisible = !isDay() || !m_grid->isVisible();
        if (!isDay() || !calendar)
            return state;
        state.disabled = !calendar->canBePicked(date());
        state.selectable = state.focusable = !state.disabled;
        state.selected = isSelected();
        state.focused = calendar->showsFocus() && m_grid->currentIndex() == index();
        return state;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TableCellInterface)
            return static_cast<QAccessibleTableCellInterface *>(this);
        if (type == QAccessible::ActionInterface && isDay())
            return static_cast<QAccessibleActionInterface *>(this);
        return nullptr;
    }

    bool isSelected() const override
    {
        return isDay() && isValid() && date() == calendarOf(m_grid)->selectedDate();
    }
    QList<QAccessibleInterface *> columnHeaderCells() const override
    {
        return {grid()->child(m_column + 1)};
    }
    QList<QAccessibleInterface *> rowHeaderCells() const override { return {}; }
    int columnIndex() const override { return m_column; }
    int rowIndex() const override { return m_row; }
    int columnExtent() const override { return 1; }
    int rowExtent() const override { return 1; }
    QAccessibleInterface *table() const override { return grid(); }

    QStringList actionNames() const override { return {pressAction()}; }
    QStringList keyBindingsForAction(const QString & /*name*/) const override { return {}; }
    void doAction(const QString &name) override
    {
        if (name == pressAction() && isValid())
            calendarOf(m_grid)->pick(date());
    }

private:
    bool isDay() const { return m_row >= 0 && m_column >= 0; }
    QDate date() const { return calendarOf(m_grid)->dateAt(m_row, m_column); }
    QModelIndex index() const { return m_grid->model()->index(m_row, m_column); }
    QAccessibleInterface *grid() const { return QAccessible::queryAccessibleInterface(m_grid); }

    QTableView *m_grid; // Outlives its interface, which outlives its cells.
    int m_row;
    int m_column;
};

class GridAccess : public QAccessibleWidget, public QAccessibleTableInterface
{
public:
    explicit GridAccess(QTableView *grid)
        : QAccessibleWidget(grid, QAccessible::Table), m_grid(grid)
    {
        m_ids.fill(0);
    }
    ~GridAccess() override
    {
        for (const QAccessible::Id id : m_ids) {
            if (id)
                QAccessible::deleteAccessibleInterface(id);
        }
    }

    int childCount() const override { return kCells; }
    QAccessibleInterface *child(int cell) const override
    {
        // Qt's headers count as cells until they are hidden, right after construction.
        const QAbstractItemModel *days = m_grid->model();
        if (days->rowCount() > kWeeks || days->columnCount() > kDays)
            cell = 0;
        if (cell < 0 || cell >= kCells)
            return nullptr;
        QAccessible::Id &id = m_ids[size_t(cell)];
        if (!id)
            id = QAccessible::registerAccessibleInterface(new CellAccess(m_grid, cell));
        return QAccessible::accessibleInterface(id);
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        for (int cell = 0; cell < kCells; ++cell) {
            const QAccessible::Id id = m_ids[size_t(cell)];
            if (id && QAccessible::accessibleInterface(id) == child)
                return cell;
        }
        return -1;
    }
    QAccessibleInterface *childAt(int x, int y) const override
    {
        return cellOf(m_grid->indexAt(m_grid->viewport()->mapFromGlobal(QPoint(x, y))));
    }
    QAccessibleInterface *focusChild() const override
    {
        const DayCalendar *calendar = calendarOf(m_grid);
        return calendar && calendar->showsFocus() ? cellOf(m_grid->currentIndex()) : nullptr;
    }
    void *interface_cast(QAccessible::InterfaceType type) override
    {
        if (type == QAccessible::TableInterface)
            return static_cast<QAccessibleTableInterface *>(this);
        return QAccessibleWidget::interface_cast(type);
    }

    QAccessibleInterface *caption() const override { return nullptr; }
    QAccessibleInterface *summary() const override { return nullptr; }
    QAccessibleInterface *cellAt(int row, int column) const override
    {
        return row < 0 || column < 0 || row >= kWeeks || column >= kDays
            ? nullptr
            : child((row + 1) * kColumns + column + 1);
    }
    int selectedCellCount() const override { return selectedCells().size(); }
    QList<QAccessibleInterface *> selectedCells() const override
    {
        for (int cell = 0; cell < kCells; ++cell) {
            if (child(cell)->tableCellInterface()->isSelected())
                return {child(cell)};
        }
        return {};
    }
    QString columnDescription(int column) const override
    {
        const DayCalendar *calendar = calendarOf(m_grid);
        return calendar ? calendar->weekdayName(column) : QString();
    }
    QString rowDescription(int /*row*/) const override { return {}; }
    int columnCount() const override { return kDays; }
    int rowCount() const override { return kWeeks; }
    // Single days are selected, never rows or columns.
    int selectedColumnCount() const override { return 0; }
    int selectedRowCount() const override { return 0; }
    QList<int> selectedColumns() const override { return {}; }
    QList<int> selectedRows() const override { return {}; }
    bool isColumnSelected(int /*column*/) const override { return false; }
    bool isRowSelected(int /*row*/) const override { return false; }
    bool selectRow(int /*row*/) override { return false; }
    bool selectColumn(int /*column*/) override { return false; }
    bool unselectRow(int /*row*/) override { return false; }
    bool unselectColumn(int /*column*/) override { return false; }
    // The cells remain valid: each looks up the day at its position.
    void modelChange(QAccessibleTableModelChangeEvent * /*event*/) override { }

private:
    QAccessibleInterface *cellOf(const QModelIndex &day) const
    {
        return day.isValid() ? cellAt(day.row(), day.column()) : nullptr;
    }

    QTableView *m_grid;
    mutable std::array<QAccessible::Id, kCells> m_ids;
};

QAccessibleInterface *newInterface(const QString &name, QObject *object)
{
    if (auto *view = qobject_cast<VemoCalanderView *>(object))
        return new QAccessibleWidget(view, QAccessible::Grouping);
    // Identified by its position, because this is called while Qt is still constructing the
    // calendar.
    const bool isGrid = name == QLatin1String("QCalendarView") && object->parent()
        && qobject_cast<VemoCalanderView *>(object->parent()->parent());
    return isGrid ? new GridAccess(qobject_cast<QTableView *>(object)) : nullptr;
}

} // namespace

void makeCalendarsAccessible()
{
    // Installing the factory again is a no-op.
    QAccessible::installFactory(newInterface);
}
