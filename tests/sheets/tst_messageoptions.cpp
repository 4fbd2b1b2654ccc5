// SPDX-License-Identifier: MIT
// What a message sheet can do that is off by default.
#include "core/scaling_p.h"
#include "sheets/messagesheetparts.h"
#include "support/sheetdriver.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/clickablelabel.h>
#include <vemo/vemomask.h>

#include <QAccessible>
#include <QCheckBox>
#include <QPlainTextEdit>
#include <QStyleOption>

namespace {

using Sheet = VemoMessageSheet;
using Button = QDialogButtonBox;

const char *const kGerman =
    "Diese Frage bei künftigen Übertragungen zwischen den Netzwerklaufwerken nicht mehr stellen, "
    "auch nicht nach einem Neustart des Datenübertragungsprogramms";

/// A window with a sheet over it, which is shown.
struct Scene
{
    explicit Scene(Sheet::MessageType type = Sheet::Confirm, QSize size = {600, 400})
    {
        window.resize(size);
        sheet = new Sheet(type, "text", &window);
        VemoMask::createMask(sheet, &window, QColor(0, 0, 0, 20));
    }
    void show()
    {
        window.show();
        sheet->open();
        QVERIFY(QTest::qWaitForWindowActive(&window));
    }
    QCheckBox *box() const { return sheet->findChild<QCheckBox *>(); }
    ClickableLabel *caption() const { return sheet->findChild<ClickableLabel *>(); }
    QPlainTextEdit *details() const { return sheet->findChild<QPlainTextEdit *>(); }
    QPushButton *detailsButton() const
    {
        return qobject_cast<QPushButton *>(details()->parent()->findChild<QPushButton *>());
    }

    QWidget window;
    Sheet *sheet;
};

QAccessibleInterface *spoken(QObject *object)
{
    return QAccessible::queryAccessibleInterface(object);
}

} // namespace

class MessageOptionsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void startsWithoutAnyOption();
    void dontAskAgainHasTheUsualCaptionOrThatOfTheHost();
    void dontAskAgainKeepsTheSheetAsItIs();
    void answerOfDontAskAgainCanBeReadAtTheEnd();
    void longCaptionOfDontAskAgainIsShownInFull();
    void dontAskAgainIsLaidOutFromRightToLeft();
    void optionsBeginWhereTheContentDoes_data();
    void optionsBeginWhereTheContentDoes();
    void dontAskAgainGoesWithDoubleConfirm();
    void plainTextIsShownAndAnnouncedAsItIs();
    void detailsUnfoldAndFold();
    void detailsArePlainAndReadOnly();
    void detailsGiveWayInALowWindow_data();
    void detailsGiveWayInALowWindow();
    void returnOnTheDetailsButtonUnfoldsThem();
    void escapeInTheDetailsCancels();
    void tabReachesTheOptionsAfterTheTexts();
    void defaultButtonTakesTheKeysThatConfirm_data();
    void defaultButtonTakesTheKeysThatConfirm();
    void defaultButtonSurvivesARebuild();
    void focusedButtonGoesBeforeTheDefaultOne();
    void anotherLanguageChangesTheCaptions();
};

void MessageOptionsTest::startsWithoutAnyOption()
{
    Scene scene;
    QVERIFY(!scene.box());
    QVERIFY(!scene.details());
    QVERIFY(!scene.sheet->isDontAskAgainChecked());
    QCOMPARE(scene.sheet->detailedText(), QString());
    QCOMPARE(scene.sheet->textFormat(), Qt::AutoText);
    scene.show();
    QCOMPARE(scene.window.focusWidget(), labelOf(*scene.sheet, "text"));
    QVERIFY(buttonOf(*scene.sheet, Button::Apply)->isDefault());
}

void MessageOptionsTest::dontAskAgainHasTheUsualCaptionOrThatOfTheHost()
{
    const Scene scene;
    scene.sheet->setDontAskAgainCheckBox(true);
    QCOMPARE(scene.caption()->text(), QString("Don't ask again"));
    QCOMPARE(spoken(scene.box())->text(QAccessible::Name), QString("Don't ask again"));
    scene.sheet->setDontAskAgainCheckBox(true, "Always delete");
    QCOMPARE(scene.sheet->findChildren<QCheckBox *>().size(), 1);
    QCOMPARE(scene.caption()->text(), QString("Always delete"));
    QCOMPARE(spoken(scene.box())->text(QAccessible::Name), QString("Always delete"));
}

void MessageOptionsTest::dontAskAgainKeepsTheSheetAsItIs()
{
    QWidget window;
    Sheet sheet(Sheet::Confirm, "text", MsgBoxCustomBtnText("Yes", "No"), &window);
    const QSize size = sheet.size();
    sheet.setDontAskAgainCheckBox(true);
    QVERIFY(sheet.height() > size.height());
    QCOMPARE(sheet.width(), size.width());
    QCOMPARE(buttonOf(sheet, Button::Apply)->text(), QString("Yes"));
    QVERIFY(buttonOf(sheet, Button::Apply)->isEnabled());
    sheet.findChild<QCheckBox *>()->setChecked(true);
    sheet.setMessageType(Sheet::Warning); // a rebuild
    QVERIFY(sheet.isDontAskAgainChecked());
    sheet.setMessageType(Sheet::Confirm);
    sheet.setDontAskAgainCheckBox(false);
    QVERIFY(!sheet.isDontAskAgainChecked());
    QCOMPARE(sheet.size(), size);
}

void MessageOptionsTest::answerOfDontAskAgainCanBeReadAtTheEnd()
{
    QWidget window;
    auto *sheet = new Sheet(Sheet::Confirm, "text", &window);
    sheet->setDontAskAgainCheckBox(true);
    const SheetDriver driver([&] {
        QTest::mouseClick(sheet->findChild<ClickableLabel *>(), Qt::LeftButton);
        buttonOf(*sheet, Button::Apply)->click();
    });
    bool isChecked = false;
    sheet->execAndDelete([&](int) { isChecked = sheet->isDontAskAgainChecked(); });
    QVERIFY(isChecked);
}

void MessageOptionsTest::longCaptionOfDontAskAgainIsShownInFull()
{
    Scene scene(Sheet::Confirm, {scaled(300), scaled(600)});
    scene.sheet->setDontAskAgainCheckBox(true, kGerman);
    scene.show();
    const QWidget *caption = scene.caption();
    QCoreApplication::processEvents();
    QVERIFY(caption->height() >= caption->heightForWidth(caption->width()));
    QVERIFY(caption->height() > 3 * caption->fontMetrics().height());
    QVERIFY(scene.sheet->rect().contains(caption->mapTo(scene.sheet, caption->rect().center())));
}

void MessageOptionsTest::dontAskAgainIsLaidOutFromRightToLeft()
{
    Scene scene;
    scene.window.setLayoutDirection(Qt::RightToLeft);
    scene.sheet->setDontAskAgainCheckBox(true);
    scene.sheet->setDetailedText("details");
    scene.show();
    QTRY_VERIFY(scene.box()->x() > scene.caption()->x());
    QCOMPARE(scene.detailsButton()->geometry().right(),
        scene.detailsButton()->parentWidget()->rect().right());
}

void MessageOptionsTest::optionsBeginWhereTheContentDoes_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    addRow("from left to right", Qt::LeftToRight);
    addRow("from right to left", Qt::RightToLeft);
}

void MessageOptionsTest::optionsBeginWhereTheContentDoes()
{
    QFETCH(const Qt::LayoutDirection, direction);
    Scene scene;
    scene.window.setLayoutDirection(direction);
    scene.sheet->setDontAskAgainCheckBox(true);
    scene.sheet->setDetailedText("details");
    scene.show();
    scene.detailsButton()->click();
    QCoreApplication::processEvents();
    const auto begin = [&](const QWidget *part, QRect rect) {
        rect.moveTopLeft(part->mapTo(scene.sheet, rect.topLeft()));
        return direction == Qt::LeftToRight ? rect.left()
                                            : scene.sheet->rect().right() - rect.right();
    };
    const auto elementOf = [](const QWidget *part, QStyle::SubElement element) {
        QStyleOptionButton option;
        option.initFrom(part);
        return part->style()->subElementRect(element, &option, part);
    };
    const int expected = scene.sheet->contentsMargins().left() + scaled(20);
    QCOMPARE(begin(scene.details(), scene.details()->rect()), expected);
    QCOMPARE(begin(scene.box(), elementOf(scene.box(), QStyle::SE_CheckBoxIndicator)), expected);
    QCOMPARE(begin(scene.detailsButton(),
                 elementOf(scene.detailsButton(), QStyle::SE_PushButtonContents)),
        expected);
    // The caption ends where the content does.
    QCOMPARE(scene.sheet->mapFromGlobal(scene.caption()->mapToGlobal(QPoint())).x()
            + (direction == Qt::LeftToRight ? scene.caption()->width() : 0),
        direction == Qt::LeftToRight ? scene.sheet->width() - expected : expected);
}

void MessageOptionsTest::dontAskAgainGoesWithDoubleConfirm()
{
    const Scene scene;
    scene.sheet->setDontAskAgainCheckBox(true);
    scene.sheet->setDoubleConfirmCheckBox(true, "Really");
    const auto boxes = scene.sheet->findChildren<QCheckBox *>();
    QCOMPARE(boxes.size(), 2);
    for (QCheckBox *box : boxes) {
        box->setChecked(true);
        QCOMPARE(box->accessibleName() == "Really",
            buttonOf(*scene.sheet, Button::Apply)->isEnabled()
                && !scene.sheet->isDontAskAgainChecked());
        box->setChecked(false);
    }
}

void MessageOptionsTest::plainTextIsShownAndAnnouncedAsItIs()
{
    QWidget window;
    const QString text = "<b>a.txt</b> & more";
    Sheet sheet(Sheet::Warning, text, text, &window);
    QCOMPARE(spoken(&sheet)->text(QAccessible::Name), QString("a.txt & more"));
    sheet.setTextFormat(Qt::PlainText);
    QCOMPARE(sheet.textFormat(), Qt::PlainText);
    for (const auto what : {QAccessible::Name, QAccessible::Description})
        QCOMPARE(spoken(&sheet)->text(what), text);
    for (const QLabel *label : sheet.findChildren<QLabel *>()) {
        if (label->text() == text)
            QCOMPARE(label->textFormat(), Qt::PlainText);
    }
    sheet.setText({});
    sheet.setText("<i>b</i>"); // creates its label again
    QCOMPARE(labelOf(sheet, "<i>b</i>")->textFormat(), Qt::PlainText);
}

void MessageOptionsTest::detailsUnfoldAndFold()
{
    Scene scene;
    const int without = scene.sheet->height();
    scene.sheet->setDetailedText("line 1\nline 2");
    scene.show();
    QCOMPARE(scene.sheet->detailedText(), QString("line 1\nline 2"));
    const int folded = scene.sheet->height();
    QVERIFY(folded > without);
    QVERIFY(!scene.details()->isVisible());
    QCOMPARE(scene.detailsButton()->text(), QString("Show details"));
    QCOMPARE(spoken(scene.detailsButton())->role(), QAccessible::PushButton);
    QTest::mouseClick(scene.detailsButton(), Qt::LeftButton);
    QVERIFY(scene.details()->isVisible());
    QCOMPARE(scene.detailsButton()->text(), QString("Hide details"));
    QTRY_COMPARE(scene.details()->height(), scaled(120));
    QTRY_COMPARE(scene.sheet->height(), folded + scaled(120) + scaled(4));
    const auto middle = [&] {
        return scene.sheet->mapTo(&scene.window, scene.sheet->rect().center()).y();
    };
    QTRY_VERIFY(qAbs(middle() - scene.window.rect().center().y()) <= 1);
    QTest::mouseClick(scene.detailsButton(), Qt::LeftButton);
    QTRY_COMPARE(scene.sheet->height(), folded);
    scene.sheet->setDetailedText({});
    QCOMPARE(scene.sheet->height(), without);
}

void MessageOptionsTest::detailsArePlainAndReadOnly()
{
    const Scene scene;
    scene.sheet->setDetailedText("<b>x</b>");
    QCOMPARE(scene.details()->toPlainText(), QString("<b>x</b>"));
    QVERIFY(scene.details()->isReadOnly());
    QCOMPARE(spoken(scene.details())->text(QAccessible::Name), QString("text"));
    scene.sheet->setText("other");
    QCOMPARE(spoken(scene.details())->text(QAccessible::Name), QString("other"));
}

void MessageOptionsTest::detailsGiveWayInALowWindow_data()
{
    QTest::addColumn<bool>("isUnfoldedFirst");
    addRow("unfolded, then shown", true);
    addRow("shown, then unfolded", false);
}

void MessageOptionsTest::detailsGiveWayInALowWindow()
{
    QFETCH(bool, isUnfoldedFirst);
    Scene scene(Sheet::Confirm, {scaled(400), scaled(300)});
    scene.sheet->setDetailedText(QString("line\n").repeated(40));
    if (isUnfoldedFirst)
        scene.detailsButton()->click();
    scene.show();
    if (!isUnfoldedFirst)
        scene.detailsButton()->click();
    QTRY_VERIFY(scene.details()->height() < scaled(120));
    QVERIFY(scene.details()->height() >= scaled(48));
    QVERIFY(scene.window.rect().contains(scene.sheet->geometry()));
}

void MessageOptionsTest::returnOnTheDetailsButtonUnfoldsThem()
{
    QWidget window;
    window.resize(600, 400);
    auto *sheet = new Sheet(Sheet::Confirm, "text", &window);
    sheet->setDetailedText("details");
    const SheetDriver driver([&] {
        auto *details = sheet->findChild<QPlainTextEdit *>();
        auto *button = details->parent()->findChild<QPushButton *>();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        button->setFocus();
        QTest::keyClick(button, Qt::Key_Return);
        QVERIFY(details->isVisible());
        QTest::keyClick(button, Qt::Key_Space);
        QVERIFY(!details->isVisible());
        sheet->done(7);
    });
    QCOMPARE(sheet->execAndDelete(), 7);
}

void MessageOptionsTest::escapeInTheDetailsCancels()
{
    Scene scene;
    scene.sheet->setDetailedText("details");
    const SheetDriver driver([&] {
        scene.detailsButton()->click();
        scene.details()->setFocus();
        QTest::keyClick(scene.details(), Qt::Key_A);
        QCOMPARE(scene.details()->toPlainText(), QString("details"));
        QTest::keyClick(scene.details(), Qt::Key_Escape);
    });
    scene.window.show();
    QCOMPARE(scene.sheet->exec(), int(Button::Discard));
}

void MessageOptionsTest::tabReachesTheOptionsAfterTheTexts()
{
    Scene scene;
    scene.sheet->setInformativeText("more");
    scene.sheet->setDontAskAgainCheckBox(true);
    scene.sheet->setDetailedText("details");
    scene.show();
    scene.detailsButton()->click();
    const QWidgetList stops {labelOf(*scene.sheet, "text"), labelOf(*scene.sheet, "more"),
        scene.box(), scene.detailsButton(), scene.details(),
        buttonOf(*scene.sheet, Button::Discard), buttonOf(*scene.sheet, Button::Apply)};
    for (int i = 1; i <= stops.size(); ++i) {
        QTest::keyClick(scene.window.focusWidget(), Qt::Key_Tab);
        QVERIFY2(scene.window.focusWidget() == stops[i % stops.size()], QByteArray::number(i));
    }
    for (int i = stops.size() - 1; i >= 0; --i) {
        QTest::keyClick(scene.window.focusWidget(), Qt::Key_Backtab);
        QVERIFY2(scene.window.focusWidget() == stops[i], QByteArray::number(i));
    }
}

void MessageOptionsTest::defaultButtonTakesTheKeysThatConfirm_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<int>("which");
    QTest::addColumn<int>("result");
    QTest::addColumn<bool>("hasFocus");
    addRow("none", int(Sheet::Confirm), int(Button::NoButton), int(Button::Apply), false);
    addRow("cancel", int(Sheet::Confirm), int(Button::Discard), int(Button::Discard), true);
    addRow("apply", int(Sheet::Confirm), int(Button::Apply), int(Button::Apply), true);
    addRow("reset", int(Sheet::ConfirmReset), int(Button::Reset), int(Button::Reset), true);
    addRow("missing", int(Sheet::Warning), int(Button::Discard), int(Button::Ok), false);
}

void MessageOptionsTest::defaultButtonTakesTheKeysThatConfirm()
{
    QFETCH(int, type);
    QFETCH(int, which);
    QFETCH(int, result);
    QFETCH(bool, hasFocus);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        const Scene scene {Sheet::MessageType(type)};
        scene.sheet->setDefaultButton(QMessageBox::StandardButton(which));
        QWidget *window = scene.sheet->window();
        const SheetDriver driver([&] {
            QPushButton *chosen = buttonOf(*scene.sheet, which);
            QCOMPARE(chosen && window->focusWidget() == chosen, hasFocus);
            QVERIFY(buttonOf(*scene.sheet, result)->isDefault());
            QTest::keyClick(window, key);
        });
        window->show();
        QCOMPARE(scene.sheet->exec(), result);
    }
}

void MessageOptionsTest::defaultButtonSurvivesARebuild()
{
    const Scene scene;
    scene.sheet->setDefaultButton(QMessageBox::Discard);
    scene.sheet->setMessageType(Sheet::Warning);
    QVERIFY(buttonOf(*scene.sheet, Button::Ok)->isDefault());
    scene.sheet->setMessageType(Sheet::WarningConfirm);
    QVERIFY(buttonOf(*scene.sheet, Button::Discard)->isDefault());
    QVERIFY(!buttonOf(*scene.sheet, Button::Apply)->isDefault());
    scene.sheet->setDefaultButton(QMessageBox::NoButton);
    QVERIFY(buttonOf(*scene.sheet, Button::Apply)->isDefault());
    QVERIFY(!buttonOf(*scene.sheet, Button::Discard)->isDefault());
}

void MessageOptionsTest::focusedButtonGoesBeforeTheDefaultOne()
{
    QWidget window;
    auto *sheet = new Sheet(Sheet::Confirm, "text", &window);
    sheet->setDefaultButton(QMessageBox::Discard);
    const SheetDriver driver([&] {
        QPushButton *apply = buttonOf(*sheet, Button::Apply);
        apply->setFocus();
        QTest::keyClick(apply, Qt::Key_Return);
    });
    QCOMPARE(sheet->execAndDelete(), int(Button::Apply));
}

void MessageOptionsTest::anotherLanguageChangesTheCaptions()
{
    const Scene scene;
    scene.sheet->setDontAskAgainCheckBox(true);
    scene.sheet->setDetailedText("details");
    ComponentStrings &strings = ComponentStrings::getInstance();
    const QMap<QString, QString> before = strings.strings();
    QMap<QString, QString> changed = before;
    changed["dont_ask_again"] = "Nicht mehr fragen";
    changed["show_details"] = "Details anzeigen";
    strings.changeStrings(changed);
    QCoreApplication::processEvents();
    QCOMPARE(scene.caption()->text(), changed["dont_ask_again"]);
    QCOMPARE(scene.detailsButton()->text(), changed["show_details"]);
    scene.sheet->setDontAskAgainCheckBox(true, "Own");
    strings.changeStrings(before);
    QCoreApplication::processEvents();
    QCOMPARE(scene.caption()->text(), QString("Own"));
}

VEMO_TEST_MAIN(MessageOptionsTest)
#include "tst_messageoptions.moc"
