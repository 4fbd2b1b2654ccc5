// SPDX-License-Identifier: MIT
// The columns of a table after its construction: the table's own header and the visible
// one are kept alike, whichever of them is changed.
#include <vemo/vemoabstracttable.h>

#include "core/scaling_p.h"
#include "views/tablenotice_p.h"

#include <QDataStream>
#include <QHeaderView>
#include <QIODevice>
#include <QScopedValueRollback>
#include <QStyledItemDelegate>
#include <QTableWidget>

namespace {

constexpr quint32 kStateMagic = 0x56544331; // "VTC1"

/// Aligns the items that have no alignment of their own.
class AlignedCells : public QStyledItemDelegate
{
public:
    AlignedCells(Qt::Alignment alignment, QObject *parent)
        : QStyledItemDelegate(parent), m_alignment(alignment)
    {
    }

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        if (!index.data(Qt::TextAlignmentRole).isValid())
            option->displayAlignment = m_alignment;
    }

private:
    Qt::Alignment m_alignment;
};

/// A column as saveState() stores it.
struct SavedColumn
{
    QString name;
    double width = 0; ///< in design pixels; 0 if hidden
    bool isHidden = false;
    qint32 place = 0;
};

QDataStream &operator<<(QDataStream &stream, const SavedColumn &column)
{
    return stream << column.name << column.width << column.isHidden << column.place;
}

QDataStream &operator>>(QDataStream &stream, SavedColumn &column)
{
    return stream >> column.name >> column.width >> column.isHidden >> column.place;
}

struct SavedState
{
    QVector<SavedColumn> columns;
    qint32 sortColumn = -1;
    qint32 order = Qt::AscendingOrder;
};

/// Whether state could be read into saved.
bool read(const QByteArray &state, SavedState *saved)
{
    QDataStream stream(state);
    stream.setVersion(QDataStream::Qt_5_15);
    quint32 magic = 0;
    quint32 count = 0;
    stream >> magic >> count;
    // One by one: a damaged count must not reserve memory.
    while (magic == kStateMagic && count-- > 0 && stream.status() == QDataStream::Ok) {
        SavedColumn column;
        stream >> column;
        saved->columns << column;
    }
    stream >> saved->sortColumn >> saved->order;
    return magic == kStateMagic && stream.status() == QDataStream::Ok;
}

void copyPlace(const QHeaderView &from, QHeaderView *to, int section)
{
    const int place = from.visualIndex(section);
    // The model may have more columns than the table, or fewer.
    const bool hasBoth = section < to->count() && place < to->count();
    if (hasBoth && to->visualIndex(section) != place)
        to->moveSection(to->visualIndex(section), place);
}

} // namespace

void VemoAbstractTable::connectColumns()
{
    const QHeaderView *columns = m_table->horizontalHeader();
    QObject::connect(m_header, &QHeaderView::sectionClicked, context(),
        [this](int section) { headerClicked(section); });
    QObject::connect(m_header, &QHeaderView::sectionMoved, context(), [this](int section) {
        if (section < columnCount())
            copyPlace(*m_header, m_table->horizontalHeader(), section);
    });
    QObject::connect(columns, &QHeaderView::sectionResized, context(),
        [this](
            int column, int old_size, int new_size) { columnResized(column, old_size, new_size); });
    QObject::connect(columns, &QHeaderView::sectionMoved, context(), [this](int column) {
        if (column < columnCount())
            copyPlace(*m_table->horizontalHeader(), m_header, column);
    });
    // The only signal that QHeaderView::restoreState() emits.
    QObject::connect(
        columns, &QHeaderView::sortIndicatorChanged, context(), [this] { copyRestoredColumns(); });
    connectModel();
}

void VemoAbstractTable::connectModel()
{
    if (!m_table->model())
        return;
    QObject::connect(m_table->model(), &QAbstractItemModel::headerDataChanged, context(),
        [this](Qt::Orientation orientation, int first, int last) {
            if (orientation == Qt::Horizontal)
                copyLabels(first, last);
        });
}

void VemoAbstractTable::setColumnHidden(int column, bool hidden)
{
    m_table->setColumnHidden(column, hidden);
    if (column < 0 || column >= columnCount() || m_header->isSectionHidden(column) == hidden)
        return;
    // The model does not have the column yet.
    m_header->setSectionHidden(column, hidden);
    shareWidth(m_table->viewport()->size());
}

bool VemoAbstractTable::isColumnHidden(int column) const
{
    return column < columnCount() && m_header->isSectionHidden(column);
}

void VemoAbstractTable::setColumnAlignment(int column, Qt::Alignment alignment)
{
    if (column < 0 || column >= columnCount())
        return;
    m_header_table->horizontalHeaderItem(column)->setTextAlignment(alignment);
    delete dynamic_cast<AlignedCells *>(m_table->itemDelegateForColumn(column));
    m_table->setItemDelegateForColumn(column, new AlignedCells(alignment, m_table));
}

void VemoAbstractTable::setSortRequestsEnabled(bool enabled)
{
    m_are_sort_requests_enabled = enabled;
    m_header->setSectionsClickable(enabled);
    m_header->setSortIndicatorShown(enabled);
    setSortIndicator(m_sort_column, m_sort_order);
}

void VemoAbstractTable::setSortIndicator(int column, Qt::SortOrder order)
{
    m_sort_column = column < columnCount() ? qMax(column, -1) : -1;
    m_sort_order = order;
    m_header->setSortIndicator(m_sort_column, order);
}

void VemoAbstractTable::setDraggedWidthsKept(bool kept)
{
    m_are_dragged_widths_kept = kept;
    m_dragged.clear();
}

void VemoAbstractTable::setEmptyText(const QString &text)
{
    notice()->setEmptyText(text);
}

QString VemoAbstractTable::emptyText() const
{
    return m_notice ? m_notice->emptyText() : QString();
}

void VemoAbstractTable::setBusyText(const QString &text)
{
    notice()->setBusyText(text);
}

QString VemoAbstractTable::busyText() const
{
    return m_notice ? m_notice->busyText() : QString();
}

void VemoAbstractTable::setBusy(bool busy)
{
    if (busy != isBusy())
        notice()->setBusy(busy);
}

bool VemoAbstractTable::isBusy() const
{
    return m_notice && m_notice->isBusy();
}

TableNotice *VemoAbstractTable::notice()
{
    if (!m_notice)
        m_notice = new TableNotice(m_table);
    return m_notice;
}

QByteArray VemoAbstractTable::saveState() const
{
    QByteArray state;
    QDataStream stream(&state, QIODevice::WriteOnly);
    stream.setVersion(QDataStream::Qt_5_15);
    stream << kStateMagic << quint32(m_columns.m_columns.size());
    int section = 0;
    for (const auto &column : m_columns.m_columns) {
        stream << SavedColumn {column.name,
            m_header->sectionSize(section) / DPIinfo::getInstance().getDPI(),
            m_header->isSectionHidden(section), m_header->visualIndex(section)};
        ++section;
    }
    stream << qint32(m_sort_column) << qint32(m_sort_order);
    return state;
}

bool VemoAbstractTable::restoreState(const QByteArray &state)
{
    SavedState saved;
    const int count = static_cast<int>(m_columns.m_columns.size());
    if (!read(state, &saved) || saved.columns.size() != count)
        return false;
    QVector<int> sections(count, -1); // by place
    for (int section = 0; section < count; ++section) {
        const int place = saved.columns[section].place;
        const bool isFree = place >= 0 && place < count && sections[place] < 0;
        if (!isFree || saved.columns[section].name != m_columns.m_columns[section].name)
            return false;
        sections[place] = section;
    }
    for (int section = 0; section < count; ++section) {
        const SavedColumn &column = saved.columns[section];
        setColumnHidden(section, column.isHidden);
        if (!column.isHidden)
            m_header->resizeSection(
                section, truncToInt(column.width * DPIinfo::getInstance().getDPI() + 0.5));
    }
    for (int place = 0; place < count; ++place)
        m_header->moveSection(m_header->visualIndex(sections[place]), place);
    setSortIndicator(saved.sortColumn,
        saved.order == Qt::AscendingOrder ? Qt::AscendingOrder : Qt::DescendingOrder);
    return true;
}

void VemoAbstractTable::headerClicked(int section)
{
    if (!m_are_sort_requests_enabled)
        return;
    // The extra section is not a column, but QHeaderView has moved the arrow there.
    if (section >= columnCount()) {
        m_header->setSortIndicator(m_sort_column, m_sort_order);
        return;
    }
    m_sort_column = section;
    m_sort_order = m_header->sortIndicatorOrder();
    requestSort(section, m_sort_order);
}

/// QHeaderView hides a section by a size of 0.
void VemoAbstractTable::columnResized(int column, int old_size, int new_size)
{
    if (m_is_header_leading || column >= columnCount())
        return;
    const bool isHidden = m_header->isSectionHidden(column);
    const bool isHiding = new_size == 0 && !isHidden;
    const bool isShowing = old_size == 0 && isHidden;
    if (isHiding || isShowing)
        m_header->setSectionHidden(column, isHiding);
    if (new_size != 0 && m_header->sectionSize(column) != new_size)
        m_header->resizeSection(column, new_size);
    if (isHiding || isShowing)
        shareWidth(m_table->viewport()->size());
}

void VemoAbstractTable::copyLabels(int first, int last)
{
    for (int column = first; column <= last && column < columnCount(); ++column)
        copyLabel(column);
}

void VemoAbstractTable::copyLabel(int column)
{
    QTableWidgetItem *label = m_header_table->horizontalHeaderItem(column);
    const QString text = m_table->model()->headerData(column, Qt::Horizontal).toString();
    if (label && label->text() != text)
        label->setText(text);
}

void VemoAbstractTable::showLabels(const QStringList &labels)
{
    const int count = m_table->model() ? m_table->model()->columnCount() : 0;
    for (int column = 0; column < columnCount() && column < count; ++column) {
        if (labels.at(column).isEmpty())
            copyLabel(column);
    }
}

void VemoAbstractTable::restoreColumns()
{
    const QScopedValueRollback<bool> leading(m_is_header_leading, true);
    copyColumns();
    setLabels();
}

void VemoAbstractTable::copyColumns()
{
    QHeaderView *columns = m_table->horizontalHeader();
    for (int column = 0; column < columns->count(); ++column) {
        const bool isHidden = column >= columnCount() || m_header->isSectionHidden(column);
        columns->setSectionHidden(column, isHidden);
        if (column < columnCount())
            columns->setSectionResizeMode(column, m_header->sectionResizeMode(column));
        if (!isHidden)
            columns->resizeSection(column, m_header->sectionSize(column));
    }
    for (int place = 0; place < columnCount(); ++place)
        copyPlace(*m_header, columns, m_header->logicalIndex(place));
}

void VemoAbstractTable::copyRestoredColumns()
{
    const QHeaderView *columns = m_table->horizontalHeader();
    const int count = qMin(columns->count(), columnCount());
    for (int column = 0; column < count; ++column) {
        m_header->setSectionHidden(column, columns->isSectionHidden(column));
        if (!columns->isSectionHidden(column))
            m_header->resizeSection(column, columns->sectionSize(column));
    }
    for (int place = 0; place < count; ++place)
        copyPlace(*columns, m_header, columns->logicalIndex(place));
}
