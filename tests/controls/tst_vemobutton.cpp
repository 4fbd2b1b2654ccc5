// SPDX-License-Identifier: MIT
#include <vemo/vemobutton.h>

#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/stylemanager.h>

#include <QAccessible>
#include <QHBoxLayout>

#include <climits>

class VemoButtonTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void isAClassOfItsOwnWithoutSignalsOrSlots();
    void isAFlatParentlessButtonOfFixedSize();
    void mayBeMadeInItsParent();
    void takesTheScaledSectionOfItsRole_data();
    void takesTheScaledSectionOfItsRole();
    void numbersOfTheRolesAreFixed();
    void anyOtherRoleLeavesAPlainFlatButton_data();
    void anyOtherRoleLeavesAPlainFlatButton();
    void lengthsOfTheSectionAreScaled();
    void belongsToTheWindowOfItsLayout();
    void clicksByMouseAndKeyboard();
    void isAnnouncedAsAButtonUnderItsText();
};

void VemoButtonTest::isAClassOfItsOwnWithoutSignalsOrSlots()
{
    const QMetaObject &meta = VemoButton::staticMetaObject;
    QCOMPARE(meta.className(), "VemoButton");
    QCOMPARE(meta.superClass(), &QPushButton::staticMetaObject);
    QCOMPARE(meta.methodCount(), meta.methodOffset());
}

void VemoButtonTest::isAFlatParentlessButtonOfFixedSize()
{
    const VemoButton button("Save & close", VemoButton::APPLY);
    QCOMPARE(button.text(), QString("Save & close"));
    QVERIFY(!button.parent());
    QVERIFY(button.isFlat());
    QCOMPARE(button.sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
}

void VemoButtonTest::mayBeMadeInItsParent()
{
    QWidget window;
    const auto *button = new VemoButton("Save", VemoButton::APPLY, &window);
    QCOMPARE(button->parentWidget(), &window);
    QCOMPARE(button->text(), QString("Save"));
    QVERIFY(button->isFlat());
    QCOMPARE(button->styleSheet(), getStyleSheet("component.apply_button"));

    const VemoButton plain;
    QVERIFY(!plain.parent());
    QCOMPARE(plain.styleSheet(), getStyleSheet("component.default_button"));
}

void VemoButtonTest::takesTheScaledSectionOfItsRole_data()
{
    QTest::addColumn<int>("role");
    QTest::addColumn<QString>("key");
    QTest::newRow("apply") << 0 << "component.apply_button";
    QTest::newRow("cancel") << 1 << "component.cancel_button";
    QTest::newRow("selected page") << 2 << "component.select_paging_button";
    QTest::newRow("other page") << 3 << "component.nonselect_paging_button";
    QTest::newRow("default") << 4 << "component.default_button";
    QTest::newRow("red") << 5 << "component.red_button";
}

void VemoButtonTest::takesTheScaledSectionOfItsRole()
{
    QFETCH(int, role);
    QFETCH(QString, key);
    const VemoButton button("Save", role);
    QVERIFY(!button.styleSheet().isEmpty());
    QCOMPARE(button.styleSheet(), getStyleSheet(key, false));
}

void VemoButtonTest::numbersOfTheRolesAreFixed()
{
    QCOMPARE(int(VemoButton::APPLY), 0);
    QCOMPARE(int(VemoButton::CANCEL), 1);
    QCOMPARE(int(VemoButton::SELECT_PAGING), 2);
    QCOMPARE(int(VemoButton::NONSELECT_PAGING), 3);
    QCOMPARE(int(VemoButton::DEFAULT), 4);
    QCOMPARE(int(VemoButton::RED), 5);
}

void VemoButtonTest::anyOtherRoleLeavesAPlainFlatButton_data()
{
    QTest::addColumn<int>("role");
    for (const int role : {-1, 6, 7, 100, INT_MAX, INT_MIN})
        QTest::addRow("%d", role) << role;
}

void VemoButtonTest::anyOtherRoleLeavesAPlainFlatButton()
{
    QFETCH(int, role);
    const VemoButton button("Save", role);
    QCOMPARE(button.styleSheet(), QString());
    QVERIFY(button.isFlat());
    QCOMPARE(button.sizePolicy(), QSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed));
}

void VemoButtonTest::lengthsOfTheSectionAreScaled()
{
    const int dpi = qEnvironmentVariableIntValue("QT_FONT_DPI");
    const VemoButton button("Save", VemoButton::APPLY);
    const QString height = QString("height: %1px;").arg(32 * dpi / 96);
    QVERIFY2(button.styleSheet().contains(height), qPrintable(button.styleSheet()));
}

void VemoButtonTest::belongsToTheWindowOfItsLayout()
{
    QWidget window;
    auto *layout = new QHBoxLayout(&window);
    auto *button = new VemoButton("Save", VemoButton::APPLY);
    layout->addWidget(button);
    QCOMPARE(button->parentWidget(), &window);
    window.resize(600, 300);
    window.show();
    QCOMPARE(button->size(), button->sizeHint()); // Does not grow with the window.
}

void VemoButtonTest::clicksByMouseAndKeyboard()
{
    VemoButton button("Save", VemoButton::APPLY);
    QSignalSpy clicks(&button, SIGNAL(clicked()));
    button.show();
    QTest::mouseClick(&button, Qt::LeftButton);
    QTest::keyClick(&button, Qt::Key_Space);
    QCOMPARE(clicks.count(), 2);
    button.setEnabled(false);
    QTest::mouseClick(&button, Qt::LeftButton);
    QCOMPARE(clicks.count(), 2);
}

void VemoButtonTest::isAnnouncedAsAButtonUnderItsText()
{
    VemoButton button("&Save", VemoButton::APPLY);
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&button);
    QCOMPARE(accessible->role(), QAccessible::PushButton);
    QCOMPARE(accessible->text(QAccessible::Name), QString("Save"));
}

VEMO_TEST_MAIN(VemoButtonTest)
#include "tst_vemobutton.moc"
