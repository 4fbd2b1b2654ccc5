// SPDX-License-Identifier: MIT
#pragma once

#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/vemotreewidget.h>

using Item = QTreeWidgetItem;

Q_DECLARE_METATYPE(QTreeWidgetItem *)

/// A new item with children, which has a check box.
inline Item *item(const QString &name, const QList<Item *> &children = {})
{
    auto *made = new Item({name, "other " + name});
    made->setCheckState(0, Qt::Unchecked);
    made->addChildren(children);
    return made;
}

/// home (docs (2025, 2026), pictures (2025)), shared (team); shown, home is expanded.
class Tree : public VemoTreeWidget
{
public:
    Tree()
    {
        setColumnCount(2);
        setHeaderHidden(true);
        setFrameShape(NoFrame);
        setAnimated(false);
        addTopLevelItem(item("home",
            {item("docs", {item("2025"), item("2026")}), item("pictures", {item("2025 b")})}));
        addTopLevelItem(item("shared", {item("team")}));
        (*this)["home"]->setExpanded(true);
        resize(300, 400);
        show();
        isShown = QTest::qWaitForWindowExposed(this);
    }
    Item *operator[](const QString &name) const
    {
        return findItems(name, Qt::MatchExactly | Qt::MatchRecursive).value(0);
    }
    QList<Item *> all() const { return findItems("*", Qt::MatchWildcard | Qt::MatchRecursive); }
    /// The checked items, with a tilde those that are in part.
    QString checked() const
    {
        QStringList names;
        for (const Item *item : all()) {
            if (item->checkState(0) != Qt::Unchecked)
                names << (item->checkState(0) == Qt::Checked ? "" : "~") + item->text(0);
        }
        return names.join(' ');
    }
    /// The rows from top to bottom, as they would be painted.
    QString rows() const
    {
        QStringList names;
        for (QPoint point(100, 1);; point.ry() += visualItemRect(itemAt(point)).height()) {
            const Item *item = itemAt(point);
            if (!item)
                return names.join(' ');
            names << item->text(0);
        }
    }
    /// Expands an item, and waits for the request of its children.
    static void expand(Item *item)
    {
        item->setExpanded(true);
        QCoreApplication::processEvents();
    }
    bool hasArrow(Item *item) const { return model()->hasChildren(indexFromItem(item)); }
    /// Checks or unchecks an item as a user does.
    void toggle(const QString &name)
    {
        setCurrentItem((*this)[name]);
        QTest::keyClick(this, Qt::Key_Space);
    }

    bool isShown = false;
};

inline QString namesOf(const QList<Item *> &items)
{
    QStringList names;
    for (const Item *item : items)
        names << (item ? item->text(0) : "none");
    return names.join(' ');
}
