// SPDX-License-Identifier: MIT
// The last events that an event filter receives, FocusOut or Hide, come from a widget
// that is already partly destroyed. A sanitizer reports filters that use it as if it were complete.
#include "datetime/calendar.h"
#include "support/activewindow.h"
#include "support/testhost.h"

#include <vemo/defaulttheme.h>
#include <vemo/itemdelegate.h>
#include <vemo/vemocombobox.h>
#include <vemo/vemodaterangeselector.h>
#include <vemo/vemodateselector.h>
#include <vemo/vemofilterbar.h>
#include <vemo/vemoiconbutton.h>
#include <vemo/vemoinputsheet.h>
#include <vemo/vemolineedit.h>
#include <vemo/vemomask.h>
#include <vemo/vemomessagesheet.h>
#include <vemo/vemosheet.h>
#include <vemo/vemosidebar.h>
#include <vemo/vemotimecombobox.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolBox>
#include <QTreeWidget>

namespace {

using Maker = QWidget *(*)(QWidget *window);

/// A calendar of its own in the window; the part of that name is the one that a filter watches.
template <const char *name> QWidget *calendarPart(QWidget *window)
{
    auto *view = new VemoCalanderView(window);
    return view->findChild<QWidget *>(name);
}

constexpr char kPrevious[] = "qt_calendar_prevmonth";
constexpr char kNext[] = "qt_calendar_nextmonth";
constexpr char kBar[] = "qt_calendar_navigationbar";
constexpr char kYear[] = "qt_calendar_yearbutton";
constexpr char kYearEdit[] = "qt_calendar_yearedit";
constexpr char kGrid[] = "qt_calendar_calendarview";
constexpr char kToday[] = "qt_calendar_today_button";

QWidget *days(QWidget *window)
{
    return (new VemoCalanderView(window))->findChild<QTableView *>(kGrid)->viewport();
}

template <typename Box> Box *openedBox(QWidget *window)
{
    auto *box = new Box(window);
    window->show();
    box->addItem("09:00");
    box->showPopup();
    return box;
}

QWidget *openCalendar(QWidget *window)
{
    return openedBox<VemoDateSelector>(window)->view();
}

QWidget *openCalendarOfARange(QWidget *window)
{
    auto *range = new VemoDateRangeSelector(window);
    window->show();
    range->setClearable(true);
    range->setTypingEnabled(true);
    range->endField()->showPopup();
    return range->endField()->view();
}

QWidget *arrowOfAnOpenCalendar(QWidget *window)
{
    return Parts(openCalendar(window)).next;
}

template <typename Box> QWidget *openList(QWidget *window)
{
    return openedBox<Box>(window)->view()->parentWidget();
}

QWidget *timeBox(QWidget *window)
{
    auto *box = new VemoTimeComboBox(window);
    box->setEditable(true);
    return box;
}

QWidget *editOfATimeBox(QWidget *window)
{
    return static_cast<VemoTimeComboBox *>(timeBox(window))->lineEdit();
}

QWidget *lineEdit(QWidget *window)
{
    return (new VemoLineEdit(window))->getLineEdit();
}

QWidget *filterField(QWidget *window)
{
    return new VemoFilterBar(window);
}

QWidget *sideBar(QWidget *window)
{
    auto *bar = new VemoSideBar(window);
    bar->addPage("General");
    bar->setToolTip("<b>Pages</b>");
    return bar;
}

QWidget *listOfASideBar(QWidget *window)
{
    return sideBar(window)->focusProxy();
}

QWidget *editorInATree(QWidget *window)
{
    auto *tree = new QTreeWidget(window);
    auto *delegate = new ItemDelegate;
    delegate->setParent(tree);
    tree->setItemDelegate(delegate);
    auto *item = new QTreeWidgetItem(tree, {"name"});
    item->setFlags(item->flags() | Qt::ItemIsEditable);
    window->show();
    tree->editItem(item);
    return tree->findChild<QLineEdit *>();
}

QWidget *sheetOverAMask(QWidget *window)
{
    auto *sheet = new VemoSheet(window);
    VemoMask::createMask(sheet, window, QColor(0, 0, 0, 20));
    window->show();
    sheet->show();
    return sheet;
}

/// The part of a message sheet of the class Part; its filters are the sheet's and its companion's.
template <typename Part> QWidget *messageSheetPart(QWidget *window)
{
    auto *sheet = new VemoMessageSheet(VemoMessageSheet::ConfirmReset, "Delete it?", window);
    VemoMask::createMask(sheet, window, QColor(0, 0, 0, 20));
    return sheet->findChild<Part *>();
}

QWidget *inputSheetField(QWidget *window)
{
    auto *sheet = new VemoInputSheet("A name", window);
    VemoMask::createMask(sheet, window, QColor(0, 0, 0, 20));
    return sheet->findChild<QLineEdit *>();
}

QWidget *siblingUnderAMask(QWidget *window)
{
    auto *sibling = new QPushButton("OK", window);
    VemoMask::createMask(new VemoSheet(window), window, QColor(0, 0, 0, 20));
    return sibling;
}

QWidget *iconButtonWithToolTip(QWidget *window)
{
    auto *button = new VemoIconButton("bt_pagebar_next");
    button->setParent(window);
    button->setToolTip("Next <b>page</b>");
    return button;
}

/// The parts that the style of stock widgets draws itself from right to left.
QWidget *stockGroup(QWidget *window)
{
    window->setLayoutDirection(Qt::RightToLeft);
    auto *group = new QGroupBox("Group", window);
    group->setCheckable(true);
    return group;
}

QWidget *stockTab(QWidget *window)
{
    window->setLayoutDirection(Qt::RightToLeft);
    auto *box = new QToolBox(window);
    box->addItem(new QLabel("text"), "Tab");
    return box->findChild<QAbstractButton *>();
}

/// Watched by the style itself.
QWidget *stockComboBox(QWidget *window)
{
    return new QComboBox(window);
}

/// The child of the window that a widget lies in.
QWidget *childOf(const QWidget *window, QWidget *widget)
{
    while (widget->parentWidget() != window)
        widget = widget->parentWidget();
    return widget;
}

} // namespace

Q_DECLARE_METATYPE(Maker)

class FilterLifetimesTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        startDefaultTheme();
        applyDefaultThemeStyle(*qApp);
    }
    void aWatchedWidgetMayDieWithTheFocus_data();
    void aWatchedWidgetMayDieWithTheFocus();
};

void FilterLifetimesTest::aWatchedWidgetMayDieWithTheFocus_data()
{
    QTest::addColumn<Maker>("make");
    QTest::addColumn<bool>("diesWithItsWindow");
    const QVector<QPair<const char *, Maker>> makers {
        {"calendar, previous month", calendarPart<kPrevious>},
        {"calendar, next month", calendarPart<kNext>},
        {"calendar, navigation bar", calendarPart<kBar>},
        {"calendar, year", calendarPart<kYear>},
        {"calendar, year field", calendarPart<kYearEdit>},
        {"calendar, grid", calendarPart<kGrid>},
        {"calendar, days", days},
        {"calendar, today", calendarPart<kToday>},
        {"date field, open", openCalendar},
        {"date field, arrow", arrowOfAnOpenCalendar},
        {"date field, pop-up", openList<VemoDateSelector>},
        {"range of dates, open", openCalendarOfARange},
        {"combo box, list", openList<VemoComboBox>},
        {"time box", timeBox},
        {"time box, edit", editOfATimeBox},
        {"time box, list", openList<VemoTimeComboBox>},
        {"line edit", lineEdit},
        {"filter bar", filterField},
        {"side bar", sideBar},
        {"side bar, list", listOfASideBar},
        {"tree, editor", editorInATree},
        {"sheet over a mask", sheetOverAMask},
        {"message sheet, button", messageSheetPart<QPushButton>},
        {"message sheet, button box", messageSheetPart<QDialogButtonBox>},
        {"message sheet, text", messageSheetPart<QLabel>},
        {"input sheet, field", inputSheetField},
        {"sibling under a mask", siblingUnderAMask},
        {"icon button with a tool tip", iconButtonWithToolTip},
        {"stock group box", stockGroup},
        {"stock tool box, tab", stockTab},
        {"stock combo box", stockComboBox},
    };
    for (const auto &maker : makers) {
        QTest::addRow("%s", maker.first) << maker.second << false;
        QTest::addRow("%s, with its window", maker.first) << maker.second << true;
    }
}

void FilterLifetimesTest::aWatchedWidgetMayDieWithTheFocus()
{
    QFETCH(Maker, make);
    QFETCH(bool, diesWithItsWindow);
    QPointer<QWidget> window(new QWidget);
    window->resize(400, 400);
    const QPointer<QWidget> watched(make(window));
    QVERIFY(watched);
    QVERIFY(showActive(window));
    watched->show();
    watched->setFocus();
    delete (diesWithItsWindow ? window.data() : childOf(window, watched));
    QVERIFY(!watched);
    QCoreApplication::processEvents();
    delete window;
}

VEMO_TEST_MAIN(FilterLifetimesTest)
#include "tst_filterlifetimes.moc"
