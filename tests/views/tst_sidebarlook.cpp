// SPDX-License-Identifier: MIT
// What a VemoSideBar shows.
#include "views/sidebarwindow.h"

#include "support/focusring.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/defaulttheme.h>

#include <QHelpEvent>
#include <QScreen>
#include <QScrollBar>
#include <QSignalSpy>
#include <QToolTip>

class SideBarLookTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void showsItsFocus();
    void showsEachStateOfARow();
    void rowsAreHighEnough();
    void rowsGrowWithTheFont();
    void widthFollowsTheTexts();
    void scrollsToTheCurrentPage();
    void showsCutTextsInToolTips();
    void collapsesToPictures();
    void badgeIsDrawnAtTheEndOfItsRow_data();
    void badgeIsDrawnAtTheEndOfItsRow();
    void headingBeginsWhereItsPagesDo_data();
    void headingBeginsWhereItsPagesDo();
    void textKeepsItsDistanceFromThePicture_data() { headingBeginsWhereItsPagesDo_data(); }
    void textKeepsItsDistanceFromThePicture();
    void longTextLeavesTheBadgeFree();
    void takesAnotherTheme();
    void takesOtherTexts();
};

namespace {

const char kLongText[] = "A text that is far too long for a side bar, as some languages have them";

/// What the mouse shows at a point.
QString toolTipAt(const SideBarWindow &side, const QPoint &point)
{
    QWidget *view = side.list->viewport();
    QHelpEvent event(QEvent::ToolTip, point, view->mapToGlobal(point));
    QCoreApplication::sendEvent(view, &event);
    const QString text = QToolTip::text();
    QToolTip::hideText(); // after a moment
    return QTest::qWaitFor([] { return !QToolTip::isVisible(); }) ? text : "still visible";
}

QString toolTipOf(const SideBarWindow &side, int page)
{
    return toolTipAt(side, side.page(page).center());
}

/// A point of a heading.
QPoint headingOf(const SideBarWindow &side, int page)
{
    return side.row(page).topLeft() + QPoint(9, 9);
}

/// The name of the colour of a row between its ring and what it shows.
QString groundOf(const SideBarWindow &side, int page)
{
    const QRect rect = side.page(page);
    const QPoint point(rect.center().x(), rect.y() + DPIinfo::scaled(4));
    return pixelAt(side.list->viewport(), point).name();
}

QImage pictureOf(const SideBarWindow &side, const QRect &rect)
{
    return side.list->viewport()->grab(rect).toImage();
}

/// Where two pictures of the same size differ.
QRect difference(const QImage &before, const QImage &after)
{
    QRect rect;
    for (int y = 0; y < after.height(); ++y) {
        for (int x = 0; x < after.width(); ++x) {
            if (before.pixel(x, y) != after.pixel(x, y))
                rect |= QRect(x, y, 1, 1);
        }
    }
    return rect;
}

} // namespace

void SideBarLookTest::showsItsFocus()
{
    const SideBarWindow side;
    QVERIFY(side.activate());
    verifyRings(side.window, 2);
}

void SideBarLookTest::showsEachStateOfARow()
{
    const SideBarWindow side;
    QWidget *view = side.list->viewport();
    const QPoint point = side.page(1).center();
    const auto colour = [](const char *role) { return defaultThemeColor(role).name(); };
    QCOMPARE(groundOf(side, 0), colour("selection"));
    QCOMPARE(groundOf(side, 1), colour("canvas"));
    QTest::mouseMove(view, point);
    QHoverEvent hover(QEvent::HoverMove, point, QPoint(-1, -1));
    QCoreApplication::sendEvent(view, &hover);
    QTRY_COMPARE(groundOf(side, 1), colour("hover"));
    QTest::mousePress(view, Qt::LeftButton, {}, point);
    QCOMPARE(groundOf(side, 1), colour("line"));
    QTest::mouseRelease(view, Qt::LeftButton, {}, point);
    QCOMPARE(groundOf(side, 1), colour("selection"));
    side.bar->setCurrentIndex(4);
    QCOMPARE(groundOf(side, 4), colour("hover"));
}

void SideBarLookTest::rowsAreHighEnough()
{
    const SideBarWindow side;
    for (int page = 0; page < side.bar->count(); ++page)
        QVERIFY2(side.row(page).height() >= DPIinfo::scaled(28), qPrintable(QString::number(page)));
    QVERIFY(side.row(3).height() > side.row(0).height()); // with its heading
}

void SideBarLookTest::rowsGrowWithTheFont()
{
    const SideBarWindow side;
    QFont font = side.bar->font();
    font.setPixelSize(DPIinfo::scaled(40));
    side.bar->setFont(font);
    const int height = QFontMetrics(font).height();
    QTRY_VERIFY(side.row(0).height() >= height);
    QVERIFY(side.row(3).height() >= 2 * height);
}

void SideBarLookTest::widthFollowsTheTexts()
{
    VemoSideBar bar;
    bar.addPage("A");
    QCOMPARE(bar.sizeHint().width(), DPIinfo::scaled(120));
    bar.setPageText(0, kLongText);
    QCOMPARE(bar.sizeHint().width(), DPIinfo::scaled(240));
    bar.setPageText(0, "A text of this width");
    const int plain = bar.sizeHint().width();
    QVERIFY(plain < DPIinfo::scaled(240));
    bar.setPageBadge(0, 12);
    QVERIFY(bar.sizeHint().width() > plain);

    const SideBarWindow side;
    QTRY_COMPARE(side.bar->width(), side.bar->sizeHint().width());
    for (int page = 0; page < side.bar->count(); ++page)
        QCOMPARE(toolTipOf(side, page), QString());
    QCOMPARE(toolTipAt(side, headingOf(side, 3)), QString());
}

void SideBarLookTest::scrollsToTheCurrentPage()
{
    const SideBarWindow side;
    for (int i = 0; i < 40; ++i)
        side.bar->addPage(QString("Page %1").arg(i));
    side.bar->removePage(0);
    side.bar->removePage(0);
    side.bar->removePage(0); // Network is the first one.
    QTRY_VERIFY(side.list->verticalScrollBar()->maximum() > 0);
    QCOMPARE(side.list->horizontalScrollBar()->maximum(), 0);
    side.bar->setCurrentIndex(42);
    QTRY_VERIFY(side.list->viewport()->rect().contains(side.row(42)));
    QTest::keyClick(side.list, Qt::Key_Home);
    QTRY_VERIFY(side.list->viewport()->rect().contains(side.row(0)));
}

void SideBarLookTest::showsCutTextsInToolTips()
{
    const SideBarWindow side;
    side.bar->setPageText(0, QString("<b>") + kLongText);
    side.bar->setGroupText(0, QString("<i>") + kLongText);
    QTRY_COMPARE(side.bar->width(), DPIinfo::scaled(240));
    QVERIFY2(toolTipOf(side, 0).contains("&lt;b&gt;"), qPrintable(toolTipOf(side, 0)));
    QVERIFY(toolTipAt(side, headingOf(side, 3)).contains("&lt;i&gt;"));
    QCOMPARE(toolTipOf(side, 1), QString());
    QCOMPARE(toolTipOf(side, 3), QString());
    QVERIFY(side.row(0).width() <= side.list->viewport()->width());
}

void SideBarLookTest::collapsesToPictures()
{
    const SideBarWindow side;
    QSignalSpy collapsed(side.bar, &VemoSideBar::collapsedChanged);
    const int wide = side.bar->sizeHint().width();
    QTRY_COMPARE(side.bar->width(), wide);
    side.bar->setCollapsed(true);
    side.bar->setCollapsed(true);
    QTRY_COMPARE(side.bar->width(), DPIinfo::scaled(44));
    QTRY_COMPARE(side.row(3).height(), side.row(0).height());
    QVERIFY(toolTipOf(side, 1).contains("Accounts"));
    QCOMPARE(side.entry(1)->text(QAccessible::Name), QString("Accounts"));
    const QImage picture = pictureOf(side, side.row(1));
    side.bar->setPageIcon(1, {});
    const QImage letter = pictureOf(side, side.row(1));
    QVERIFY(letter != picture);
    side.bar->setPageText(1, "Another");
    QCOMPARE(pictureOf(side, side.row(1)), letter); // the first one only
    side.bar->setCollapsed(false);
    QTRY_COMPARE(side.bar->width(), wide);
    QVERIFY(side.row(3).height() > side.row(0).height());
    QCOMPARE(collapsed, (QList<QVariantList> {{true}, {false}}));
}

void SideBarLookTest::badgeIsDrawnAtTheEndOfItsRow_data()
{
    QTest::addColumn<bool>("mirrored");
    QTest::addColumn<bool>("collapsed");
    addRow("left to right", false, false);
    addRow("left to right, collapsed", false, true);
    addRow("right to left", true, false);
    addRow("right to left, collapsed", true, true);
}

void SideBarLookTest::badgeIsDrawnAtTheEndOfItsRow()
{
    QFETCH(bool, mirrored);
    QFETCH(bool, collapsed);
    const SideBarWindow side;
    side.window->setLayoutDirection(mirrored ? Qt::RightToLeft : Qt::LeftToRight);
    side.bar->setCollapsed(collapsed);
    const int width = DPIinfo::scaled(collapsed ? 44 : 200);
    side.bar->setFixedWidth(width);
    QTRY_COMPARE(side.bar->width(), width);
    const QImage before = pictureOf(side, side.list->viewport()->rect());
    side.bar->setPageBadge(1, 7);
    const QImage after = pictureOf(side, side.list->viewport()->rect());
    QCOMPARE(before.size(), after.size());
    const QRect changed = difference(before, after);
    const double ratio = after.devicePixelRatio();
    const QRect row = side.row(1);
    QVERIFY(!changed.isEmpty());
    QVERIFY(changed.top() >= row.top() * ratio && changed.bottom() <= (row.bottom() + 1) * ratio);
    const double middle = (row.left() + row.width() / 2.0) * ratio;
    QVERIFY(mirrored ? changed.right() < middle : changed.left() > middle);
}

void SideBarLookTest::headingBeginsWhereItsPagesDo_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    addRow("left to right", Qt::LeftToRight);
    addRow("right to left", Qt::RightToLeft);
}

void SideBarLookTest::headingBeginsWhereItsPagesDo()
{
    QFETCH(Qt::LayoutDirection, direction);
    const SideBarWindow side;
    side.window->setLayoutDirection(direction);
    side.bar->setFixedWidth(DPIinfo::scaled(200));
    side.bar->setGroupText(0, "A");
    QCoreApplication::processEvents();
    const QRect row = side.row(3);
    const QImage before = pictureOf(side, row);
    side.bar->setGroupText(0, "B");
    const QRect changed = difference(before, pictureOf(side, row));
    QVERIFY(!changed.isEmpty());
    const int middle = before.width() / 2;
    QVERIFY(direction == Qt::LeftToRight ? changed.right() < middle : changed.left() > middle);
}

void SideBarLookTest::textKeepsItsDistanceFromThePicture()
{
    QFETCH(Qt::LayoutDirection, direction);
    const SideBarWindow side;
    side.window->setLayoutDirection(direction);
    side.bar->setFixedWidth(DPIinfo::scaled(200));
    side.bar->insertPage(0, "I");
    QCoreApplication::processEvents();
    const auto start = [&](int page) {
        side.bar->setPageText(page, QString());
        const QImage before = pictureOf(side, side.page(page));
        side.bar->setPageText(page, "I");
        const QRect text = difference(before, pictureOf(side, side.page(page)));
        return direction == Qt::LeftToRight ? text.left() : before.width() - 1 - text.right();
    };
    const int distance = start(1) - start(0); // of a page with a picture and one without
    const qreal ratio = side.list->devicePixelRatioF();
    QCOMPARE(distance / ratio, qreal(side.list->iconSize().width() + DPIinfo::scaled(6)));
}

void SideBarLookTest::longTextLeavesTheBadgeFree()
{
    // An earlier test may have left the pointer where it highlights a row.
    QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
    const SideBarWindow side;
    side.bar->setPageBadge(1, 7);
    side.bar->setPageText(0, kLongText); // The side bar keeps its largest width.
    QTRY_COMPARE(side.bar->width(), DPIinfo::scaled(240));
    QRect end = side.row(1);
    end.setLeft(end.right() - DPIinfo::scaled(24));
    QRect start = side.row(1);
    start.setWidth(start.width() / 2);
    const QImage endBefore = pictureOf(side, end);
    const QImage startBefore = pictureOf(side, start);
    side.bar->setPageText(1, kLongText);
    QCoreApplication::processEvents();
    QCOMPARE(pictureOf(side, end), endBefore);
    QVERIFY(pictureOf(side, start) != startBefore);
}

void SideBarLookTest::takesAnotherTheme()
{
    const SideBarWindow side;
    QRect icon = side.row(1);
    icon.setWidth(DPIinfo::scaled(30));
    const QImage light = pictureOf(side, icon);
    QVERIFY(setDefaultThemeMode(DefaultThemeMode::Dark));
    const QString ground = groundOf(side, 0);
    const QString expected = defaultThemeColor("selection").name();
    const QImage dark = pictureOf(side, icon);
    QVERIFY(setDefaultThemeMode(DefaultThemeMode::Light));
    QCOMPARE(ground, expected);
    QVERIFY(light != dark);
    QCOMPARE(pictureOf(side, icon), light);
}

void SideBarLookTest::takesOtherTexts()
{
    const SideBarWindow side;
    side.bar->setPageText(0, kLongText);
    QTRY_COMPARE(side.bar->width(), DPIinfo::scaled(240));
    QCOMPARE(side.entry(0)->text(QAccessible::Name), QString(kLongText));
    side.bar->setPageText(0, "G");
    QTRY_VERIFY(side.bar->width() < DPIinfo::scaled(240));
    side.bar->setGroupText(0, kLongText);
    QTRY_COMPARE(side.bar->width(), DPIinfo::scaled(240));
    QCOMPARE(side.entry(5)->text(QAccessible::Description), QString(kLongText));
}

VEMO_TEST_MAIN(SideBarLookTest)
#include "tst_sidebarlook.moc"
