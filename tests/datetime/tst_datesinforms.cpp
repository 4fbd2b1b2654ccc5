// SPDX-License-Identifier: MIT
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/vemocalanderview.h>
#include <vemo/vemodateselector.h>
#include <vemo/vemotimecombobox.h>

#include <QListView>

/// What code made from a form calls: constructors of a lone parent, and setters of properties.
class DatesInFormsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void aDateFieldShowsANewPlaceholderAtOnce();
    void aDateFieldTellsItsDate();
    void aCalendarSelectsWithinItsRangeInSilence();
    void aTimeBoxTakesOtherTimes();
    void aTimeBoxKeepsItsCustomItemInFront();
    void aTimeBoxIsMadeEditableByItsProperty();
};

void DatesInFormsTest::aDateFieldShowsANewPlaceholderAtOnce()
{
    VemoDateSelector field(nullptr);
    QCOMPARE(field.placeholder(), QString());
    field.setPlaceholder("Any date");
    QCOMPARE(field.currentText(), QString("Any date"));
    field.setDate({2024, 3, 7});
    field.setPlaceholder("Choose");
    QCOMPARE(field.currentText(), QString("2024-03-07"));
    field.clearDate();
    QCOMPARE(field.currentText(), QString("Choose"));
    QCOMPARE(field.count(), 1);
}

void DatesInFormsTest::aDateFieldTellsItsDate()
{
    VemoDateSelector field("Any date");
    QVERIFY(field.date().isNull());
    field.dateSelect({2024, 3, 7});
    QCOMPARE(field.date(), QDate(2024, 3, 7));
    field.setDate({});
    QVERIFY(field.date().isNull());
    QCOMPARE(field.currentText(), QString("Any date"));
}

void DatesInFormsTest::aCalendarSelectsWithinItsRangeInSilence()
{
    VemoCalanderView calendar(nullptr);
    QCOMPARE(calendar.selectedDate(), QDate::currentDate());
    QSignalSpy picks(&calendar, SIGNAL(sigDateSelect(QDate)));
    calendar.setMinimumDate({2024, 2, 1});
    calendar.setMaximumDate({2024, 4, 30});
    QCOMPARE(calendar.minimumDate(), QDate(2024, 2, 1));
    QCOMPARE(calendar.maximumDate(), QDate(2024, 4, 30));
    calendar.setSelectedDate({2024, 3, 7});
    QCOMPARE(calendar.selectedDate(), QDate(2024, 3, 7));
    calendar.setSelectedDate({2030, 1, 1});
    QCOMPARE(calendar.selectedDate(), QDate(2024, 4, 30));
    calendar.setSelectedDate({});
    QCOMPARE(calendar.selectedDate(), QDate(2024, 4, 30));
    QVERIFY(picks.isEmpty());
}

void DatesInFormsTest::aTimeBoxTakesOtherTimes()
{
    VemoTimeComboBox box;
    box.setTimes({"00:00", "06:00", "12:00"});
    QCOMPARE(box.currentText(), QString("00:00"));
    box.setCurrentText(std::string("06:00"));
    box.setTimes({"05:00", "06:00"});
    QCOMPARE(box.currentText(), QString("06:00"));
    box.setTimes({"05:00"});
    QCOMPARE(box.currentText(), QString("05:00"));
    box.setTimes({});
    QCOMPARE(box.count(), 0);
    QCOMPARE(box.times(), QStringList());
}

void DatesInFormsTest::aTimeBoxKeepsItsCustomItemInFront()
{
    VemoTimeComboBox box;
    box.setEditable(true);
    box.setTimes({"00:00", "06:00"});
    QCOMPARE(box.times(), QStringList({"00:00", "06:00"}));
    QCOMPARE(box.count(), 3);
    QVERIFY(qobject_cast<QListView *>(box.view())->isRowHidden(0));
    box.setCurrentText(std::string("07:45"));
    box.setTimes({"12:00"});
    QCOMPARE(box.currentText(), QString("07:45"));
    QCOMPARE(box.currentIndex(), 0);
    QCOMPARE(box.times(), QStringList("12:00"));
}

void DatesInFormsTest::aTimeBoxIsMadeEditableByItsProperty()
{
    VemoTimeComboBox box;
    box.setTimes({"00:00"});
    QVERIFY(box.setProperty("editable", true));
    QCOMPARE(box.count(), 2);
    QVERIFY(box.setProperty("editable", false));
    QCOMPARE(box.count(), 1);
    box.setCustomText("(own)");
    QCOMPARE(box.property("customText").toString(), QString("(own)"));
}

VEMO_TEST_MAIN(DatesInFormsTest)
#include "tst_datesinforms.moc"
