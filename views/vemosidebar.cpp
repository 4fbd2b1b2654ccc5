// SPDX-License-Identifier: MIT
#include <vemo/vemosidebar.h>

#include "controls/spokentooltip_p.h"
#include "core/scaling_p.h"
#include "views/sidebaraccess_p.h"
#include "views/sidebarlist_p.h"

#include <vemo/imagemanager.h>
#include <vemo/stylemanager.h>

#include <QEvent>
#include <QLocale>
#include <QScrollBar>
#include <QStackedWidget>
#include <QStandardItemModel>
#include <QVBoxLayout>

namespace {

// Design pixels.
constexpr int kMinWidth = 120;
constexpr int kMaxWidth = 240;
constexpr int kCollapsedWidth = 44;
constexpr int kMinHeight = 56;

void setIconOf(QStandardItem *item, const QString &name)
{
    if (!name.isEmpty())
        getGlobalImage(name); // Warns if the catalogue does not have it; the icon would not.
    item->setData(name, IconNameRole);
    item->setData(name.isEmpty() ? QVariant() : getGlobalIcon(name), Qt::DecorationRole);
}

} // namespace

VemoSideBar::VemoSideBar(QWidget *parent)
    : QWidget(parent), m_model(new QStandardItemModel(this)), m_list(new SideBarList(this))
{
    makeSideBarsAccessible();
    speakToolTip(this);
    m_list->setModel(m_model);
    setStyleSheet(getStyleSheet("component.side_bar") + getStyleSheet("component.scrollbar"));
    m_list->installEventFilter(this);
    setFocusPolicy(Qt::StrongFocus);
    setFocusProxy(m_list);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Expanding);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_list);

    connect(m_list, &SideBarList::inputHandled, this, &VemoSideBar::reportCurrent);
    connect(m_list, &SideBarList::returnPressed, this, [this] {
        if (isPageEnabled(currentIndex()))
            Q_EMIT activated(currentIndex());
    });
    connect(m_model, &QStandardItemModel::dataChanged, this, &VemoSideBar::updateGeometry);
    connect(m_model, &QStandardItemModel::rowsInserted, this, &VemoSideBar::updateGeometry);
    connect(m_model, &QStandardItemModel::rowsRemoved, this, &VemoSideBar::updateGeometry);
    connect(
        m_list->verticalScrollBar(), &QScrollBar::rangeChanged, this, &VemoSideBar::updateGeometry);
}

int VemoSideBar::count() const
{
    return m_model->rowCount();
}

int VemoSideBar::addPage(const QString &text, const QString &icon)
{
    return insertPage(count(), text, icon);
}

int VemoSideBar::insertPage(int index, const QString &text, const QString &icon)
{
    const QStandardItem *next = m_model->item(index);
    const int row = next ? index : count();
    auto *item = new QStandardItem(text);
    setIconOf(item, icon);
    item->setEditable(false);
    item->setData(next ? next->data(GroupRole) : int(m_groups.size()) - 1, GroupRole);
    m_model->insertRow(row, item);
    updatePage(row);
    updatePage(row + 1); // It may have been the first one of the group.
    if (currentIndex() < 0)
        choose(row);
    return row;
}

void VemoSideBar::removePage(int index)
{
    if (!m_model->item(index))
        return;
    m_model->removeRow(index);
    updatePage(index);
    reportCurrent();
}

int VemoSideBar::addGroup(const QString &heading)
{
    m_groups.append(heading);
    return int(m_groups.size()) - 1;
}

void VemoSideBar::clear()
{
    m_groups.clear();
    m_model->removeRows(0, count());
    reportCurrent();
}

int VemoSideBar::currentIndex() const
{
    return m_list->currentIndex().row();
}

QString VemoSideBar::pageText(int index) const
{
    return m_model->index(index, 0).data().toString();
}

void VemoSideBar::setPageText(int index, const QString &text)
{
    if (QStandardItem *item = m_model->item(index))
        item->setText(text);
    updatePage(index);
}

QString VemoSideBar::pageIcon(int index) const
{
    return m_model->index(index, 0).data(IconNameRole).toString();
}

void VemoSideBar::setPageIcon(int index, const QString &name)
{
    if (QStandardItem *item = m_model->item(index))
        setIconOf(item, name);
}

int VemoSideBar::pageBadge(int index) const
{
    return m_model->index(index, 0).data(BadgeRole).toInt();
}

void VemoSideBar::setPageBadge(int index, int count)
{
    if (QStandardItem *item = m_model->item(index))
        item->setData(qMax(0, count), BadgeRole);
    updatePage(index);
}

bool VemoSideBar::isPageEnabled(int index) const
{
    return SideBarList::isPageEnabled(m_model->index(index, 0));
}

void VemoSideBar::setPageEnabled(int index, bool enabled)
{
    QStandardItem *item = m_model->item(index);
    if (!item)
        return;
    item->setEnabled(enabled);
    if (enabled && index == currentIndex())
        choose(index); // Qt does not select a disabled row.
}

QString VemoSideBar::groupText(int group) const
{
    return m_groups.value(group);
}

void VemoSideBar::setGroupText(int group, const QString &heading)
{
    if (group < 0 || group >= m_groups.size())
        return;
    m_groups[group] = heading;
    updatePages();
}

bool VemoSideBar::isCollapsed() const
{
    return m_list->isCollapsed();
}

QStackedWidget *VemoSideBar::stack() const
{
    return m_stack;
}

void VemoSideBar::setStack(QStackedWidget *stack)
{
    if (m_stack) {
        disconnect(this, nullptr, m_stack, nullptr);
        disconnect(m_stack, nullptr, this, nullptr);
    }
    m_stack = stack;
    if (!stack)
        return;
    stack->setCurrentIndex(currentIndex());
    connect(this, &VemoSideBar::currentChanged, stack, &QStackedWidget::setCurrentIndex);
    connect(stack, &QStackedWidget::currentChanged, this, &VemoSideBar::setCurrentIndex);
}

QSize VemoSideBar::sizeHint() const
{
    const int width = isCollapsed()
        ? scaled(kCollapsedWidth)
        : qBound(scaled(kMinWidth), m_list->widthOfTexts(), scaled(kMaxWidth));
    return {width, m_list->sizeHint().height()};
}

QSize VemoSideBar::minimumSizeHint() const
{
    return {scaled(kCollapsedWidth), scaled(kMinHeight)};
}

void VemoSideBar::setCurrentIndex(int index)
{
    if (index != currentIndex())
        choose(index);
}

void VemoSideBar::setCollapsed(bool collapsed)
{
    if (collapsed == isCollapsed())
        return;
    m_list->setCollapsed(collapsed);
    updateGeometry();
    Q_EMIT collapsedChanged(collapsed);
}

void VemoSideBar::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    switch (event->type()) {
    case QEvent::LocaleChange:
        updatePages();
        m_list->viewport()->update();
        break;
    case QEvent::FontChange:
        // Qt does not pass it on to all widgets with a style sheet.
        m_list->setFont(font());
        updateGeometry();
        break;
    case QEvent::StyleChange:
        updateGeometry();
        break;
    default:
        break;
    }
}

bool VemoSideBar::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::StyleChange)
        updateGeometry();
    return QWidget::eventFilter(watched, event);
}

/// Sets what follows from the texts, the count and the groups.
void VemoSideBar::updatePage(int index)
{
    QStandardItem *item = m_model->item(index);
    if (!item)
        return;
    const int group = item->data(GroupRole).toInt();
    const QStandardItem *before = m_model->item(index - 1);
    const bool isFirst = !before || before->data(GroupRole).toInt() != group;
    item->setData(isFirst ? groupText(group) : QString(), HeadingRole);

    const int count = pageBadge(index);
    const QString badge = count > 0 ? QStringLiteral(", ") + locale().toString(count) : QString();
    item->setData(item->text() + badge, Qt::AccessibleTextRole);
    item->setData(groupText(group), Qt::AccessibleDescriptionRole);
}

void VemoSideBar::updatePages()
{
    for (int index = 0; index < count(); ++index)
        updatePage(index);
}

void VemoSideBar::choose(int index)
{
    if (m_model->item(index))
        m_list->selectionModel()->setCurrentIndex(
            m_model->index(index, 0), QItemSelectionModel::ClearAndSelect);
    reportCurrent();
}

void VemoSideBar::reportCurrent()
{
    const QStandardItem *item = m_model->itemFromIndex(m_list->currentIndex());
    if (item == m_reported)
        return;
    m_reported = item;
    Q_EMIT currentChanged(currentIndex()); // The last step: a slot may delete the side bar.
}
