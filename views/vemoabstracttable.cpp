// SPDX-License-Identifier: MIT
#include <vemo/vemoabstracttable.h>

#include "controls/fittingfont_p.h"
#include "core/scaling_p.h"
#include "views/headeraccess_p.h"
#include "views/owndirection_p.h"
#include "views/tablenotice_p.h"

#include <vemo/stylemanager.h>

#include <QCoreApplication>
#include <QHeaderView>
#include <QResizeEvent>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTableWidget>
#include <QVBoxLayout>

namespace {

// In design pixels.
constexpr int kHeaderWidth = 20000; // wider than any table
constexpr int kHeaderHeight = 30;
constexpr int kRowHeight = 28;
constexpr int kExtraWidth = 12; // above the vertical scroll bar

constexpr int kDefaultWidth = 100;
const QLatin1Char kSeparator('|');

class CellDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->text = inOwnDirection(option->text, option->direction);
    }
};

} // namespace

int VemoTableColumnsInfo::addColumn(const QString &name, int width, bool proportional, double ratio)
{
    m_columns.push_back({name, width, proportional, ratio});
    return static_cast<int>(m_columns.size()) - 1;
}

VemoAbstractTable::VemoAbstractTable(
    QWidget *widget, const VemoTableColumnsInfo &columns, QTableView *view)
    : m_widget(widget), m_columns(columns), m_table(view), m_context(new QObject)
{
}

// The header is deleted with the widget, after this.
VemoAbstractTable::~VemoAbstractTable()
{
    m_context.reset();
}

void VemoAbstractTable::setColumns(const VemoTableColumnsInfo &columns)
{
    m_columns = columns;
    m_dragged.clear();
    const QScopedValueRollback<bool> leading(m_is_header_leading, true);
    m_header_table->setColumnCount(columnCount() + 1);
    setLabels();
    setSectionSizes();
    copyColumns();
    shareWidth(m_table->viewport()->size());
}

void VemoAbstractTable::setColumnTexts(const QStringList &texts)
{
    VemoTableColumnsInfo info;
    for (const QString &text : texts) {
        const QStringList parts = text.split(kSeparator);
        bool hasWidth = false;
        const int width = parts.value(1).toInt(&hasWidth);
        bool isProportional = false;
        const double ratio = parts.value(2).toDouble(&isProportional);
        info.addColumn(parts.first(), hasWidth ? width : kDefaultWidth, isProportional, ratio);
    }
    setColumns(info);
}

QStringList VemoAbstractTable::columnTexts() const
{
    QStringList texts;
    for (const auto &column : m_columns.m_columns) {
        QString text = column.name + kSeparator + QString::number(column.width);
        if (column.proportional)
            text += kSeparator + QString::number(column.ratio);
        texts << text;
    }
    return texts;
}

QHeaderView *VemoAbstractTable::getHeader() const
{
    return m_header;
}

QTableView *VemoAbstractTable::getView() const
{
    return m_table;
}

void VemoAbstractTable::shareWidth(QSize size)
{
    const QScopedValueRollback<bool> leading(m_is_header_leading, true);
    double fixedSum = 0;
    int index = 0;
    for (const auto &column : m_columns.m_columns) {
        if (!column.takesShare() && !m_header->isSectionHidden(index))
            fixedSum += column.width;
        ++index;
    }
    // Deliberate: the extra section is not subtracted.
    const int free = truncToInt(size.width() - fixedSum * DPIinfo::getInstance().getDPI());
    int section = 0;
    for (const auto &column : m_columns.m_columns) {
        const bool isKept = m_are_dragged_widths_kept && m_dragged.count(section) != 0;
        if (column.takesShare() && !isKept) {
            const int share = truncToInt(free * column.ratio);
            m_header->resizeSection(section, qMax(share, scaled(column.width)));
        }
        ++section;
    }
}

void VemoAbstractTable::followHeader(int column, int old_size, int new_size)
{
    // A section that is hidden or shown is resized to or from 0.
    if (!m_is_header_leading && old_size != 0 && new_size != 0)
        m_dragged.insert(column);
    const QScopedValueRollback<bool> leading(m_is_header_leading, true);
    m_table->horizontalHeader()->resizeSection(column, new_size);
}

void VemoAbstractTable::hideIdleScrollBar(int maximum)
{
    m_table->verticalScrollBar()->setVisible(maximum != 0);
}

void VemoAbstractTable::followDirection()
{
    // QScrollArea only updates its widget's position when it is scrolled or on this event.
    QEvent layoutRequest(QEvent::LayoutRequest);
    QCoreApplication::sendEvent(m_header_scroll_area, &layoutRequest);
}

/// The header was scrolled, either by the table or by a wheel or touchpad over the header.
void VemoAbstractTable::followScrolledHeader(int value)
{
    QScrollBar *const header = m_header_scroll_area->horizontalScrollBar();
    QScrollBar *const table = m_table->horizontalScrollBar();
    // The header has a fixed width and may end before the table.
    if (value == qMin(table->value(), header->maximum()))
        return;
    table->setValue(value);
    header->setValue(table->value());
}

void VemoAbstractTable::initailze()
{
    makeHeader();
    setLabels();
    setSectionSizes();
    setupTable();
    setupLayout();
    connectParts();
}

void VemoAbstractTable::makeHeader()
{
    m_header_table = std::make_unique<QTableWidget>(0, columnCount() + 1);
    m_header = new QHeaderView(Qt::Horizontal);
    m_header->setModel(m_header_table->model());
    m_header->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    m_header->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_header->setStyleSheet(getStyleSheet("component.table_header"));
    m_header->setFixedSize(scaled(kHeaderWidth), scaled(kHeaderHeight));
    FittingFont::keep(m_header, scaled(kHeaderHeight) - scaled(1)); // above its line
}

void VemoAbstractTable::setLabels()
{
    QStringList labels;
    for (const auto &column : m_columns.m_columns)
        labels << column.name;
    labels << QString();
    m_header_table->setHorizontalHeaderLabels(labels);
    showLabels(labels);
}

void VemoAbstractTable::setSectionSizes()
{
    QHeaderView *const labels = m_header_table->horizontalHeader();
    QHeaderView *const columns = m_table->horizontalHeader();

    int narrowest = scaled(kExtraWidth);
    for (const auto &column : m_columns.m_columns)
        narrowest = qMin(narrowest, scaled(column.width));
    // The style's default minimum is wider than a column may be.
    for (QHeaderView *header : {m_header, labels, columns})
        header->setMinimumSectionSize(qMax(narrowest, 0));

    int section = 0;
    for (const auto &column : m_columns.m_columns) {
        const auto mode = column.proportional ? QHeaderView::Interactive : QHeaderView::Fixed;
        for (QHeaderView *header : {m_header, labels, columns})
            header->resizeSection(section, scaled(column.width));
        m_header->setSectionResizeMode(section, mode);
        if (section < columns->count()) // the model may have fewer columns
            columns->setSectionResizeMode(section, mode);
        ++section;
    }
    m_header->resizeSection(section, scaled(kExtraWidth));
    labels->resizeSection(section, scaled(kExtraWidth));
    m_header->setSectionResizeMode(section, QHeaderView::Fixed);
}

void VemoAbstractTable::setupTable()
{
    m_table->setSelectionBehavior(QAbstractItemView::SelectRows);
    m_table->setEditTriggers(QAbstractItemView::NoEditTriggers);
    m_table->setTabKeyNavigation(false); // Tab leaves the table; arrows move inside
    m_table->verticalHeader()->hide();
    m_table->horizontalHeader()->hide();
    m_table->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    m_table->verticalScrollBar()->hide();
    m_table->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    m_table->verticalHeader()->setDefaultSectionSize(scaled(kRowHeight));
    m_table->setShowGrid(false);
    m_table->setItemDelegate(new CellDelegate(m_table));
}

void VemoAbstractTable::setupLayout()
{
    m_header_scroll_area = new QScrollArea;
    m_header_scroll_area->setFixedHeight(scaled(kHeaderHeight));
    m_header_scroll_area->setFocusPolicy(Qt::NoFocus);
    m_header_scroll_area->setWidget(m_header);
    m_header_scroll_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_header_scroll_area->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_header_scroll_area->setStyleSheet(QStringLiteral("QScrollArea { border: none; }"));

    auto *layout = new QVBoxLayout(m_widget);
    layout->setSpacing(0);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_header_scroll_area);
    layout->addWidget(m_table);
    makeHeaderAccessible(m_header);
}

void VemoAbstractTable::connectParts()
{
    QScrollBar *const headerScrollBar = m_header_scroll_area->horizontalScrollBar();
    // Without spaces, Qt need not normalise the signatures when connecting.
    // clang-format off
    QObject::connect(m_header, SIGNAL(sectionResized(int,int,int)),
        m_widget, SLOT(slotSectionResized(int,int,int)));
    QObject::connect(m_table->verticalScrollBar(), SIGNAL(rangeChanged(int,int)),
        m_widget, SLOT(slotVerticalScrollRangeChanged(int,int)));
    QObject::connect(m_table->horizontalScrollBar(), SIGNAL(valueChanged(int)),
        headerScrollBar, SLOT(setValue(int)));
    // clang-format on
    QObject::connect(headerScrollBar, &QScrollBar::valueChanged, context(),
        [this](int value) { followScrolledHeader(value); });
    connectColumns();
}
