// SPDX-License-Identifier: MIT
// Typing into a date field, and the first weekday of its calendar; both are off at first.
#include <vemo/vemodateselector.h>

#include "support/activewindow.h"
#include "support/realkeys.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/vemocalanderview.h>
#include <vemo/vemotimecombobox.h>

#include <QCalendarWidget>
#include <QLineEdit>
#include <QTableWidget>

namespace {

const QDate kDate(2024, 3, 7);

/// An active window with a date field and another one.
struct Fields
{
    Fields()
    {
        window.resize(400, 120);
        after.setGeometry(0, 60, 100, 30);
        field.setGeometry(0, 0, 200, field.height());
        field.setTypingEnabled(true);
        field.setDateRange({1940, 1, 1}, {2060, 12, 31});
        isActive = showActive(&window);
        field.setFocus();
    }
    /// Types a text in place of the one that is shown.
    void type(const QString &text)
    {
        field.lineEdit()->selectAll();
        if (text.isEmpty())
            QTest::keyClick(&field, Qt::Key_Backspace);
        QTest::keyClicks(&field, text);
    }

    QWidget window;
    VemoDateSelector field {"Any date", &window};
    QLineEdit after {&window};
    QSignalSpy picked {field.getCalendarView(), &VemoCalanderView::sigDateSelect};
    bool isActive = false;
};

} // namespace

class DateTypingTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void startsWithoutTyping();
    void placeholderIsPalerThanADate();
    void takesADate_data();
    void takesADate();
    void showsThePreviousDateAgain_data();
    void showsThePreviousDateAgain();
    void takesADateOnReturn();
    void takesADateWhenTheFocusLeaves();
    void emptyTextClearsTheDate();
    void keysDeleteCharacters();
    void followsTheProgram();
    void picksInTheCalendar();
    void beginsWhereItsLanguageDoes();
    void losesItsEditAgain();
    void weekBeginsWithAnyDay_data();
    void weekBeginsWithAnyDay();
};

void DateTypingTest::startsWithoutTyping()
{
    VemoDateSelector field("Any date");
    QVERIFY(!field.isTypingEnabled());
    QVERIFY(!field.isEditable());
    QCOMPARE(field.getCalendarView()->firstDayOfWeek(), Qt::Sunday);
}

void DateTypingTest::placeholderIsPalerThanADate()
{
    Fields fields;
    const QPalette palette = fields.field.lineEdit()->palette();
    QColor pale = palette.color(QPalette::Text);
    pale.setAlpha(180);
    QCOMPARE(palette.color(QPalette::PlaceholderText), pale);
}

void DateTypingTest::takesADate_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QDate>("date");
    const QLocale c = QLocale::c();
    const QLocale german(QLocale::German, QLocale::Germany);
    addRow("as it is shown", c, QString(), QString("2024-03-07"), kDate);
    addRow("without zeros", c, QString(), QString(" 2024-3-7 "), kDate);
    addRow("in the short format", german, QString(), QString("07.03.24"), kDate);
    addRow("two digits, past", german, QString(), QString("07.03.50"), QDate(1950, 3, 7));
    addRow("two digits, future", german, QString(), QString("07.03.49"), QDate(2049, 3, 7));
    addRow("in its format", german, QString("d/M/yyyy"), QString("7/3/1945"), QDate(1945, 3, 7));
    addRow("not in its format", german, QString("d/M/yyyy"), QString("2024-03-07"), kDate);
}

void DateTypingTest::takesADate()
{
    QFETCH(QLocale, locale);
    QFETCH(QString, format);
    QFETCH(QString, text);
    QFETCH(QDate, date);
    Fields fields;
    fields.field.setLocale(locale);
    fields.field.setDisplayFormat(format);
    fields.type(text);
    QCOMPARE(fields.picked.size(), 0);
    QTest::keyClick(&fields.field, Qt::Key_Return);
    QCOMPARE(fields.field.date(), date);
    QCOMPARE(fields.picked.size(), 1);
    QCOMPARE(fields.picked[0][0].toDate(), date);
    QCOMPARE(fields.field.count(), 1);
    const QString shown = format.isEmpty() ? QLocale::c().toString(date, "yyyy-MM-dd")
                                           : locale.toString(date, format);
    QCOMPARE(fields.field.lineEdit()->text(), shown);
}

void DateTypingTest::showsThePreviousDateAgain_data()
{
    QTest::addColumn<QDate>("before");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("shown");
    addRow("not a date", kDate, QString("soon"), QString("2024-03-07"));
    addRow("no such day", kDate, QString("2024-02-30"), QString("2024-03-07"));
    addRow("too early", kDate, QString("1939-12-31"), QString("2024-03-07"));
    addRow("too late", kDate, QString("2061-01-01"), QString("2024-03-07"));
    addRow("the same", kDate, QString("2024-3-7"), QString("2024-03-07"));
    addRow("the placeholder", kDate, QString("Any date"), QString("2024-03-07"));
    addRow("no previous one", QDate(), QString("soon"), QString());
    addRow("nothing", QDate(), QString(" "), QString());
}

void DateTypingTest::showsThePreviousDateAgain()
{
    QFETCH(QDate, before);
    QFETCH(QString, text);
    Fields fields;
    fields.field.setDate(before);
    fields.type(text);
    QTest::keyClick(&fields.field, Qt::Key_Return);
    QCOMPARE(fields.field.date(), before);
    QTEST(fields.field.lineEdit()->text(), "shown");
    QCOMPARE(fields.picked.size(), 0);
}

void DateTypingTest::takesADateOnReturn()
{
    Fields fields;
    QVERIFY(fields.isActive);
    fields.field.lineEdit()->setText("2024-3-");
    pressRealKey(Qt::Key_7);
    QTRY_COMPARE(fields.field.lineEdit()->text(), QString("2024-3-7"));
    pressRealKey(Qt::Key_Return);
    QTRY_COMPARE(fields.field.date(), kDate);
    QVERIFY(fields.field.hasFocus());
}

void DateTypingTest::takesADateWhenTheFocusLeaves()
{
    Fields fields;
    QVERIFY(fields.isActive);
    fields.field.lineEdit()->setText("2024-3-7");
    pressRealKey(Qt::Key_Tab);
    QTRY_VERIFY(fields.after.hasFocus());
    QCOMPARE(fields.field.date(), kDate);
    QCOMPARE(fields.picked.size(), 1);
    fields.field.setFocus(); // nothing typed
    fields.after.setFocus();
    QCOMPARE(fields.picked.size(), 1);
}

void DateTypingTest::emptyTextClearsTheDate()
{
    Fields fields;
    QCOMPARE(fields.field.lineEdit()->text(), QString());
    QCOMPARE(fields.field.lineEdit()->placeholderText(), QString("Any date"));
    fields.field.setDate(kDate);
    fields.type("");
    QTest::keyClick(&fields.field, Qt::Key_Return);
    QVERIFY(!fields.field.date().isValid());
    QCOMPARE(fields.field.itemText(0), QString("Any date"));
    QCOMPARE(fields.field.lineEdit()->text(), QString());
    QCOMPARE(fields.picked.size(), 0);
}

void DateTypingTest::keysDeleteCharacters()
{
    Fields fields;
    fields.field.setClearable(true);
    fields.field.setDate(kDate);
    fields.field.lineEdit()->setCursorPosition(10);
    QTest::keyClick(&fields.field, Qt::Key_Backspace);
    QCOMPARE(fields.field.lineEdit()->text(), QString("2024-03-0"));
    QCOMPARE(fields.field.date(), kDate);
}

void DateTypingTest::followsTheProgram()
{
    Fields fields;
    fields.field.setLocale(QLocale::c());
    QLineEdit *edit = fields.field.lineEdit();
    fields.field.setDate(kDate);
    QCOMPARE(edit->text(), QString("2024-03-07"));
    fields.field.setDisplayFormat("d.M.yyyy");
    QCOMPARE(edit->text(), QString("7.3.2024"));
    fields.field.clearDate();
    QCOMPARE(edit->text(), QString());
    fields.field.setPlaceholder("No date");
    QCOMPARE(edit->text(), QString());
    QCOMPARE(edit->placeholderText(), QString("No date"));
    fields.field.setDisplayFormat({});
    QCOMPARE(edit->text(), QString());
    fields.field.setDate(kDate);
    fields.field.dateSelect({});
    QCOMPARE(edit->text(), QString());
}

void DateTypingTest::picksInTheCalendar()
{
    Fields fields;
    fields.type("2024-3");
    auto *calendar = fields.field.getCalendarView()->findChild<QCalendarWidget *>();
    Q_EMIT calendar->clicked(kDate);
    QCOMPARE(fields.field.date(), kDate);
    QCOMPARE(fields.field.lineEdit()->text(), QString("2024-03-07"));
}

void DateTypingTest::beginsWhereItsLanguageDoes()
{
    Fields fields;
    VemoTimeComboBox times(&fields.window);
    times.setEditable(true);
    for (QLineEdit *field : {fields.field.lineEdit(), times.lineEdit()}) {
        field->setFixedWidth(150);
        field->setText("1");
        for (const auto direction : {Qt::RightToLeft, Qt::LeftToRight}) {
            fields.window.setLayoutDirection(direction);
            field->grab(); // places the text
            const int caret = field->inputMethodQuery(Qt::ImCursorRectangle).toRect().center().x();
            QCOMPARE(caret > 75, direction == Qt::RightToLeft);
        }
    }
}

void DateTypingTest::losesItsEditAgain()
{
    VemoDateSelector field("Any date");
    field.setTypingEnabled(true);
    QVERIFY(field.isTypingEnabled());
    field.setTypingEnabled(false);
    QVERIFY(!field.isEditable());
    QCOMPARE(field.currentText(), QString("Any date"));
    field.setDate(kDate);
    QCOMPARE(field.currentText(), QString("2024-03-07"));
}

void DateTypingTest::weekBeginsWithAnyDay_data()
{
    QTest::addColumn<int>("day");
    QTest::addColumn<QString>("letters");
    addRow("Monday", int(Qt::Monday), QString("MTWTFSS"));
    addRow("Saturday", int(Qt::Saturday), QString("SSMTWTF"));
    addRow("Sunday", int(Qt::Sunday), QString("SMTWTFS"));
}

void DateTypingTest::weekBeginsWithAnyDay()
{
    QFETCH(int, day);
    VemoCalanderView calendar;
    calendar.setFirstDayOfWeek(Qt::DayOfWeek(day));
    QCOMPARE(int(calendar.firstDayOfWeek()), day);
    calendar.setLocale(QLocale(QLocale::Arabic, QLocale::Egypt));
    QCOMPARE(int(calendar.firstDayOfWeek()), day);
    const auto *names = calendar.findChild<QTableWidget *>("qt_calendar_weekdayview");
    const auto *days = calendar.findChild<QTableView *>("qt_calendar_calendarview");
    calendar.setCurrentPage(2024, 3);
    QString letters;
    for (int column = 0; column < 7; ++column)
        letters += names->item(0, column)->text();
    QTEST(letters, "letters");
    // The 5th of March 2024 was a Tuesday.
    int column = -1;
    for (int cell = 0; cell < 14; ++cell) {
        if (days->model()->index(cell / 7, cell % 7).data().toInt() == 5)
            column = cell % 7;
    }
    QCOMPARE(names->item(0, column)->data(Qt::AccessibleTextRole).toString(), QString("Tuesday"));
}

VEMO_TEST_MAIN(DateTypingTest)
#include "tst_datetyping.moc"
