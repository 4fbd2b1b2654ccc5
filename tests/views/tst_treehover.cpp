// SPDX-License-Identifier: MIT
#include <vemo/vemotreewidget.h>

#include "core/scaling_p.h"
#include "support/activewindow.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <QHeaderView>
#include <QMenu>
#include <QScreen>
#include <QScrollBar>
#include <QWindow>

#include <functional>
#include <utility>

namespace {

const QColor kHovered(Qt::green);
const QColor kGround(Qt::black);

/// Collects the painted region of a widget.
class PaintedRegion : public QObject
{
public:
    explicit PaintedRegion(QWidget *widget) { widget->installEventFilter(this); }

    QRegion take() { return std::exchange(m_region, {}); }
    int events() const { return m_events; }

    bool eventFilter(QObject * /*watched*/, QEvent *event) override
    {
        if (event->type() == QEvent::Paint) {
            m_region += static_cast<QPaintEvent *>(event)->region();
            ++m_events;
        }
        return false;
    }

private:
    QRegion m_region;
    int m_events = 0;
};

/// A visible tree whose pixels are read from the screen: grab() would hide a missing repaint.
class Tree : public VemoTreeWidget
{
public:
    Tree()
    {
        setHeaderHidden(true);
        setFocusPolicy(Qt::NoFocus); // which would select the first row
        setFrameShape(QFrame::NoFrame);
        setRootIsDecorated(false);
        setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
        // No style sheet: with one, scrolling repaints everything instead of moving pixels.
        QPalette palette;
        for (const auto role : {QPalette::Base, QPalette::Text, QPalette::Highlight})
            palette.setColor(role, kGround);
        setPalette(palette);
        setBackgroundColor(Qt::red, kHovered);
        for (int row = 0; row < 5; ++row)
            addTopLevelItem(new QTreeWidgetItem(QStringList(QString())));
        setGeometry(100, 100, 300, 200);
        movePointerAway();
    }

    /// Shows the tree and waits for the resulting paint events.
    void showAndSettle()
    {
        QVERIFY(showActive(this));
        // The rows on the screen may be right before the tree has heard of the pointer, because it
        // asks for the position when it paints.
        movePointerTo(0);
        QTRY_VERIFY(underMouse() && !hoveredRows().isEmpty());
        movePointerAway();
        QTRY_VERIFY(!underMouse() && hoveredRows().isEmpty());
        // With a style sheet, the leave posts an event, which posts another one, which paints.
        for (int posted = 0; posted < 3; ++posted)
            QCoreApplication::processEvents();
    }

    static void movePointerAway() { QCursor::setPos(10, 10); }
    void movePointerTo(int row) const
    {
        // On Windows Qt drops a move to the position of the last one, although the pointer has left
        // the window since.
        static int moves = 0;
        const int x = width() / 2 + ++moves % 2;
        QCursor::setPos(mapToGlobal(QPoint(x, rect(row).center().y())));
    }
    QRect rect(int row) const { return visualItemRect(topLevelItem(row)); }
    QImage screenshot() const
    {
        const QPoint corner = viewport()->mapTo(window(), QPoint());
        return screen()
            ->grabWindow(window()->winId(), corner.x(), corner.y(), viewport()->width(),
                viewport()->height())
            .toImage()
            .convertToFormat(QImage::Format_RGB32);
    }
    QImage fullPaint()
    {
        return viewport()->grab().toImage().convertToFormat(QImage::Format_RGB32);
    }
    QList<int> hoveredRows() const
    {
        const QImage picture = screenshot();
        QList<int> rows;
        for (int row = 0; row < topLevelItemCount(); ++row) {
            const QPoint centre(picture.width() / 2, rect(row).center().y());
            if (picture.rect().contains(centre) && picture.pixelColor(centre) == kHovered)
                rows << row;
        }
        return rows;
    }
};

} // namespace

Q_DECLARE_METATYPE(std::function<void(Tree &)>)

class TreeHoverTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void cleanup();
    void followsThePointer_data();
    void followsThePointer();
    void followsThePointerBelowAHeader();
    void followsThePointerPixelByPixel();
    void followsAPointerThatIsAheadOfItsEvents();
    void repaintsTheRowsConcernedOnly_data();
    void repaintsTheRowsConcernedOnly();
    void paintsNothingWhileThePointerStaysInARow();
    void looksLikeAFullPaint();
    void followsThePointerAfterAnotherStyle();
    void leavesTheFrameItsOwnHoverLook();
    void keepsItsShapeWhenScrolledSideways();
    void losesThePointerToAMenu_data();
    void losesThePointerToAMenu();
};

void TreeHoverTest::cleanup()
{
    Tree::movePointerAway();
    VemoTest::cleanup();
}

void TreeHoverTest::followsThePointer_data()
{
    QTest::addColumn<std::function<void(Tree &)>>("setUp");
    QTest::newRow("plain") << std::function<void(Tree &)>([](Tree &) {});
    QTest::newRow("right to left") << std::function<void(Tree &)>(
        [](Tree &tree) { tree.setLayoutDirection(Qt::RightToLeft); });
    QTest::newRow("first column moved and hidden") << std::function<void(Tree &)>([](Tree &tree) {
        tree.setColumnCount(2);
        tree.header()->moveSection(0, 1);
        tree.hideColumn(0);
    });
    QTest::newRow("scrolled sideways") << std::function<void(Tree &)>([](Tree &tree) {
        tree.header()->setStretchLastSection(false);
        tree.header()->resizeSection(0, 2000);
        QCoreApplication::processEvents();
        tree.horizontalScrollBar()->setValue(900);
    });
}

void TreeHoverTest::followsThePointer()
{
    QFETCH(std::function<void(Tree &)>, setUp);
    Tree tree;
    setUp(tree);
    tree.showAndSettle();
    for (const int row : {1, 2, 0}) {
        tree.movePointerTo(row);
        QTRY_COMPARE(tree.hoveredRows(), QList<int>({row}));
    }
    Tree::movePointerAway();
    QTRY_COMPARE(tree.hoveredRows(), QList<int>());
}

void TreeHoverTest::followsThePointerBelowAHeader()
{
    Tree tree;
    tree.setHeaderHidden(false);
    tree.showAndSettle();
    // Deliberate: the pointer's position is relative to the tree, so the highlight is lower by the
    // header.
    tree.movePointerTo(1);
    QTRY_COMPARE(tree.hoveredRows(), QList<int>({1}));
    QCursor::setPos(tree.header()->mapToGlobal(QPoint(20, 5)));
    QTRY_COMPARE(tree.hoveredRows(), QList<int>({0}));
    Tree::movePointerAway();
    QTRY_COMPARE(tree.hoveredRows(), QList<int>());
}

void TreeHoverTest::followsThePointerPixelByPixel()
{
    Tree tree;
    tree.showAndSettle();
    // Deliberate: the highlight is one pixel lower than the row.
    const int border = tree.rect(2).top();
    for (const int y : {border - 1, border, border + 1, border + 2, border + 1, border}) {
        QCursor::setPos(tree.mapToGlobal(QPoint(20, y)));
        QTRY_COMPARE(tree.hoveredRows(), QList<int>({y > border ? 2 : 1}));
    }
}

void TreeHoverTest::followsAPointerThatIsAheadOfItsEvents()
{
    Tree tree;
    tree.showAndSettle();
    tree.movePointerTo(1);
    QTRY_COMPARE(tree.hoveredRows(), QList<int>({1}));
    tree.movePointerTo(2);
    tree.viewport()->repaint();
    tree.movePointerTo(3);
    QTRY_COMPARE(tree.hoveredRows(), QList<int>({3}));
}

void TreeHoverTest::repaintsTheRowsConcernedOnly_data()
{
    QTest::addColumn<QString>("style");
    QTest::newRow("palette") << QString();
    QTest::newRow("style sheet") << "QTreeWidget { border: 1px solid red; background: black; }";
}

void TreeHoverTest::repaintsTheRowsConcernedOnly()
{
    QFETCH(QString, style);
    Tree tree;
    tree.setStyleSheet(style);
    tree.showAndSettle();
    // The pen extends half a pixel into the rows above and below.
    const auto strip = [&](int row) { return tree.rect(row).adjusted(0, -1, 0, 1); };
    PaintedRegion painted(tree.viewport());
    tree.movePointerTo(1);
    QTRY_COMPARE(tree.hoveredRows(), QList<int>({1}));
    QVERIFY(painted.take().subtracted(strip(1)).isEmpty());
    tree.movePointerTo(3);
    QTRY_COMPARE(tree.hoveredRows(), QList<int>({3}));
    QVERIFY(painted.take().subtracted(QRegion(strip(1)) + strip(3)).isEmpty());
    Tree::movePointerAway();
    QTRY_COMPARE(tree.hoveredRows(), QList<int>());
    QVERIFY(painted.take().subtracted(strip(3)).isEmpty());
}

void TreeHoverTest::paintsNothingWhileThePointerStaysInARow()
{
    Tree tree;
    tree.showAndSettle();
    tree.movePointerTo(1);
    QTRY_COMPARE(tree.hoveredRows(), QList<int>({1}));
    const PaintedRegion painted(tree.viewport());
    for (const int x : {20, 40, 60}) {
        QCursor::setPos(tree.mapToGlobal(QPoint(x, tree.rect(1).center().y())));
        QTRY_COMPARE(QCursor::pos(), tree.mapToGlobal(QPoint(x, tree.rect(1).center().y())));
        QCoreApplication::processEvents();
    }
    QCOMPARE(painted.events(), 0);
}

void TreeHoverTest::looksLikeAFullPaint()
{
    Tree tree;
    tree.showAndSettle();
    for (const int row : {1, 2}) {
        tree.movePointerTo(row);
        QTRY_COMPARE(tree.hoveredRows(), QList<int>({row}));
    }
    QCOMPARE(tree.screenshot(), tree.fullPaint());
}

void TreeHoverTest::followsThePointerAfterAnotherStyle()
{
    Tree tree;
    tree.setStyleSheet(QStringLiteral("QTreeWidget:hover { border: 1px solid black; }"
                                      "QTreeWidget::item:hover { color: green; }"));
    tree.showAndSettle();
    tree.setStyleSheet(QString());
    for (const int row : {1, 2}) {
        tree.movePointerTo(row);
        QTRY_COMPARE(tree.hoveredRows(), QList<int>({row}));
    }
}

void TreeHoverTest::leavesTheFrameItsOwnHoverLook()
{
    Tree tree;
    tree.setStyleSheet(QStringLiteral("QTreeWidget { border: 4px solid black; background: black; }"
                                      "QTreeWidget:hover { border-color: blue; }"));
    tree.showAndSettle();
    const auto frame = [&] {
        return tree.screen()->grabWindow(tree.winId(), 1, 1, 1, 1).toImage().pixelColor(0, 0);
    };
    QTRY_COMPARE(frame(), kGround);
    tree.movePointerTo(1);
    QTRY_COMPARE(frame(), QColor(Qt::blue));
}

void TreeHoverTest::keepsItsShapeWhenScrolledSideways()
{
    Tree tree;
    tree.header()->setStretchLastSection(false);
    tree.header()->resizeSection(0, 2000);
    tree.topLevelItem(1)->setSelected(true);
    tree.showAndSettle();
    tree.horizontalScrollBar()->setValue(70);
    QTRY_COMPARE(tree.screenshot(), tree.fullPaint());
}

void TreeHoverTest::losesThePointerToAMenu_data()
{
    QTest::addColumn<bool>("hasSubmenu");
    QTest::newRow("menu") << false;
    QTest::newRow("submenu") << true;
}

void TreeHoverTest::losesThePointerToAMenu()
{
    QFETCH(const bool, hasSubmenu);
    Tree tree;
    tree.showAndSettle();
    tree.movePointerTo(1);
    QTRY_COMPARE(tree.hoveredRows(), QList<int>({1}));
    QMenu menu;
    QMenu *submenu = menu.addMenu("Sort");
    submenu->addAction("By name");
    menu.popup(QCursor::pos());
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
    if (hasSubmenu) {
        QTest::keyClick(&menu, Qt::Key_Down);
        QTest::keyClick(&menu, Qt::Key_Right);
        QVERIFY(QTest::qWaitForWindowExposed(submenu));
    }
    if (QGuiApplication::platformName() == "offscreen") {
        // As on Windows; the platform itself sends no event then.
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(&tree, &leave);
    }
    submenu->close();
    Tree::movePointerAway();
    QTRY_COMPARE(QCursor::pos(), QPoint(10, 10));
    QCoreApplication::processEvents();
    menu.close();
    QTRY_COMPARE(tree.hoveredRows(), QList<int>());
}

VEMO_TEST_MAIN(TreeHoverTest)
#include "tst_treehover.moc"
