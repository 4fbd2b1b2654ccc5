// SPDX-License-Identifier: MIT
#include "help/contentstree_p.h"

#include "help/helplimits_p.h"

#include <vemo/stylemanager.h>

#include <QTextDocument>

ContentsTree::ContentsTree(QWidget *parent) : QTreeWidget(parent)
{
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setTextElideMode(Qt::ElideRight);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setExpandsOnDoubleClick(false); // The first click has opened the page.
    setStyleSheet(getStyleSheet("component.help_contents"));
    // A double click and some styles' single click activate as well: the window ignores the second.
    connect(this, &QTreeWidget::itemClicked, this, &ContentsTree::open);
    connect(this, &QTreeWidget::itemActivated, this, &ContentsTree::open);
}

void ContentsTree::setEntries(const QVector<ContentsEntry> &entries)
{
    clear();
    m_entries = entries;
    m_items.clear();
    QList<QTreeWidgetItem *> top;
    QVector<QTreeWidgetItem *> parents; // one for each level above the next entry
    for (const ContentsEntry &entry : entries) {
        auto *item = new QTreeWidgetItem(QStringList(entry.title));
        item->setToolTip(0, Qt::convertFromPlainText(entry.title)); // Long titles are elided.
        parents.resize(qBound(0, entry.level, qMin(int(parents.size()), kMaxContentsLevel)));
        if (parents.isEmpty())
            top += item;
        else
            parents.last()->addChild(item);
        parents += item;
        m_items += item;
    }
    addTopLevelItems(top);
}

void ContentsTree::setCurrentEntry(int index)
{
    QTreeWidgetItem *item = index < 0 ? nullptr : m_items.at(index);
    setCurrentItem(item);
    if (item)
        scrollToItem(item);
    else
        clearSelection();
}

void ContentsTree::open(QTreeWidgetItem *item)
{
    const QUrl target = m_entries.at(int(m_items.indexOf(item))).target;
    if (target.isEmpty())
        item->setExpanded(true); // a heading
    else
        Q_EMIT sigOpen(target);
}
