// SPDX-License-Identifier: MIT
// What is disabled has the palette's colours for that in all of its parts.
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/defaulttheme.h>
#include <vemo/stylemanager.h>
#include <vemo/vemocalanderview.h>
#include <vemo/vemotablewidget.h>
#include <vemo/vemotreewidget.h>

#include <QHeaderView>
#include <QTableWidget>
#include <QToolButton>

#include <functional>

namespace {

constexpr int kRounding = 3; // of 255, where colours are mixed
constexpr int kMaxTint =
    40; // of 255: above that of every grey of the palette, below that of accent

using NewWidget = std::function<QWidget *()>;

QWidget *newCalendar(const QDate &chosen)
{
    auto *view = new VemoCalanderView(nullptr);
    view->setStyleSheet(getStyleSheet("component.date_selector"));
    view->setSelectedDate(chosen);
    return view;
}

void sortBy(QHeaderView *header, int column)
{
    header->setSectionsClickable(true);
    header->setSortIndicatorShown(true);
    header->setSortIndicator(column, Qt::DescendingOrder);
}

QWidget *newTable()
{
    VemoTableColumnsInfo columns;
    columns.addColumn("Name", 100, false, 0);
    auto *widget = new VemoTableWidget(columns, nullptr);
    widget->getTable()->setRowCount(1);
    widget->getTable()->setItem(0, 0, new QTableWidgetItem("Report"));
    widget->getTable()->selectRow(0);
    sortBy(widget->getHeader(), 0);
    return widget;
}

template <typename Tree> QWidget *newTree()
{
    auto *tree = new Tree;
    tree->setHeaderLabels({"Name"});
    tree->addTopLevelItem(new QTreeWidgetItem({"Report"}));
    sortBy(tree->header(), 0);
    return tree;
}

QWidget *newStyledTree()
{
    auto *tree = static_cast<VemoTreeWidget *>(newTree<VemoTreeWidget>());
    tree->setBackgroundColor(defaultThemeColor("hover"), defaultThemeColor("hover"));
    tree->setStyleSheet(getStyleSheet("component.tree") + getStyleSheet("component.table_header"));
    return tree;
}

QImage pictureOf(QWidget *widget, const QRect &part = {{0, 0}, QSize(-1, -1)})
{
    return widget->grab(part).toImage().convertToFormat(QImage::Format_RGB32);
}

int tintOf(QRgb colour)
{
    return qBlue(colour) - qRed(colour);
}

QRgb darkestIn(const QImage &picture)
{
    QRgb darkest = qRgb(255, 255, 255);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (qGray(picture.pixel(x, y)) < qGray(darkest))
                darkest = picture.pixel(x, y);
        }
    }
    return darkest;
}

int largestTintIn(const QImage &picture)
{
    int largest = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            largest = qMax(largest, tintOf(picture.pixel(x, y)));
    }
    return largest;
}

int faintGrey()
{
    return qGray(defaultThemeColor("faint-ink").rgb());
}

} // namespace

Q_DECLARE_METATYPE(NewWidget)

class DisabledLookTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void noPartLooksEnabled_data();
    void noPartLooksEnabled();
    void anArrowIsDrawnInFaintInk_data();
    void anArrowIsDrawnInFaintInk();
    void aSelectedDayOfAHostsStyleIsPaler();
};

void DisabledLookTest::initTestCase()
{
    startDefaultTheme();
    applyDefaultThemeStyle(*qApp);
}

void DisabledLookTest::noPartLooksEnabled_data()
{
    QTest::addColumn<NewWidget>("make");
    const auto add = [](const char *name, const NewWidget &make) { QTest::newRow(name) << make; };
    add("calendar", [] { return newCalendar(QDate::currentDate().addDays(1)); });
    add("calendar, today selected", [] { return newCalendar(QDate::currentDate()); });
    add("VemoTableWidget", newTable);
    add("VemoTreeWidget", newStyledTree);
    add("QTreeWidget", newTree<QTreeWidget>);
}

void DisabledLookTest::noPartLooksEnabled()
{
    QFETCH(const NewWidget, make);
    const QScopedPointer<QWidget> widget(make());
    widget->show();
    QVERIFY(QTest::qWaitForWindowExposed(widget.data()));
    QVERIFY(qGray(darkestIn(pictureOf(widget.data()))) < faintGrey() - 2 * kRounding);
    widget->setEnabled(false);
    const QImage disabled = pictureOf(widget.data());
    const QRgb darkest = darkestIn(disabled);
    QVERIFY2(qGray(darkest) >= faintGrey() - kRounding, qPrintable(QColor(darkest).name()));
    QVERIFY(largestTintIn(disabled) <= kMaxTint);
}

void DisabledLookTest::anArrowIsDrawnInFaintInk_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    addRow("from left to right", Qt::LeftToRight);
    addRow("from right to left", Qt::RightToLeft);
}

// Qt would make a neutral grey of the picture.
void DisabledLookTest::anArrowIsDrawnInFaintInk()
{
    QFETCH(const Qt::LayoutDirection, direction);
    const QScopedPointer<QWidget> calendar(newCalendar(QDate::currentDate()));
    calendar->setLayoutDirection(direction);
    calendar->setEnabled(false);
    calendar->show();
    QVERIFY(QTest::qWaitForWindowExposed(calendar.data()));
    const int wanted = tintOf(defaultThemeColor("faint-ink").rgb());
    for (const char *name : {"qt_calendar_prevmonth", "qt_calendar_nextmonth"}) {
        const auto *arrow = calendar->findChild<QToolButton *>(name);
        const QRect place(arrow->mapTo(calendar.data(), QPoint()), arrow->size());
        const QRgb ink = darkestIn(pictureOf(calendar.data(), place));
        QVERIFY2(tintOf(ink) > wanted / 2, qPrintable(QColor(ink).name()));
    }
}

void DisabledLookTest::aSelectedDayOfAHostsStyleIsPaler()
{
    const QDate chosen(2024, 3, 13);
    const QScopedPointer<QWidget> calendar(newCalendar(chosen));
    calendar->setStyleSheet("QTableView { selection-background-color: black; }");
    calendar->setEnabled(false);
    calendar->show();
    QVERIFY(QTest::qWaitForWindowExposed(calendar.data()));
    auto *grid = calendar->findChild<QTableView *>("qt_calendar_calendarview");
    QVERIFY(qGray(darkestIn(pictureOf(grid))) > 100);
}

VEMO_TEST_MAIN(DisabledLookTest)
#include "tst_disabledlook.moc"
