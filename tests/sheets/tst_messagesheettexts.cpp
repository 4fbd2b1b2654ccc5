// SPDX-License-Identifier: MIT
// The texts of a message sheet and the row with its check box.
#include "core/scaling_p.h"
#include "sheets/messagesheetparts.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/clickablelabel.h>
#include <vemo/stylemanager.h>

#include <QCheckBox>
#include <QLayout>
#include <QPointer>
#include <QStyle>

namespace {

using Sheet = VemoMessageSheet;
using Button = QDialogButtonBox;

} // namespace

class MessageSheetTextsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void textIsShownAsAskedFor();
    void informativeTextIsShownAsAskedFor();
    void informativeStyleIsItsOwnUntilARebuild();
    void emptyTextRemovesItsLabelAndShrinksTheSheet_data();
    void emptyTextRemovesItsLabelAndShrinksTheSheet();
    void heightFollowsTheText();
    void captionTogglesTheBox();
    void applyIsEnabledExactlyWhileTheBoxIsChecked();
    void confirmRowComesAndGoes();
};

void MessageSheetTextsTest::textIsShownAsAskedFor()
{
    QWidget window;
    Sheet sheet(Sheet::Confirm, &window);
    QVERIFY(!labelOf(sheet, "text"));
    sheet.setText("text");
    QLabel *label = labelOf(sheet, "text");
    QVERIFY(label);
    QCOMPARE(label->styleSheet(), getStyleSheet("component.message_sheet_text"));
    QVERIFY(label->wordWrap());
    QCOMPARE(label->alignment() & Qt::AlignVertical_Mask, Qt::AlignTop);
    QCOMPARE(label->focusPolicy(), Qt::StrongFocus);
    QCOMPARE(label->textInteractionFlags(),
        Qt::TextSelectableByMouse | Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    QVERIFY(label->openExternalLinks());
    QCOMPARE(label->sizePolicy().horizontalPolicy(), QSizePolicy::Minimum);
    QCOMPARE(label->sizePolicy().verticalPolicy(), QSizePolicy::Maximum);
    sheet.setText("other");
    QCOMPARE(labelOf(sheet, "other"), label);
}

void MessageSheetTextsTest::informativeTextIsShownAsAskedFor()
{
    QWidget window;
    const Sheet sheet(Sheet::Warning, "text", "more", &window);
    const QLabel *label = labelOf(sheet, "more");
    QVERIFY(label);
    QCOMPARE(label->styleSheet(), getStyleSheet("component.message_sheet_informative_text"));
    QVERIFY(label->wordWrap());
    QCOMPARE(label->alignment(), Qt::AlignLeft | Qt::AlignTop);
    QCOMPARE(label->focusPolicy(), Qt::StrongFocus);
    QCOMPARE(label->textInteractionFlags(),
        Qt::TextInteractionFlags(QApplication::style()->styleHint(
            QStyle::SH_MessageBox_TextInteractionFlags, nullptr, &sheet)));
    QVERIFY(label->openExternalLinks());
    QCOMPARE(label->sizePolicy().horizontalPolicy(), QSizePolicy::Minimum);
    QCOMPARE(label->sizePolicy().verticalPolicy(), QSizePolicy::Maximum);
}

void MessageSheetTextsTest::informativeStyleIsItsOwnUntilARebuild()
{
    QWidget window;
    Sheet sheet(Sheet::Warning, "text", &window);
    sheet.setInformativeText("more", "QLabel { color: red; }");
    QCOMPARE(labelOf(sheet, "more")->styleSheet(), "QLabel { color: red; }");
    sheet.setInformativeText("again", "QLabel { color: blue; }");
    QCOMPARE(labelOf(sheet, "again")->styleSheet(), "QLabel { color: red; }");
    sheet.setIconVisible(true);
    QCOMPARE(labelOf(sheet, "again")->styleSheet(),
        getStyleSheet("component.message_sheet_informative_text"));
}

void MessageSheetTextsTest::emptyTextRemovesItsLabelAndShrinksTheSheet_data()
{
    QTest::addColumn<bool>("isInformative");
    QTest::addColumn<bool>("isShown");
    QTest::newRow("text") << false << false;
    QTest::newRow("text, shown") << false << true;
    QTest::newRow("informative text") << true << false;
    QTest::newRow("informative text, shown") << true << true;
}

void MessageSheetTextsTest::emptyTextRemovesItsLabelAndShrinksTheSheet()
{
    QFETCH(const bool, isInformative);
    QFETCH(const bool, isShown);
    QWidget window;
    window.resize(600, 500);
    Sheet sheet(Sheet::Information, QString(), &window, false);
    const int height = sheet.height();
    const auto set = [&](const QString &text) {
        if (isInformative)
            sheet.setInformativeText(text);
        else
            sheet.setText(text);
    };
    window.show();
    sheet.setVisible(isShown);
    set("some text");
    const QPointer<QLabel> label = labelOf(sheet, "some text");
    QVERIFY(label);
    QVERIFY(sheet.height() > height);
    set(QString());
    QVERIFY(!labelOf(sheet, "some text"));
    QCOMPARE(sheet.height(), height);
    QTRY_VERIFY(!label);
    set(QString());
    set("some text");
    QVERIFY(labelOf(sheet, "some text"));
}

void MessageSheetTextsTest::heightFollowsTheText()
{
    QWidget window;
    window.resize(scaled(500), 3000);
    Sheet sheet(Sheet::Information, "short", &window);
    window.show();
    sheet.show();
    const int low = sheet.height();
    QLabel *label = labelOf(sheet, "short");
    const int line = label->height();
    sheet.setText(QString("long words ").repeated(100));
    QVERIFY(label->height() >= 5 * line);
    QCOMPARE(label->height(), label->heightForWidth(label->width()));
    QVERIFY(sheet.height() > low);
    sheet.setText("short");
    QCOMPARE(label->height(), line);
    QCOMPARE(sheet.height(), low);
}

void MessageSheetTextsTest::captionTogglesTheBox()
{
    QWidget window;
    Sheet sheet(Sheet::WarningConfirm, "text", &window);
    sheet.setDoubleConfirmCheckBox(true, "I know");
    auto *caption = qobject_cast<ClickableLabel *>(labelOf(sheet, "I know"));
    const auto *box = sheet.findChild<QCheckBox *>();
    QVERIFY(caption && box);
    QVERIFY(caption->wordWrap());
    QCOMPARE(caption->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    QCOMPARE(caption->sizePolicy().verticalPolicy(), QSizePolicy::Minimum);
    QCOMPARE(caption->styleSheet(), getStyleSheet("component.label_checkbox_warning"));
    QCOMPARE(box->styleSheet(), getStyleSheet("component.checkbox_warning"));
    QCOMPARE(box->height(), scaled(32));
    QCOMPARE(box->text(), QString());
    QCOMPARE(box->accessibleName(), "I know");
    QVERIFY(!box->isChecked());
    QTest::mouseClick(caption, Qt::LeftButton);
    QVERIFY(box->isChecked());
    QTest::mouseClick(caption, Qt::LeftButton);
    QVERIFY(!box->isChecked());
    QCOMPARE(caption->parentWidget()->layout()->spacing(), scaled(8));
    QCOMPARE(caption->parentWidget()->layout()->contentsMargins(), QMargins());
}

void MessageSheetTextsTest::applyIsEnabledExactlyWhileTheBoxIsChecked()
{
    QWidget window;
    Sheet sheet(Sheet::WarningConfirm, "text", &window);
    QVERIFY(buttonOf(sheet, Button::Apply)->isEnabled());
    sheet.setDoubleConfirmCheckBox(true, "I know");
    QVERIFY(!buttonOf(sheet, Button::Apply)->isEnabled());
    auto *box = sheet.findChild<QCheckBox *>();
    box->setChecked(true);
    QVERIFY(buttonOf(sheet, Button::Apply)->isEnabled());
    box->setTristate(true);
    box->setCheckState(Qt::PartiallyChecked);
    QVERIFY(!buttonOf(sheet, Button::Apply)->isEnabled());
    box->setCheckState(Qt::Checked);
    QVERIFY(buttonOf(sheet, Button::Apply)->isEnabled());
    box->setChecked(false);
    QVERIFY(!buttonOf(sheet, Button::Apply)->isEnabled());
    QVERIFY(buttonOf(sheet, Button::Discard)->isEnabled());
}

void MessageSheetTextsTest::confirmRowComesAndGoes()
{
    QWidget window;
    window.resize(600, 500);
    Sheet sheet(Sheet::Confirm, "text", &window);
    window.show();
    sheet.show();
    const int height = sheet.height();
    QVERIFY(!sheet.findChild<QCheckBox *>());
    for (int i = 0; i < 2; ++i) {
        sheet.setDoubleConfirmCheckBox(true, "first");
        sheet.setDoubleConfirmCheckBox(true, "second");
        QVERIFY(!labelOf(sheet, "first"));
        QVERIFY(labelOf(sheet, "second"));
        QCOMPARE(sheet.height(), height + scaled(10) + scaled(32));
        sheet.setDoubleConfirmCheckBox(false, "third");
        QVERIFY(!labelOf(sheet, "second"));
        QVERIFY(!labelOf(sheet, "third"));
        QCOMPARE(sheet.height(), height);
        QVERIFY(buttonOf(sheet, Button::Apply)->isEnabled());
    }
    QTRY_VERIFY(!sheet.findChild<QCheckBox *>());
}

VEMO_TEST_MAIN(MessageSheetTextsTest)
#include "tst_messagesheettexts.moc"
