// SPDX-License-Identifier: MIT
#include <vemo/vemolineedit.h>

#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/stylemanager.h>

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>

class VemoLineEditTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void holdsLabelFieldLabelInThisOrder();
    void takesTheSectionsOfItsParts();
    void layoutStartsTightAndAtTheLeft();
    void partsAreItsChildrenAndDieWithIt();
    void hasNoSignalsOrSlotsOfItsOwn();
    void labelsStartEmptyAndStillTakeTheirPlace();
    void editTextIsTheFieldsText();
    void withoutValidatorEveryTextIsValid();
    void validatorDecidesAboutTheCurrentText();
    void nullRemovesTheValidator();
    void validatingNeverChangesTheLook();
    void placeholderIsPalerThanAText();
    void placeholderStaysPaleWithANewStyle();
    void aPlaceholderColourOfTheHostStays();
    void errorShowsInTheLookAndGoesAgain();
    void errorIsADynamicPropertyOfTheField();
    void marginsAndSpacingAreScaledAndTruncated();
    void fieldIsAnnouncedUnderItsCaption();
    void namedFieldKeepsItsName();
};

namespace {

const QColor kLine(0xC8, 0xD2, 0xDC);
const QColor kDanger(0xC9, 0x3A, 0x3A);

bool isNotEmpty(const QString &text)
{
    return !text.isEmpty();
}

bool isNumber(const QString &text)
{
    bool isValid = false;
    text.toInt(&isValid);
    return isValid;
}

QColor borderOf(VemoLineEdit &edit)
{
    QLineEdit *field = edit.getLineEdit();
    return pixelAt(field, {field->width() / 2, 0});
}

/// The value of this screen: at a factor of 1, 1.25 or 1.5.
template <typename Value> Value byFactor(Value at96, Value at120, Value at144)
{
    switch (qEnvironmentVariableIntValue("QT_FONT_DPI")) {
    case 120:
        return at120;
    case 144:
        return at144;
    default:
        return at96;
    }
}

} // namespace

void VemoLineEditTest::holdsLabelFieldLabelInThisOrder()
{
    const VemoLineEdit edit;
    const auto *layout = qobject_cast<QHBoxLayout *>(edit.layout());
    QVERIFY(layout);
    QCOMPARE(layout->count(), 3);
    QCOMPARE(layout->itemAt(0)->widget(), edit.getPreLabel());
    QCOMPARE(layout->itemAt(1)->widget(), edit.getLineEdit());
    QCOMPARE(layout->itemAt(2)->widget(), edit.getPostLabel());
    for (int i = 0; i < 3; ++i) {
        QCOMPARE(layout->stretch(i), 0);
        QCOMPARE(layout->itemAt(i)->alignment(), Qt::Alignment());
    }
}

void VemoLineEditTest::takesTheSectionsOfItsParts()
{
    const VemoLineEdit edit;
    QCOMPARE(edit.getLineEdit()->styleSheet(), getStyleSheet("component.lineedit"));
    QCOMPARE(edit.getPreLabel()->styleSheet(), getStyleSheet("component.lineedit_label"));
    QCOMPARE(edit.getPostLabel()->styleSheet(), getStyleSheet("component.lineedit_label"));
    QCOMPARE(edit.styleSheet(), QString());
}

void VemoLineEditTest::layoutStartsTightAndAtTheLeft()
{
    const VemoLineEdit edit;
    QCOMPARE(edit.layout()->alignment(), Qt::AlignLeft);
    QCOMPARE(edit.layout()->spacing(), 0);
    QCOMPARE(edit.layout()->contentsMargins(), QMargins());
}

void VemoLineEditTest::partsAreItsChildrenAndDieWithIt()
{
    QWidget parent;
    auto *edit = new VemoLineEdit(&parent);
    QCOMPARE(edit->parentWidget(), &parent);
    const QPointer<QWidget> parts[] = {
        edit->getPreLabel(), edit->getLineEdit(), edit->getPostLabel()};
    for (const QPointer<QWidget> &part : parts)
        QCOMPARE(part->parentWidget(), edit);
    delete edit;
    for (const QPointer<QWidget> &part : parts)
        QVERIFY(part.isNull());
}

void VemoLineEditTest::hasNoSignalsOrSlotsOfItsOwn()
{
    const QMetaObject &meta = VemoLineEdit::staticMetaObject;
    QCOMPARE(meta.className(), "VemoLineEdit");
    QCOMPARE(meta.methodCount(), meta.methodOffset());
}

void VemoLineEditTest::labelsStartEmptyAndStillTakeTheirPlace()
{
    VemoLineEdit edit;
    QCOMPARE(edit.getPreLabel()->text(), QString());
    QCOMPARE(edit.getPostLabel()->text(), QString());
    edit.show();
    QVERIFY(edit.getPreLabel()->isVisible());
    QVERIFY(edit.getPostLabel()->isVisible());
}

void VemoLineEditTest::editTextIsTheFieldsText()
{
    VemoLineEdit edit;
    QCOMPARE(edit.getEditText(), QString());
    edit.show();
    QTest::keyClicks(edit.getLineEdit(), "30 days");
    QCOMPARE(edit.getEditText(), QString("30 days"));
}

void VemoLineEditTest::withoutValidatorEveryTextIsValid()
{
    VemoLineEdit edit;
    QVERIFY(edit.validate());
    edit.getLineEdit()->setText("anything");
    QVERIFY(edit.validate());
}

void VemoLineEditTest::validatorDecidesAboutTheCurrentText()
{
    VemoLineEdit edit;
    edit.setValidator(isNotEmpty);
    QVERIFY(!edit.validate());
    edit.getLineEdit()->setText("x");
    QVERIFY(edit.validate());
    edit.setValidator(isNumber);
    QVERIFY(!edit.validate());
    edit.getLineEdit()->setText("12");
    QVERIFY(edit.validate());
}

void VemoLineEditTest::nullRemovesTheValidator()
{
    VemoLineEdit edit;
    edit.setValidator(isNotEmpty);
    edit.setValidator(nullptr);
    QVERIFY(edit.validate());
}

void VemoLineEditTest::validatingNeverChangesTheLook()
{
    VemoLineEdit edit;
    edit.show();
    edit.setValidator(isNotEmpty);
    QVERIFY(!edit.validate());
    QVERIFY(!edit.getLineEdit()->property("error").isValid());
    QCOMPARE(borderOf(edit), kLine);
    edit.setError(true);
    edit.getLineEdit()->setText("x");
    QVERIFY(edit.validate());
    QCOMPARE(borderOf(edit), kDanger);
}

void VemoLineEditTest::placeholderIsPalerThanAText()
{
    VemoLineEdit edit;
    edit.show();
    const QPalette palette = edit.getLineEdit()->palette();
    QCOMPARE(palette.color(QPalette::Text), QColor(0x1F, 0x29, 0x33));
    QCOMPARE(palette.color(QPalette::PlaceholderText), QColor(0x1F, 0x29, 0x33, 180));
    // Disabled, the text is pale enough already.
    QCOMPARE(palette.color(QPalette::Disabled, QPalette::PlaceholderText),
        palette.color(QPalette::Disabled, QPalette::Text));
}

void VemoLineEditTest::placeholderStaysPaleWithANewStyle()
{
    VemoLineEdit edit;
    edit.show();
    for (const QColor &ink : {QColor(Qt::red), QColor(Qt::blue)}) {
        edit.getLineEdit()->setStyleSheet(QString("QLineEdit { color: %1; }").arg(ink.name()));
        QCOMPARE(edit.getLineEdit()->palette().color(QPalette::PlaceholderText),
            QColor(ink.red(), ink.green(), ink.blue(), 180));
    }
    edit.setError(true);
    QCOMPARE(edit.getLineEdit()->palette().color(QPalette::PlaceholderText).alpha(), 180);
}

void VemoLineEditTest::aPlaceholderColourOfTheHostStays()
{
    VemoLineEdit edit;
    edit.show();
    QPalette palette = edit.getLineEdit()->palette();
    palette.setColor(QPalette::PlaceholderText, Qt::darkGreen);
    edit.getLineEdit()->setPalette(palette);
    QCOMPARE(edit.getLineEdit()->palette().color(QPalette::PlaceholderText), QColor(Qt::darkGreen));
}

void VemoLineEditTest::errorShowsInTheLookAndGoesAgain()
{
    VemoLineEdit edit;
    edit.resize(200, 60);
    edit.show();
    QLineEdit *field = edit.getLineEdit();
    const QImage before = field->grab().toImage();
    QCOMPARE(borderOf(edit), kLine);
    edit.setError(true);
    QCOMPARE(borderOf(edit), kDanger);
    edit.setError(true);
    QCOMPARE(borderOf(edit), kDanger);
    edit.setError(false);
    QCOMPARE(borderOf(edit), kLine);
    QCOMPARE(field->grab().toImage(), before);
}

void VemoLineEditTest::errorIsADynamicPropertyOfTheField()
{
    VemoLineEdit edit;
    edit.setError(true);
    QCOMPARE(edit.getLineEdit()->property("error"), QVariant(true));
    QVERIFY(!edit.property("error").isValid());
    edit.setError(false);
    QCOMPARE(edit.getLineEdit()->property("error"), QVariant(false));
}

void VemoLineEditTest::marginsAndSpacingAreScaledAndTruncated()
{
    VemoLineEdit edit;
    edit.setMargins(2, 4, 6, 8);
    edit.setSpacing(5);
    QCOMPARE(edit.layout()->contentsMargins(),
        byFactor(QMargins(2, 4, 6, 8), QMargins(2, 5, 7, 10), QMargins(3, 6, 9, 12)));
    QCOMPARE(edit.layout()->spacing(), byFactor(5, 6, 7));
}

void VemoLineEditTest::fieldIsAnnouncedUnderItsCaption()
{
    VemoLineEdit edit;
    const auto name = [&] {
        QCoreApplication::processEvents();
        return QAccessible::queryAccessibleInterface(edit.getLineEdit())->text(QAccessible::Name);
    };
    QCOMPARE(name(), QString());
    edit.getPreLabel()->setText("Keep for");
    edit.show();
    QCOMPARE(name(), QString("Keep for"));
    edit.getPreLabel()->setText("Keep & copy");
    QCOMPARE(name(), QString("Keep & copy"));
    edit.getPreLabel()->clear();
    QCOMPARE(name(), QString());
}

void VemoLineEditTest::namedFieldKeepsItsName()
{
    VemoLineEdit edit;
    edit.getLineEdit()->setAccessibleName("Days until deletion");
    edit.getPreLabel()->setText("Keep for");
    edit.show();
    QCoreApplication::processEvents();
    QCOMPARE(edit.getLineEdit()->accessibleName(), QString("Days until deletion"));
}

VEMO_TEST_MAIN(VemoLineEditTest)
#include "tst_vemolineedit.moc"
