// SPDX-License-Identifier: MIT
// The filter of VemoTreeWidget.
#include "optiontree.h"

class TreeFilterTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void showsMatchesAndWhatIsAboveThem_data();
    void showsMatchesAndWhatIsAboveThem();
    void filtersByAFunction();
    void restoresTheExpansion();
    void keepsWhatTheHostHides();
    void deselectsHiddenItems();
    void movesTheCurrentItemUp_data();
    void movesTheCurrentItemUp();
    void sortsWhileFiltered();
    void testsNewItems_data();
    void testsNewItems();
    void testsHiddenItemsThatChange();
    void forgetsRemovedItems();
    void survivesSlotsThatChangeTheTree();
};

void TreeFilterTest::initTestCase()
{
    startDefaultTheme();
}

void TreeFilterTest::showsMatchesAndWhatIsAboveThem_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("rows");
    addRow("leaves", "2025", 0, "home docs 2025 pictures 2025 b");
    addRow("one leaf", "2026", 0, "home docs 2026");
    addRow("upper case", "TEAM", 0, "shared team");
    addRow("a folder alone", "shared", 0, "shared");
    addRow("a folder below", "docs", 0, "home docs");
    addRow("nothing", "zebra", 0, QString());
    addRow("another column", "other t", 1, "shared team");
    addRow("no such column", "team", 7, QString());
    addRow("empty", QString(), 0, "home docs pictures shared");
}

void TreeFilterTest::showsMatchesAndWhatIsAboveThem()
{
    QFETCH(const QString, text);
    QFETCH(const int, column);
    QFETCH(const QString, rows);
    Tree tree;
    tree.setFilterText(text, column);
    QCOMPARE(tree.rows(), rows);
    QCOMPARE(tree.isFiltered(), !text.isEmpty());
    tree.setFilterText("team"); // Replaces it.
    QCOMPARE(tree.rows(), QString("shared team"));
    tree.setFilterText(text, column);
    QCOMPARE(tree.rows(), rows);
    tree.clearFilter();
    QVERIFY(!tree.isFiltered());
    QCOMPARE(tree.rows(), QString("home docs pictures shared"));
}

void TreeFilterTest::filtersByAFunction()
{
    Tree tree;
    tree["2026"]->setCheckState(0, Qt::Checked);
    tree.setFilterFunction([](const Item &item) { return item.checkState(0) == Qt::Checked; });
    QCOMPARE(tree.rows(), QString("home docs 2026"));
    tree.setFilterFunction({});
    QVERIFY(!tree.isFiltered());
    QCOMPARE(tree.rows(), QString("home docs pictures shared"));
}

void TreeFilterTest::restoresTheExpansion()
{
    Tree tree;
    tree["shared"]->setExpanded(true);
    const QString before = tree.rows();
    tree.setFilterText("2025");
    tree.setFilterText("202");
    QVERIFY(tree["docs"]->isExpanded());
    tree["home"]->setExpanded(false);
    tree.clearFilter();
    QCOMPARE(tree.rows(), before);
    QVERIFY(!tree["docs"]->isExpanded());
    tree.clearFilter();
    QCOMPARE(tree.rows(), before);
}

void TreeFilterTest::keepsWhatTheHostHides()
{
    Tree tree;
    tree["docs"]->setHidden(true);
    tree.setFilterText("202");
    QCOMPARE(tree.rows(), QString("home pictures 2025 b"));
    tree.setFilterText("team");
    tree.clearFilter();
    QCOMPARE(tree.rows(), QString("home pictures shared"));
    QVERIFY(tree["docs"]->isHidden());
}

void TreeFilterTest::deselectsHiddenItems()
{
    Tree tree;
    tree.setSelectionMode(QAbstractItemView::ExtendedSelection);
    tree.clearSelection();
    for (const char *name : {"2025", "2026", "team", "shared"})
        tree[name]->setSelected(true);
    QSignalSpy changes(&tree, &QTreeWidget::itemSelectionChanged);
    tree.setFilterText("2026");
    QCOMPARE(namesOf(tree.selectedItems()), QString("2026"));
    QCOMPARE(changes.size(), 1);
    tree.selectAll();
    QCOMPARE(tree.selectedItems().size(), 3);
    tree.clearFilter();
    QCOMPARE(tree.selectedItems().size(), 3);
}

void TreeFilterTest::movesTheCurrentItemUp_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("current");
    addRow("visible", "2025", "2025");
    addRow("its folder", "2026", "docs");
    addRow("the folder of that", "pictures", "home");
    addRow("none", "team", "none");
}

void TreeFilterTest::movesTheCurrentItemUp()
{
    QFETCH(const QString, text);
    QFETCH(const QString, current);
    Tree tree;
    tree["docs"]->setExpanded(true);
    tree.setCurrentItem(tree["2025"]);
    tree.setFilterText(text);
    QCOMPARE(namesOf({tree.currentItem()}), current);
    QCOMPARE(namesOf(tree.selectedItems()), current == "2025" ? current : QString());
    tree.clearFilter();
    QCOMPARE(namesOf({tree.currentItem()}), current);
}

void TreeFilterTest::sortsWhileFiltered()
{
    Tree tree;
    tree.setFilterText("2025");
    tree.sortItems(0, Qt::DescendingOrder);
    QCOMPARE(tree.rows(), QString("home pictures 2025 b docs 2025"));
    tree.setFilterText("202");
    QCOMPARE(tree.rows(), QString("home pictures 2025 b docs 2026 2025"));
    tree.clearFilter();
    QCOMPARE(tree.rows(), QString("shared home pictures docs"));
    tree.setCheckPropagation(true);
    tree.setSortingEnabled(true);
    tree.setFilterText("2026");
    tree.toggle("2026");
    QCOMPARE(tree["docs"]->checkState(0), Qt::PartiallyChecked);
    QCOMPARE(tree.rows(), QString("home docs 2026"));
}

void TreeFilterTest::testsNewItems_data()
{
    QTest::addColumn<QString>("parent");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("rows");
    const QString before("home docs 2025 pictures 2025 b");
    addRow("match", "docs", "2025 c", "home docs 2025 2025 c pictures 2025 b");
    addRow("no match", "docs", "2024", before);
    addRow("match in a hidden folder", "shared", "2025 c", before + " shared 2025 c");
    addRow("no match in a hidden folder", "shared", "2024", before);
    addRow("match in a hidden folder of a hidden folder", "team", "2025 c",
        before + " shared team 2025 c");
}

void TreeFilterTest::testsNewItems()
{
    QFETCH(const QString, parent);
    QFETCH(const QString, name);
    QFETCH(const QString, rows);
    Tree tree;
    tree.setFilterText("2025");
    tree[parent]->addChild(item(name, {item("below")}));
    QCOMPARE(tree.rows(), rows);
    delete tree[name];
    // With the text set later.
    auto *later = new Item(tree[parent]);
    later->setText(0, name);
    QCOMPARE(tree.rows(), rows);
}

void TreeFilterTest::testsHiddenItemsThatChange()
{
    Tree tree;
    tree.setFilterText("2025");
    tree["2026"]->setText(0, "2025 d");
    tree["team"]->setText(0, "2025 e");
    QCOMPARE(tree.rows(), QString("home docs 2025 2025 d pictures 2025 b shared 2025 e"));
    tree["2025 d"]->setText(0, "2026"); // The user edits it.
    QCOMPARE(tree.rows(), QString("home docs 2025 2026 pictures 2025 b shared 2025 e"));
    tree.setFilterText("2025");
    QCOMPARE(tree.rows(), QString("home docs 2025 pictures 2025 b shared 2025 e"));
}

void TreeFilterTest::forgetsRemovedItems()
{
    Tree tree;
    tree.setFilterText("2025");
    delete tree["2026"];
    delete tree["shared"];
    Item *taken = tree["home"]->takeChild(0);
    taken->setText(0, "taken");
    tree.addTopLevelItem(taken);
    QCOMPARE(tree.rows(), QString("home pictures 2025 b taken 2025"));
    tree.setFilterText("2025 b");
    QCOMPARE(tree.rows(), QString("home pictures 2025 b"));
    tree.clearFilter();
    QCOMPARE(tree.rows(), QString("home pictures taken"));
    tree.setFilterText("2025 b");
    tree.clear();
    tree.addTopLevelItem(item("2025 b"));
    tree.addTopLevelItem(item("other"));
    QCOMPARE(tree.rows(), QString("2025 b"));
    tree.clearFilter();
    QCOMPARE(tree.rows(), QString("2025 b other"));
}

void TreeFilterTest::survivesSlotsThatChangeTheTree()
{
    Tree tree;
    const auto deletion = connect(&tree, &QTreeWidget::itemExpanded, &tree, [&](Item *) {
        delete tree["pictures"];
        delete tree["2025"];
    });
    tree.setFilterText("2025");
    QCOMPARE(tree.rows(), QString("home docs"));
    disconnect(deletion);
    tree.clearFilter();
    const auto clearing =
        connect(&tree, &QTreeWidget::itemExpanded, &tree, [&] { tree.clearFilter(); });
    tree.setFilterText("team");
    QVERIFY(!tree.isFiltered());
    disconnect(clearing);
    tree["shared"]->setExpanded(false);
    connect(&tree, &QTreeWidget::currentItemChanged, &tree, [&] { delete tree["team"]; });
    tree.setCurrentItem(tree["home"]);
    tree.setFilterText("shared");
    QCOMPARE(tree.rows(), QString("shared"));
}

VEMO_TEST_MAIN(TreeFilterTest)
#include "tst_treefilter.moc"
