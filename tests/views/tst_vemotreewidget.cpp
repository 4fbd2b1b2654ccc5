// SPDX-License-Identifier: MIT
#include <vemo/vemotreewidget.h>

#include "core/scaling_p.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/filesystemtreewidgetitem.h>
#include <vemo/itemdelegate.h>
#include <vemo/stylemanager.h>

#include <QHeaderView>
#include <QPainter>
#include <QRandomGenerator>
#include <QScrollBar>

namespace {

const QColor kSelected(Qt::red);
const QColor kHovered(Qt::green);
const QColor kGround(Qt::white);

void moveAway()
{
    QCursor::setPos(750, 590);
}

class Tree : public VemoTreeWidget
{
public:
    using VemoTreeWidget::drawRow;
    using VemoTreeWidget::indexFromItem;

    Tree()
    {
        setHeaderHidden(true);
        setFocusPolicy(Qt::NoFocus); // which would select the first row
        setFrameShape(QFrame::NoFrame);
        setRootIsDecorated(false);
        setStyleSheet(QStringLiteral("QTreeWidget { background: white; color: white;"
                                     " selection-background-color: transparent; }"));
        setBackgroundColor(kSelected, kHovered);
        for (int row = 0; row < 5; ++row)
            addTopLevelItem(new QTreeWidgetItem(QStringList(QString())));
        resize(300, 200);
        moveAway();
    }

    void movePointerTo(const QPoint &point) const { QCursor::setPos(mapToGlobal(point)); }
    QRect rect(int row) const { return visualItemRect(topLevelItem(row)); }
    /// The option for painting a row by hand.
    QStyleOptionViewItem optionOf(int row) const
    {
        QStyleOptionViewItem option;
        option.initFrom(this);
        option.widget = this;
        option.rect = rect(row);
        return option;
    }
    /// The background colour of a row.
    QColor ground(int row) { return pixelAt(viewport(), rect(row).center()); }
    /// The backgrounds with the pointer at a point of the tree, which a window manager may still
    /// move.
    QList<QColor> groundsAt(const QPoint &point)
    {
        movePointerTo(point);
        return grounds();
    }
    QList<QColor> grounds()
    {
        QList<QColor> colours;
        for (int row = 0; row < 3; ++row)
            colours << ground(row);
        return colours;
    }
};

} // namespace

class VemoTreeWidgetTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void highlightsSelectedRows();
    void highlightsExactlyTheRowsThatAreSelectedAsAWhole();
    void highlightsTheRowsOfOverlappingRanges();
    void highlightsTheRowUnderThePointer();
    void showsTheSelectionUnderThePointer();
    void readsThePointerAfreshForEachPaint();
    void testsThePointerOnePixelLower();
    void looksForThePointerInTheTreeNotInItsViewport();
    void leavesTheRightEdgeFree();
    void roundsTheCornersOfTheHighlight();
    void drawsAWhitePen();
    void drawsInvalidColoursAsTheyAre();
    void drawsARowOutsideAPaint();
    void drawsNothingForAnInvalidIndex();
    void drawsRowsWithoutACheckBoxAsDisabled();
    void restoresThePainter();
    void holdsManyItemsOfAllNames();
};

void VemoTreeWidgetTest::highlightsSelectedRows()
{
    Tree tree;
    tree.setSelectionMode(QAbstractItemView::MultiSelection);
    tree.topLevelItem(0)->setSelected(true);
    tree.topLevelItem(2)->setSelected(true);
    QCOMPARE(tree.grounds(), QList<QColor>({kSelected, kGround, kSelected}));
}

void VemoTreeWidgetTest::highlightsExactlyTheRowsThatAreSelectedAsAWhole()
{
    Tree tree;
    tree.clear();
    tree.setColumnCount(2);
    tree.setSelectionMode(QAbstractItemView::MultiSelection);
    tree.setSelectionBehavior(QAbstractItemView::SelectItems);
    for (int folder = 0; folder < 3; ++folder) {
        auto *item = new QTreeWidgetItem(&tree);
        for (int child = 0; child < 3; ++child)
            new QTreeWidgetItem(item);
    }
    tree.expandAll();
    tree.resize(300, 500);
    const int height = tree.visualItemRect(tree.topLevelItem(2)->child(2)).bottom();
    const QItemSelectionModel *selection = tree.selectionModel();
    QRandomGenerator random(7);
    int selected = 0;
    for (int round = 0; round < 60; ++round) {
        const QModelIndex index = tree.indexAt({random.bounded(250), random.bounded(height)});
        if (index.isValid())
            tree.selectionModel()->select(index, QItemSelectionModel::Toggle);
        for (QTreeWidgetItemIterator item(&tree); *item; ++item) {
            const QModelIndex row = tree.indexFromItem(*item);
            const bool isSelected = selection->isRowSelected(row.row(), row.parent());
            const QPoint probe = tree.visualItemRect(*item).center();
            QCOMPARE(pixelAt(tree.viewport(), probe), isSelected ? kSelected : kGround);
            selected += isSelected;
        }
    }
    QVERIFY(selected > 60);
}

void VemoTreeWidgetTest::highlightsTheRowsOfOverlappingRanges()
{
    Tree tree;
    const auto row = [&tree](int index) { return tree.indexFromItem(tree.topLevelItem(index)); };
    QItemSelection ranges(row(0), row(2));
    ranges.append(QItemSelectionRange(row(1)));
    tree.setSelectionMode(QAbstractItemView::MultiSelection);
    tree.selectionModel()->select(ranges, QItemSelectionModel::Select);
    QCOMPARE(tree.grounds(), QList<QColor>({kSelected, kSelected, kSelected}));
}

void VemoTreeWidgetTest::highlightsTheRowUnderThePointer()
{
    Tree tree;
    tree.show();
    QVERIFY(QTest::qWaitForWindowExposed(&tree));
    QTRY_COMPARE(
        tree.groundsAt(tree.rect(1).center()), QList<QColor>({kGround, kHovered, kGround}));
}

void VemoTreeWidgetTest::showsTheSelectionUnderThePointer()
{
    Tree tree;
    tree.show();
    QVERIFY(QTest::qWaitForWindowExposed(&tree));
    tree.topLevelItem(1)->setSelected(true);
    QTRY_COMPARE(
        tree.groundsAt(tree.rect(1).center()), QList<QColor>({kGround, kSelected, kGround}));
}

void VemoTreeWidgetTest::readsThePointerAfreshForEachPaint()
{
    Tree tree;
    tree.show();
    QVERIFY(QTest::qWaitForWindowExposed(&tree));
    QTRY_COMPARE(tree.groundsAt(tree.rect(1).center()).at(1), kHovered);
    QTRY_COMPARE(
        tree.groundsAt(tree.rect(2).center()), QList<QColor>({kGround, kGround, kHovered}));
    moveAway();
    QCOMPARE(tree.grounds(), QList<QColor>({kGround, kGround, kGround}));
}

void VemoTreeWidgetTest::testsThePointerOnePixelLower()
{
    Tree tree;
    tree.show();
    QVERIFY(QTest::qWaitForWindowExposed(&tree));
    QTRY_COMPARE(tree.groundsAt(QPoint(100, tree.rect(1).top())),
        QList<QColor>({kHovered, kGround, kGround}));
    QTRY_COMPARE(tree.groundsAt(QPoint(100, tree.rect(1).top() + 1)),
        QList<QColor>({kGround, kHovered, kGround}));
    QTRY_COMPARE(tree.groundsAt(QPoint(100, tree.rect(1).bottom() + 1)),
        QList<QColor>({kGround, kHovered, kGround}));
}

void VemoTreeWidgetTest::looksForThePointerInTheTreeNotInItsViewport()
{
    Tree tree;
    tree.setHeaderHidden(false);
    tree.show();
    QVERIFY(QTest::qWaitForWindowExposed(&tree));
    QTRY_COMPARE(
        tree.groundsAt(tree.rect(1).center()), QList<QColor>({kGround, kHovered, kGround}));
}

void VemoTreeWidgetTest::leavesTheRightEdgeFree()
{
    Tree tree;
    tree.topLevelItem(1)->setSelected(true);
    const QRect row = tree.rect(1);
    const int end = row.right() - scaled(3);
    QCOMPARE(pixelAt(tree.viewport(), {end - 2, row.center().y()}), kSelected);
    QCOMPARE(pixelAt(tree.viewport(), {end + 2, row.center().y()}), kGround);
}

void VemoTreeWidgetTest::roundsTheCornersOfTheHighlight()
{
    Tree tree;
    tree.topLevelItem(1)->setSelected(true);
    const QRect row = tree.rect(1);
    QVERIFY(pixelAt(tree.viewport(), row.topLeft()).lightness() > 230);
    const QPoint inside(scaled(3) + 1, scaled(3) + 1);
    QCOMPARE(pixelAt(tree.viewport(), row.topLeft() + inside), kSelected);
}

void VemoTreeWidgetTest::drawsAWhitePen()
{
    Tree tree;
    tree.setStyleSheet(QStringLiteral("QTreeWidget { background: black; color: black;"
                                      " selection-background-color: transparent; }"));
    tree.topLevelItem(1)->setSelected(true);
    QPoint edge = tree.rect(1).center();
    edge.setY(tree.rect(1).top());
    // Antialiased on the pixel border: half of it is in the row, which is a whole device pixel at
    // ratio 2.
    const QColor mixed = pixelAt(tree.viewport(), edge);
    QVERIFY(mixed.lightness() > kSelected.lightness());
    QCOMPARE(mixed == QColor(Qt::white), tree.devicePixelRatio() == 2);
    QCOMPARE(tree.ground(1), kSelected);
}

void VemoTreeWidgetTest::drawsInvalidColoursAsTheyAre()
{
    Tree tree;
    tree.setBackgroundColor(QColor(), QColor());
    tree.topLevelItem(1)->setSelected(true);
    QCOMPARE(tree.grounds(), QList<QColor>({kGround, QColor(Qt::black), kGround}));
    const VemoTreeWidget fresh;
    QVERIFY(fresh.findChildren<QTreeWidget *>().isEmpty());
}

void VemoTreeWidgetTest::drawsARowOutsideAPaint()
{
    Tree tree;
    tree.show();
    QVERIFY(QTest::qWaitForWindowExposed(&tree));
    tree.movePointerTo(tree.rect(1).center());
    QImage picture(tree.size(), QImage::Format_RGB32);
    picture.fill(kGround);
    QStyleOptionViewItem option = tree.optionOf(1);
    QPainter painter(&picture);
    tree.drawRow(&painter, option, tree.indexFromItem(tree.topLevelItem(1)));
    QCOMPARE(picture.pixelColor(tree.rect(1).center()), kHovered);
    moveAway();
    option.rect = tree.rect(2);
    tree.drawRow(&painter, option, tree.indexFromItem(tree.topLevelItem(2)));
    QCOMPARE(picture.pixelColor(tree.rect(2).center()), kGround);
}

void VemoTreeWidgetTest::drawsNothingForAnInvalidIndex()
{
    Tree tree;
    QImage picture(tree.size(), QImage::Format_RGB32);
    picture.fill(kGround);
    QStyleOptionViewItem option = tree.optionOf(1);
    tree.movePointerTo(tree.rect(1).center());
    QPainter painter(&picture);
    tree.drawRow(&painter, option, {});
    QCOMPARE(picture.pixelColor(tree.rect(1).center()), kGround);
}

void VemoTreeWidgetTest::drawsRowsWithoutACheckBoxAsDisabled()
{
    struct Delegate : ItemDelegate
    {
        void paint(
            QPainter *, const QStyleOptionViewItem &option, const QModelIndex &index) const override
        {
            isEnabled[index.row()] = option.state & QStyle::State_Enabled;
        }
        mutable QHash<int, bool> isEnabled;
    };
    Tree tree;
    Delegate delegate;
    tree.setItemDelegate(&delegate);
    tree.topLevelItem(1)->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    QVERIFY(!tree.grab().isNull());
    QVERIFY(delegate.isEnabled.value(0));
    QVERIFY(!delegate.isEnabled.value(1));
    tree.topLevelItem(1)->setSelected(true);
    QVERIFY(tree.topLevelItem(1)->isSelected());
}

void VemoTreeWidgetTest::restoresThePainter()
{
    Tree tree;
    tree.topLevelItem(1)->setSelected(true);
    QImage picture(tree.size(), QImage::Format_RGB32);
    QStyleOptionViewItem option = tree.optionOf(1);
    QPainter painter(&picture);
    painter.setPen(Qt::blue);
    tree.drawRow(&painter, option, tree.indexFromItem(tree.topLevelItem(1)));
    QCOMPARE(painter.pen().color(), QColor(Qt::blue));
    QVERIFY(!(painter.renderHints() & QPainter::Antialiasing));
}

void VemoTreeWidgetTest::holdsManyItemsOfAllNames()
{
    const QStringList names {"R&D", "\"a\" 'b'", "", QString::fromUtf8("שלום"),
        QString::fromUtf8("e\xCC\x81"), QString(4096, 'm'), "home"};
    Tree tree;
    QList<QTreeWidgetItem *> items;
    for (int i = 0; i < 100'000; ++i) {
        auto *item = i % 2 ? new FileSystemTreeWidgetItem : new QTreeWidgetItem;
        item->setText(0, names.at(i % names.size()));
        items << item;
    }
    tree.addTopLevelItems(items);
    tree.setUniformRowHeights(true);
    tree.sortItems(0, Qt::DescendingOrder);
    tree.setCurrentItem(items.last());
    tree.scrollToItem(items.last());
    QVERIFY(!tree.grab().isNull());
    QVERIFY(tree.viewport()->rect().intersects(tree.visualItemRect(items.last())));
}

VEMO_TEST_MAIN(VemoTreeWidgetTest)
#include "tst_vemotreewidget.moc"
