// SPDX-License-Identifier: MIT
// A calendar with a large font shows every day: it grows or, if it cannot, the numbers get smaller.
#include "core/scaling_p.h"
#include "datetime/calendar.h"
#include "support/applicationfont.h"
#include "support/testhost.h"

#include <vemo/stylemanager.h>
#include <vemo/vemodateselector.h>

#include <QSet>
#include <QToolButton>
#include <QVBoxLayout>

namespace {

/// The bounding rectangle of the number in a cell, in the grid's viewport.
QRect inkOf(const Parts &parts, int day)
{
    const QPixmap picture = parts.grid->viewport()->grab();
    const QImage image = picture.toImage();
    const qreal ratio = picture.devicePixelRatio();
    const QRect cell(parts.cell(day).topLeft() * ratio, parts.cell(day).size() * ratio);
    QRect ink;
    for (int y = cell.top(); y <= cell.bottom(); ++y) {
        for (int x = cell.left(); x <= cell.right(); ++x) {
            if (qGray(image.pixel(x, y)) < 128)
                ink |= QRect(x, y, 1, 1);
        }
    }
    return ink.translated(-cell.topLeft());
}

/// Whether a button of the navigation bar has the size of its size hint and is inside the bar.
bool showsAllOf(const QToolButton *button)
{
    return button->width() >= button->sizeHint().width()
        && button->parentWidget()->rect().contains(button->geometry());
}

} // namespace

class LargeFontsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void aFieldsCalendarShowsEveryDay_data();
    void aFieldsCalendarShowsEveryDay();
    void aCalendarGrowsWithItsFont_data() { aFieldsCalendarShowsEveryDay_data(); }
    void aCalendarGrowsWithItsFont();
    void aFieldsCalendarShowsEveryMonth_data() { aFieldsCalendarShowsEveryDay_data(); }
    void aFieldsCalendarShowsEveryMonth();
    void theHeadingHasOneSizeInEveryMonth();
};

/// Verifies that every day of the page is in the grid, below its letter.
#define VERIFY_DAYS(parts)                                                                         \
    do {                                                                                           \
        const QRect grid = (parts).grid->viewport()->rect();                                       \
        for (int row = 0; row < 6; ++row) {                                                        \
            for (int column = 0; column < 7; ++column) {                                           \
                const QModelIndex day = (parts).grid->model()->index(row, column);                 \
                const QRect cell = (parts).grid->visualRect(day);                                  \
                QVERIFY(grid.contains(cell) && !cell.isEmpty());                                   \
                QCOMPARE((parts).weekdays->columnAt(cell.center().x()), column);                   \
            }                                                                                      \
        }                                                                                          \
    } while (false)

void LargeFontsTest::aFieldsCalendarShowsEveryDay_data()
{
    QTest::addColumn<int>("points");
    for (const int points : {9, 14, 20, 28})
        QTest::addRow("%d pt", points) << points;
}

void LargeFontsTest::aFieldsCalendarShowsEveryDay()
{
    QFETCH(int, points);
    const ApplicationFont font(points);
    VemoDateSelector field("Any date", nullptr);
    field.show();
    field.showPopup();
    field.getCalendarView()->setCurrentPage(2024, 3);
    QVERIFY(QTest::qWaitForWindowExposed(field.view()->window()));
    const Parts parts(field.view());
    QCOMPARE(field.view()->size(), QSize(scaled(280), scaled(260)));
    VERIFY_DAYS(parts);
    // The number is in its cell, with space for a focus ring around it.
    const qreal ratio = parts.grid->devicePixelRatioF();
    const QRect inside = QRect({0, 0}, parts.cell(28).size() * ratio).adjusted(2, 2, -2, -2);
    QVERIFY(!inkOf(parts, 28).isEmpty());
    QVERIFY(inside.contains(inkOf(parts, 28)));
    field.hidePopup();
}

void LargeFontsTest::aCalendarGrowsWithItsFont()
{
    QFETCH(int, points);
    const ApplicationFont font(points);
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    auto *view = new VemoCalanderView(nullptr);
    view->setStyleSheet(getStyleSheet("component.date_selector"));
    layout->addWidget(view);
    view->setCurrentPage(2024, 3);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.resize(window.minimumSizeHint());
    QCoreApplication::processEvents();
    const Parts parts(view);
    VERIFY_DAYS(parts);
    const QSize number = parts.grid->fontMetrics().size(Qt::TextSingleLine, "28");
    QVERIFY(parts.cell(28).width() >= number.width());
    QVERIFY(parts.cell(28).height() + 1 >= number.height());
    QVERIFY(parts.month->width() >= parts.month->minimumSizeHint().width());
}

void LargeFontsTest::aFieldsCalendarShowsEveryMonth()
{
    QFETCH(int, points);
    const ApplicationFont font(points);
    VemoDateSelector field("Any date", nullptr);
    field.show();
    field.showPopup();
    QVERIFY(QTest::qWaitForWindowExposed(field.view()->window()));
    const Parts parts(field.view());
    for (int month = 1; month <= 12; ++month) {
        field.getCalendarView()->setCurrentPage(2028, month);
        QCoreApplication::processEvents();
        for (const QToolButton *button : {parts.previous, parts.month, parts.year, parts.next})
            QVERIFY2(showsAllOf(button), qPrintable(parts.month->text()));
    }
    QCOMPARE(parts.month->font().pixelSize(), parts.year->font().pixelSize());
    field.hidePopup();
}

void LargeFontsTest::theHeadingHasOneSizeInEveryMonth()
{
    const ApplicationFont font(20);
    VemoDateSelector field("Any date", nullptr);
    field.show();
    field.showPopup();
    QVERIFY(QTest::qWaitForWindowExposed(field.view()->window()));
    const Parts parts(field.view());
    QSet<int> sizes;
    for (int month = 1; month <= 12; ++month) {
        field.getCalendarView()->setCurrentPage(2028, month);
        QCoreApplication::processEvents();
        sizes += QFontInfo(parts.month->font()).pixelSize();
    }
    QCOMPARE(sizes.size(), 1);
    field.hidePopup();
}

VEMO_TEST_MAIN(LargeFontsTest)
#include "tst_largefonts.moc"
