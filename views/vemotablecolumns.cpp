// SPDX-License-Identifier: MIT
// The columns of a VemoTableWidget after its construction: the table's own header and the visible
// one are kept alike, whichever of them is changed.
#include <vemo/vemotablewidget.h>

#include "core/scaling_p.h"
#include "views/tablenotice_p.h"

#include <QDataStream>
#include <QHeaderView>
#include <QIODevice>
#include <QStyledItemDelegate>

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
    if (to->visualIndex(section) != place)
        to->moveSection(to->visualIndex(section), place);
}

} // namespace

void VemoTableWidget::connectColumns()
{
    const QHeaderView *columns = m_table->horizontalHeader();
    // clang-format off
    connect(m_header, SIGNAL(sectionClicked(int)), this, SLOT(slotHeaderClicked(int)));
    connect(m_header, SIGNAL(sectionMoved(int,int,int)), this, SLOT(slotSectionMoved(int)));
    connect(columns, SIGNAL(sectionResized(int,int,int)),
        this, SLOT(slotColumnResized(int,int,int)));
    connect(columns, SIGNAL(sectionMoved(int,int,int)), this, SLOT(slotColumnMoved(int)));
    // The only signal that QHeaderView::restoreState() emits.
    connect(columns, SIGNAL(sortIndicatorChanged(int,Qt::SortOrder)),
        this, SLOT(slotColumnsRestored()));
    connect(m_table->model(), SIGNAL(headerDataChanged(Qt::Orientation,int,int)),
        this, SLOT(slotLabelsChanged(Qt::Orientation,int,int)));
    // clang-format on
}

void VemoTableWidget::setColumnHidden(int column, bool hidden)
{
    m_table->setColumnHidden(column, hidden);
}

bool VemoTableWidget::isColumnHidden(int column) const
{
    return m_table->isColumnHidden(column);
}

void VemoTableWidget::setColumnAlignment(int column, Qt::Alignment alignment)
{
    if (column < 0 || column >= m_table->columnCount())
        return;
    m_header_table->horizontalHeaderItem(column)->setTextAlignment(alignment);
    delete dynamic_cast<AlignedCells *>(m_table->itemDelegateForColumn(column));
    m_table->setItemDelegateForColumn(column, new AlignedCells(alignment, m_table));
}

void VemoTableWidget::setSortRequestsEnabled(bool enabled)
{
    m_are_sort_requests_enabled = enabled;
    m_header->setSectionsClickable(enabled);
    m_header->setSortIndicatorShown(enabled);
    setSortIndicator(m_sort_column, m_sort_order);
}

void VemoTableWidget::setSortIndicator(int column, Qt::SortOrder order)
{
    m_sort_column = column < m_table->columnCount() ? qMax(column, -1) : -1;
    m_sort_order = order;
    m_header->setSortIndicator(m_sort_column, order);
}

void VemoTableWidget::setDraggedWidthsKept(bool kept)
{
    m_are_dragged_widths_kept = kept;
    m_dragged.clear();
}

void VemoTableWidget::setEmptyText(const QString &text)
{
    notice()->setEmptyText(text);
}

QString VemoTableWidget::emptyText() const
{
    return m_notice ? m_notice->emptyText() : QString();
}

void VemoTableWidget::setBusyText(const QString &text)
{
    notice()->setBusyText(text);
}

QString VemoTableWidget::busyText() const
{
    return m_notice ? m_notice->busyText() : QString();
}

void VemoTableWidget::setBusy(bool busy)
{
    if (busy != isBusy())
        notice()->setBusy(busy);
}

bool VemoTableWidget::isBusy() const
{
    return m_notice && m_notice->isBusy();
}

TableNotice *VemoTableWidget::notice()
{
    if (!m_notice)
        m_notice = new TableNotice(m_table);
    return m_notice;
}

QByteArray VemoTableWidget::saveState() const
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

bool VemoTableWidget::restoreState(const QByteArray &state)
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
        m_table->setColumnHidden(section, column.isHidden);
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

void VemoTableWidget::slotHeaderClicked(int section)
{
    if (!m_are_sort_requests_enabled)
        return;
    // The extra section is not a column, but QHeaderView has moved the arrow there.
    if (section >= m_table->columnCount()) {
        m_header->setSortIndicator(m_sort_column, m_sort_order);
        return;
    }
    m_sort_column = section;
    m_sort_order = m_header->sortIndicatorOrder();
    Q_EMIT sortRequested(section, m_sort_order);
}

/// QHeaderView hides a section by a size of 0.
void VemoTableWidget::slotColumnResized(int column, int old_size, int new_size)
{
    if (m_is_header_leading)
        return;
    const bool isHidden = m_header->isSectionHidden(column);
    const bool isHiding = new_size == 0 && !isHidden;
    const bool isShowing = old_size == 0 && isHidden;
    if (isHiding || isShowing)
        m_header->setSectionHidden(column, isHiding);
    if (new_size != 0 && m_header->sectionSize(column) != new_size)
        m_header->resizeSection(column, new_size);
    if (isHiding || isShowing)
        slotTableResized(m_table->viewport()->size());
}

void VemoTableWidget::slotSectionMoved(int section)
{
    if (section < m_table->columnCount())
        copyPlace(*m_header, m_table->horizontalHeader(), section);
}

void VemoTableWidget::slotColumnMoved(int column)
{
    copyPlace(*m_table->horizontalHeader(), m_header, column);
}

void VemoTableWidget::slotLabelsChanged(Qt::Orientation orientation, int first, int last)
{
    if (orientation != Qt::Horizontal)
        return;
    for (int column = first; column <= last && column < m_table->columnCount(); ++column) {
        QTableWidgetItem *label = m_header_table->horizontalHeaderItem(column);
        const QString text = m_table->model()->headerData(column, Qt::Horizontal).toString();
        if (label && label->text() != text)
            label->setText(text);
    }
}

void VemoTableWidget::slotColumnsRestored()
{
    const QHeaderView *columns = m_table->horizontalHeader();
    for (int column = 0; column < columns->count(); ++column) {
        m_header->setSectionHidden(column, columns->isSectionHidden(column));
        if (!columns->isSectionHidden(column))
            m_header->resizeSection(column, columns->sectionSize(column));
    }
    for (int place = 0; place < columns->count(); ++place)
        copyPlace(*columns, m_header, columns->logicalIndex(place));
}
