// SPDX-License-Identifier: MIT
#include <vemo/vemodaterangeselector.h>

#include "support/activewindow.h"
#include "support/realkeys.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/componentstrings.h>
#include <vemo/vemocalanderview.h>
#include <vemo/vemodateselector.h>
#include <vemo/vemoiconbutton.h>

#include <QAccessible>
#include <QCalendarWidget>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QStyleOptionComboBox>
#include <QTableView>

#include <functional>

namespace {

const QDate kStart(2024, 3, 7);
const QDate kEnd(2024, 5, 20);
const QDate kToday = QDate::currentDate();

QCalendarWidget *calendarOf(const VemoDateSelector *field)
{
    return field->getCalendarView()->findChild<QCalendarWidget *>();
}

/// As if the user had clicked a day in the calendar.
void pick(const VemoDateSelector *field, const QDate &day)
{
    Q_EMIT calendarOf(field)->clicked(day);
}

/// A range with the signals it has emitted.
struct Range
{
    Range() = default;
    Range(const QDate &start, const QDate &end)
    {
        field.setRange(start, end);
        changes.clear();
    }
    VemoDateRangeSelector field;
    QSignalSpy changes {&field, &VemoDateRangeSelector::rangeChanged};
};

QString isoText(const QDate &date)
{
    return date.isValid() ? date.toString(Qt::ISODate) : QStringLiteral("none");
}

QString textOf(const VemoDateRangeSelector &field)
{
    return isoText(field.start()) + QLatin1Char(' ') + isoText(field.end());
}

using Change = std::function<void(VemoDateRangeSelector &)>;

/// A shown and active window with a range between two other fields.
struct Form
{
    Form()
    {
        auto *layout = new QFormLayout(&window);
        layout->addRow("Before", before);
        layout->addRow("&Changed", field);
        layout->addRow("After", after);
        isActive = showActive(&window);
    }
    QWidget window;
    QLineEdit *before = new QLineEdit;
    VemoDateRangeSelector *field = new VemoDateRangeSelector;
    QLineEdit *after = new QLineEdit;
    bool isActive = false;
};

} // namespace

Q_DECLARE_METATYPE(Change)

class VemoDateRangeSelectorTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void startsEmptyAndWithoutOptions();
    void reportsEachChangeOnce_data();
    void reportsEachChangeOnce();
    void reportsBeforeASetterReturns();
    void reportsAPickAfterTheCalendarHasClosed();
    void reportsNothingForADoubleClick();
    void slotsMaySetTheRangeAgain();
    void mayDieInASlot();
    void calendarsOfferNoDaysBeyondTheOtherDate();
    void limitsHoldForBothCalendars_data();
    void limitsHoldForBothCalendars();
    void calendarOfAnEmptyFieldOpensAtTheOtherDate();
    void typedDatesBeyondTheOtherAreRejected();
    void deleteClearsOneDate();
    void optionsReachBothFields();
    void fieldsHaveRoomForADate_data();
    void fieldsHaveRoomForADate();
    void tabGoesFromFieldToField();
    void mnemonicFocusesTheFirstField();
    void fieldsAreNamedInTheLanguageShown();
    void hostMayNameTheFields();
    void isMirroredFromRightToLeft();
};

void VemoDateRangeSelectorTest::startsEmptyAndWithoutOptions()
{
    const VemoDateRangeSelector field;
    QCOMPARE(textOf(field), QString("none none"));
    QCOMPARE(field.startField()->currentText(), QString());
    QCOMPARE(field.endField()->currentText(), QString());
    QCOMPARE(field.separator(), QString(QChar(0x2013)));
    QCOMPARE(field.displayFormat(), QString());
    QCOMPARE(field.firstDayOfWeek(), Qt::Sunday);
    QVERIFY(!field.isClearable());
    QVERIFY(!field.isTypingEnabled());
    QCOMPARE(field.minimumDate(), VemoDateSelector().minimumDate());
    QCOMPARE(field.maximumDate(), VemoDateSelector().maximumDate());
}

void VemoDateRangeSelectorTest::reportsEachChangeOnce_data()
{
    QTest::addColumn<QDate>("start");
    QTest::addColumn<QDate>("end");
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("range"); // Empty: not changed.
    const auto row = [](const char *name, const QDate &start, const QDate &end,
                         const Change &change, const char *range) {
        QTest::newRow(name) << start << end << change << QString(range);
    };
    using Field = VemoDateRangeSelector;
    const QDate none;
    row(
        "start", none, none, [](Field &f) { f.setStart(kStart); }, "2024-03-07 none");
    row(
        "end", none, none, [](Field &f) { f.setEnd(kEnd); }, "none 2024-05-20");
    row(
        "both", none, none, [](Field &f) { f.setRange(kStart, kEnd); }, "2024-03-07 2024-05-20");
    row(
        "start again", kStart, kEnd, [](Field &f) { f.setStart(kStart); }, "");
    row(
        "end again", kStart, kEnd, [](Field &f) { f.setEnd(kEnd); }, "");
    row(
        "both again", kStart, kEnd, [](Field &f) { f.setRange(kStart, kEnd); }, "");
    row(
        "one day", none, none, [](Field &f) { f.setRange(kEnd, kEnd); }, "2024-05-20 2024-05-20");
    row(
        "start after end", kStart, kEnd, [](Field &f) { f.setStart(kEnd.addDays(1)); },
        "2024-05-21 2024-05-21");
    row(
        "end before start", kStart, kEnd, [](Field &f) { f.setEnd(kStart.addDays(-1)); },
        "2024-03-06 2024-03-06");
    row(
        "swapped", none, none, [](Field &f) { f.setRange(kEnd, kStart); }, "2024-03-07 2024-05-20");
    row(
        "swapped again", kStart, kEnd, [](Field &f) { f.setRange(kEnd, kStart); }, "");
    row(
        "later range", kStart, kStart, [](Field &f) { f.setRange(kEnd, kEnd); },
        "2024-05-20 2024-05-20");
    row(
        "no start", kStart, kEnd, [](Field &f) { f.setStart({}); }, "none 2024-05-20");
    row(
        "no end", kStart, kEnd, [](Field &f) { f.setRange(kStart, {}); }, "2024-03-07 none");
    row(
        "clear", kStart, kEnd, [](Field &f) { f.clear(); }, "none none");
    row(
        "clear an empty one", none, none, [](Field &f) { f.clear(); }, "");
    row(
        "minimum", kStart, kEnd, [](Field &f) { f.setMinimumDate(kEnd.addYears(1)); }, "");
    row(
        "picked start", none, kEnd, [](Field &f) { pick(f.startField(), kStart); },
        "2024-03-07 2024-05-20");
    row(
        "picked end", kStart, none, [](Field &f) { pick(f.endField(), kEnd); },
        "2024-03-07 2024-05-20");
    row(
        "today before start", kToday.addDays(2), none,
        [](Field &f) { f.endField()->getCalendarView()->selectToday(); },
        qPrintable(isoText(kToday) + ' ' + isoText(kToday)));
    row(
        "today after end", none, kEnd,
        [](Field &f) { f.startField()->getCalendarView()->selectToday(); },
        qPrintable(isoText(kToday) + ' ' + isoText(kToday)));
    row(
        "set in its field", kStart, kEnd,
        [](Field &f) { f.startField()->setDate(kEnd.addDays(1)); }, "2024-05-21 2024-05-21");
    row(
        "cleared in its field", kStart, kEnd, [](Field &f) { f.endField()->clearDate(); },
        "2024-03-07 none");
}

void VemoDateRangeSelectorTest::reportsEachChangeOnce()
{
    QFETCH(QDate, start);
    QFETCH(QDate, end);
    QFETCH(Change, change);
    QFETCH(QString, range);
    Range made(start, end);
    const QString before = textOf(made.field);
    change(made.field);
    QCoreApplication::processEvents();
    QCOMPARE(textOf(made.field), range.isEmpty() ? before : range);
    QCOMPARE(made.changes.size(), range.isEmpty() ? 0 : 1);
    if (!range.isEmpty()) {
        QCOMPARE(made.changes[0][0].toDate(), made.field.start());
        QCOMPARE(made.changes[0][1].toDate(), made.field.end());
    }
}

void VemoDateRangeSelectorTest::reportsBeforeASetterReturns()
{
    Range made;
    made.field.setStart(kStart);
    QCOMPARE(made.changes.size(), 1);
    made.field.setEnd(kEnd);
    QCOMPARE(made.changes.size(), 2);
    made.field.setRange({}, kEnd);
    QCOMPARE(made.changes.size(), 3);
    made.field.clear();
    QCOMPARE(made.changes.size(), 4);
    pick(made.field.startField(), kStart);
    QCOMPARE(made.changes.size(), 5);
    QCoreApplication::processEvents();
    QCOMPARE(made.changes.size(), 5);
}

void VemoDateRangeSelectorTest::reportsAPickAfterTheCalendarHasClosed()
{
    Form form;
    const VemoDateSelector *start = form.field->startField();
    QStringList seen;
    connect(form.field, &VemoDateRangeSelector::rangeChanged, this,
        [&] { seen << start->currentText() + (start->view()->isVisible() ? " open" : " closed"); });
    form.field->startField()->showPopup();
    QTRY_VERIFY(start->view()->isVisible());
    pick(start, kStart);
    QCOMPARE(seen, QStringList("2024-03-07 closed"));
    // The program changes the open field.
    form.field->startField()->showPopup();
    QTRY_VERIFY(start->view()->isVisible());
    form.field->startField()->setDate(kEnd);
    QTRY_COMPARE(seen.size(), 2);
    QCOMPARE(seen[1], QString("2024-05-20 closed"));
}

void VemoDateRangeSelectorTest::reportsNothingForADoubleClick()
{
    Range made;
    pick(made.field.startField(), kStart);
    Q_EMIT calendarOf(made.field.startField())->activated(kStart);
    QCOMPARE(made.changes.size(), 1);
}

void VemoDateRangeSelectorTest::slotsMaySetTheRangeAgain()
{
    Range made;
    connect(&made.field, &VemoDateRangeSelector::rangeChanged, this,
        [&made](const QDate &start) { made.field.setEnd(start.addDays(7)); });
    made.field.setStart(kStart);
    QCOMPARE(textOf(made.field), QString("2024-03-07 2024-03-14"));
    QCOMPARE(made.changes.size(), 2);
}

void VemoDateRangeSelectorTest::mayDieInASlot()
{
    const QPointer<VemoDateRangeSelector> field(new VemoDateRangeSelector);
    field->setClearable(true);
    field->setStart(kStart);
    connect(field, &VemoDateRangeSelector::rangeChanged, field, &QObject::deleteLater);
    QTest::keyClick(field->startField(), Qt::Key_Delete);
    QTRY_VERIFY(!field);
    // One set by the program may be deleted at once.
    const QPointer<VemoDateRangeSelector> other(new VemoDateRangeSelector);
    connect(other, &VemoDateRangeSelector::rangeChanged, this, [other] { delete other; });
    other->setRange(kStart, kEnd);
    QVERIFY(!other);
}

void VemoDateRangeSelectorTest::calendarsOfferNoDaysBeyondTheOtherDate()
{
    Range made(kStart, kEnd);
    const VemoDateSelector *start = made.field.startField();
    const VemoDateSelector *end = made.field.endField();
    QCOMPARE(start->maximumDate(), kEnd);
    QCOMPARE(end->minimumDate(), kStart);
    const QDate last = VemoDateSelector().maximumDate();
    QCOMPARE(end->maximumDate(), last);
    pick(end, kEnd.addDays(-1));
    QCOMPARE(start->maximumDate(), kEnd.addDays(-1));
    made.field.clear();
    QCOMPARE(start->maximumDate(), last);
    QCOMPARE(end->minimumDate(), made.field.minimumDate());
}

void VemoDateRangeSelectorTest::limitsHoldForBothCalendars_data()
{
    QTest::addColumn<QDate>("start");
    QTest::addColumn<QDate>("end");
    QTest::addColumn<QDate>("minimum");
    QTest::addColumn<QDate>("maximum");
    const QDate first(2024, 1, 1);
    const QDate last(2024, 12, 31);
    addRow("around the range", kStart, kEnd, first, last);
    addRow("empty", QDate(), QDate(), first, last);
    addRow("after the start", kStart, kEnd, kStart.addDays(9), last);
    addRow("before the end", kStart, kEnd, first, kEnd.addDays(-9));
    addRow("after the range", kStart, kEnd, kEnd.addDays(9), last);
    addRow("before the range", kStart, kEnd, first, kStart.addDays(-9));
}

void VemoDateRangeSelectorTest::limitsHoldForBothCalendars()
{
    QFETCH(QDate, start);
    QFETCH(QDate, end);
    QFETCH(QDate, minimum);
    QFETCH(QDate, maximum);
    Range made(start, end);
    made.field.setMinimumDate(minimum);
    made.field.setMaximumDate(maximum);
    made.field.setMinimumDate({});
    made.field.setMaximumDate({});
    QCOMPARE(made.field.minimumDate(), minimum);
    QCOMPARE(made.field.maximumDate(), maximum);
    QCOMPARE(made.field.start(), start);
    for (const VemoDateSelector *field : {made.field.startField(), made.field.endField()}) {
        QVERIFY(field->minimumDate() >= minimum);
        QVERIFY(field->maximumDate() <= maximum);
    }
    made.field.clear();
    QCOMPARE(made.field.startField()->maximumDate(), maximum);
    QCOMPARE(made.field.endField()->minimumDate(), minimum);
    // Limits in the wrong order become one day.
    made.field.setMaximumDate(minimum.addDays(-1));
    QCOMPARE(made.field.minimumDate(), minimum.addDays(-1));
    made.field.setMinimumDate(maximum);
    QCOMPARE(made.field.maximumDate(), maximum);
}

void VemoDateRangeSelectorTest::calendarOfAnEmptyFieldOpensAtTheOtherDate()
{
    VemoDateRangeSelector field;
    const QCalendarWidget *end = calendarOf(field.endField());
    field.setStart(kStart);
    QCOMPARE(end->monthShown(), kStart.month());
    QCOMPARE(end->yearShown(), kStart.year());
    QCOMPARE(end->selectedDate(), kStart);
    field.setEnd(kEnd);
    field.setStart(kStart.addMonths(1));
    QCOMPARE(end->monthShown(), kEnd.month());
    QCOMPARE(end->selectedDate(), kEnd);
    field.endField()->clearDate(); // would show the current month
    QTRY_COMPARE(end->monthShown(), kStart.month() + 1);
    QCOMPARE(end->yearShown(), kStart.year());
    field.clear();
    field.setEnd(kEnd);
    QCOMPARE(calendarOf(field.startField())->monthShown(), kEnd.month());
}

void VemoDateRangeSelectorTest::typedDatesBeyondTheOtherAreRejected()
{
    Range made(kStart, kEnd);
    made.field.setTypingEnabled(true);
    made.field.show();
    VemoDateSelector *end = made.field.endField();
    const auto type = [end](const QString &text) {
        end->lineEdit()->selectAll();
        QTest::keyClicks(end, text);
        QTest::keyClick(end, Qt::Key_Return);
    };
    type("2024-03-06");
    QCOMPARE(made.changes.size(), 0);
    QCOMPARE(end->lineEdit()->text(), QString("2024-05-20"));
    type("2024-3-7");
    QCOMPARE(made.changes.size(), 1);
    QCOMPARE(textOf(made.field), QString("2024-03-07 2024-03-07"));
    end->lineEdit()->clear();
    QTest::keyClick(end, Qt::Key_Return);
    QTRY_COMPARE(made.changes.size(), 2);
    QCOMPARE(textOf(made.field), QString("2024-03-07 none"));
}

void VemoDateRangeSelectorTest::deleteClearsOneDate()
{
    Range made(kStart, kEnd);
    QTest::keyClick(made.field.startField(), Qt::Key_Delete);
    QCOMPARE(made.changes.size(), 0);
    made.field.setClearable(true);
    QTest::keyClick(made.field.startField(), Qt::Key_Delete);
    QCOMPARE(textOf(made.field), QString("none 2024-05-20"));
    QTRY_COMPARE(made.changes.size(), 1);
    QTest::mouseClick(made.field.endField()->findChild<VemoIconButton *>(), Qt::LeftButton);
    QCOMPARE(textOf(made.field), QString("none none"));
    QTRY_COMPARE(made.changes.size(), 2);
}

void VemoDateRangeSelectorTest::optionsReachBothFields()
{
    VemoDateRangeSelector range;
    range.setLocale(QLocale::c());
    range.setPlaceholders("first", "last");
    QCOMPARE(range.startField()->currentText(), QString("first"));
    QCOMPARE(range.endField()->currentText(), QString("last"));
    QCOMPARE(range.startPlaceholder() + range.endPlaceholder(), QString("firstlast"));
    range.setRange(kStart, kEnd);
    range.setDisplayFormat("dd/MM/yyyy");
    QCOMPARE(range.displayFormat(), QString("dd/MM/yyyy"));
    QCOMPARE(range.startField()->currentText(), QString("07/03/2024"));
    QCOMPARE(range.endField()->currentText(), QString("20/05/2024"));
    range.setFirstDayOfWeek(Qt::Monday);
    range.setClearable(true);
    range.setTypingEnabled(true);
    for (const VemoDateSelector *field : {range.startField(), range.endField()}) {
        QCOMPARE(field->firstDayOfWeek(), Qt::Monday);
        QCOMPARE(calendarOf(field)->firstDayOfWeek(), Qt::Monday);
        QVERIFY(field->isClearable());
        QVERIFY(field->isTypingEnabled());
    }
    range.setSeparator("a <b>to</b> b");
    QCOMPARE(range.findChild<QLabel *>()->text(), QString("a <b>to</b> b"));
    QCOMPARE(range.findChild<QLabel *>()->textFormat(), Qt::PlainText);
}

void VemoDateRangeSelectorTest::fieldsHaveRoomForADate_data()
{
    QTest::addColumn<QString>("format");
    QTest::addColumn<int>("points");
    addRow("as it is", QString(), 10);
    addRow("with names", QString("dddd, d MMMM yyyy"), 10);
    addRow("large font", QString(), 20);
    addRow("long placeholder", QString(), 10);
}

void VemoDateRangeSelectorTest::fieldsHaveRoomForADate()
{
    QFETCH(QString, format);
    QFETCH(int, points);
    VemoDateRangeSelector range;
    range.setLocale(QLocale::c());
    range.setClearable(true);
    QFont font = range.font();
    font.setPointSize(points);
    range.setFont(font);
    range.setDisplayFormat(format);
    const bool isEmpty = QTest::currentDataTag() == QByteArray("long placeholder");
    if (isEmpty)
        range.setEndPlaceholder("Until further notice");
    range.adjustSize();
    range.show();
    if (!isEmpty)
        range.setRange(QDate(2024, 9, 25), QDate(2024, 9, 25)); // a Wednesday in September
    QCOMPARE(range.startField()->width(), range.endField()->width());
    for (const VemoDateSelector *field : {range.startField(), range.endField()}) {
        QStyleOptionComboBox option;
        option.initFrom(field);
        for (const bool hasFocus : {false, true}) {
            option.state.setFlag(QStyle::State_HasFocus, hasFocus);
            const QRect room = field->style()->subControlRect(
                QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, field);
            QVERIFY(room.width() >= field->fontMetrics().horizontalAdvance(field->currentText()));
            QVERIFY(!room.intersects(field->findChild<VemoIconButton *>()->geometry()));
        }
    }
    QCOMPARE(range.height(), range.startField()->height());
}

void VemoDateRangeSelectorTest::tabGoesFromFieldToField()
{
    Form form;
    QVERIFY(form.isActive);
    form.field->setClearable(true);
    form.field->setRange(kStart, kEnd);
    form.before->setFocus();
    QTRY_VERIFY(form.before->hasFocus());
    const QVector<QWidget *> order {form.field->startField(), form.field->endField(), form.after};
    for (const QWidget *next : order) {
        pressRealKey(Qt::Key_Tab);
        QTRY_VERIFY(next->hasFocus());
    }
    pressRealKey(Qt::Key_Tab, Qt::ShiftModifier);
    QTRY_VERIFY(form.field->endField()->hasFocus());
}

void VemoDateRangeSelectorTest::mnemonicFocusesTheFirstField()
{
    Form form;
    QVERIFY(form.isActive);
    form.after->setFocus();
    QTRY_VERIFY(form.after->hasFocus());
    QTest::keyClick(form.after, Qt::Key_C, Qt::AltModifier);
    QCOMPARE(QApplication::focusWidget(), form.field->startField());
}

void VemoDateRangeSelectorTest::fieldsAreNamedInTheLanguageShown()
{
    const VemoDateRangeSelector range;
    const auto nameOf = [](QWidget *field) {
        return QAccessible::queryAccessibleInterface(field)->text(QAccessible::Name);
    };
    QCOMPARE(nameOf(range.startField()), QString("From"));
    QCOMPARE(nameOf(range.endField()), QString("To"));
    QMap<QString, QString> texts = ComponentStrings::getInstance().strings();
    const QMap<QString, QString> english = texts;
    texts["accessible_from"] = "Von";
    texts["accessible_to"] = "Bis";
    ComponentStrings::getInstance().changeStrings(texts);
    QCoreApplication::processEvents();
    QCOMPARE(nameOf(range.startField()), QString("Von"));
    QCOMPARE(nameOf(range.endField()), QString("Bis"));
    ComponentStrings::getInstance().changeStrings(english);
}

void VemoDateRangeSelectorTest::hostMayNameTheFields()
{
    VemoDateRangeSelector range;
    range.startField()->setAccessibleName("Arrival");
    QEvent change(QEvent::LanguageChange);
    QCoreApplication::sendEvent(&range, &change);
    QCOMPARE(range.startField()->accessibleName(), QString("Arrival"));
}

void VemoDateRangeSelectorTest::isMirroredFromRightToLeft()
{
    VemoDateRangeSelector range;
    range.show();
    QVERIFY(range.startField()->x() < range.endField()->x());
    range.setLayoutDirection(Qt::RightToLeft);
    QTRY_VERIFY(range.startField()->x() > range.endField()->x());
    QCOMPARE(range.startField()->width(), range.endField()->width());
}

VEMO_TEST_MAIN(VemoDateRangeSelectorTest)
#include "tst_vemodaterangeselector.moc"
