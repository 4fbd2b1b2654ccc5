// SPDX-License-Identifier: MIT
#include <vemo/vemoradiobutton.h>

#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/stylemanager.h>

#include <QSet>

class VemoRadioButtonTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void startsWithoutTextAndParent();
    void takesTextParentAndTheScaledSection();
    void isAClassOfItsOwnForStyleSheets();
    void togglesByMouseAndKeyboard();
    void everyStateLooksDifferent();
};

namespace {

QByteArray pixels(QWidget &widget)
{
    const QImage picture = widget.grab().toImage();
    return {reinterpret_cast<const char *>(picture.constBits()), int(picture.sizeInBytes())};
}

} // namespace

void VemoRadioButtonTest::startsWithoutTextAndParent()
{
    const VemoRadioButton button;
    QCOMPARE(button.text(), QString());
    QVERIFY(!button.parent());
    QVERIFY(!button.isChecked());
}

void VemoRadioButtonTest::takesTextParentAndTheScaledSection()
{
    QWidget parent;
    const VemoRadioButton button("Daily", &parent);
    QCOMPARE(button.text(), QString("Daily"));
    QCOMPARE(button.parentWidget(), &parent);
    QVERIFY(!button.styleSheet().isEmpty());
    QCOMPARE(button.styleSheet(), getStyleSheet("component.radio_button", false));
}

void VemoRadioButtonTest::isAClassOfItsOwnForStyleSheets()
{
    QCOMPARE(VemoRadioButton::staticMetaObject.className(), "VemoRadioButton");
}

void VemoRadioButtonTest::togglesByMouseAndKeyboard()
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

void VemoRadioButtonTest::everyStateLooksDifferent()
{
    VemoRadioButton button("Daily");
    button.setAutoExclusive(false);
    QSet<QByteArray> looks;
    for (const bool enabled : {true, false}) {
        for (const bool checked : {false, true}) {
            for (const bool pressed : {false, true}) {
                button.setEnabled(enabled);
                button.setChecked(checked);
                button.setDown(pressed && enabled);
                looks.insert(pixels(button));
            }
        }
    }
    QCOMPARE(looks.size(), 6); // Off and on, each at rest, pressed and disabled.
}

VEMO_TEST_MAIN(VemoRadioButtonTest)
#include "tst_vemoradiobutton.moc"
