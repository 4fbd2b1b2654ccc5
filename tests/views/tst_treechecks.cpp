// SPDX-License-Identifier: MIT
// Check states of VemoTreeWidget that depend on each other.
#include "optiontree.h"

Q_DECLARE_METATYPE(Qt::CheckState)

namespace {

const int kMany = 20'000;

/// An item that counts how often its data are read.
class CountingItem : public Item
{
public:
    using Item::Item;
    QVariant data(int column, int role) const override
    {
        ++reads;
        return Item::data(column, role);
    }
    static inline int reads = 0;
};

} // namespace

class TreeChecksTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void startsWithoutAnyOption();
    void checksWhatIsAboveAndBelow_data();
    void checksWhatIsAboveAndBelow();
    void emitsOneSignalForAClick();
    void emitsWithoutPropagation();
    void followsTheProgram();
    void updatesParentsWhenEnabled();
    void leavesOutItemsWithoutACheckBox();
    void followsNewAndRemovedItems();
    void survivesTheDeletionOfACheckedItem();
    void reportsEachRunOfChangesToTheModelOnce();
    void checksManyItemsOneByOne();
};

void TreeChecksTest::initTestCase()
{
    qRegisterMetaType<QTreeWidgetItem *>();
    qRegisterMetaType<Qt::CheckState>();
    startDefaultTheme();
}

void TreeChecksTest::startsWithoutAnyOption()
{
    Tree tree;
    QVERIFY(tree.isShown);
    QVERIFY(!tree.hasCheckPropagation());
    QVERIFY(!tree.isFiltered());
    QVERIFY(!tree.areDropSignalsEnabled());
    QCOMPARE(tree.childrenState(tree["home"]), VemoTreeWidget::ChildrenLoaded);
    QCOMPARE(tree.dragDropMode(), QAbstractItemView::NoDragDrop);
    tree.toggle("home");
    QCOMPARE(tree.checked(), QString("home"));
}

void TreeChecksTest::checksWhatIsAboveAndBelow_data()
{
    QTest::addColumn<QString>("toggled");
    QTest::addColumn<QString>("checked");
    addRow("all below", "home", "home docs 2025 2026 pictures 2025 b");
    addRow("again", "home,home", QString());
    addRow("in part", "2025", "~home ~docs 2025");
    addRow("all children", "2025,2026", "~home docs 2025 2026");
    addRow("all of a folder", "docs", "~home docs 2025 2026");
    addRow("all of all folders", "docs,2025 b", "home docs 2025 2026 pictures 2025 b");
    addRow("one less", "home,2026", "~home ~docs 2025 pictures 2025 b");
    addRow("a folder in part", "2025,docs", "~home docs 2025 2026");
    addRow("none left", "2025,2025", QString());
    addRow("collapsed", "shared", "shared team");
}

void TreeChecksTest::checksWhatIsAboveAndBelow()
{
    QFETCH(const QString, toggled);
    QFETCH(const QString, checked);
    Tree tree;
    tree.setCheckPropagation(true);
    for (const QString &name : toggled.split(','))
        tree.toggle(name);
    // The order is that of the search.
    QStringList found = tree.checked().split(' ');
    QStringList expected = checked.split(' ');
    found.sort();
    expected.sort();
    QCOMPARE(found, expected);
}

void TreeChecksTest::emitsOneSignalForAClick()
{
    Tree tree;
    tree.setCheckPropagation(true);
    QSignalSpy toggled(&tree, &VemoTreeWidget::itemToggled);
    QSignalSpy changed(&tree, &QTreeWidget::itemChanged);
    QString whenChanged;
    connect(&tree, &QTreeWidget::itemChanged, &tree, [&] { whenChanged = tree.checked(); });
    Item *docs = tree["docs"];
    QStyleOptionViewItem option;
    option.initFrom(&tree);
    option.rect = tree.visualItemRect(docs);
    option.features = QStyleOptionViewItem::HasCheckIndicator;
    const QRect box =
        tree.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &tree);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, box.center());
    QCOMPARE(toggled.size(), 1);
    QCOMPARE(toggled[0][0].value<Item *>(), docs);
    QCOMPARE(toggled[0][1].value<Qt::CheckState>(), Qt::Checked);
    QCOMPARE(changed.size(), 1);
    QCOMPARE(changed[0][0].value<Item *>(), docs);
    QCOMPARE(whenChanged, tree.checked());
    QVERIFY(whenChanged.contains("~home"));
}

void TreeChecksTest::emitsWithoutPropagation()
{
    Tree tree;
    QSignalSpy toggled(&tree, &VemoTreeWidget::itemToggled);
    tree.toggle("docs");
    QCOMPARE(toggled.size(), 1);
    QTest::keyClick(&tree, Qt::Key_Down);
    tree["home"]->setCheckState(0, Qt::Checked);
    QCOMPARE(toggled.size(), 1);
}

void TreeChecksTest::followsTheProgram()
{
    Tree tree;
    tree.setCheckPropagation(true);
    QSignalSpy toggled(&tree, &VemoTreeWidget::itemToggled);
    tree["shared"]->setCheckState(0, Qt::Checked);
    QCOMPARE(tree["team"]->checkState(0), Qt::Checked);
    tree["team"]->setCheckState(0, Qt::PartiallyChecked);
    QCOMPARE(tree["shared"]->checkState(0), Qt::PartiallyChecked);
    tree["team"]->setCheckState(0, Qt::Unchecked);
    QCOMPARE(tree["shared"]->checkState(0), Qt::Unchecked);
    tree["shared"]->setCheckState(0, Qt::PartiallyChecked); // which it is not
    QCOMPARE(tree["shared"]->checkState(0), Qt::Unchecked);
    tree["team"]->setText(0, "all");
    tree["home"]->setCheckState(1, Qt::Checked); // another column
    QCOMPARE(tree["docs"]->checkState(0), Qt::Unchecked);
    QCOMPARE(toggled.size(), 0);
    tree.setCheckPropagation(false);
    tree["shared"]->setCheckState(0, Qt::Checked);
    QCOMPARE(tree.checked(), QString("shared"));
}

void TreeChecksTest::updatesParentsWhenEnabled()
{
    Tree tree;
    tree["2025"]->setCheckState(0, Qt::Checked);
    tree["shared"]->setCheckState(0, Qt::Checked);
    tree.setCheckPropagation(true);
    QCOMPARE(tree["docs"]->checkState(0), Qt::PartiallyChecked);
    QCOMPARE(tree["home"]->checkState(0), Qt::PartiallyChecked);
    QCOMPARE(tree["shared"]->checkState(0), Qt::Unchecked); // as its child
}

void TreeChecksTest::leavesOutItemsWithoutACheckBox()
{
    Tree tree;
    tree["docs"]->setData(0, Qt::CheckStateRole, {});
    tree.setCheckPropagation(true);
    tree.toggle("home");
    QCOMPARE(tree["2025"]->checkState(0), Qt::Unchecked);
    QVERIFY(!tree["docs"]->data(0, Qt::CheckStateRole).isValid());
    QCOMPARE(tree["pictures"]->checkState(0), Qt::Checked);
    tree["2025"]->setCheckState(0, Qt::Checked);
    QVERIFY(!tree["docs"]->data(0, Qt::CheckStateRole).isValid());
    tree["2025 b"]->setCheckState(0, Qt::Unchecked);
    QCOMPARE(tree["home"]->checkState(0), Qt::Unchecked);
}

void TreeChecksTest::followsNewAndRemovedItems()
{
    Tree tree;
    tree.setCheckPropagation(true);
    tree.toggle("docs");
    tree["docs"]->addChild(item("2027"));
    QCOMPARE(tree["docs"]->checkState(0), Qt::PartiallyChecked);
    delete tree["2027"];
    QCOMPARE(tree["docs"]->checkState(0), Qt::Checked);
    Item *added = item("new", {item("x"), item("y")});
    added->child(0)->setCheckState(0, Qt::Checked);
    tree["docs"]->addChild(added);
    QCOMPARE(added->checkState(0), Qt::PartiallyChecked);
    QCOMPARE(tree["docs"]->checkState(0), Qt::PartiallyChecked);
    tree["pictures"]->addChild(new Item({"without a box"}));
    QCOMPARE(tree["pictures"]->checkState(0), Qt::Unchecked);
    tree.clear();
    QCOMPARE(tree.checked(), QString());
}

void TreeChecksTest::survivesTheDeletionOfACheckedItem()
{
    Tree tree;
    tree.setCheckPropagation(true);
    QSignalSpy toggled(&tree, &VemoTreeWidget::itemToggled);
    const auto deletion =
        connect(&tree, &QTreeWidget::itemChanged, &tree, [](Item *item) { delete item; });
    tree.toggle("docs");
    QCOMPARE(toggled.size(), 0);
    QVERIFY(!tree["docs"]);
    disconnect(deletion);
    const auto toggling =
        connect(&tree, &VemoTreeWidget::itemToggled, &tree, [](Item *item) { delete item; });
    tree.toggle("pictures");
    QCOMPARE(toggled.size(), 1);
    disconnect(toggling);
    QCOMPARE(tree["home"]->childCount(), 0);
    // A view of the model removes the items that follow.
    connect(tree.model(), &QAbstractItemModel::dataChanged, &tree, [&] { delete tree["team"]; });
    tree.toggle("shared");
    QCOMPARE(tree["shared"]->childCount(), 0);
}

void TreeChecksTest::reportsEachRunOfChangesToTheModelOnce()
{
    Tree tree;
    tree.setCheckPropagation(true);
    QSignalSpy changes(tree.model(), &QAbstractItemModel::dataChanged);
    tree.toggle("docs");
    // 2025 to 2026, home, and docs itself.
    QCOMPARE(changes.size(), 3);
    int rows = 0;
    for (const QVariantList &change : changes) {
        const QModelIndex first = change[0].toModelIndex();
        rows += change[1].toModelIndex().row() - first.row() + 1;
        QCOMPARE(first.parent(), change[1].toModelIndex().parent());
    }
    QCOMPARE(rows, 4);
}

void TreeChecksTest::checksManyItemsOneByOne()
{
    VemoTreeWidget tree;
    auto *folder = new Item(&tree);
    folder->setCheckState(0, Qt::Unchecked);
    tree.setCheckPropagation(true);
    CountingItem::reads = 0;
    for (int i = 0; i < kMany; ++i)
        (new CountingItem(folder))->setCheckState(0, Qt::Unchecked);
    for (int i = 0; i < kMany; ++i)
        folder->child(i)->setCheckState(0, Qt::Checked);
    QCOMPARE(folder->checkState(0), Qt::Checked);
    for (int i = kMany - 1; i > 0; --i)
        folder->child(i)->setCheckState(0, Qt::Unchecked);
    QCOMPARE(folder->checkState(0), Qt::PartiallyChecked);
    folder->setCheckState(0, Qt::Checked);
    // Each item a few times, and not once for every other item.
    QVERIFY2(CountingItem::reads < 50 * kMany, qPrintable(QString::number(CountingItem::reads)));
}

VEMO_TEST_MAIN(TreeChecksTest)
#include "tst_treechecks.moc"
