// SPDX-License-Identifier: MIT
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/linklabel.h>
#include <vemo/vemobutton.h>
#include <vemo/vemocheckbox.h>
#include <vemo/vemoiconbutton.h>
#include <vemo/vemolineedit.h>
#include <vemo/vemoradiobutton.h>

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>

/// What code made from a form calls: constructors of a lone parent, and setters of properties.
class ControlsInFormsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void aLoneParentMakesTheWidgetWithoutAText();
    void aTextAloneStaysAText();
    void aButtonTakesOnAnyRole_data();
    void aButtonTakesOnAnyRole();
    void anIconButtonGetsItsPicturesLater();
    void aLinkTellsWhetherItUnderlines();
    void aLineEditPassesTextsToItsParts();
    void aLineEditTellsItsError();
};

void ControlsInFormsTest::aLoneParentMakesTheWidgetWithoutAText()
{
    QWidget form;
    const auto *button = new VemoButton(&form);
    QCOMPARE(button->styleSheet(), VemoButton("", VemoButton::DEFAULT).styleSheet());
    QCOMPARE(button->text(), QString());
    QCOMPARE((new VemoCheckBox(&form))->styleSheet(), VemoCheckBox().styleSheet());
    QCOMPARE((new VemoRadioButton(&form))->styleSheet(), VemoRadioButton().styleSheet());
    QCOMPARE((new ClickableLabel(&form))->text(), QString());
    auto *link = new LinkLabel(&form);
    link->setText("Licence");
    QCOMPARE(QAccessible::queryAccessibleInterface(link)->role(), QAccessible::Link);
    QCOMPARE(form.children().size(), 5);
}

void ControlsInFormsTest::aTextAloneStaysAText()
{
    QCOMPARE(VemoCheckBox("Keep").text(), QString("Keep"));
    QCOMPARE(VemoRadioButton("Daily").text(), QString("Daily"));
    QCOMPARE(ClickableLabel("Details").text(), QString("Details"));
    QCOMPARE(LinkLabel("Licence").text(), QString("Licence"));
    QVERIFY(!VemoIconButton("bt_add").icon().isNull());
    QVERIFY(!VemoCheckBox(nullptr).parent());
}

void ControlsInFormsTest::aButtonTakesOnAnyRole_data()
{
    QTest::addColumn<int>("role");
    for (int role = -1; role <= 6; ++role)
        QTest::addRow("%d", role) << role;
}

void ControlsInFormsTest::aButtonTakesOnAnyRole()
{
    QFETCH(int, role);
    VemoButton button("Save", VemoButton::RED);
    button.setRole(role);
    QCOMPARE(button.styleSheet(), VemoButton("", role).styleSheet());
    QCOMPARE(button.styleSheet().isEmpty(), role < 0 || role > 5);
}

void ControlsInFormsTest::anIconButtonGetsItsPicturesLater()
{
    QWidget form;
    auto *button = new VemoIconButton(&form);
    QVERIFY(button->icon().isNull());
    QCOMPARE(button->styleSheet(), VemoIconButton("bt_add").styleSheet());
    form.show();
    button->setAllIcon("bt_add");
    QVERIFY(!button->icon().isNull());
}

void ControlsInFormsTest::aLinkTellsWhetherItUnderlines()
{
    LinkLabel link("Licence");
    QVERIFY(link.hoverUnderline());
    link.setHoverUnderline(false);
    QVERIFY(!link.hoverUnderline());
}

void ControlsInFormsTest::aLineEditPassesTextsToItsParts()
{
    VemoLineEdit field;
    field.setPreText("Keep for");
    field.setEditText("30");
    field.setPostText("days");
    field.setPlaceholderText("1 to 99");
    QCOMPARE(field.getPreLabel()->text(), QString("Keep for"));
    QCOMPARE(field.getLineEdit()->text(), QString("30"));
    QCOMPARE(field.getPostLabel()->text(), QString("days"));
    QCOMPARE(field.getLineEdit()->placeholderText(), QString("1 to 99"));
    QCOMPARE(field.preText() + field.getEditText() + field.postText() + field.placeholderText(),
        QString("Keep for30days1 to 99"));
}

void ControlsInFormsTest::aLineEditTellsItsError()
{
    VemoLineEdit field;
    QVERIFY(!field.hasError());
    field.setError(true);
    QVERIFY(field.hasError());
    field.setError(false);
    QVERIFY(!field.hasError());
}

VEMO_TEST_MAIN(ControlsInFormsTest)
#include "tst_controlsinforms.moc"
