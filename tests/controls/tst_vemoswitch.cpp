// SPDX-License-Identifier: MIT
#include <vemo/vemoswitch.h>

#include "support/activewindow.h"
#include "support/contrast.h"
#include "support/focusring.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/defaulttheme.h>
#include <vemo/dpiinfo.h>
#include <vemo/vemocheckbox.h>

#include <QAccessible>
#include <QLabel>
#include <QVBoxLayout>

/// What a switch does of its own; tst_choices has what it shares with check boxes.
class VemoSwitchTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void aClickAnywhereInItsRowSwitches_data();
    void aClickAnywhereInItsRowSwitches();
    void keysSwitch_data();
    void keysSwitch();
    void mnemonicOfItsTextSwitches();
    void codeSwitchesWithoutAClick();
    void disabledItIgnoresClicksAndKeys();
    void knobIsAtTheEndOfItsState_data();
    void knobIsAtTheEndOfItsState();
    void focusRingIsSeen();
    void rowHasRoomForItsText_data();
    void rowHasRoomForItsText();
    void rowIsAsHighAsACheckBox();
    void rowHasRoomForItsIcon();
    void otherThemeIsShownAtOnce();
    void nameIsItsTextWithoutMnemonic_data();
    void nameIsItsTextWithoutMnemonic();
    void stateIsAnnounced();
    void assistiveToolsSwitchByAClick();
    void mayBeDeletedWhenItIsClicked_data();
    void mayBeDeletedWhenItIsClicked();
};

namespace {

constexpr const char *kText = "Share &this folder";

QAccessibleInterface *interfaceOf(QWidget *widget)
{
    return QAccessible::queryAccessibleInterface(widget);
}

/// Where the track begins and how wide it is, in screen pixels.
int trackLeft()
{
    return DPIinfo::scaled(4);
}

int trackWidth()
{
    return DPIinfo::scaled(32) + 2 * DPIinfo::scaled(1);
}

} // namespace

void VemoSwitchTest::aClickAnywhereInItsRowSwitches_data()
{
    QTest::addColumn<double>("share");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        const QByteArray suffix = direction == Qt::LeftToRight ? "" : ", right to left";
        addRow("left end" + suffix, 0.0, direction);
        addRow("text" + suffix, 0.25, direction);
        addRow("empty space" + suffix, 0.75, direction);
        addRow("right end" + suffix, 1.0, direction);
    }
}

void VemoSwitchTest::aClickAnywhereInItsRowSwitches()
{
    QFETCH(double, share);
    QFETCH(Qt::LayoutDirection, direction);
    VemoSwitch button(kText);
    button.setLayoutDirection(direction);
    button.resize(4 * button.sizeHint().width(), button.sizeHint().height());
    button.show();
    QSignalSpy toggles(&button, &VemoSwitch::toggled);
    QSignalSpy clicks(&button, &VemoSwitch::clicked);
    const QPoint place(int(share * (button.width() - 1)), button.height() - 1);
    QTest::mouseClick(&button, Qt::LeftButton, {}, place);
    QVERIFY(button.isChecked());
    QCOMPARE(toggles, (QList<QVariantList> {{true}}));
    QCOMPARE(clicks, (QList<QVariantList> {{true}}));
    QTest::mouseClick(&button, Qt::LeftButton, {}, place);
    QVERIFY(!button.isChecked());
    QTest::mousePress(&button, Qt::LeftButton, {}, place);
    QTest::mouseRelease(&button, Qt::LeftButton, {}, {-5, -5});
    QVERIFY(!button.isChecked());
    QCOMPARE(clicks.count(), 2);
}

void VemoSwitchTest::keysSwitch_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<bool>("isSwitched");
    addRow("Space", Qt::Key_Space, true);
    addRow("Return", Qt::Key_Return, false);
    addRow("Right", Qt::Key_Right, false);
    addRow("letter", Qt::Key_A, false);
}

void VemoSwitchTest::keysSwitch()
{
    QFETCH(Qt::Key, key);
    QFETCH(bool, isSwitched);
    VemoSwitch button(kText);
    QVERIFY(showActive(&button));
    button.setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(button.hasFocus());
    QTest::keyClick(button.windowHandle(), key);
    QCOMPARE(button.isChecked(), isSwitched);
    QTest::keyClick(button.windowHandle(), key);
    QVERIFY(!button.isChecked());
}

void VemoSwitchTest::mnemonicOfItsTextSwitches()
{
    VemoSwitch button(kText);
    QCOMPARE(button.shortcut(), QKeySequence("Alt+T"));
    button.setShortcut(QKeySequence("Ctrl+T"));
    QVERIFY(showActive(&button));
    QTest::keyClick(button.windowHandle(), Qt::Key_T, Qt::ControlModifier);
    QTRY_VERIFY(button.isChecked());
}

void VemoSwitchTest::codeSwitchesWithoutAClick()
{
    VemoSwitch button;
    QSignalSpy toggles(&button, &VemoSwitch::toggled);
    QSignalSpy clicks(&button, &VemoSwitch::clicked);
    button.setChecked(true);
    button.setChecked(true);
    QCOMPARE(toggles, (QList<QVariantList> {{true}}));
    QCOMPARE(clicks.count(), 0);
}

void VemoSwitchTest::disabledItIgnoresClicksAndKeys()
{
    VemoSwitch button(kText);
    button.setEnabled(false);
    button.show();
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);
    QVERIFY(!button.isChecked());
}

void VemoSwitchTest::knobIsAtTheEndOfItsState_data()
{
    QTest::addColumn<bool>("isOn");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::addColumn<bool>("isKnobOnTheRight");
    addRow("off", false, Qt::LeftToRight, false);
    addRow("on", true, Qt::LeftToRight, true);
    addRow("off, right to left", false, Qt::RightToLeft, true);
    addRow("on, right to left", true, Qt::RightToLeft, false);
}

void VemoSwitchTest::knobIsAtTheEndOfItsState()
{
    QFETCH(bool, isOn);
    QFETCH(Qt::LayoutDirection, direction);
    QFETCH(bool, isKnobOnTheRight);
    VemoSwitch button;
    button.setLayoutDirection(direction);
    button.setChecked(isOn);
    button.adjustSize();
    const int start =
        direction == Qt::LeftToRight ? trackLeft() : button.width() - trackLeft() - trackWidth();
    const int knob = DPIinfo::scaled(1) + DPIinfo::scaled(8);
    const QPoint left(start + knob, button.height() / 2);
    const QPoint right(start + trackWidth() - knob, button.height() / 2);
    const QColor knobColor = defaultThemeColor(isOn ? "on-accent" : "soft-ink");
    const QColor trackColor = defaultThemeColor(isOn ? "accent" : "surface");
    QCOMPARE(pixelAt(&button, left), isKnobOnTheRight ? trackColor : knobColor);
    QCOMPARE(pixelAt(&button, right), isKnobOnTheRight ? knobColor : trackColor);
    QVERIFY(contrast(knobColor, trackColor) >= 3);
}

void VemoSwitchTest::focusRingIsSeen()
{
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    for (const bool isOn : {false, true}) {
        for (const QString &text : {QString(), QString(kText)}) {
            auto *button = new VemoSwitch(text);
            button->setAccessibleName("Share");
            button->setChecked(isOn);
            layout->addWidget(button);
        }
    }
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QApplication::setActiveWindow(&window);
    QTRY_VERIFY(QApplication::activeWindow() == &window);
    verifyRings(&window, 4);
}

void VemoSwitchTest::rowHasRoomForItsText_data()
{
    QTest::addColumn<int>("points");
    for (const int points : {9, 14, 20, 40})
        QTest::addRow("%d pt", points) << points;
}

void VemoSwitchTest::rowHasRoomForItsText()
{
    QFETCH(int, points);
    QWidget parent;
    const VemoSwitch button(kText, &parent);
    const VemoSwitch bare;
    QFont font = parent.font();
    font.setPointSize(points);
    parent.setFont(font);
    const QSize hint = button.sizeHint();
    const QFontMetrics metrics = button.fontMetrics();
    QVERIFY(hint.height() >= metrics.height() + 2 * DPIinfo::scaled(3));
    QVERIFY(hint.width() - bare.sizeHint().width()
        >= metrics.size(Qt::TextShowMnemonic, kText).width());
    QCOMPARE(button.minimumSizeHint(), hint);
}

void VemoSwitchTest::rowIsAsHighAsACheckBox()
{
    QCOMPARE(VemoSwitch().sizeHint().height(), VemoCheckBox().sizeHint().height());
    QCOMPARE(VemoSwitch(kText).sizeHint().height(), VemoCheckBox(kText).sizeHint().height());
}

void VemoSwitchTest::rowHasRoomForItsIcon()
{
    VemoSwitch button(kText);
    const QSize before = button.sizeHint();
    button.setIconSize({48, 48});
    button.setIcon(QPixmap(48, 48));
    QVERIFY(button.sizeHint().width() >= before.width() + 48);
    QVERIFY(button.sizeHint().height() >= 48);
}

void VemoSwitchTest::otherThemeIsShownAtOnce()
{
    VemoSwitch button(kText);
    button.setChecked(true);
    button.adjustSize();
    const QPoint track(trackLeft() + trackWidth() / 4, button.height() / 2);
    const QColor light = defaultThemeColor("accent");
    QCOMPARE(pixelAt(&button, track), light);
    QVERIFY(setDefaultThemeMode(DefaultThemeMode::Dark));
    QVERIFY(defaultThemeColor("accent") != light);
    QCOMPARE(pixelAt(&button, track), defaultThemeColor("accent"));
    QVERIFY(setDefaultThemeMode(DefaultThemeMode::Light));
    QCOMPARE(pixelAt(&button, track), light);
}

void VemoSwitchTest::nameIsItsTextWithoutMnemonic_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("given");
    QTest::addColumn<QString>("name");
    addRow("plain", QString("Share"), QString(), QString("Share"));
    addRow("mnemonic", QString("Share &this"), QString(), QString("Share this"));
    addRow("ampersand", QString("Files && folders"), QString(), QString("Files & folders"));
    addRow("ampersand at the end", QString("Share &"), QString(), QString("Share "));
    addRow("given", QString("Share"), QString("Share the folder"), QString("Share the folder"));
    addRow("label", QString(), QString(), QString("Previews"));
}

void VemoSwitchTest::nameIsItsTextWithoutMnemonic()
{
    QFETCH(QString, text);
    QFETCH(QString, given);
    QFETCH(QString, name);
    QWidget window;
    QLabel caption("&Previews", &window);
    VemoSwitch button(text, &window);
    button.setAccessibleName(given);
    if (text.isEmpty())
        caption.setBuddy(&button);
    QCOMPARE(interfaceOf(&button)->text(QAccessible::Name), name);
}

void VemoSwitchTest::stateIsAnnounced()
{
    VemoSwitch button(kText);
    QAccessibleInterface *accessible = interfaceOf(&button);
    QCOMPARE(accessible->role(), QAccessible::CheckBox);
    QCOMPARE(accessible->text(QAccessible::Accelerator),
        QKeySequence("Alt+T").toString(QKeySequence::NativeText));
    QVERIFY(accessible->state().checkable);
    QVERIFY(accessible->state().focusable);
    QVERIFY(!accessible->state().checked);
    button.setChecked(true);
    QVERIFY(accessible->state().checked);
    button.setDown(true);
    QVERIFY(accessible->state().pressed);
    button.setEnabled(false);
    QVERIFY(accessible->state().disabled);
}

void VemoSwitchTest::assistiveToolsSwitchByAClick()
{
    VemoSwitch button(kText);
    QAccessibleActionInterface *actions = interfaceOf(&button)->actionInterface();
    const QString toggle = QAccessibleActionInterface::toggleAction();
    QVERIFY(actions->actionNames().contains(toggle));
    QVERIFY(actions->actionNames().contains(QAccessibleActionInterface::setFocusAction()));
    QCOMPARE(actions->keyBindingsForAction(toggle).size(), 1);
    QSignalSpy clicks(&button, &VemoSwitch::clicked);
    actions->doAction(toggle);
    QCOMPARE(clicks, (QList<QVariantList> {{true}}));
    actions->doAction(QAccessibleActionInterface::setFocusAction());
    QVERIFY(button.isChecked());
    button.setEnabled(false);
    QCOMPARE(actions->actionNames(), QStringList());
    actions->doAction(toggle);
    QVERIFY(button.isChecked());
}

void VemoSwitchTest::mayBeDeletedWhenItIsClicked_data()
{
    QTest::addColumn<QByteArray>("by");
    for (const QByteArray by : {"mouse", "key", "code", "assistive tools"})
        addRow(by, by);
}

void VemoSwitchTest::mayBeDeletedWhenItIsClicked()
{
    QFETCH(QByteArray, by);
    const QPointer<VemoSwitch> button = new VemoSwitch(kText);
    button->show();
    QVERIFY(QTest::qWaitForWindowExposed(button));
    connect(button, &VemoSwitch::clicked, button, [&button] { delete button; });
    if (by == "mouse")
        QTest::mouseClick(button, Qt::LeftButton);
    else if (by == "key")
        QTest::keyClick(button, Qt::Key_Space);
    else if (by == "code")
        button->click();
    else
        interfaceOf(button)->actionInterface()->doAction(
            QAccessibleActionInterface::toggleAction());
    QVERIFY(!button);
}

VEMO_TEST_MAIN(VemoSwitchTest)
#include "tst_vemoswitch.moc"
