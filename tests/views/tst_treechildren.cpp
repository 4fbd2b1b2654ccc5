// SPDX-License-Identifier: MIT
// Children of VemoTreeWidget that are loaded when an item is expanded.
#include "optiontree.h"

Q_DECLARE_METATYPE(Qt::Key)

class TreeChildrenTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void requestsChildrenOnce();
    void showsATextWhileLoading();
    void requestsAgainAfterAFailure();
    void showsNoArrowWithoutChildren();
    void survivesTheDeletionOfTheItem_data();
    void survivesTheDeletionOfTheItem();
    void survivesTheDeletionOfTheTree();
    void ignoresOtherItems();
    void filtersChecksAndLoadsTogether();
};

void TreeChildrenTest::initTestCase()
{
    qRegisterMetaType<QTreeWidgetItem *>();
    startDefaultTheme();
}

void TreeChildrenTest::requestsChildrenOnce()
{
    Tree tree;
    tree.addTopLevelItem(item("disk"));
    Item *disk = tree["disk"];
    QVERIFY(!tree.hasArrow(disk));
    QSignalSpy requests(&tree, &VemoTreeWidget::childrenRequested);
    connect(&tree, &VemoTreeWidget::childrenRequested, &tree, [&](Item *parent) {
        QCOMPARE(tree.childrenState(parent), VemoTreeWidget::ChildrenLoading);
        parent->addChild(item("a"));
        parent->addChild(item("b"));
    });
    tree.setChildrenState(disk, VemoTreeWidget::ChildrenOnDemand);
    QVERIFY(tree.hasArrow(disk));
    QCOMPARE(requests.size(), 0);
    tree.setCurrentItem(disk);
    QTest::keyClick(&tree, Qt::Key_Right);
    QTRY_COMPARE(requests.size(), 1);
    QCOMPARE(tree.childrenState(disk), VemoTreeWidget::ChildrenLoaded);
    QCOMPARE(tree.rows(), QString("home docs pictures shared disk a b"));
    disk->setExpanded(false);
    tree.expand(disk);
    QCOMPARE(requests.size(), 1);
    qDeleteAll(disk->takeChildren());
    QVERIFY(!tree.hasArrow(disk));
    tree.setChildrenState(disk, VemoTreeWidget::ChildrenOnDemand); // To read them again.
    QVERIFY(!disk->isExpanded());
    tree.expand(disk);
    QCOMPARE(requests.size(), 2);
}

void TreeChildrenTest::showsATextWhileLoading()
{
    Tree tree;
    Item *team = tree["team"];
    QSignalSpy requests(&tree, &VemoTreeWidget::childrenRequested);
    connect(&tree, &VemoTreeWidget::childrenRequested, &tree, [&](Item *parent) {
        tree.setChildrenState(parent, VemoTreeWidget::ChildrenLoading, "Loading");
    });
    tree.setChildrenState(team, VemoTreeWidget::ChildrenOnDemand);
    tree.expand(tree["shared"]);
    tree.expand(team);
    QCOMPARE(tree.rows(), QString("home docs pictures shared team Loading"));
    QCOMPARE(tree.childrenState(team), VemoTreeWidget::ChildrenLoading);
    QVERIFY(!(tree["Loading"]->flags() & (Qt::ItemIsSelectable | Qt::ItemIsEnabled)));
    team->setExpanded(false);
    tree.expand(team);
    QCOMPARE(requests.size(), 1);
    tree.setChildrenState(team, VemoTreeWidget::ChildrenLoading, "Still loading");
    QCOMPARE(tree.rows(), QString("home docs pictures shared team Still loading"));
    team->addChild(item("x"));
    tree.setChildrenState(team, VemoTreeWidget::ChildrenLoaded, "ignored");
    QCOMPARE(tree.rows(), QString("home docs pictures shared team x"));
    // A host may delete the row with the text.
    tree.setChildrenState(team, VemoTreeWidget::ChildrenLoading, "Loading");
    qDeleteAll(team->takeChildren());
    tree.setChildrenState(team, VemoTreeWidget::ChildrenLoaded);
    QCOMPARE(tree.rows(), QString("home docs pictures shared team"));
}

void TreeChildrenTest::requestsAgainAfterAFailure()
{
    Tree tree;
    Item *disk = tree["shared"];
    QSignalSpy requests(&tree, &VemoTreeWidget::childrenRequested);
    connect(&tree, &VemoTreeWidget::childrenRequested, &tree, [&](Item *parent) {
        tree.setChildrenState(parent, VemoTreeWidget::ChildrenFailed, "Access denied");
    });
    qDeleteAll(disk->takeChildren());
    tree.setChildrenState(disk, VemoTreeWidget::ChildrenOnDemand);
    tree.expand(disk);
    QCOMPARE(tree.rows(), QString("home docs pictures shared Access denied"));
    QCOMPARE(tree.childrenState(disk), VemoTreeWidget::ChildrenFailed);
    disk->setExpanded(false);
    QVERIFY(tree.hasArrow(disk));
    tree.expand(disk);
    QCOMPARE(requests.size(), 2);
    QCOMPARE(disk->childCount(), 1);
}

void TreeChildrenTest::showsNoArrowWithoutChildren()
{
    Tree tree;
    Item *team = tree["team"];
    connect(&tree, &VemoTreeWidget::childrenRequested, &tree,
        [&](Item *parent) { tree.setChildrenState(parent, VemoTreeWidget::ChildrenLoaded); });
    tree.setChildrenState(team, VemoTreeWidget::ChildrenOnDemand);
    QVERIFY(tree.hasArrow(team));
    tree.expand(team);
    QVERIFY(!tree.hasArrow(team));
    QCOMPARE(tree.childrenState(team), VemoTreeWidget::ChildrenLoaded);
}

void TreeChildrenTest::survivesTheDeletionOfTheItem_data()
{
    QTest::addColumn<QString>("deleted");
    QTest::addColumn<Qt::Key>("key");
    addRow("by key", "docs", Qt::Key_Right);
    addRow("by plus", "docs", Qt::Key_Plus);
    addRow("by asterisk", "docs", Qt::Key_Asterisk);
    addRow("by mouse", "docs", Qt::Key_unknown);
    addRow("by program", "docs", Qt::Key_0);
    addRow("its parent", "home", Qt::Key_Right);
    addRow("its parent by mouse", "home", Qt::Key_unknown);
}

void TreeChildrenTest::survivesTheDeletionOfTheItem()
{
    QFETCH(const QString, deleted);
    QFETCH(const Qt::Key, key);
    Tree tree;
    Item *docs = tree["docs"];
    connect(&tree, &VemoTreeWidget::childrenRequested, &tree, [&] { delete tree[deleted]; });
    tree.setChildrenState(docs, VemoTreeWidget::ChildrenOnDemand);
    tree.setCurrentItem(docs);
    const QRect row = tree.visualItemRect(docs);
    if (key == Qt::Key_unknown)
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {},
            {row.left() - tree.indentation() / 2, row.center().y()});
    else if (key == Qt::Key_0)
        tree.expand(docs);
    else
        QTest::keyClick(&tree, key);
    QTRY_VERIFY(!tree[deleted]);
    QVERIFY(!tree.rows().contains("docs"));
}

void TreeChildrenTest::survivesTheDeletionOfTheTree()
{
    const QPointer<Tree> tree = new Tree;
    connect(tree.data(), &VemoTreeWidget::childrenRequested, this, [&] { delete tree; });
    tree->setChildrenState((*tree)["team"], VemoTreeWidget::ChildrenOnDemand);
    tree->expand((*tree)["team"]);
    QVERIFY(!tree);
    auto *other = new Tree;
    other->setChildrenState((*other)["team"], VemoTreeWidget::ChildrenOnDemand);
    (*other)["team"]->setExpanded(true);
    delete other; // before it has asked
    QCoreApplication::processEvents();
}

void TreeChildrenTest::ignoresOtherItems()
{
    Tree tree;
    Tree other;
    Item loose;
    for (Item *item : {static_cast<Item *>(nullptr), &loose, other["home"]}) {
        tree.setChildrenState(item, VemoTreeWidget::ChildrenOnDemand);
        QCOMPARE(tree.childrenState(item), VemoTreeWidget::ChildrenLoaded);
    }
    tree.setChildrenState(tree["team"], VemoTreeWidget::ChildrenOnDemand);
    Item *shared = tree.takeTopLevelItem(1);
    QCOMPARE(tree.childrenState(shared->child(0)), VemoTreeWidget::ChildrenLoaded);
    delete shared;
    tree.setChildrenState(tree["docs"], VemoTreeWidget::ChildrenOnDemand);
    const Item *docs = tree["docs"];
    tree.clear();
    QCOMPARE(tree.childrenState(docs), VemoTreeWidget::ChildrenLoaded);
}

void TreeChildrenTest::filtersChecksAndLoadsTogether()
{
    Tree tree;
    tree.setCheckPropagation(true);
    Item *team = tree["team"];
    tree.setChildrenState(team, VemoTreeWidget::ChildrenOnDemand);
    tree.toggle("team");
    tree.setFilterText("a");
    tree.expand(tree["shared"]);
    tree.expand(team);
    tree.setChildrenState(team, VemoTreeWidget::ChildrenLoading, "Loading");
    QCOMPARE(tree.rows(), QString("shared team Loading")); // It is no match.
    (new Item(team, {"b"}))->setCheckState(0, Qt::Unchecked);
    (new Item(team, {"a"}))->setCheckState(0, Qt::Unchecked);
    QCOMPARE(team->checkState(0), Qt::Checked);
    QCOMPARE(tree.rows(), QString("shared team Loading a"));
    tree.setChildrenState(team, VemoTreeWidget::ChildrenLoaded);
    QCOMPARE(tree.rows(), QString("shared team a"));
    QCOMPARE(tree["a"]->checkState(0), Qt::Checked);
    QCOMPARE(tree["b"]->checkState(0), Qt::Checked);
    tree.toggle("a");
    QCOMPARE(team->checkState(0), Qt::PartiallyChecked);
    QCOMPARE(tree["shared"]->checkState(0), Qt::PartiallyChecked);
    tree.toggle("shared"); // Hidden items follow.
    QCOMPARE(tree["b"]->checkState(0), Qt::Checked);
    QVERIFY(tree["b"]->isHidden());
    tree.clearFilter();
    QCOMPARE(tree.rows(), QString("home docs pictures shared team"));
}

VEMO_TEST_MAIN(TreeChildrenTest)
#include "tst_treechildren.moc"
