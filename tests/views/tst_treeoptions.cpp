// SPDX-License-Identifier: MIT
// The options of VemoTreeWidget, which are off at first.
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/vemotreewidget.h>

#include <QDrag>
#include <QMimeData>
#include <QRandomGenerator>

using Item = QTreeWidgetItem;

Q_DECLARE_METATYPE(QTreeWidgetItem *)
Q_DECLARE_METATYPE(QList<QTreeWidgetItem *>)
Q_DECLARE_METATYPE(Qt::CheckState)
Q_DECLARE_METATYPE(Qt::Key)

namespace {

const int kMany = 20'000;

/// A new item with children, which has a check box.
Item *item(const QString &name, const QList<Item *> &children = {})
{
    auto *made = new Item({name, "other " + name});
    made->setCheckState(0, Qt::Unchecked);
    made->addChildren(children);
    return made;
}

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

/// home (docs (2025, 2026), pictures (2025)), shared (team); shown, home is expanded.
class Tree : public VemoTreeWidget
{
public:
    using VemoTreeWidget::dropEvent;
    using VemoTreeWidget::startDrag;

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

    bool isShown = false;
};

QString namesOf(const QList<Item *> &items)
{
    QStringList names;
    for (const Item *item : items)
        names << (item ? item->text(0) : "none");
    return names.join(' ');
}

} // namespace

class TreeOptionsTest : public VemoTest
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

    void requestsChildrenOnce();
    void showsATextWhileLoading();
    void requestsAgainAfterAFailure();
    void showsNoArrowWithoutChildren();
    void survivesTheDeletionOfTheItem_data();
    void survivesTheDeletionOfTheItem();
    void survivesTheDeletionOfTheTree();
    void ignoresOtherItems();
    void filtersChecksAndLoadsTogether();

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

void TreeOptionsTest::initTestCase()
{
    qRegisterMetaType<QTreeWidgetItem *>();
    qRegisterMetaType<QList<QTreeWidgetItem *>>();
    qRegisterMetaType<Qt::CheckState>();
    qRegisterMetaType<Qt::DropAction>();
    qRegisterMetaType<VemoTreeWidget::DropPosition>("VemoTreeWidget::DropPosition");
    startDefaultTheme();
}

void TreeOptionsTest::startsWithoutAnyOption()
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

// Check states

void TreeOptionsTest::checksWhatIsAboveAndBelow_data()
{
    QTest::addColumn<QString>("toggled");
    QTest::addColumn<QString>("checked");
    addRow("all below", QString("home"), QString("home docs 2025 2026 pictures 2025 b"));
    addRow("again", QString("home,home"), QString());
    addRow("in part", QString("2025"), QString("~home ~docs 2025"));
    addRow("all children", QString("2025,2026"), QString("~home docs 2025 2026"));
    addRow("all of a folder", QString("docs"), QString("~home docs 2025 2026"));
    addRow("all of all folders", QString("docs,2025 b"),
        QString("home docs 2025 2026 pictures 2025 b"));
    addRow("one less", QString("home,2026"), QString("~home ~docs 2025 pictures 2025 b"));
    addRow("a folder in part", QString("2025,docs"), QString("~home docs 2025 2026"));
    addRow("none left", QString("2025,2025"), QString());
    addRow("collapsed", QString("shared"), QString("shared team"));
}

void TreeOptionsTest::checksWhatIsAboveAndBelow()
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

void TreeOptionsTest::emitsOneSignalForAClick()
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

void TreeOptionsTest::emitsWithoutPropagation()
{
    Tree tree;
    QSignalSpy toggled(&tree, &VemoTreeWidget::itemToggled);
    tree.toggle("docs");
    QCOMPARE(toggled.size(), 1);
    QTest::keyClick(&tree, Qt::Key_Down);
    tree["home"]->setCheckState(0, Qt::Checked);
    QCOMPARE(toggled.size(), 1);
}

void TreeOptionsTest::followsTheProgram()
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

void TreeOptionsTest::updatesParentsWhenEnabled()
{
    Tree tree;
    tree["2025"]->setCheckState(0, Qt::Checked);
    tree["shared"]->setCheckState(0, Qt::Checked);
    tree.setCheckPropagation(true);
    QCOMPARE(tree["docs"]->checkState(0), Qt::PartiallyChecked);
    QCOMPARE(tree["home"]->checkState(0), Qt::PartiallyChecked);
    QCOMPARE(tree["shared"]->checkState(0), Qt::Unchecked); // as its child
}

void TreeOptionsTest::leavesOutItemsWithoutACheckBox()
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

void TreeOptionsTest::followsNewAndRemovedItems()
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

void TreeOptionsTest::survivesTheDeletionOfACheckedItem()
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

void TreeOptionsTest::reportsEachRunOfChangesToTheModelOnce()
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

void TreeOptionsTest::checksManyItemsOneByOne()
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

// Filter

void TreeOptionsTest::showsMatchesAndWhatIsAboveThem_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("column");
    QTest::addColumn<QString>("rows");
    addRow("leaves", QString("2025"), 0, QString("home docs 2025 pictures 2025 b"));
    addRow("one leaf", QString("2026"), 0, QString("home docs 2026"));
    addRow("upper case", QString("TEAM"), 0, QString("shared team"));
    addRow("a folder alone", QString("shared"), 0, QString("shared"));
    addRow("a folder below", QString("docs"), 0, QString("home docs"));
    addRow("nothing", QString("zebra"), 0, QString());
    addRow("another column", QString("other t"), 1, QString("shared team"));
    addRow("no such column", QString("team"), 7, QString());
    addRow("empty", QString(), 0, QString("home docs pictures shared"));
}

void TreeOptionsTest::showsMatchesAndWhatIsAboveThem()
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

void TreeOptionsTest::filtersByAFunction()
{
    Tree tree;
    tree["2026"]->setCheckState(0, Qt::Checked);
    tree.setFilterFunction([](const Item &item) { return item.checkState(0) == Qt::Checked; });
    QCOMPARE(tree.rows(), QString("home docs 2026"));
    tree.setFilterFunction({});
    QVERIFY(!tree.isFiltered());
    QCOMPARE(tree.rows(), QString("home docs pictures shared"));
}

void TreeOptionsTest::restoresTheExpansion()
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

void TreeOptionsTest::keepsWhatTheHostHides()
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

void TreeOptionsTest::deselectsHiddenItems()
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

void TreeOptionsTest::movesTheCurrentItemUp_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("current");
    addRow("visible", QString("2025"), QString("2025"));
    addRow("its folder", QString("2026"), QString("docs"));
    addRow("the folder of that", QString("pictures"), QString("home"));
    addRow("none", QString("team"), QString("none"));
}

void TreeOptionsTest::movesTheCurrentItemUp()
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

void TreeOptionsTest::sortsWhileFiltered()
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

void TreeOptionsTest::testsNewItems_data()
{
    QTest::addColumn<QString>("parent");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("rows");
    const QString before("home docs 2025 pictures 2025 b");
    addRow("match", QString("docs"), QString("2025 c"),
        QString("home docs 2025 2025 c pictures 2025 b"));
    addRow("no match", QString("docs"), QString("2024"), before);
    addRow("match in a hidden folder", QString("shared"), QString("2025 c"),
        before + " shared 2025 c");
    addRow("no match in a hidden folder", QString("shared"), QString("2024"), before);
    addRow("match in a hidden folder of a hidden folder", QString("team"), QString("2025 c"),
        before + " shared team 2025 c");
}

void TreeOptionsTest::testsNewItems()
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

void TreeOptionsTest::testsHiddenItemsThatChange()
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

void TreeOptionsTest::forgetsRemovedItems()
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

void TreeOptionsTest::survivesSlotsThatChangeTheTree()
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

// Children on demand

void TreeOptionsTest::requestsChildrenOnce()
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

void TreeOptionsTest::showsATextWhileLoading()
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

void TreeOptionsTest::requestsAgainAfterAFailure()
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

void TreeOptionsTest::showsNoArrowWithoutChildren()
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

void TreeOptionsTest::survivesTheDeletionOfTheItem_data()
{
    QTest::addColumn<QString>("deleted");
    QTest::addColumn<Qt::Key>("key");
    addRow("by key", QString("docs"), Qt::Key_Right);
    addRow("by plus", QString("docs"), Qt::Key_Plus);
    addRow("by asterisk", QString("docs"), Qt::Key_Asterisk);
    addRow("by mouse", QString("docs"), Qt::Key_unknown);
    addRow("by program", QString("docs"), Qt::Key_0);
    addRow("its parent", QString("home"), Qt::Key_Right);
    addRow("its parent by mouse", QString("home"), Qt::Key_unknown);
}

void TreeOptionsTest::survivesTheDeletionOfTheItem()
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

void TreeOptionsTest::survivesTheDeletionOfTheTree()
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

void TreeOptionsTest::ignoresOtherItems()
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

void TreeOptionsTest::filtersChecksAndLoadsTogether()
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

// Drag and drop

void TreeOptionsTest::reportsDroppedItems_data()
{
    QTest::addColumn<int>("offset");
    QTest::addColumn<bool>("isMirrored");
    QTest::addColumn<QString>("target");
    QTest::addColumn<VemoTreeWidget::DropPosition>("position");
    for (const bool isMirrored : {false, true}) {
        const QByteArray side = isMirrored ? ", right to left" : "";
        addRow("on" + side, 0, isMirrored, QString("pictures"), VemoTreeWidget::DropOnItem);
        addRow("above" + side, -1, isMirrored, QString("pictures"), VemoTreeWidget::DropAboveItem);
        addRow("below" + side, 1, isMirrored, QString("pictures"), VemoTreeWidget::DropBelowItem);
        addRow("outside" + side, 9, isMirrored, QString("none"), VemoTreeWidget::DropOnViewport);
    }
}

void TreeOptionsTest::reportsDroppedItems()
{
    QFETCH(const int, offset);
    QFETCH(const bool, isMirrored);
    QFETCH(const QString, target);
    QFETCH(const VemoTreeWidget::DropPosition, position);
    Tree tree;
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

void TreeOptionsTest::reportsItemsOfAnotherTree()
{
    Tree tree;
    Tree other;
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

void TreeOptionsTest::reportsDroppedFiles_data()
{
    QTest::addColumn<bool>("isAbove");
    QTest::addColumn<VemoTreeWidget::DropPosition>("position");
    addRow("on", false, VemoTreeWidget::DropOnItem);
    addRow("above", true, VemoTreeWidget::DropAboveItem);
}

void TreeOptionsTest::reportsDroppedFiles()
{
    QFETCH(const bool, isAbove);
    QFETCH(const VemoTreeWidget::DropPosition, position);
    Tree tree;
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

void TreeOptionsTest::refusesDrops_data()
{
    QTest::addColumn<QString>("dragged");
    QTest::addColumn<QString>("target");
    QTest::addColumn<bool>("isAccepted");
    addRow("on a sibling", QString("docs"), QString("pictures"), true);
    addRow("on its parent", QString("docs"), QString("home"), true);
    addRow("on itself", QString("docs"), QString("docs"), false);
    addRow("on an item below", QString("home"), QString("pictures"), false);
    addRow("on an item that takes no drops", QString("docs"), QString("shared"), false);
    addRow("text", QString(), QString("docs"), false);
}

void TreeOptionsTest::refusesDrops()
{
    QFETCH(const QString, dragged);
    QFETCH(const QString, target);
    QFETCH(const bool, isAccepted);
    Tree tree;
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

void TreeOptionsTest::survivesSlotsThatDeleteWhatWasDropped()
{
    Tree tree;
    tree.setDropSignalsEnabled(true);
    connect(
        &tree, &VemoTreeWidget::itemsDropped, &tree, [](const QList<Item *> &items, Item *target) {
            qDeleteAll(items);
            delete target;
        });
    QVERIFY(tree.dropOn(tree["pictures"], *tree.drag({tree["docs"]})));
    QCOMPARE(tree.rows(), QString("home shared"));
}

void TreeOptionsTest::dragsNothingThatMayNotBeDragged()
{
    Tree tree;
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

VEMO_TEST_MAIN(TreeOptionsTest)
#include "tst_treeoptions.moc"
