// SPDX-License-Identifier: MIT
#include <vemo/vemocheckbox.h>

#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/stylemanager.h>

#include <QSet>

class VemoCheckBoxTest : public VemoTest
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

void VemoCheckBoxTest::startsWithoutTextAndParent()
{
    const VemoCheckBox box;
    QCOMPARE(box.text(), QString());
    QVERIFY(!box.parent());
    QCOMPARE(box.checkState(), Qt::Unchecked);
}

void VemoCheckBoxTest::takesTextParentAndTheScaledSection()
{
    QWidget parent;
    const VemoCheckBox box("Keep a copy", &parent);
    QCOMPARE(box.text(), QString("Keep a copy"));
    QCOMPARE(box.parentWidget(), &parent);
    QVERIFY(!box.styleSheet().isEmpty());
    QCOMPARE(box.styleSheet(), getStyleSheet("component.checkbox", false));
}

void VemoCheckBoxTest::isAClassOfItsOwnForStyleSheets()
{
    QCOMPARE(VemoCheckBox::staticMetaObject.className(), "VemoCheckBox");
}

void VemoCheckBoxTest::togglesByMouseAndKeyboard()
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

void VemoCheckBoxTest::everyStateLooksDifferent()
{
    VemoCheckBox box("Keep a copy");
    box.setTristate(true);
    QSet<QByteArray> looks;
    for (const bool enabled : {true, false}) {
        for (const Qt::CheckState state : {Qt::Unchecked, Qt::PartiallyChecked, Qt::Checked}) {
            for (const bool pressed : {false, true}) {
                box.setEnabled(enabled);
                box.setCheckState(state);
                box.setDown(pressed && enabled);
                looks.insert(pixels(box));
            }
        }
    }
    QCOMPARE(looks.size(), 9); // Three states, each at rest, pressed and disabled.
}

VEMO_TEST_MAIN(VemoCheckBoxTest)
#include "tst_vemocheckbox.moc"
