// SPDX-License-Identifier: MIT
#include <vemo/vemobutton.h>

#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/stylemanager.h>

class VemoButtonTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void takesTheScaledSectionOfItsRole();
};

void VemoButtonTest::takesTheScaledSectionOfItsRole()
{
    const VemoButton button("Save", VemoButton::APPLY);
    QCOMPARE(button.styleSheet(), getStyleSheet("component.apply_button"));
    QVERIFY(button.isFlat());
}

VEMO_TEST_MAIN(VemoButtonTest)
#include "tst_vemobutton.moc"
