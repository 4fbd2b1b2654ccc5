// SPDX-License-Identifier: MIT
// Changes to a time box while it is completing a time: slots that make it read-only or editable,
// and the context menu of its edit, which takes the focus.
#include "datetime/timebox.h"
#include "support/testhost.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTimer>

#include <functional>

using Cause = std::function<void(Box &)>;
Q_DECLARE_METATYPE(Cause)

class TimeListenersTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void survivesBeingSwitchedByItsListeners_data();
    void survivesBeingSwitchedByItsListeners();
    void reportsEachNewTimeOnce_data();
    void reportsEachNewTimeOnce();
    void reportsItsTime_data();
    void reportsItsTime();
    void showsATimeThatIsSet();
    void takesTextsOfEveryKind();
    void menuOfTheEditCopiesTheTime_data();
    void menuOfTheEditCopiesTheTime();
    void menuOfTheEditPastesOverTheTime();
};

void TimeListenersTest::survivesBeingSwitchedByItsListeners_data()
{
    QTest::addColumn<Cause>("cause");
    QTest::newRow("typed time") << Cause([](Box &box) { box.leaveWith("7:45"); });
    QTest::newRow("typed item") << Cause([](Box &box) { box.leaveWith("8"); });
    QTest::newRow("emptied field") << Cause([](Box &box) { box.leaveWith(QString()); });
    QTest::newRow("unknown text") << Cause([](Box &box) { box.setCurrentText("07:45"); });
    QTest::newRow("known text") << Cause([](Box &box) { box.setCurrentText("08:00"); });
    QTest::newRow("default") << Cause([](Box &box) { box.setDefault("07:45"); });
    QTest::newRow("other times") << Cause([](Box &box) { box.setTimes({"05:00", "06:00"}); });
    QTest::newRow("switched off") << Cause([](Box &box) { box.setEditable(false); });
    QTest::newRow("switched on") << Cause([](Box &box) {
        box.setEditable(false);
        box.setEditable(true);
    });
    QTest::newRow("cleared") << Cause([](Box &box) {
        box.clear();
        box.send(QEvent::FocusOut);
    });
}

void TimeListenersTest::survivesBeingSwitchedByItsListeners()
{
    QFETCH(Cause, cause);
    Box box;
    const auto times = [&box] { return box.count() - (box.isEditable() ? 1 : 0); };
    box.setCurrentIndex(4);
    const auto switchOff = [&box] { box.setEditable(false); };
    connect(&box, qOverload<int>(&QComboBox::currentIndexChanged), &box, switchOff);
    connect(&box, &QComboBox::currentTextChanged, &box, switchOff);
    cause(box);
    QCOMPARE(box.times().size(), times());
    for (int row = 0; row < box.count(); ++row)
        QVERIFY(box.isRowShown(row) || (box.isEditable() && row == 0));
    box.setEditable(true);
    box.setEditable(false);
    QCOMPARE(box.times().size(), box.count());
}

void TimeListenersTest::reportsEachNewTimeOnce_data()
{
    QTest::addColumn<Cause>("cause");
    QTest::addColumn<QTime>("time");
    QTest::newRow("item chosen") << Cause([](Box &box) { box.setCurrentIndex(3); }) << QTime(1, 0);
    QTest::newRow("item typed") << Cause([](Box &box) { box.leaveWith("8"); }) << QTime(8, 0);
    QTest::newRow("custom time typed")
        << Cause([](Box &box) { box.leaveWith("7:45"); }) << QTime(7, 45);
    QTest::newRow("another in the same row") << Cause([](Box &box) {
        box.leaveWith("7:45");
        box.setCurrentText("07:46");
    }) << QTime(7, 46);
    QTest::newRow("set") << Cause([](Box &box) { box.setTime({9, 10}); }) << QTime(9, 10);
    QTest::newRow("no time") << Cause([](Box &box) { box.setCurrentText("noon"); }) << QTime();
    QTest::newRow("cleared") << Cause([](Box &box) { box.clear(); }) << QTime();
}

void TimeListenersTest::reportsEachNewTimeOnce()
{
    QFETCH(Cause, cause);
    QFETCH(QTime, time);
    Box box;
    box.setCustomText("(own)");
    box.setTime({5, 0});
    const QSignalSpy times(&box, &VemoTimeComboBox::timeChanged);
    box.setTime({5, 0});
    box.leaveWith("5");
    box.insertItem(1, "00:15");
    QCOMPARE(times.size(), 0);
    box.removeItem(1);
    cause(box);
    QCOMPARE(times.isEmpty() ? QTime(5, 0) : times.last()[0].toTime(), time);
    QCOMPARE(box.time(), time);
    const int count = times.size();
    box.send(QEvent::FocusIn);
    if (time.isValid())
        box.send(QEvent::FocusOut);
    QCOMPARE(times.size(), count);
    for (int next = 1; next < count; ++next)
        QVERIFY(times[next] != times[next - 1]);
}

void TimeListenersTest::reportsItsTime_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QTime>("time");
    QTest::newRow("full") << "07:45" << QTime(7, 45);
    QTest::newRow("with a custom text") << "07:45 (own)" << QTime(7, 45);
    QTest::newRow("not completed") << "7:45" << QTime();
    QTest::newRow("out of range") << "99:99" << QTime();
    QTest::newRow("nothing") << "" << QTime();
}

void TimeListenersTest::reportsItsTime()
{
    QFETCH(QString, text);
    Box box;
    box.setCurrentText(text);
    QTEST(box.time(), "time");
}

void TimeListenersTest::showsATimeThatIsSet()
{
    Box box;
    box.setTime({8, 30, 59});
    QCOMPARE(box.currentText(), QString("08:30"));
    QVERIFY(!box.isCustomShown());
    box.setTime({8, 31});
    QCOMPARE(box.currentText(), QString("08:31"));
    QVERIFY(box.isCustomShown());
    box.setTime({});
    QCOMPARE(box.currentText(), QString("08:31"));
    Box plain(Plain);
    plain.setTime({8, 31});
    QCOMPARE(plain.currentText(), QString("00:00"));
}

void TimeListenersTest::takesTextsOfEveryKind()
{
    Box box;
    box.setCurrentText("08:30");
    QCOMPARE(box.currentText(), QString("08:30"));
    box.setCurrentText(std::string("09:30"));
    QCOMPARE(box.currentText(), QString("09:30"));
    box.setCurrentText(QString("10:30"));
    QCOMPARE(box.currentText(), QString("10:30"));
    const auto emptied = [&box] {
        box.leaveWith(QString());
        return box.currentText();
    };
    box.setDefault("01:30");
    QCOMPARE(emptied(), QString("01:30"));
    box.setDefault(std::string("02:30"));
    QCOMPARE(emptied(), QString("02:30"));
    box.setDefault(QString("03:30"));
    QCOMPARE(emptied(), QString("03:30"));
}

namespace {

/// Opens the context menu of the box's edit and picks an entry, by keyboard.
void pickFromMenu(Form &form, const QString &entry)
{
    QContextMenuEvent event(
        QContextMenuEvent::Keyboard, {5, 5}, form.box.mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(&form.box, &event);
    auto *menu = qobject_cast<QMenu *>(QApplication::activePopupWidget());
    QVERIFY(menu);
    QVERIFY(QTest::qWaitForWindowExposed(menu));
    // An X server reports late that the menu has the focus, and then that the window has it again.
    const bool isOnX11 = QGuiApplication::platformName() == "xcb";
    if (isOnX11)
        QTRY_COMPARE(QGuiApplication::focusWindow(), menu->windowHandle());
    for (QAction *action : menu->actions()) {
        if (action->text().section('\t', 0, 0).remove('&') == entry) {
            QVERIFY(action->isEnabled());
            menu->setActiveAction(action);
        }
    }
    QVERIFY(menu->activeAction());
    QTest::keyClick(menu, Qt::Key_Return);
    QTRY_VERIFY(!QApplication::activePopupWidget());
    if (isOnX11)
        QTRY_COMPARE(QGuiApplication::focusWindow(), form.window.windowHandle());
}

} // namespace

void TimeListenersTest::menuOfTheEditCopiesTheTime_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("start");
    QTest::addColumn<int>("length");
    QTest::addColumn<QString>("copied");
    QTest::newRow("whole item") << "09:00" << 0 << 5 << "09:00";
    QTest::newRow("hour of an item") << "09:00" << 0 << 2 << "09";
    QTest::newRow("minutes of an item") << "09:00" << 3 << 2 << "00";
    QTest::newRow("whole custom time") << "07:45" << 0 << 5 << "07:45";
    QTest::newRow("completed in between") << "7:45" << 0 << 4 << "07:45";
    QTest::newRow("hour of one completed in between") << "7:45" << 0 << 1 << "7";
    QTest::newRow("minutes of one completed in between") << "7:5" << 2 << 1 << "5";
}

void TimeListenersTest::menuOfTheEditCopiesTheTime()
{
    QFETCH(QString, typed);
    QFETCH(int, start);
    QFETCH(int, length);
    Form form;
    QVERIFY(form.isActive);
    form.box.setCustomText("(own)");
    form.type(typed);
    form.box.lineEdit()->setSelection(start, length);
    QGuiApplication::clipboard()->setText("none");
    pickFromMenu(form, "Copy");
    QTEST(QGuiApplication::clipboard()->text(), "copied");
}

void TimeListenersTest::menuOfTheEditPastesOverTheTime()
{
    Form form;
    QVERIFY(form.isActive);
    form.box.setCustomText("(own)");
    form.type("7:45");
    form.box.lineEdit()->selectAll();
    QGuiApplication::clipboard()->setText("08:15");
    pickFromMenu(form, "Paste");
    QCOMPARE(form.box.currentText(), QString("08:15"));
    form.press(Qt::Key_Return);
    QCOMPARE(form.box.currentText(), QString("08:15 (own)"));
}

VEMO_TEST_MAIN(TimeListenersTest)
#include "tst_timelisteners.moc"
