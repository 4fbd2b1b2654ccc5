// SPDX-License-Identifier: MIT
#include <vemo/vemolineedit.h>

#include "support/activewindow.h"
#include "support/eventcounter.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/stylemanager.h>

#include <QAccessible>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

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
    void errorIsPaintedAtOnce_data();
    void errorIsPaintedAtOnce();
    void fieldIsAnnouncedUnderItsCaption_data();
    void fieldIsAnnouncedUnderItsCaption();
    void newCaptionIsAnnouncedOnceItIsShown();
    void formLabelNamesAFieldWithoutCaption();
    void namedFieldKeepsItsName();
    void nameOfTheWholeIsThatOfTheField();
    void focusGoesToTheField();
    void mnemonicOfAFormLabelGoesToTheField();
    void tabStopsAtEachFieldOnce();
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

/// The accessible name of the field.
QString nameOf(const VemoLineEdit &edit)
{
    QCoreApplication::processEvents();
    return QAccessible::queryAccessibleInterface(edit.getLineEdit())->text(QAccessible::Name);
}

void activate(QWidget &window)
{
    QVERIFY(showActive(&window));
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
    // The text of a disabled field is already pale.
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

void VemoLineEditTest::errorIsPaintedAtOnce_data()
{
    QTest::addColumn<bool>("hasStyleSheet");
    QTest::newRow("with a style sheet, which paints by itself") << true;
    QTest::newRow("with a style of the host's own") << false;
}

void VemoLineEditTest::errorIsPaintedAtOnce()
{
    QFETCH(bool, hasStyleSheet);
    VemoLineEdit edit;
    if (!hasStyleSheet)
        edit.getLineEdit()->setStyleSheet({});
    edit.setFocusPolicy(Qt::NoFocus); // No blinking cursor.
    edit.show();
    QVERIFY(QTest::qWaitForWindowExposed(&edit));
    // The second call changes nothing, but still repaints.
    for (int time = 1; time <= 2; ++time) {
        QCoreApplication::processEvents();
        const EventCounter paints(edit.getLineEdit(), QEvent::Paint);
        edit.setError(true);
        QTRY_COMPARE(paints.count(), 1);
    }
}

void VemoLineEditTest::fieldIsAnnouncedUnderItsCaption_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<bool>("hasMnemonic");
    QTest::addColumn<QString>("name");
    QTest::newRow("none") << QString() << false << QString();
    QTest::newRow("plain") << "Keep for" << false << "Keep for";
    QTest::newRow("ampersand") << "Keep & copy" << false << "Keep & copy";
    QTest::newRow("mnemonic") << "&Name" << true << "Name";
    QTest::newRow("mnemonic and ampersand") << "&Keep && copy" << true << "Keep & copy";
    QTest::newRow("mark-up") << "<b>Name</b> &amp; kind" << false << "Name & kind";
}

void VemoLineEditTest::fieldIsAnnouncedUnderItsCaption()
{
    QFETCH(QString, caption);
    QFETCH(bool, hasMnemonic);
    QFETCH(QString, name);
    VemoLineEdit edit;
    edit.getPreLabel()->setText(caption);
    if (hasMnemonic)
        edit.getPreLabel()->setBuddy(edit.getLineEdit());
    edit.show();
    QCOMPARE(nameOf(edit), name);
}

void VemoLineEditTest::newCaptionIsAnnouncedOnceItIsShown()
{
    VemoLineEdit edit;
    QCOMPARE(nameOf(edit), QString());
    edit.getPreLabel()->setText("Keep for");
    edit.show();
    QCOMPARE(nameOf(edit), QString("Keep for"));
    edit.getPreLabel()->setText("Throw away after");
    QCOMPARE(nameOf(edit), QString("Throw away after"));
    edit.getPreLabel()->clear();
    QCOMPARE(nameOf(edit), QString());
}

void VemoLineEditTest::formLabelNamesAFieldWithoutCaption()
{
    QWidget window;
    auto *form = new QFormLayout(&window);
    auto *edit = new VemoLineEdit;
    form->addRow("&Name", edit);
    form->addRow(new QPushButton);
    activate(window);
    QCOMPARE(nameOf(*edit), QString("Name"));
    edit->getPreLabel()->setText("Last");
    QCOMPARE(nameOf(*edit), QString("Last"));
    edit->getPreLabel()->clear();
    QCOMPARE(nameOf(*edit), QString("Name"));
    QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
    QVERIFY(!edit->getLineEdit()->hasFocus());
    auto *label = static_cast<QLabel *>(form->labelForField(edit));
    label->setText("<i>Family</i> name");
    edit->setFocus(); // The field is announced now, so its name is updated.
    QCOMPARE(nameOf(*edit), QString("Family name"));
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

void VemoLineEditTest::nameOfTheWholeIsThatOfTheField()
{
    VemoLineEdit edit;
    edit.setAccessibleName("Days until deletion");
    edit.getPreLabel()->setText("Keep for");
    edit.show();
    QCOMPARE(nameOf(edit), QString("Days until deletion"));
}

void VemoLineEditTest::focusGoesToTheField()
{
    QWidget window;
    VemoLineEdit edit(&window);
    QCOMPARE(edit.focusPolicy(), Qt::StrongFocus);
    QCOMPARE(edit.getLineEdit()->focusPolicy(), Qt::StrongFocus);
    activate(window);
    edit.setFocus();
    QVERIFY(edit.getLineEdit()->hasFocus());
    QTest::keyClicks(QApplication::focusWidget(), "30");
    QCOMPARE(edit.getEditText(), QString("30"));
}

void VemoLineEditTest::mnemonicOfAFormLabelGoesToTheField()
{
    QWidget window;
    auto *form = new QFormLayout(&window);
    auto *first = new VemoLineEdit;
    auto *second = new VemoLineEdit;
    form->addRow("&First", first);
    form->addRow("&Second", second);
    activate(window);
    QVERIFY(first->getLineEdit()->hasFocus());
    QTest::keyClick(window.windowHandle(), Qt::Key_S, Qt::AltModifier);
    QVERIFY(second->getLineEdit()->hasFocus());
}

void VemoLineEditTest::tabStopsAtEachFieldOnce()
{
    QWidget window;
    auto *column = new QVBoxLayout(&window);
    VemoLineEdit edits[3];
    for (VemoLineEdit &edit : edits)
        column->addWidget(&edit);
    QWidget::setTabOrder(&edits[2], &edits[1]);
    QWidget::setTabOrder(&edits[1], &edits[0]);
    activate(window);
    edits[2].setFocus();
    for (const int next : {1, 0, 2}) {
        QTest::keyClick(window.windowHandle(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), edits[next].getLineEdit());
    }
    for (const int previous : {0, 1, 2}) {
        QTest::keyClick(window.windowHandle(), Qt::Key_Backtab);
        QCOMPARE(QApplication::focusWidget(), edits[previous].getLineEdit());
    }
    for (VemoLineEdit &edit : edits)
        edit.setParent(nullptr);
}

VEMO_TEST_MAIN(VemoLineEditTest)
#include "tst_vemolineedit.moc"
