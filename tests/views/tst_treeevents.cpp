// SPDX-License-Identifier: MIT
#include <vemo/vemotreewidget.h>

#include "core/scaling_p.h"
#include "support/activewindow.h"
#include "support/realkeys.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/stylemanager.h>

#include <QHeaderView>
#include <QScrollBar>

namespace {

struct Tree
{
    explicit Tree(int rows = 3)
    {
        widget.setHeaderHidden(true);
        widget.setFrameShape(QFrame::NoFrame);
        for (int row = 0; row < rows; ++row)
            widget.addTopLevelItem(new QTreeWidgetItem(QStringList(QString::number(row))));
    }

    void show()
    {
        widget.show();
        QVERIFY(QTest::qWaitForWindowExposed(&widget));
    }
    void focusIn()
    {
        QFocusEvent event(QEvent::FocusIn);
        QCoreApplication::sendEvent(&widget, &event);
    }
    QTreeWidgetItem *item(int row) const { return widget.topLevelItem(row); }
    QPoint centre(int row) const { return widget.visualItemRect(item(row)).center(); }

    VemoTreeWidget widget;
};

/// A chain of items, each one step deeper, in one column that is wider than its tree.
struct Chain
{
    Chain()
    {
        tree.setHeaderHidden(true);
        tree.setFrameShape(QFrame::NoFrame);
        tree.setRootIsDecorated(false);
        tree.setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
        tree.setIndentation(50);
        tree.header()->setStretchLastSection(false);
        tree.header()->resizeSection(0, 3000);
        auto *item = new QTreeWidgetItem(&tree, QStringList("0"));
        while (items.size() < 40) {
            items << item;
            item = new QTreeWidgetItem(item, QStringList(QString::number(items.size())));
        }
        tree.expandAll();
        tree.resize(400, 300);
        tree.show();
    }
    int left(int depth) const { return tree.visualItemRect(items.at(depth)).x(); }

    VemoTreeWidget tree;
    QList<QTreeWidgetItem *> items;
};

} // namespace

Q_DECLARE_METATYPE(QTreeWidgetItem *)
Q_DECLARE_METATYPE(Qt::MouseButton)
Q_DECLARE_METATYPE(Qt::Key)

class TreeEventsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void reportsEachKeyBeforeItHandlesIt();
    void reportsARightClickBeforeItHandlesIt();
    void reportsNoOtherClick_data();
    void reportsNoOtherClick();
    void reportsTheMenuKeys_data();
    void reportsTheMenuKeys();
    void opensTheMenuWhereTheRowBegins_data();
    void opensTheMenuWhereTheRowBegins();
    void mirrorsItsClosedBranch_data();
    void mirrorsItsClosedBranch();
    void makesTheFirstItemCurrentOnFocus();
    void makesTheCurrentItemCurrentAgainOnFocus();
    void takesTheFocusWithoutAnyItem();
    void takesTheFirstVisibleItemOnFocus();
    void leavesTheBaseOutOnFocus();
    void survivesASlotThatDeletesTheCurrentItemOnFocus();
    void survivesItsDeletionInASlot_data();
    void survivesItsDeletionInASlot();
    void staysWhereTheItemHasRoom_data();
    void staysWhereTheItemHasRoom();
    void needsRoomOfAHundredDesignPixels();
    void bringsAnItemToTheMiddle_data();
    void bringsAnItemToTheMiddle();
    void staysWhereTheItemIsAtTheEdge();
    void doesNotScrollToWhatIsNotInIt();
};

void TreeEventsTest::initTestCase()
{
    qRegisterMetaType<QTreeWidgetItem *>();
    qRegisterMetaType<QMouseEvent *>("QMouseEvent*");
    startDefaultTheme();
}

void TreeEventsTest::reportsEachKeyBeforeItHandlesIt()
{
    Tree tree;
    tree.show();
    tree.widget.setCurrentItem(tree.item(0));
    QList<int> keys;
    QList<QTreeWidgetItem *> currents;
    connect(&tree.widget, &VemoTreeWidget::sigKeyPressEvent, this, [&](QKeyEvent *event) {
        keys << event->key();
        currents << tree.widget.currentItem();
    });
    QTest::keyClick(&tree.widget, Qt::Key_Down);
    QTest::keyClick(&tree.widget, Qt::Key_Delete);
    QCOMPARE(keys, QList<int>({Qt::Key_Down, Qt::Key_Delete}));
    QCOMPARE(currents, QList<QTreeWidgetItem *>({tree.item(0), tree.item(1)}));
}

void TreeEventsTest::reportsARightClickBeforeItHandlesIt()
{
    Tree tree;
    tree.show();
    QList<QPoint> positions;
    QList<bool> selected;
    connect(&tree.widget, &VemoTreeWidget::sigMouseRightClickEvent, this, [&](QMouseEvent *event) {
        positions << event->pos();
        selected << tree.item(1)->isSelected();
    });
    QTest::mouseClick(tree.widget.viewport(), Qt::RightButton, {}, tree.centre(1));
    QCOMPARE(positions, QList<QPoint>({tree.centre(1)}));
    QCOMPARE(selected, QList<bool>({false}));
    QVERIFY(tree.item(1)->isSelected());
}

void TreeEventsTest::reportsNoOtherClick_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("left") << Qt::LeftButton;
    QTest::newRow("middle") << Qt::MiddleButton;
    QTest::newRow("back") << Qt::BackButton;
}

void TreeEventsTest::reportsNoOtherClick()
{
    QFETCH(Qt::MouseButton, button);
    Tree tree;
    tree.show();
    const QSignalSpy clicks(&tree.widget, SIGNAL(sigMouseRightClickEvent(QMouseEvent *)));
    QTest::mouseClick(tree.widget.viewport(), button, {}, tree.centre(1));
    QCOMPARE(clicks.size(), 0);
}

void TreeEventsTest::reportsTheMenuKeys_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::addColumn<int>("times");
    const Qt::KeyboardModifiers none = Qt::NoModifier;
    QTest::newRow("Menu") << Qt::Key_Menu << none << 1;
    QTest::newRow("Shift+F10") << Qt::Key_F10 << Qt::KeyboardModifiers(Qt::ShiftModifier) << 1;
    QTest::newRow("F10") << Qt::Key_F10 << none << 0;
    QTest::newRow("Ctrl+Shift+F10")
        << Qt::Key_F10 << (Qt::ShiftModifier | Qt::ControlModifier) << 0;
    QTest::newRow("Return") << Qt::Key_Return << none << 0;
}

void TreeEventsTest::reportsTheMenuKeys()
{
    QFETCH(Qt::Key, key);
    QFETCH(Qt::KeyboardModifiers, modifiers);
    QFETCH(int, times);
    Tree tree;
    tree.show();
    tree.widget.setCurrentItem(tree.item(1));
    QVERIFY(showActive(&tree.widget));
    tree.widget.setFocus();
    QList<int> keys;
    connect(&tree.widget, &VemoTreeWidget::sigKeyPressEvent, this,
        [&](QKeyEvent *event) { keys << event->key(); });
    QList<QTreeWidgetItem *> items;
    connect(&tree.widget, &VemoTreeWidget::sigMenuKeyEvent, this,
        [&](QTreeWidgetItem *item, const QPoint &) {
            QCOMPARE(keys.last(), int(key));
            items << item;
        });
    pressRealKey(key, modifiers);
    QTRY_VERIFY(keys.contains(key));
    QCOMPARE(items.size(), times);
    QCOMPARE(items.count(tree.item(1)), times);
}

void TreeEventsTest::opensTheMenuWhereTheRowBegins_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::addColumn<int>("row");
    for (const int row : {-1, 0, 2}) {
        QTest::addRow("row %d", row) << Qt::LeftToRight << row;
        QTest::addRow("row %d, right to left", row) << Qt::RightToLeft << row;
    }
}

void TreeEventsTest::opensTheMenuWhereTheRowBegins()
{
    QFETCH(Qt::LayoutDirection, direction);
    QFETCH(int, row);
    Tree tree;
    tree.widget.setLayoutDirection(direction);
    tree.show();
    tree.widget.setCurrentItem(row < 0 ? nullptr : tree.item(row));
    QPoint position(-1, -1);
    connect(&tree.widget, &VemoTreeWidget::sigMenuKeyEvent, this,
        [&](QTreeWidgetItem *, const QPoint &place) { position = place; });
    QTest::keyClick(&tree.widget, Qt::Key_Menu);
    const QRect rect = row < 0 ? QRect(0, 0, 1, 1) : tree.widget.visualItemRect(tree.item(row));
    QCOMPARE(
        position, direction == Qt::LeftToRight || row < 0 ? rect.bottomLeft() : rect.bottomRight());
}

namespace {

/// The row in which a picture's ink reaches farthest to a side: of an arrow, that of its tip.
int tipRow(const QImage &picture, bool isAtRight)
{
    int farthest = isAtRight ? 0 : picture.width();
    int row = -1;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const bool isFarther = isAtRight ? x > farthest : x < farthest;
            if (qGray(picture.pixel(x, y)) < 190 && isFarther) {
                farthest = x;
                row = y;
            }
        }
    }
    return row;
}

} // namespace

void TreeEventsTest::mirrorsItsClosedBranch_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("left to right") << Qt::LeftToRight;
    QTest::newRow("right to left") << Qt::RightToLeft;
}

void TreeEventsTest::mirrorsItsClosedBranch()
{
    QFETCH(Qt::LayoutDirection, direction);
    Tree tree;
    for (int row = 0; row < 3; ++row)
        tree.item(row)->addChild(new QTreeWidgetItem(QStringList("child")));
    tree.widget.setLayoutDirection(direction);
    tree.widget.setStyleSheet(getStyleSheet("component.tree"));
    tree.widget.setBackgroundColor(Qt::white, Qt::white);
    tree.widget.move(100, 100);
    QCursor::setPos(0, 0);
    tree.show();
    const bool isMirrored = direction == Qt::RightToLeft;
    const int width = tree.widget.indentation();
    const QRect row = tree.widget.visualItemRect(tree.item(1));
    const int left = isMirrored ? tree.widget.viewport()->width() - width : 0;
    const QImage branch =
        tree.widget.viewport()->grab({left, row.top(), width, row.height()}).toImage();
    QVERIFY(qAbs(tipRow(branch, !isMirrored) - branch.height() / 2) <= 2);
}

void TreeEventsTest::makesTheFirstItemCurrentOnFocus()
{
    Tree tree;
    tree.widget.resize(300, 200);
    tree.widget.setCurrentItem(nullptr);
    tree.focusIn();
    QCOMPARE(tree.widget.currentItem(), tree.item(0));
}

void TreeEventsTest::makesTheCurrentItemCurrentAgainOnFocus()
{
    Tree tree;
    tree.widget.setCurrentItem(tree.item(1));
    QSignalSpy changes(
        &tree.widget, SIGNAL(currentItemChanged(QTreeWidgetItem *, QTreeWidgetItem *)));
    for (int round = 0; round < 2; ++round) {
        tree.focusIn();
        QCOMPARE(tree.widget.currentItem(), tree.item(1));
        QCOMPARE(changes.size(), 2);
        QCOMPARE(changes.at(0).at(0).value<QTreeWidgetItem *>(), nullptr);
        QCOMPARE(changes.at(1).at(0).value<QTreeWidgetItem *>(), tree.item(1));
        changes.clear();
    }
}

void TreeEventsTest::takesTheFocusWithoutAnyItem()
{
    Tree tree(0);
    tree.focusIn();
    QVERIFY(!tree.widget.currentItem());
}

void TreeEventsTest::takesTheFirstVisibleItemOnFocus()
{
    Tree tree(100);
    tree.widget.resize(300, 200);
    tree.show();
    tree.widget.scrollToItem(tree.item(60), QAbstractItemView::PositionAtTop);
    tree.widget.setCurrentItem(nullptr);
    tree.focusIn();
    QCOMPARE(tree.widget.currentItem(), tree.item(60));
}

void TreeEventsTest::leavesTheBaseOutOnFocus()
{
    Tree tree(0);
    // QAbstractItemView would turn it off without a current item.
    tree.widget.setAttribute(Qt::WA_InputMethodEnabled);
    tree.focusIn();
    QVERIFY(tree.widget.testAttribute(Qt::WA_InputMethodEnabled));
}

void TreeEventsTest::survivesASlotThatDeletesTheCurrentItemOnFocus()
{
    Tree tree;
    tree.widget.setCurrentItem(tree.item(1));
    connect(&tree.widget, &QTreeWidget::currentItemChanged, this,
        [&](const QTreeWidgetItem *current, const QTreeWidgetItem *previous) {
            if (current)
                return;
            delete previous;
            tree.widget.setCurrentItem(tree.item(1));
        });
    tree.focusIn();
    QCOMPARE(tree.widget.topLevelItemCount(), 2);
    QCOMPARE(tree.widget.currentItem(), tree.item(1));
}

void TreeEventsTest::survivesItsDeletionInASlot_data()
{
    QTest::addColumn<QString>("signal");
    QTest::newRow("key") << "key";
    QTest::newRow("menu key") << "menu";
    QTest::newRow("right click") << "click";
    QTest::newRow("focus") << "focus";
}

void TreeEventsTest::survivesItsDeletionInASlot()
{
    QFETCH(QString, signal);
    auto *tree = new VemoTreeWidget;
    auto *item = new QTreeWidgetItem(tree, QStringList("Projects"));
    tree->setCurrentItem(item);
    tree->show();
    const QPointer<VemoTreeWidget> guard(tree);
    if (signal == "key")
        connect(tree, &VemoTreeWidget::sigKeyPressEvent, qApp, [tree] { delete tree; });
    connect(tree, &VemoTreeWidget::sigMenuKeyEvent, qApp, [tree] { delete tree; });
    connect(tree, &VemoTreeWidget::sigMouseRightClickEvent, qApp, [tree] { delete tree; });
    if (signal == "key" || signal == "menu") {
        QTest::keyPress(tree, Qt::Key_Menu);
    } else if (signal == "click") {
        QTest::mousePress(tree->viewport(), Qt::RightButton);
    } else {
        connect(tree,
            SIGNAL(currentItemChanged(QTreeWidgetItem *, QTreeWidgetItem *)), tree,
                SLOT(deleteLater()));
        QFocusEvent event(QEvent::FocusIn);
        QCoreApplication::sendEvent(tree, &event);
    }
    QTRY_VERIFY(!guard);
}

void TreeEventsTest::staysWhereTheItemHasRoom_data()
{
    QTest::addColumn<int>("depth");
    QTest::newRow("at the edge") << 0;
    QTest::newRow("at 50") << 1;
    QTest::newRow("at 200") << 4;
}

void TreeEventsTest::staysWhereTheItemHasRoom()
{
    QFETCH(int, depth);
    Chain chain;
    chain.tree.updateScrollArea(chain.items.at(depth));
    QCOMPARE(chain.tree.horizontalScrollBar()->value(), 0);
}

void TreeEventsTest::needsRoomOfAHundredDesignPixels()
{
    Chain chain;
    chain.tree.resize(250 + scaled(100), 300);
    chain.tree.updateScrollArea(chain.items.at(5));
    QCOMPARE(chain.tree.horizontalScrollBar()->value(), 0);
    chain.tree.resize(250 + scaled(100) - 1, 300);
    chain.tree.updateScrollArea(chain.items.at(5));
    QCOMPARE(chain.tree.horizontalScrollBar()->value(), 250 - (250 + scaled(100) - 1) / 2);
}

void TreeEventsTest::bringsAnItemToTheMiddle_data()
{
    QTest::addColumn<int>("depth");
    QTest::addColumn<int>("scrolled");
    QTest::newRow("at 350") << 7 << 0;
    QTest::newRow("beyond the right edge") << 20 << 0;
    QTest::newRow("beyond the left edge") << 10 << 700;
    QTest::newRow("scrolled, close to the right edge") << 17 << 500;
    QTest::newRow("less than half a tree from the left") << 3 << 500;
}

void TreeEventsTest::bringsAnItemToTheMiddle()
{
    QFETCH(int, depth);
    QFETCH(int, scrolled);
    Chain chain;
    QScrollBar *bar = chain.tree.horizontalScrollBar();
    const int width = chain.tree.viewport()->width();
    QTRY_COMPARE(bar->maximum(), 3000 - width);
    bar->setValue(scrolled);
    QCOMPARE(chain.left(depth), 50 * depth - scrolled);
    chain.tree.updateScrollArea(chain.items.at(depth));
    QCOMPARE(bar->value(), qMax(50 * depth - width / 2, 0));
}

void TreeEventsTest::staysWhereTheItemIsAtTheEdge()
{
    Chain chain;
    QTRY_VERIFY(chain.tree.horizontalScrollBar()->maximum() > 0);
    chain.tree.horizontalScrollBar()->setValue(250);
    QCOMPARE(chain.left(5), 0);
    chain.tree.updateScrollArea(chain.items.at(5));
    QCOMPARE(chain.tree.horizontalScrollBar()->value(), 250);
}

void TreeEventsTest::doesNotScrollToWhatIsNotInIt()
{
    Chain chain;
    QTRY_VERIFY(chain.tree.horizontalScrollBar()->maximum() > 0);
    chain.tree.horizontalScrollBar()->setValue(300);
    chain.tree.updateScrollArea(nullptr);
    QTreeWidgetItem stray;
    chain.tree.updateScrollArea(&stray);
    QCOMPARE(chain.tree.horizontalScrollBar()->value(), 300);
}

VEMO_TEST_MAIN(TreeEventsTest)
#include "tst_treeevents.moc"
