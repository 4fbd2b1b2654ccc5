// SPDX-License-Identifier: MIT
#include "views/headeraccess_p.h"

#include <vemo/vemoabstracttable.h>

#include <QAccessibleWidget>
#include <QHeaderView>
#include <QTableView>

#include <map>

namespace {

/// The table widget that header is the visible header of, or null.
VemoAbstractTable *tableOf(const QObject *header)
{
    for (QObject *parent = header->parent(); parent; parent = parent->parent()) {
        if (auto *table = dynamic_cast<VemoAbstractTable *>(parent))
            return table->getHeader() == header ? table : nullptr;
    }
    return nullptr;
}

class ColumnAccess : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    ColumnAccess(QHeaderView *header, int column) : m_header(header), m_column(column) { }

    // The last section has no column.
    bool isValid() const override { return m_column < m_header->count() - 1; }
    QObject *object() const override { return nullptr; }
    QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(m_header);
    }
    QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface *childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface * /*child*/) const override { return -1; }
    void setText(QAccessible::Text /*kind*/, const QString & /*text*/) override { }
    QAccessible::Role role() const override { return QAccessible::ColumnHeader; }

    QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Name
            ? m_header->model()->headerData(m_column, Qt::Horizontal).toString()
            : QString();
    }

    QRect rect() const override
    {
        const QPoint place(m_header->sectionViewportPosition(m_column), 0);
        return {m_header->viewport()->mapToGlobal(place),
            QSize(m_header->sectionSize(m_column), m_header->height())};
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.disabled = !m_header->isEnabled();
        state.invisible = !m_header->isVisible() || m_header->isSectionHidden(m_column);
        state.offscreen = m_header->visibleRegion().intersected(localRect()).isEmpty();
        return state;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface && m_header->sectionsClickable()
            ? static_cast<QAccessibleActionInterface *>(this)
            : nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    QStringList keyBindingsForAction(const QString & /*name*/) const override { return {}; }
    void doAction(const QString &name) override
    {
        if (name != pressAction() || !isValid() || !m_header->isEnabled())
            return;
        moveArrow();
        Q_EMIT m_header->sectionClicked(m_column);
    }

private:
    /// As QHeaderView does before it emits a click.
    void moveArrow()
    {
        if (!m_header->isSortIndicatorShown())
            return;
        const bool isFlipped = m_header->sortIndicatorSection() == m_column
            && m_header->sortIndicatorOrder() == Qt::AscendingOrder;
        m_header->setSortIndicator(m_column, isFlipped ? Qt::DescendingOrder : Qt::AscendingOrder);
    }

    QRect localRect() const { return {m_header->mapFromGlobal(rect().topLeft()), rect().size()}; }

    QHeaderView *m_header; // Outlives its interface, which outlives its columns.
    int m_column;
};

class HeaderAccess : public QAccessibleWidget
{
public:
    explicit HeaderAccess(QHeaderView *header)
        : QAccessibleWidget(header, QAccessible::Row), m_header(header)
    {
    }
    ~HeaderAccess() override
    {
        for (const auto &column : m_ids)
            QAccessible::deleteAccessibleInterface(column.second);
    }

    QString text(QAccessible::Text kind) const override
    {
        const QString given = QAccessibleWidget::text(kind);
        const VemoAbstractTable *table = tableOf(m_header);
        if (kind != QAccessible::Name || !given.isEmpty() || !table)
            return given;
        return table->getView()->accessibleName();
    }

    /// The part that is seen: the header itself is wider than any table.
    QRect rect() const override
    {
        const QRect seen = m_header->visibleRegion().boundingRect();
        return {m_header->mapToGlobal(seen.topLeft()), seen.size()};
    }

    int childCount() const override { return qMax(m_header->count() - 1, 0); }
    QAccessibleInterface *child(int column) const override
    {
        if (column < 0 || column >= childCount())
            return nullptr;
        QAccessible::Id &id = m_ids[column];
        if (!id)
            id = QAccessible::registerAccessibleInterface(new ColumnAccess(m_header, column));
        return QAccessible::accessibleInterface(id);
    }
    QAccessibleInterface *childAt(int x, int y) const override
    {
        return rect().contains(x, y)
            ? child(m_header->logicalIndexAt(m_header->viewport()->mapFromGlobal(QPoint(x, y))))
            : nullptr;
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        for (const auto &column : m_ids) {
            if (QAccessible::accessibleInterface(column.second) == child)
                return column.first;
        }
        return -1;
    }

private:
    QHeaderView *m_header;
    mutable std::map<int, QAccessible::Id> m_ids; // by column
};

QAccessibleInterface *newInterface(const QString & /*className*/, QObject *object)
{
    auto *header = qobject_cast<QHeaderView *>(object);
    return header && tableOf(header) ? new HeaderAccess(header) : nullptr;
}

} // namespace

void makeHeaderAccessible(QHeaderView *header)
{
    QAccessible::installFactory(newInterface); // a no-op if already installed
    // If a screen reader is running, Qt has asked for the interface before, while the header was
    // filled.
    if (QAccessible::isActive())
        QAccessible::deleteAccessibleInterface(
            QAccessible::uniqueId(QAccessible::queryAccessibleInterface(header)));
}
