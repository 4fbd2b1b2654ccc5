// SPDX-License-Identifier: MIT
#include "views/sidebaraccess_p.h"

#include "views/sidebarlist_p.h"

#include <QAccessibleWidget>

#include <map>

namespace {

class PageAccess : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    PageAccess(SideBarList *list, int row) : m_list(list), m_row(row) { }

    bool isValid() const override { return index().isValid(); }
    QObject *object() const override { return nullptr; }
    QAccessibleInterface *parent() const override
    {
        return QAccessible::queryAccessibleInterface(m_list);
    }
    QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
    QAccessibleInterface *childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface * /*child*/) const override { return -1; }
    void setText(QAccessible::Text /*kind*/, const QString & /*text*/) override { }
    QAccessible::Role role() const override { return QAccessible::ListItem; }

    QString text(QAccessible::Text kind) const override
    {
        if (kind == QAccessible::Name)
            return index().data(Qt::AccessibleTextRole).toString();
        if (kind == QAccessible::Description)
            return index().data(Qt::AccessibleDescriptionRole).toString();
        return {};
    }

    QRect rect() const override
    {
        const QRect page = localRect();
        return {m_list->viewport()->mapToGlobal(page.topLeft()), page.size()};
    }

    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.disabled = !m_list->isEnabled() || !SideBarList::isPageEnabled(index());
        state.selectable = state.focusable = !state.disabled;
        state.selected = isValid() && m_list->currentIndex() == index();
        state.focused = state.selected && m_list->hasFocus();
        state.invisible = !m_list->isVisible();
        state.offscreen = !m_list->viewport()->rect().intersects(localRect());
        return state;
    }

    void *interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface
            ? static_cast<QAccessibleActionInterface *>(this)
            : nullptr;
    }
    QStringList actionNames() const override { return {pressAction()}; }
    QStringList keyBindingsForAction(const QString & /*name*/) const override { return {}; }
    void doAction(const QString &name) override
    {
        if (name == pressAction() && m_list->isEnabled())
            m_list->pick(index());
    }

private:
    QModelIndex index() const { return m_list->model()->index(m_row, 0); }
    QRect localRect() const { return m_list->pageRect(index()); }

    SideBarList *m_list; // Outlives its interface, which outlives its pages.
    int m_row;
};

class ListAccess : public QAccessibleWidget
{
public:
    explicit ListAccess(SideBarList *list)
        : QAccessibleWidget(list, QAccessible::List), m_list(list)
    {
    }
    ~ListAccess() override
    {
        for (const auto &page : m_ids)
            QAccessible::deleteAccessibleInterface(page.second);
    }

    /// The side bar has the name, which the host may have set or given by a label.
    QString text(QAccessible::Text kind) const override { return parent()->text(kind); }

    int childCount() const override { return m_list->model()->rowCount(); }
    QAccessibleInterface *child(int row) const override
    {
        if (row < 0 || row >= childCount())
            return nullptr;
        QAccessible::Id &id = m_ids[row];
        if (!id)
            id = QAccessible::registerAccessibleInterface(new PageAccess(m_list, row));
        return QAccessible::accessibleInterface(id);
    }
    QAccessibleInterface *childAt(int x, int y) const override
    {
        return child(m_list->indexAt(m_list->viewport()->mapFromGlobal(QPoint(x, y))).row());
    }
    QAccessibleInterface *focusChild() const override
    {
        return m_list->hasFocus() ? child(m_list->currentIndex().row()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        for (const auto &page : m_ids) {
            if (QAccessible::accessibleInterface(page.second) == child)
                return page.first;
        }
        return -1;
    }

private:
    SideBarList *m_list;
    mutable std::map<int, QAccessible::Id> m_ids; // by row
};

QAccessibleInterface *newInterface(const QString &className, QObject *object)
{
    return className == QLatin1String("SideBarList")
        ? new ListAccess(static_cast<SideBarList *>(object))
        : nullptr;
}

} // namespace

void makeSideBarsAccessible()
{
    QAccessible::installFactory(newInterface); // a no-op if already installed
}
