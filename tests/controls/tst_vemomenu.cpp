// SPDX-License-Identifier: MIT
#include <vemo/vemomenu.h>

#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/stylemanager.h>

#include <QScreen>
#include <QWindow>

class VemoMenuTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void isAMenuClassOfItsOwnWithoutStyle();
    void placesItselfInTheAvailableArea_data();
    void placesItselfInTheAvailableArea();
    void jumpsToZeroEvenWhereTheAreaStartsFurtherRight();
    void goesByThePrimaryScreenOnAnother_data();
    void goesByThePrimaryScreenOnAnother();
    void placesItselfAtEachShow();
    void popupIsInsideToo();
    void menuWithMoreEntriesThanTheScreenHoldsScrolls();
    void triggersActionsByMouse();
};

namespace {

QRect area()
{
    return QGuiApplication::primaryScreen()->availableGeometry();
}

/// The expected position along one axis.
int expected(int position, int length, int first, int last)
{
    int result = position < first ? 0 : position;
    if (position + length > last)
        result = result - (position + length) + last;
    return result;
}

class Menu : public VemoMenu
{
public:
    using VemoMenu::VemoMenu;

    /// Shows the menu at a position, hides it again and returns its actual position.
    QPoint shownAt(const QPoint &position)
    {
        move(position);
        show();
        // The offscreen platform offsets windows by a frame that does not exist.
        const bool isOffscreen = QGuiApplication::platformName() == "offscreen";
        const QPoint result = isOffscreen ? m_placed : pos();
        hide();
        return result;
    }

protected:
    void showEvent(QShowEvent *event) override
    {
        VemoMenu::showEvent(event);
        m_placed = pos();
    }

private:
    QPoint m_placed;
};

constexpr int kInside = 100;

} // namespace

void VemoMenuTest::isAMenuClassOfItsOwnWithoutStyle()
{
    QWidget parent;
    const VemoMenu menu(&parent);
    QCOMPARE(menu.metaObject()->className(), "VemoMenu");
    QCOMPARE(menu.parentWidget(), &parent);
    QCOMPARE(menu.styleSheet(), QString());
}

void VemoMenuTest::placesItselfInTheAvailableArea_data()
{
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QPoint>("result");
    const QRect a = area();
    const QSize small(120, 80);
    const int right = a.right() - small.width();
    const int bottom = a.bottom() - small.height();
    addRow("inside", QPoint(kInside, kInside), small, QPoint(kInside, kInside));
    addRow("left of it", QPoint(a.left() - 5, kInside), small, QPoint(0, kInside));
    addRow("far left of it", QPoint(-5000, kInside), small, QPoint(0, kInside));
    addRow("above it", QPoint(kInside, a.top() - 5), small, QPoint(kInside, 0));
    addRow("ends at the inclusive edge", QPoint(right, bottom), small, QPoint(right, bottom));
    addRow("one beyond the right", QPoint(right + 1, kInside), small, QPoint(right, kInside));
    addRow("one beyond the bottom", QPoint(kInside, bottom + 1), small, QPoint(kInside, bottom));
    addRow("right of it", QPoint(a.right() + 40, kInside), small, QPoint(right, kInside));
    addRow("below it", QPoint(kInside, a.bottom() + 40), small, QPoint(kInside, bottom));
    addRow("beyond the corner", QPoint(5000, 5000), small, QPoint(right, bottom));
    const QSize tall(120, a.height() + 50);
    addRow("taller than it, from its inside", QPoint(kInside, kInside), tall,
        QPoint(kInside, a.bottom() - tall.height()));
    addRow("taller than it, below it", QPoint(kInside, a.bottom() + 9), tall,
        QPoint(kInside, a.bottom() - tall.height()));
    const QSize wide(a.right() + 60, 80);
    addRow("wider than it, from its inside", QPoint(kInside, kInside), wide,
        QPoint(a.right() - wide.width(), kInside));
    addRow("wider than it, from its left: both tests fire", QPoint(-20, kInside), wide,
        QPoint(a.right() - (-20 + wide.width()), kInside));
    addRow("larger both ways, from its corner", QPoint(-20, -30),
        QSize(wide.width(), tall.height() + a.top()),
        QPoint(a.right() + 20 - wide.width(), a.bottom() + 30 - tall.height()));
}

void VemoMenuTest::placesItselfInTheAvailableArea()
{
    QFETCH(QPoint, position);
    QFETCH(QSize, size);
    QFETCH(QPoint, result);
    Menu menu;
    menu.setFixedSize(size);
    QCOMPARE(result,
        QPoint(expected(position.x(), size.width(), area().left(), area().right()),
            expected(position.y(), size.height(), area().top(), area().bottom())));
    QCOMPARE(menu.shownAt(position), result);
}

void VemoMenuTest::jumpsToZeroEvenWhereTheAreaStartsFurtherRight()
{
    if (area().left() == 0)
        QSKIP("Needs a task bar at the left of the screen");
    Menu menu;
    menu.setFixedSize(120, 80);
    QCOMPARE(menu.shownAt({area().left() - 1, kInside}), QPoint(0, kInside));
    QCOMPARE(menu.shownAt({area().left(), kInside}), QPoint(area().left(), kInside));
}

void VemoMenuTest::goesByThePrimaryScreenOnAnother_data()
{
    QTest::addColumn<QPoint>("position");
    QTest::addColumn<QPoint>("result");
    const QRect a = area();
    addRow("inside both", QPoint(kInside, kInside), QPoint(kInside, kInside));
    addRow("beyond the other, inside the primary", QPoint(780, 580), QPoint(780, 580));
    addRow("left of both", QPoint(-30, kInside), QPoint(0, kInside));
    addRow("beyond both", QPoint(5000, 5000), QPoint(a.right() - 120, a.bottom() - 80));
}

void VemoMenuTest::goesByThePrimaryScreenOnAnother()
{
    QFETCH(QPoint, position);
    QFETCH(QPoint, result);
    const QList<QScreen *> screens = QGuiApplication::screens();
    if (screens.size() < 2)
        QSKIP("Needs a second screen");
    Menu menu;
    menu.setFixedSize(120, 80);
    menu.winId();
    menu.windowHandle()->setScreen(screens[1]);
    menu.move(position);
    menu.show();
    QCOMPARE(menu.windowHandle()->screen(), screens[1]);
    QCOMPARE(menu.pos(), result);
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
    QCOMPARE(menu.windowHandle()->position(), result);
}

void VemoMenuTest::placesItselfAtEachShow()
{
    Menu menu;
    menu.setFixedSize(120, 80);
    QCOMPARE(menu.shownAt({-50, kInside}), QPoint(0, kInside));
    QCOMPARE(menu.shownAt({kInside, kInside}), QPoint(kInside, kInside));
    QCOMPARE(menu.shownAt({kInside, -50}), QPoint(kInside, 0));
}

void VemoMenuTest::popupIsInsideToo()
{
    VemoMenu menu;
    for (const char *text : {"Open", "Rename", "Delete"})
        menu.addAction(text);
    menu.popup({area().right(), area().bottom()});
    QVERIFY(area().contains(menu.geometry()));
}

void VemoMenuTest::menuWithMoreEntriesThanTheScreenHoldsScrolls()
{
    Menu menu;
    menu.setStyleSheet(getStyleSheet("component.menu"));
    for (int i = 1; i <= 300; ++i)
        menu.addAction(QString("Entry %1").arg(i));
    QVERIFY(menu.sizeHint().height() >= area().height());
    QSignalSpy last(menu.actions().last(), SIGNAL(triggered()));
    menu.popup({kInside, area().bottom() - 10});
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
    QVERIFY(menu.height() <= area().height());
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Up, Qt::Key_Down}) // The first does not scroll.
        QTest::keyClick(&menu, key);
    QCOMPARE(menu.activeAction(), menu.actions().last());
    QVERIFY(menu.rect().intersects(menu.actionGeometry(menu.activeAction())));
    QTest::keyClick(&menu, Qt::Key_Return);
    QCOMPARE(last.count(), 1);
}

void VemoMenuTest::triggersActionsByMouse()
{
    VemoMenu menu;
    QAction *open = menu.addAction("Open");
    QAction *rename = menu.addAction("Rename");
    QSignalSpy opened(open, SIGNAL(triggered()));
    QSignalSpy renamed(rename, SIGNAL(triggered()));
    menu.popup({kInside, kInside});
    QVERIFY(QTest::qWaitForWindowExposed(&menu));
    QTest::mouseClick(&menu, Qt::LeftButton, {}, menu.actionGeometry(rename).center());
    QCOMPARE(renamed.count(), 1);
    QCOMPARE(opened.count(), 0);
    QVERIFY(!menu.isVisible());
}

VEMO_TEST_MAIN(VemoMenuTest)
#include "tst_vemomenu.moc"
