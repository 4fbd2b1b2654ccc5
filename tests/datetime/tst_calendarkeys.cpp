// SPDX-License-Identifier: MIT
#include "core/scaling_p.h"
#include "datetime/calendar.h"
#include "support/activewindow.h"
#include "support/testhost.h"

#include <vemo/componentstrings.h>
#include <vemo/vemodateselector.h>

#include <QAccessible>
#include <QDir>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLineEdit>

#include <algorithm>

namespace {

/// A calendar between two fields, in an active window that shows March 2024.
struct Form
{
    Form()
    {
        view = new VemoCalanderView(&window);
        after = new QLineEdit(&window);
        view->setGeometry(0, scaled(40), scaled(280), scaled(260));
        after->move(0, scaled(310));
        view->setCurrentPage(2024, 3);
        parts = Parts(view);
        isActive = showActive(&window);
    }
    void press(Qt::Key key) const { QTest::keyClick(window.windowHandle(), key); }

    QWidget window;
    QLineEdit before {&window};
    VemoCalanderView *view = nullptr;
    QLineEdit *after = nullptr;
    Parts parts {&window};
    bool isActive = false;
};

constexpr int kButtonFrame = 6; // Border and padding, in design pixels.

using Table = QMap<QString, QString>;

Table themeTable(const QString &file)
{
    QFile strings(":/vemo/theme/strings/" + file);
    Table table;
    if (strings.open(QIODevice::ReadOnly)) {
        const QJsonObject object = QJsonDocument::fromJson(strings.readAll()).object();
        for (auto text = object.begin(); text != object.end(); ++text)
            table[text.key()] = text.value().toString();
    }
    return table;
}

QStringList monthKeys()
{
    QStringList keys;
    for (const QString &month : englishMonths())
        keys += "month_" + month.left(3).toLower();
    return keys;
}

QString nameOf(QObject *part)
{
    return QAccessible::queryAccessibleInterface(part)->text(QAccessible::Name);
}

} // namespace

class CalendarKeysTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void cleanup();
    void tabWalksThroughAllParts_data();
    void tabWalksThroughAllParts();
    void tabEntersAndLeavesAmongOtherFields();
    void tabInTheYearFieldGoesOnToTheGrid();
    void tabWithControlWalksOnFromWatchedParts_data();
    void tabWithControlWalksOnFromWatchedParts();
    void takesTabAndNothingElse();
    void tabKeepsTheCurrentDay();
    void otherKeysReachTheParts();
    void everyPartHasAName();
    void theDayWithTheFocusIsAnnounced();
    void theGridReportsTheMonthOfTheDay();
    void takesItsNamesFromTheStrings();
    void showsKeysWhereNamesAreMissing();
    void takesNamesShorterThanThreeCharacters();
    void fitsEveryLanguage_data();
    void fitsEveryLanguage();
};

void CalendarKeysTest::cleanup()
{
    ComponentStrings::getInstance().installStrings(themeTable("enu.json"));
    VemoTest::cleanup();
}

void CalendarKeysTest::tabWalksThroughAllParts_data()
{
    QTest::addColumn<bool>("forwards");
    QTest::newRow("Tab") << true;
    QTest::newRow("Backtab") << false;
}

void CalendarKeysTest::tabWalksThroughAllParts()
{
    QFETCH(bool, forwards);
    VemoCalanderView view(nullptr);
    QVERIFY(showActive(&view));
    const Parts parts(&view);
    QList<QWidget *> ring {
        &view, parts.previous, parts.next, parts.month, parts.year, parts.grid, parts.today};
    if (!forwards)
        std::reverse(ring.begin() + 1, ring.end());
    view.setFocus();
    for (int step = 0; step < 2 * ring.size(); ++step) {
        QCOMPARE(QApplication::focusWidget(), ring[step % ring.size()]);
        QTest::keyClick(view.windowHandle(), forwards ? Qt::Key_Tab : Qt::Key_Backtab);
    }
}

// If the window has other fields, Tab leaves the cycle of the parts after the view itself, which
// comes after the today button.
void CalendarKeysTest::tabEntersAndLeavesAmongOtherFields()
{
    Form form;
    QVERIFY(form.isActive);
    QList<QWidget *> stops {&form.before, form.parts.previous, form.parts.next, form.parts.month,
        form.parts.year, form.parts.grid, form.parts.today, form.view, form.after};
    form.before.setFocus();
    for (QWidget *stop : qAsConst(stops)) {
        QCOMPARE(QApplication::focusWidget(), stop);
        form.press(Qt::Key_Tab);
    }
    std::reverse(stops.begin(), stops.end());
    form.after->setFocus();
    for (QWidget *stop : qAsConst(stops)) {
        QCOMPARE(QApplication::focusWidget(), stop);
        form.press(Qt::Key_Backtab);
    }
}

void CalendarKeysTest::tabInTheYearFieldGoesOnToTheGrid()
{
    const Form form;
    QVERIFY(form.isActive);
    QTest::mouseClick(form.parts.year, Qt::LeftButton);
    QCOMPARE(QApplication::focusWidget(), form.parts.yearEdit);
    form.press(Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), form.parts.grid);
}

// Deliberate: these four parts handle Tab with any modifier. Qt's own only handle it without.
void CalendarKeysTest::tabWithControlWalksOnFromWatchedParts_data()
{
    QTest::addColumn<QString>("part");
    QTest::addColumn<QString>("next");
    QTest::addColumn<QString>("previous");
    const QString grid("qt_calendar_calendarview");
    const QString year("qt_calendar_yearbutton");
    const QString today("qt_calendar_today_button");
    addRow("year", year, grid, "qt_calendar_monthbutton");
    addRow("year field", "qt_calendar_yearedit", grid,
        "qt_calendar_monthbutton"); // Qt hides the button
    addRow("grid", grid, today, year);
    addRow("today", today, QString(), grid);
    addRow("previous month", "qt_calendar_prevmonth", "qt_calendar_prevmonth",
        "qt_calendar_prevmonth");
}

void CalendarKeysTest::tabWithControlWalksOnFromWatchedParts()
{
    QFETCH(QString, part);
    const Form form;
    QVERIFY(form.isActive);
    const QVector<QPair<Qt::Key, const char *>> ways {
        {Qt::Key_Tab, "next"}, {Qt::Key_Backtab, "previous"}};
    for (const auto &way : ways) {
        if (part == form.parts.yearEdit->objectName())
            QTest::mouseClick(form.parts.year, Qt::LeftButton);
        auto *from = form.view->findChild<QWidget *>(part);
        from->setFocus();
        QTest::keyClick(from, way.first, Qt::ControlModifier);
        QTEST(QApplication::focusWidget()->objectName(), way.second);
    }
}

void CalendarKeysTest::takesTabAndNothingElse()
{
    const Form form;
    QVERIFY(form.isActive);
    const auto takes = [&form](QEvent::Type type, Qt::Key key) {
        QKeyEvent event(type, key, Qt::NoModifier);
        return form.view->eventFilter(form.parts.grid, &event);
    };
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
        form.parts.grid->setFocus();
        QVERIFY(takes(QEvent::KeyPress, key));
        form.parts.grid->setFocus();
        QVERIFY(!takes(QEvent::KeyRelease, key));
        QVERIFY(!takes(QEvent::ShortcutOverride, key));
        QVERIFY(form.parts.grid->hasFocus());
    }
    form.parts.year->setFocus();
    form.parts.grid->setCurrentIndex({});
    QVERIFY(takes(QEvent::KeyPress, Qt::Key_Tab));
    QVERIFY(form.parts.grid->hasFocus());
    QVERIFY(!form.parts.grid->currentIndex().isValid());
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Down, Qt::Key_Escape, Qt::Key_A})
        QVERIFY(!takes(QEvent::KeyPress, key));
}

void CalendarKeysTest::tabKeepsTheCurrentDay()
{
    const Form form;
    QVERIFY(form.isActive);
    form.parts.calendar->setSelectedDate({2024, 3, 7});
    const QModelIndex day = form.parts.grid->currentIndex();
    QVERIFY(day.isValid());
    form.parts.year->setFocus();
    const QSignalSpy changes(
        form.parts.grid->selectionModel(), SIGNAL(currentChanged(QModelIndex, QModelIndex)));
    form.press(Qt::Key_Tab);
    QCOMPARE(QApplication::focusWidget(), form.parts.grid);
    QCOMPARE(form.parts.grid->currentIndex(), day);
    QCOMPARE(form.parts.calendar->selectedDate(), QDate(2024, 3, 7));
    // Changed and changed back, so that the focus frame is painted.
    QCOMPARE(changes.size(), 2);
    form.press(Qt::Key_Tab);
    QCOMPARE(changes.size(), 2);
}

void CalendarKeysTest::otherKeysReachTheParts()
{
    const Form form;
    QVERIFY(form.isActive);
    form.parts.calendar->setSelectedDate({2024, 3, 7});
    form.parts.grid->setFocus();
    form.press(Qt::Key_Down);
    QCOMPARE(form.parts.calendar->selectedDate(), QDate(2024, 3, 14));
    form.press(Qt::Key_PageDown);
    QCOMPARE(form.parts.calendar->selectedDate(), QDate(2024, 4, 14));
    QCOMPARE(form.parts.month->text(), QString("April"));
    form.parts.next->setFocus();
    form.press(Qt::Key_Space);
    QCOMPARE(form.parts.month->text(), QString("May"));
}

void CalendarKeysTest::everyPartHasAName()
{
    const Form form;
    QCOMPARE(nameOf(form.view), QString("Calendar"));
    QCOMPARE(nameOf(form.parts.previous), QString("Previous month"));
    QCOMPARE(nameOf(form.parts.next), QString("Next month"));
    QCOMPARE(nameOf(form.parts.month), QString("March"));
    QCOMPARE(nameOf(form.parts.year), yearText(2024));
    QCOMPARE(nameOf(form.parts.yearEdit), QString("Calendar"));
    QCOMPARE(nameOf(form.parts.grid), QString("Calendar"));
    QCOMPARE(nameOf(form.parts.today), QString("Today"));
}

// Qt announces the cell of the current day; this test checks the cell's text.
void CalendarKeysTest::theDayWithTheFocusIsAnnounced()
{
    const Form form;
    QVERIFY(form.isActive);
    form.parts.calendar->setSelectedDate({2024, 3, 7});
    form.parts.grid->setFocus();
    for (const auto &step : {qMakePair(Qt::Key_Right, 8), qMakePair(Qt::Key_Down, 15)}) {
        form.press(step.first);
        const QModelIndex day = form.parts.grid->currentIndex();
        QAccessibleInterface *grid = QAccessible::queryAccessibleInterface(form.parts.grid);
        const QAccessibleInterface *cell = grid->tableInterface()->cellAt(day.row(), day.column());
        QVERIFY(cell);
        QCOMPARE(cell->text(QAccessible::Name),
            QLocale().toString(QDate(2024, 3, step.second), QLocale::LongFormat));
        QVERIFY(cell->state().focused);
        QVERIFY(cell->state().selected);
    }
}

void CalendarKeysTest::theGridReportsTheMonthOfTheDay()
{
    const Form form;
    form.parts.calendar->setSelectedDate({2024, 3, 7});
    const QAccessibleInterface *grid = QAccessible::queryAccessibleInterface(form.parts.grid);
    QCOMPARE(grid->text(QAccessible::Description), QString("2024-03-07"));
    form.parts.calendar->setSelectedDate({2024, 4, 1});
    QCOMPARE(grid->text(QAccessible::Description), QString("2024-04-01"));
}

void CalendarKeysTest::takesItsNamesFromTheStrings()
{
    Table table = themeTable("enu.json");
    for (QString &text : table)
        text = "<" + text + ">";
    ComponentStrings::getInstance().installStrings(table);
    VemoCalanderView view(nullptr);
    const Parts parts(&view);
    view.setCurrentPage(2024, 3);
    QCOMPARE(parts.month->text(), QString("<March>"));
    QCOMPARE(parts.month->menu()->actions().at(2)->text(), QString("<Ma"));
    QCOMPARE(parts.today->text(), QString("<Today>"));
    QCOMPARE(view.accessibleName(), QString("<Calendar>"));
    for (int column = 0; column < 7; ++column)
        QCOMPARE(parts.weekdays->item(0, column)->text(), QString("<"));
    // Installing strings later must have no effect.
    ComponentStrings::getInstance().installStrings(themeTable("enu.json"));
    view.setCurrentPage(2024, 4);
    QCOMPARE(parts.month->text(), QString("<April>"));
}

void CalendarKeysTest::showsKeysWhereNamesAreMissing()
{
    ComponentStrings::getInstance().installStrings({});
    VemoCalanderView view(nullptr);
    const Parts parts(&view);
    QStringList keys {"today", "accessible_calendar", "accessible_calendar_prev_month",
        "accessible_calendar_next_month"};
    keys += monthKeys();
    keys += {"sunday", "monday", "tuesday", "wednesday", "thursday", "friday", "saturday"};
    QStringList expected;
    for (const QString &key : qAsConst(keys))
        expected += "Cannot find key in ComponentStrings \"" + key + '"';
    QCOMPARE(messages.take(), expected);
    view.setCurrentPage(2024, 3);
    QCOMPARE(parts.month->text(), QString("month_mar"));
    QCOMPARE(parts.month->menu()->actions().at(2)->text(), QString("mon"));
    QCOMPARE(parts.weekdays->item(0, 3)->text(), QString("w"));
}

void CalendarKeysTest::takesNamesShorterThanThreeCharacters()
{
    Table table = themeTable("enu.json");
    table["month_mar"] = QString();
    table["month_apr"] = "4";
    table["month_may"] = QString::fromUtf8("五月");
    table["sunday"] = QString();
    table["monday"] = "M";
    ComponentStrings::getInstance().installStrings(table);
    VemoCalanderView view(nullptr);
    const Parts parts(&view);
    const QList<QAction *> entries = parts.month->menu()->actions();
    QCOMPARE(entries.at(2)->text(), QString());
    QCOMPARE(entries.at(3)->text(), QString("4"));
    QCOMPARE(entries.at(4)->text(), QString::fromUtf8("五月"));
    view.setCurrentPage(2024, 3);
    QCOMPARE(parts.month->text(), QString());
    QCOMPARE(parts.weekdays->item(0, 0)->text(), QString());
    QCOMPARE(parts.weekdays->item(0, 1)->text(), QString("M"));
}

void CalendarKeysTest::fitsEveryLanguage_data()
{
    QTest::addColumn<Table>("table");
    for (const QString &file : QDir(":/vemo/theme/strings").entryList({"*.json"}))
        QTest::newRow(qPrintable(file)) << themeTable(file);
    Table table = themeTable("enu.json");
    table["today"] = "Heutiges Datum";
    for (const QString &key : monthKeys())
        table[key] = QString::fromUtf8("Październik");
    QTest::newRow("long names") << table;
}

void CalendarKeysTest::fitsEveryLanguage()
{
    QFETCH(Table, table);
    ComponentStrings::getInstance().installStrings(table);
    VemoDateSelector selector("Any date", nullptr);
    selector.show();
    selector.showPopup();
    const QWidget *view = selector.view();
    const Parts parts(view);
    for (int month = 1; month <= 12; ++month) {
        selector.getCalendarView()->setCurrentPage(2024, month);
        QCoreApplication::sendPostedEvents();
        for (const QAbstractButton *part : QList<const QAbstractButton *> {
                 parts.previous, parts.month, parts.year, parts.next, parts.today}) {
            const QString text = part->icon().isNull() ? part->text() : QString();
            QVERIFY(view->rect().contains({part->mapTo(view, QPoint(0, 0)), part->size()}));
            const int room = part->width() - scaled(kButtonFrame);
            QVERIFY2(room >= part->fontMetrics().horizontalAdvance(text), qPrintable(text));
        }
    }
    selector.hidePopup();
}

VEMO_TEST_MAIN(CalendarKeysTest)
#include "tst_calendarkeys.moc"
