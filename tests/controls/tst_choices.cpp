// SPDX-License-Identifier: MIT
// Check box, radio button and switch, which differ in their style section and in what a click does.
#include <vemo/vemocheckbox.h>
#include <vemo/vemoradiobutton.h>
#include <vemo/vemoswitch.h>

#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/stylemanager.h>

class ChoicesTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void startsUncheckedWithoutTextAndParent_data() { kinds(); }
    void startsUncheckedWithoutTextAndParent();
    void takesTextParentAndTheScaledSection_data() { kinds(); }
    void takesTextParentAndTheScaledSection();
    void isAClassOfItsOwnForStyleSheets_data() { kinds(); }
    void isAClassOfItsOwnForStyleSheets();
    void checkBoxTogglesByMouseAndKeyboard();
    void radioButtonsTakeTurnsByMouseAndKeyboard();

private:
    static void kinds();
};

using Make = QAbstractButton *(*)(const QString &text, QWidget *parent);
using MakePlain = QAbstractButton *(*)();
Q_DECLARE_METATYPE(Make)
Q_DECLARE_METATYPE(MakePlain)

namespace {

template <typename Choice> void addKind(const char *section)
{
    const Make make = [](const QString &text, QWidget *parent) -> QAbstractButton * {
        return new Choice(text, parent);
    };
    const MakePlain makePlain = []() -> QAbstractButton * { return new Choice; };
    addRow(Choice::staticMetaObject.className(), make, makePlain, section);
}

} // namespace

void ChoicesTest::kinds()
{
    QTest::addColumn<Make>("make");
    QTest::addColumn<MakePlain>("makePlain");
    QTest::addColumn<QString>("section");
    addKind<VemoCheckBox>("component.checkbox");
    addKind<VemoRadioButton>("component.radio_button");
    addKind<VemoSwitch>("component.switch");
}

void ChoicesTest::startsUncheckedWithoutTextAndParent()
{
    QFETCH(const MakePlain, makePlain);
    const QScopedPointer<QAbstractButton> choice(makePlain());
    QCOMPARE(choice->text(), QString());
    QVERIFY(!choice->parent());
    QVERIFY(!choice->isChecked());
}

void ChoicesTest::takesTextParentAndTheScaledSection()
{
    QFETCH(const Make, make);
    QFETCH(const QString, section);
    QWidget parent;
    const QAbstractButton *choice = make("Keep a copy", &parent);
    QCOMPARE(choice->text(), QString("Keep a copy"));
    QCOMPARE(choice->parentWidget(), &parent);
    QVERIFY(!choice->styleSheet().isEmpty());
    QCOMPARE(choice->styleSheet(), getStyleSheet(section, false));
}

void ChoicesTest::isAClassOfItsOwnForStyleSheets()
{
    QFETCH(const MakePlain, makePlain);
    const QScopedPointer<QAbstractButton> choice(makePlain());
    QCOMPARE(choice->metaObject()->className(), QTest::currentDataTag());
}

void ChoicesTest::checkBoxTogglesByMouseAndKeyboard()
{
    VemoCheckBox box("Keep a copy");
    box.show();
    QSignalSpy toggles(&box, SIGNAL(toggled(bool)));
    QTest::mouseClick(&box, Qt::LeftButton, {}, {8, box.height() / 2});
    QVERIFY(box.isChecked());
    QTest::keyClick(&box, Qt::Key_Space);
    QVERIFY(!box.isChecked());
    QCOMPARE(toggles.count(), 2);
}

void ChoicesTest::radioButtonsTakeTurnsByMouseAndKeyboard()
{
    QWidget window;
    VemoRadioButton daily("Daily", &window);
    VemoRadioButton weekly("Weekly", &window);
    weekly.move(0, 40);
    window.show();
    QTest::mouseClick(&daily, Qt::LeftButton, {}, {8, daily.height() / 2});
    QVERIFY(daily.isChecked());
    QTest::keyClick(&weekly, Qt::Key_Space);
    QVERIFY(weekly.isChecked());
    QVERIFY(!daily.isChecked());
}

VEMO_TEST_MAIN(ChoicesTest)
#include "tst_choices.moc"
