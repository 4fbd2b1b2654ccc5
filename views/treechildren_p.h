// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <vemo/vemotreewidget.h>

#include <QHash>
#include <QPersistentModelIndex>

/// The items of a tree whose children are not all loaded.
class VemoTreeWidget::Children : public QObject
{
public:
    explicit Children(VemoTreeWidget *tree);

    void setState(QTreeWidgetItem *item, ChildrenState state, const QString &text);
    ChildrenState state(const QTreeWidgetItem *item) const { return m_entries.value(item).state; }
    /// Whether item is a row that shows a text of its parent.
    bool isNotice(const QTreeWidgetItem *item) const;

    /// To be called before items are removed.
    void forget(const QTreeWidgetItem &parent, int first, int last);
    void forgetAll() { m_entries.clear(); }

private:
    void handleExpansion(QTreeWidgetItem *item);
    void request(const QPersistentModelIndex &index);

    struct Entry
    {
        ChildrenState state = ChildrenLoaded;
        QTreeWidgetItem *notice = nullptr; ///< the row with the text
    };

    VemoTreeWidget *m_tree;
    QHash<const QTreeWidgetItem *, Entry> m_entries;
};
