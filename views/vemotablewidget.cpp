// SPDX-License-Identifier: MIT
#include <vemo/vemotablewidget.h>

#include <vemo/stylemanager.h>

#include <QResizeEvent>

ResizeSignalTableWidget::ResizeSignalTableWidget(int rows, int columns, QWidget *parent)
    : QTableWidget(rows, columns, parent)
{
}

ResizeSignalTableWidget::ResizeSignalTableWidget(QWidget *parent) : QTableWidget(parent) { }

void ResizeSignalTableWidget::resizeEvent(QResizeEvent *event)
{
    Q_EMIT sigResized(event->size());
    QTableWidget::resizeEvent(event);
}

VemoTableWidget::VemoTableWidget(const VemoTableColumnsInfo &columns, QWidget *parent)
    : QWidget(parent), VemoAbstractTable(this, columns, new ResizeSignalTableWidget),
      m_items(static_cast<ResizeSignalTableWidget *>(getView()))
{
    initailze();
    m_items->setStyleSheet(getStyleSheet("component.table") + getStyleSheet("component.scrollbar"));
    connect(m_items, SIGNAL(sigResized(QSize)), this, SLOT(slotTableResized(QSize)));
}

VemoTableWidget::VemoTableWidget(QWidget *parent) : VemoTableWidget(VemoTableColumnsInfo(), parent)
{
}

QTableWidget *VemoTableWidget::getTable() const
{
    return m_items;
}

void VemoTableWidget::slotTableResized(QSize size)
{
    shareWidth(size);
}

void VemoTableWidget::slotSectionResized(int index, int old_size, int new_size)
{
    followHeader(index, old_size, new_size);
}

void VemoTableWidget::slotVerticalScrollRangeChanged(int /*min*/, int max)
{
    hideIdleScrollBar(max);
}

void VemoTableWidget::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        followDirection();
}

void VemoTableWidget::showLabels(const QStringList &labels)
{
    m_items->setColumnCount(labels.size() - 1);
    // Screen readers take the names of the columns from the table itself.
    m_items->setHorizontalHeaderLabels(labels);
}

void VemoTableWidget::requestSort(int column, Qt::SortOrder order)
{
    Q_EMIT sortRequested(column, order);
}
