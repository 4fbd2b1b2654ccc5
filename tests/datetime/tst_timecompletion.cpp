// SPDX-License-Identifier: MIT
#include "datetime/timebox.h"

#include "support/testhost.h"

#include <QValidator>

namespace {

/// All texts that can be typed, with their times, generated from numbers.
QMap<QString, QString> typableTimes()
{
    QMap<QString, QString> times;
    const auto add = [&times](const QString &hourText, int hour) {
        times[hourText] = times[hourText + ':'] = timeOf(hour, 0);
        for (int minute = 0; minute < 60; ++minute) {
            if (minute < 10)
                times[hourText + ':' + QString::number(minute)] = timeOf(hour, minute);
            times[hourText + ':' + QString::asprintf("%02d", minute)] = timeOf(hour, minute);
        }
    };
    for (int hour = 0; hour < 24; ++hour) {
        add(QString::asprintf("%02d", hour), hour);
        if (hour < 10)
            add(QString::number(hour), hour);
    }
    return times;
}

} // namespace

class TimeCompletionTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void admitsWhatThePatternAdmits();
    void completesWhateverMayBeTyped();
    void completesAmongTheItems_data();
    void completesAmongTheItems();
    void typesLikeAUser_data();
    void typesLikeAUser();
    void returnAddsNoItemWithoutTheFocus();
    void plainBoxCompletesToo_data();
    void plainBoxCompletesToo();
    void addsTheCustomTextUntilItIsEdited();
    void reportsANewCustomTimeEachTime();
    void returnsToTheDefaultWhenEmptied_data();
    void returnsToTheDefaultWhenEmptied();
    void showsTheCustomItemForADefaultBeyondTheList_data();
    void showsTheCustomItemForADefaultBeyondTheList();
};

// All texts of up to five characters from the digits, the colon and some other characters.
void TimeCompletionTest::admitsWhatThePatternAdmits()
{
    const Box box;
    const QMap<QString, QString> typable = typableTimes();
    QCOMPARE(typable.size(), 34 * 72);
    const QString alphabet = QString::fromUtf8("0123456789: a\u0663");
    QStringList texts {QString()};
    int admitted = 0;
    for (int first = 0, length = 0; length < 5; ++length) {
        const int end = texts.size();
        for (; first < end; ++first) {
            // A text that is not the start of a time cannot become one by appending characters.
            QString before = texts[first];
            int cursor = 0;
            if (box.lineEdit()->validator()->validate(before, cursor) == QValidator::Invalid)
                continue;
            for (const QChar character : alphabet)
                texts += before + character;
        }
    }
    for (QString &text : texts) {
        int cursor = 0;
        const bool isAdmitted =
            box.lineEdit()->validator()->validate(text, cursor) == QValidator::Acceptable;
        QVERIFY2(isAdmitted == typable.contains(text), qPrintable(text));
        admitted += isAdmitted;
    }
    QCOMPARE(admitted, typable.size());
}

void TimeCompletionTest::completesWhateverMayBeTyped()
{
    const QMap<QString, QString> typable = typableTimes();
    const QStringList items = halfHours();
    Box box;
    for (auto time = typable.begin(); time != typable.end(); ++time) {
        box.leaveWith(time.key());
        const int row = items.indexOf(time.value()) + 1;
        const QByteArray context = time.key().toLatin1();
        QVERIFY2(box.currentText() == time.value(), context);
        QVERIFY2(box.lineEdit()->text() == time.value(), context);
        QVERIFY2(box.currentIndex() == row, context);
        QVERIFY2(box.isCustomShown() == (row == 0), context);
    }
    QCOMPARE(box.count(), items.size() + 1);
}

void TimeCompletionTest::completesAmongTheItems_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("result");
    QTest::addColumn<bool>("isCustom");
    QTest::newRow("hour") << "9"
                          << "09:00" << false;
    QTest::newRow("colon") << "9:"
                           << "09:00" << false;
    QTest::newRow("single minute digit is padded with a zero") << "9:5"
                                                               << "09:05" << true;
    QTest::newRow("two and one") << "14:3"
                                 << "14:03" << true;
    QTest::newRow("full") << "23:30"
                          << "23:30" << false;
    QTest::newRow("nought") << "0"
                            << "00:00" << false;
    QTest::newRow("no hour") << ":5"
                             << "00:05" << true;
    QTest::newRow("colon alone") << ":"
                                 << "00:00" << false;
    QTest::newRow("three parts") << "1:2:3"
                                 << "01:02" << true;
    QTest::newRow("longer than a time") << "09:30:15"
                                        << "09:30" << false;
    QTest::newRow("no time at all") << "noon"
                                    << "noon:00" << true;
}

void TimeCompletionTest::completesAmongTheItems()
{
    QFETCH(QString, typed);
    QFETCH(QString, result);
    QFETCH(bool, isCustom);
    Box box;
    box.leaveWith(typed);
    QCOMPARE(box.currentText(), result);
    QCOMPARE(box.currentIndex() == 0, isCustom);
    QCOMPARE(box.isCustomShown(), isCustom);
}

void TimeCompletionTest::typesLikeAUser_data()
{
    QTest::addColumn<QString>("keys");
    QTest::addColumn<QString>("accepted");
    QTest::addColumn<QString>("result");
    for (const char *end : {"Return", "Enter", "Tab"}) {
        const QByteArray suffix = QByteArray(", ") + end;
        addRow("2" + suffix, "2", "2", "02:00");
        addRow("24 is refused" + suffix, "24", "2", "02:00");
        addRow("14:3" + suffix, "14:3", "14:3", "14:03");
        addRow("7:45" + suffix, "7:45", "7:45", "07:45");
        addRow("letters are refused" + suffix, "1a2:b5:", "12:5", "12:05");
        addRow("a second colon is refused" + suffix, "9:3:0", "9:30", "09:30");
    }
}

void TimeCompletionTest::typesLikeAUser()
{
    QFETCH(QString, keys);
    QFETCH(QString, accepted);
    QFETCH(QString, result);
    Form form;
    QVERIFY(form.isActive);
    form.type(keys);
    QCOMPARE(form.box.currentText(), accepted);
    const QString end = QString(QTest::currentDataTag()).section(' ', -1);
    form.press(end == "Return" ? Qt::Key_Return : end == "Enter" ? Qt::Key_Enter : Qt::Key_Tab);
    QVERIFY(!form.box.hasFocus());
    QCOMPARE(form.box.currentText(), result);
    QCOMPARE(form.box.count(), halfHours().size() + 1);
}

void TimeCompletionTest::returnAddsNoItemWithoutTheFocus()
{
    Box box;
    box.lineEdit()->setText("7:45");
    QTest::keyClick(&box, Qt::Key_Return);
    QCOMPARE(box.count(), halfHours().size() + 1);
}

void TimeCompletionTest::plainBoxCompletesToo_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("afterwards");
    QTest::newRow("a time stays") << 1 << 1;
    QTest::newRow("an item that is not a complete time means row 0") << 2 << 0;
    QTest::newRow("one whose beginning is another item") << 3 << 1;
    QTest::newRow("none selected means the default") << -1 << 0;
}

void TimeCompletionTest::plainBoxCompletesToo()
{
    QFETCH(int, row);
    Box box(Plain, {"00:00", "09:00", "9:30", "09:00 sharp"});
    box.setCurrentIndex(row);
    box.send(QEvent::FocusOut);
    QTEST(box.currentIndex(), "afterwards");
    QCOMPARE(box.count(), 4);
}

void TimeCompletionTest::addsTheCustomTextUntilItIsEdited()
{
    Form form;
    QVERIFY(form.isActive);
    form.box.setCustomText("(own time)");
    QCOMPARE(form.box.itemText(0), QString());
    form.type("7:45");
    form.press(Qt::Key_Return);
    QCOMPARE(form.box.currentText(), QString("07:45 (own time)"));
    QCOMPARE(form.box.itemText(0), QString("07:45 (own time)"));
    form.waitUntilActive();
    form.box.setFocus();
    QCOMPARE(form.box.currentText(), QString("07:45"));
    QCOMPARE(form.box.itemText(0), QString("07:45"));
    form.press(Qt::Key_Tab);
    QCOMPARE(form.box.currentText(), QString("07:45 (own time)"));
}

void TimeCompletionTest::reportsANewCustomTimeEachTime()
{
    Box box;
    box.setCurrentIndex(4);
    const QSignalSpy changes(&box, SIGNAL(currentIndexChanged(int)));
    box.leaveWith("7:45");
    // Once because the index changes, and once for the new time.
    QCOMPARE(changes.size(), 2);
    box.leaveWith("7:46");
    QCOMPARE(changes.size(), 3);
    for (const QList<QVariant> &change : changes)
        QCOMPARE(change.first().toInt(), 0);
    box.leaveWith("8:00");
    QCOMPARE(changes.size(), 4);
    box.leaveWith("8");
    QCOMPARE(changes.size(), 4);
}

void TimeCompletionTest::returnsToTheDefaultWhenEmptied_data()
{
    QTest::addColumn<QString>("time");
    QTest::addColumn<QString>("result");
    addRow("an item", "08:30", "08:30");
    addRow("a time of its own", "08:15", "08:15");
    addRow("nothing set: the custom row", QString(), "");
}

void TimeCompletionTest::returnsToTheDefaultWhenEmptied()
{
    QFETCH(QString, time);
    QFETCH(QString, result);
    Form form;
    QVERIFY(form.isActive);
    if (!time.isNull())
        form.box.setDefault(time.toStdString());
    form.box.setCurrentIndex(3);
    form.box.clearEditText();
    form.press(Qt::Key_Return);
    QCOMPARE(form.box.currentText(), result);
    // Deliberate: the custom item is hidden even if it is the default.
    QVERIFY(!form.box.isCustomShown());
}

void TimeCompletionTest::showsTheCustomItemForADefaultBeyondTheList_data()
{
    QTest::addColumn<int>("count");
    QTest::newRow("the last one is gone") << halfHours().size();
    QTest::newRow("many are gone") << 10;
}

void TimeCompletionTest::showsTheCustomItemForADefaultBeyondTheList()
{
    QFETCH(int, count);
    Box box;
    box.setDefault("23:30");
    while (box.count() > count)
        box.removeItem(count);
    box.setCurrentIndex(5);
    box.leaveWith(QString());
    QCOMPARE(box.currentIndex(), 0);
    QCOMPARE(box.currentText(), QString());
    QVERIFY(box.isCustomShown());
}

VEMO_TEST_MAIN(TimeCompletionTest)
#include "tst_timecompletion.moc"
