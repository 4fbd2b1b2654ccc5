// SPDX-License-Identifier: MIT
// What a date field and a box of times can do beyond choosing; all of it is off at first.
#include <vemo/vemodateselector.h>

#include "datetime/timebox.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/stylemanager.h>
#include <vemo/vemocalanderview.h>
#include <vemo/vemoiconbutton.h>

#include <QStyleOptionComboBox>

class DateOptionsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void startsWithoutAnyOption();
    void rangeIsThatOfItsCalendar();
    void formatIsThatOfTheLocale_data();
    void formatIsThatOfTheLocale();
    void newFormatShowsTheDateAgain();
    void keyClearsTheDate_data();
    void keyClearsTheDate();
    void keysArePassedOnWithoutADate();
    void buttonClearsTheDate();
    void buttonIsShownWithADateOnly();
    void buttonIsBesideTextAndArrow_data();
    void buttonIsBesideTextAndArrow();
    void losesItsButtonAgain();
    void mayDieInASlotOfItsButton();
    void offersTimesByInterval_data();
    void offersTimesByInterval();
};

namespace {

const QDate kDate(2024, 3, 7);

struct Clearable
{
    Clearable()
    {
        field->setClearable(true);
        field->setDate(kDate);
        window.resize(400, 80);
        window.show();
    }
    VemoIconButton *button() const
    {
        return field->findChild<VemoIconButton *>({}, Qt::FindDirectChildrenOnly);
    }
    QRect part(QStyle::SubControl control) const
    {
        QStyleOptionComboBox option;
        option.initFrom(field);
        return field->style()->subControlRect(QStyle::CC_ComboBox, &option, control, field);
    }

    QWidget window;
    VemoDateSelector *field = new VemoDateSelector("Any date", &window);
};

} // namespace

void DateOptionsTest::startsWithoutAnyOption()
{
    VemoDateSelector field;
    QVERIFY(!field.isClearable());
    QCOMPARE(field.displayFormat(), QString());
    QVERIFY(!field.findChild<VemoIconButton *>({}, Qt::FindDirectChildrenOnly));
    field.setDate(kDate);
    QTest::keyClick(&field, Qt::Key_Delete);
    QCOMPARE(field.date(), kDate);
    QCOMPARE(field.currentText(), QString("2024-03-07"));
    QCOMPARE(field.styleSheet(),
        getStyleSheet("component.date_selector") + getStyleSheet("component.menu"));
}

void DateOptionsTest::rangeIsThatOfItsCalendar()
{
    VemoDateSelector field;
    const VemoCalanderView *calendar = field.getCalendarView();
    const QDate first(2024, 2, 1);
    const QDate last(2024, 4, 30);
    field.setMinimumDate(first);
    QCOMPARE(calendar->minimumDate(), first);
    field.setMaximumDate(last);
    QCOMPARE(calendar->maximumDate(), last);
    field.setDateRange(first.addYears(1), last.addYears(1));
    QCOMPARE(field.minimumDate(), first.addYears(1));
    QCOMPARE(field.maximumDate(), last.addYears(1));
}

void DateOptionsTest::formatIsThatOfTheLocale_data()
{
    QTest::addColumn<QLocale>("locale");
    QTest::addColumn<QString>("format");
    QTest::addColumn<QString>("text");
    const QLocale german(QLocale::German, QLocale::Germany);
    addRow("none", german, QString(), "2024-03-07");
    addRow("short", german, german.dateFormat(QLocale::ShortFormat), "07.03.24");
    addRow("with a name", german, "d. MMMM yyyy", QString::fromUtf8("7. März 2024"));
    addRow(
        "English", QLocale(QLocale::English, QLocale::UnitedStates), "MMM d, yyyy", "Mar 7, 2024");
}

void DateOptionsTest::formatIsThatOfTheLocale()
{
    QFETCH(QLocale, locale);
    QFETCH(QString, format);
    VemoDateSelector field;
    field.setLocale(locale);
    field.setDisplayFormat(format);
    QCOMPARE(field.displayFormat(), format);
    field.setDate(kDate);
    QTEST(field.currentText(), "text");
    QCOMPARE(field.date(), kDate);
}

void DateOptionsTest::newFormatShowsTheDateAgain()
{
    VemoDateSelector field("Any date", nullptr);
    field.setLocale(QLocale::c());
    field.setDisplayFormat("dd/MM/yyyy");
    QCOMPARE(field.currentText(), QString("Any date"));
    field.setDate(kDate);
    QCOMPARE(field.currentText(), QString("07/03/2024"));
    field.setDisplayFormat({});
    QCOMPARE(field.currentText(), QString("2024-03-07"));
    QCOMPARE(field.date(), kDate);
}

void DateOptionsTest::keyClearsTheDate_data()
{
    QTest::addColumn<int>("key");
    QTest::newRow("Delete") << int(Qt::Key_Delete);
    QTest::newRow("Backspace") << int(Qt::Key_Backspace);
}

void DateOptionsTest::keyClearsTheDate()
{
    QFETCH(int, key);
    const Clearable form;
    const QSignalSpy changes(form.field, SIGNAL(currentIndexChanged(int)));
    QTest::keyClick(form.field, Qt::Key(key));
    QCOMPARE(form.field->date(), QDate());
    QCOMPARE(form.field->currentText(), QString("Any date"));
    QCOMPARE(changes.size(), 2);
}

void DateOptionsTest::keysArePassedOnWithoutADate()
{
    const Clearable form;
    form.field->clearDate();
    const QSignalSpy changes(form.field, SIGNAL(currentIndexChanged(int)));
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Delete, Qt::NoModifier);
    QCoreApplication::sendEvent(form.field, &press);
    QVERIFY(!press.isAccepted());
    QCOMPARE(changes.size(), 0);
}

void DateOptionsTest::buttonClearsTheDate()
{
    const Clearable form;
    VemoIconButton *button = form.button();
    QCOMPARE(button->accessibleName(), QString("Clear"));
    QCOMPARE(button->focusPolicy(), Qt::NoFocus);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(form.field->date(), QDate());
    QVERIFY(!form.field->view()->isVisible());
}

void DateOptionsTest::buttonIsShownWithADateOnly()
{
    const Clearable form;
    QVERIFY(form.button()->isVisible());
    form.field->clearDate();
    QVERIFY(!form.button()->isVisible());
    form.field->dateSelect(kDate);
    QVERIFY(form.button()->isVisible());
    form.field->dateSelect({});
    QVERIFY(!form.button()->isVisible());
}

void DateOptionsTest::buttonIsBesideTextAndArrow_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("left to right") << Qt::LeftToRight;
    QTest::newRow("right to left") << Qt::RightToLeft;
}

void DateOptionsTest::buttonIsBesideTextAndArrow()
{
    QFETCH(Qt::LayoutDirection, direction);
    const Clearable form;
    form.field->setLayoutDirection(direction);
    for (const int width : {form.field->sizeHint().width(), 300}) {
        form.field->resize(width, form.field->height());
        const QRect button = form.button()->geometry();
        QVERIFY(form.field->rect().contains(button));
        QVERIFY(!button.intersects(form.part(QStyle::SC_ComboBoxArrow)));
        const QRect text = form.part(QStyle::SC_ComboBoxEditField);
        QVERIFY(!button.intersects(text));
        // Qt's own size hint may be short of a pixel.
        QVERIFY(text.width() + 1 >= form.field->fontMetrics().horizontalAdvance("2024-03-07"));
    }
}

void DateOptionsTest::losesItsButtonAgain()
{
    const Clearable form;
    form.field->setClearable(false);
    QVERIFY(!form.field->isClearable());
    QVERIFY(!form.button());
    QCOMPARE(form.field->styleSheet(),
        getStyleSheet("component.date_selector") + getStyleSheet("component.menu"));
    QTest::keyClick(form.field, Qt::Key_Delete);
    QCOMPARE(form.field->date(), kDate);
}

void DateOptionsTest::mayDieInASlotOfItsButton()
{
    const Clearable form;
    const QPointer<VemoDateSelector> field(form.field);
    connect(form.field, qOverload<int>(&QComboBox::currentIndexChanged), this, [&form](int index) {
        if (index == 0)
            form.field->deleteLater();
    });
    QTest::keyClick(form.field, Qt::Key_Delete);
    QTRY_VERIFY(!field);
}

void DateOptionsTest::offersTimesByInterval_data()
{
    QTest::addColumn<QTime>("first");
    QTest::addColumn<QTime>("last");
    QTest::addColumn<int>("minutes");
    QTest::addColumn<QStringList>("times");
    QTest::newRow("half hours") << QTime(8, 0) << QTime(9, 30) << 30
                                << QStringList({"08:00", "08:30", "09:00", "09:30"});
    QTest::newRow("not up to the last")
        << QTime(8, 0) << QTime(9, 0) << 45 << QStringList({"08:00", "08:45"});
    QTest::newRow("one") << QTime(8, 0) << QTime(8, 0) << 15 << QStringList("08:00");
    QTest::newRow("up to midnight")
        << QTime(22, 0) << QTime(23, 59) << 60 << QStringList({"22:00", "23:00"});
    QTest::newRow("last before first") << QTime(9, 0) << QTime(8, 0) << 30 << QStringList();
    QTest::newRow("no interval") << QTime(8, 0) << QTime(9, 0) << 0 << QStringList("07:45");
    QTest::newRow("no time") << QTime() << QTime(9, 0) << 30 << QStringList("07:45");
}

void DateOptionsTest::offersTimesByInterval()
{
    QFETCH(QTime, first);
    QFETCH(QTime, last);
    QFETCH(int, minutes);
    Box box(Editable, {"07:45"});
    box.setTimes(first, last, minutes);
    QTEST(box.times(), "times");
}

VEMO_TEST_MAIN(DateOptionsTest)
#include "tst_dateoptions.moc"
