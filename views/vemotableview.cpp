// SPDX-License-Identifier: MIT
#include <vemo/vemotableview.h>

#include "views/tablenotice_p.h"

#include <vemo/stylemanager.h>

#include <QHeaderView>
#include <QResizeEvent>

namespace {

/// A class of its own, so that the rules for plain table views do not apply.
class TableRows : public QTableView
{
    Q_OBJECT

public:
    using QTableView::QTableView;

Q_SIGNALS:
    void resized(QSize size);

protected:
    void resizeEvent(QResizeEvent *event) override
    {
        Q_EMIT resized(event->size());
        QTableView::resizeEvent(event);
    }
};

} // namespace

VemoTableView::VemoTableView(const VemoTableColumnsInfo &columns, QWidget *parent)
    : QWidget(parent), VemoAbstractTable(this, columns, new TableRows)
{
    initailze();
    getView()->setStyleSheet(
        getStyleSheet("component.table_view") + getStyleSheet("component.scrollbar"));
    connect(getView(), SIGNAL(resized(QSize)), this, SLOT(slotTableResized(QSize)));
    connect(getView()->horizontalHeader(), &QHeaderView::sectionCountChanged, context(),
        [this] { restoreColumns(); });
}

VemoTableView::VemoTableView(QWidget *parent) : VemoTableView(VemoTableColumnsInfo(), parent) { }

void VemoTableView::setModel(QAbstractItemModel *model)
{
    if (this->model())
        disconnect(this->model(), nullptr, context(), nullptr);
    getView()->setModel(model);
    connectModel();
    if (hasNotice())
        notice()->setModel(model);
    restoreColumns();
}

QAbstractItemModel *VemoTableView::model() const
{
    return getView()->model();
}

void VemoTableView::slotTableResized(QSize size)
{
    shareWidth(size);
}

void VemoTableView::slotSectionResized(int index, int old_size, int new_size)
{
    followHeader(index, old_size, new_size);
}

void VemoTableView::slotVerticalScrollRangeChanged(int /*min*/, int max)
{
    hideIdleScrollBar(max);
}

void VemoTableView::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        followDirection();
}

void VemoTableView::requestSort(int column, Qt::SortOrder order)
{
    Q_EMIT sortRequested(column, order);
}

#include "vemotableview.moc"
