// SPDX-License-Identifier: MIT
// Drag and drop of VemoTreeWidget.
#include "optiontree.h"

#include <QDrag>
#include <QMimeData>

Q_DECLARE_METATYPE(QList<QTreeWidgetItem *>)

namespace {

class DropTree : public Tree
{
public:
    using VemoTreeWidget::dropEvent;
    using VemoTreeWidget::startDrag;

    /// The data of a drag of the items, as they are sent by the window system.
    QMimeData *drag(const QList<Item *> &items)
    {
        clearSelection();
        setSelectionMode(MultiSelection);
        for (Item *item : items)
            item->setSelected(true);
        startDrag(Qt::CopyAction | Qt::MoveAction);
        // It is deleted later.
        const auto *drag = findChild<QDrag *>();
        return drag ? drag->mimeData() : nullptr;
    }
    /// Whether the data may be dropped at the point; does so.
    bool drop(const QPoint &point, const QMimeData &data, Qt::DropAction action)
    {
        QDragEnterEvent enter(point, action, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(viewport(), &enter);
        QDragMoveEvent move(point, action, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(viewport(), &move);
        if (!enter.isAccepted() || !move.isAccepted()) {
            QDragLeaveEvent leave; // Otherwise Qt continues to send events to this tree.
            QCoreApplication::sendEvent(viewport(), &leave);
            return false;
        }
        QDropEvent drop(point, action, &data, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(viewport(), &drop);
        return drop.isAccepted();
    }
    bool dropOn(Item *target, const QMimeData &data, Qt::DropAction action = Qt::MoveAction)
    {
        return drop(visualItemRect(target).center(), data, action);
    }
};

} // namespace

class TreeDropsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void reportsDroppedItems_data();
    void reportsDroppedItems();
    void reportsItemsOfAnotherTree();
    void reportsDroppedFiles_data();
    void reportsDroppedFiles();
    void refusesDrops_data();
    void refusesDrops();
    void survivesSlotsThatDeleteWhatWasDropped();
    void dragsNothingThatMayNotBeDragged();
};

void TreeDropsTest::initTestCase()
{
    qRegisterMetaType<QTreeWidgetItem *>();
    qRegisterMetaType<QList<QTreeWidgetItem *>>();
    qRegisterMetaType<Qt::DropAction>();
    qRegisterMetaType<VemoTreeWidget::DropPosition>("VemoTreeWidget::DropPosition");
    startDefaultTheme();
}

void TreeDropsTest::reportsDroppedItems_data()
{
    QTest::addColumn<int>("offset");
    QTest::addColumn<bool>("isMirrored");
    QTest::addColumn<QString>("target");
    QTest::addColumn<VemoTreeWidget::DropPosition>("position");
    for (const bool isMirrored : {false, true}) {
        const QByteArray side = isMirrored ? ", right to left" : "";
        addRow("on" + side, 0, isMirrored, "pictures", VemoTreeWidget::DropOnItem);
        addRow("above" + side, -1, isMirrored, "pictures", VemoTreeWidget::DropAboveItem);
        addRow("below" + side, 1, isMirrored, "pictures", VemoTreeWidget::DropBelowItem);
        addRow("outside" + side, 9, isMirrored, "none", VemoTreeWidget::DropOnViewport);
    }
}

void TreeDropsTest::reportsDroppedItems()
{
    QFETCH(const int, offset);
    QFETCH(const bool, isMirrored);
    QFETCH(const QString, target);
    QFETCH(const VemoTreeWidget::DropPosition, position);
    DropTree tree;
    tree.setLayoutDirection(isMirrored ? Qt::RightToLeft : Qt::LeftToRight);
    tree.setDropSignalsEnabled(true);
    QSignalSpy drops(&tree, &VemoTreeWidget::itemsDropped);
    tree["docs"]->setExpanded(true);
    const QString before = tree.rows();
    const QMimeData *data = tree.drag({tree["2026"], tree["shared"]});
    QVERIFY(data);
    const QRect row = tree.visualItemRect(tree["pictures"]);
    QPoint point = row.center();
    if (offset == 9)
        point.setY(390);
    else if (offset != 0)
        point.setY(offset < 0 ? row.top() : row.bottom());
    QVERIFY(tree.drop(point, *data, Qt::MoveAction));
    QCOMPARE(drops.size(), 1);
    QCOMPARE(namesOf(drops[0][0].value<QList<Item *>>()), QString("2026 shared"));
    QCOMPARE(namesOf({drops[0][1].value<Item *>()}), target);
    QCOMPARE(drops[0][2].value<VemoTreeWidget::DropPosition>(), position);
    QCOMPARE(drops[0][3].value<Qt::DropAction>(), Qt::MoveAction);
    QCOMPARE(tree.rows(), before); // The host moves them.
}

void TreeDropsTest::reportsItemsOfAnotherTree()
{
    DropTree tree;
    DropTree other;
    tree.setDropSignalsEnabled(true);
    other.setDropSignalsEnabled(true);
    QSignalSpy drops(&tree, &VemoTreeWidget::itemsDropped);
    const QMimeData *data = other.drag({other["home"]});
    QVERIFY(tree.dropOn(tree["home"], *data, Qt::CopyAction));
    QCOMPARE(drops.size(), 1);
    const Item *dropped = drops[0][0].value<QList<Item *>>().value(0);
    QCOMPARE(dropped, other["home"]);
    QCOMPARE(drops[0][3].value<Qt::DropAction>(), Qt::CopyAction);
    delete other["home"]; // during the drag
    QVERIFY(!tree.dropOn(tree["home"], *data));
}

void TreeDropsTest::reportsDroppedFiles_data()
{
    QTest::addColumn<bool>("isAbove");
    QTest::addColumn<VemoTreeWidget::DropPosition>("position");
    addRow("on", false, VemoTreeWidget::DropOnItem);
    addRow("above", true, VemoTreeWidget::DropAboveItem);
}

void TreeDropsTest::reportsDroppedFiles()
{
    QFETCH(const bool, isAbove);
    QFETCH(const VemoTreeWidget::DropPosition, position);
    DropTree tree;
    tree.setDropSignalsEnabled(true);
    QSignalSpy drops(&tree, &VemoTreeWidget::urlsDropped);
    QMimeData files;
    files.setUrls({QUrl("file:///tmp/a"), QUrl("file:///tmp/b")});
    const QRect row = tree.visualItemRect(tree["docs"]);
    const QPoint point(row.center().x(), isAbove ? row.top() : row.center().y());
    QVERIFY(tree.drop(point, files, Qt::CopyAction));
    QCOMPARE(drops.size(), 1);
    QCOMPARE(drops[0][0].value<QList<QUrl>>(), files.urls());
    QCOMPARE(drops[0][1].value<Item *>(), tree["docs"]);
    QCOMPARE(drops[0][2].value<VemoTreeWidget::DropPosition>(), position);
    QCOMPARE(drops[0][3].value<Qt::DropAction>(), Qt::CopyAction);
    tree.setDropSignalsEnabled(false);
    QVERIFY(!tree.drop(point, files, Qt::CopyAction));
    QCOMPARE(tree.dragDropMode(), QAbstractItemView::NoDragDrop);
    QCOMPARE(drops.size(), 1);
}

void TreeDropsTest::refusesDrops_data()
{
    QTest::addColumn<QString>("dragged");
    QTest::addColumn<QString>("target");
    QTest::addColumn<bool>("isAccepted");
    addRow("on a sibling", "docs", "pictures", true);
    addRow("on its parent", "docs", "home", true);
    addRow("on itself", "docs", "docs", false);
    addRow("on an item below", "home", "pictures", false);
    addRow("on an item that takes no drops", "docs", "shared", false);
    addRow("text", QString(), "docs", false);
}

void TreeDropsTest::refusesDrops()
{
    QFETCH(const QString, dragged);
    QFETCH(const QString, target);
    QFETCH(const bool, isAccepted);
    DropTree tree;
    tree.setDropSignalsEnabled(true);
    tree.setDragDropOverwriteMode(true); // on items only
    tree["shared"]->setFlags(tree["shared"]->flags() & ~Qt::ItemIsDropEnabled);
    tree.invisibleRootItem()->setFlags(Qt::NoItemFlags);
    QSignalSpy items(&tree, &VemoTreeWidget::itemsDropped);
    QSignalSpy urls(&tree, &VemoTreeWidget::urlsDropped);
    QMimeData text;
    text.setText("docs");
    const QMimeData *data = dragged.isEmpty() ? &text : tree.drag({tree[dragged]});
    for (const Qt::DropAction action : {Qt::CopyAction, Qt::MoveAction})
        QCOMPARE(tree.dropOn(tree[target], *data, action), isAccepted);
    QCOMPARE(items.size(), isAccepted ? 2 : 0);
    QCOMPARE(urls.size(), 0);
    QDropEvent drop(tree.visualItemRect(tree[target]).center(), Qt::MoveAction, data,
        Qt::LeftButton, Qt::NoModifier);
    tree.dropEvent(&drop); // without having asked
    QCOMPARE(items.size(), isAccepted ? 3 : 0);
}

void TreeDropsTest::survivesSlotsThatDeleteWhatWasDropped()
{
    DropTree tree;
    tree.setDropSignalsEnabled(true);
    connect(
        &tree, &VemoTreeWidget::itemsDropped, &tree, [](const QList<Item *> &items, Item *target) {
            qDeleteAll(items);
            delete target;
        });
    QVERIFY(tree.dropOn(tree["pictures"], *tree.drag({tree["docs"]})));
    QCOMPARE(tree.rows(), QString("home shared"));
}

void TreeDropsTest::dragsNothingThatMayNotBeDragged()
{
    DropTree tree;
    QVERIFY(!tree.drag({}));
    tree.setDropSignalsEnabled(true);
    tree["docs"]->setFlags(tree["docs"]->flags() & ~Qt::ItemIsDragEnabled);
    QVERIFY(!tree.drag({tree["docs"]}));
    const QMimeData *data = tree.drag({tree["docs"], tree["pictures"]});
    QVERIFY(data);
    QSignalSpy drops(&tree, &VemoTreeWidget::itemsDropped);
    QVERIFY(tree.dropOn(tree["shared"], *data));
    QCOMPARE(namesOf(drops[0][0].value<QList<Item *>>()), QString("pictures"));
}

VEMO_TEST_MAIN(TreeDropsTest)
#include "tst_treedrops.moc"
