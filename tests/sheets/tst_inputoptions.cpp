// SPDX-License-Identifier: MIT
// What an input sheet can do that is off by default.
#include "core/scaling_p.h"
#include "support/sheetdriver.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/stylemanager.h>
#include <vemo/vemoinputsheet.h>
#include <vemo/vemomask.h>

#include <QAccessible>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>

namespace {

using Button = QDialogButtonBox;

struct Scene
{
    Scene()
    {
        window.resize(scaled(600), scaled(400));
        sheet = new VemoInputSheet("Name", &window);
        VemoMask::createMask(sheet, &window, QColor(0, 0, 0, 20));
    }
    void show()
    {
        window.show();
        sheet->open();
        QVERIFY(QTest::qWaitForWindowActive(&window));
    }
    QAbstractButton *ok() const { return sheet->button(QMessageBox::Ok); }
    QLabel *error() const
    {
        for (QLabel *label : sheet->findChildren<QLabel *>()) {
            if (label->styleSheet() == getStyleSheet("component.lineedit_error"))
                return label;
        }
        return nullptr;
    }

    QWidget window;
    VemoInputSheet *sheet;
};

bool isFilled(const QString &text)
{
    return !text.trimmed().isEmpty();
}

QString description(QWidget *widget)
{
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Description);
}

} // namespace

class InputOptionsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void startsWithoutAnyOption();
    void severalLinesBeginWhereTheirLanguageDoes_data();
    void severalLinesBeginWhereTheirLanguageDoes();
    void aDiscardedTextFieldMayStillChange();
    void okIsDisabledWhileTheTextIsInvalid_data();
    void okIsDisabledWhileTheTextIsInvalid();
    void withoutACheckOkBelongsToTheHost();
    void returnHasNoEffectOnAnInvalidText();
    void errorAppearsOnceTheTextHasBeenChanged_data();
    void errorAppearsOnceTheTextHasBeenChanged();
    void longErrorTakesTheLinesThatItNeeds();
    void echoModeHidesTheText();
    void severalLinesKeepTheText();
    void returnStartsALineAndControlReturnConfirms();
    void tabLeavesTheFieldOfSeveralLines();
    void severalLinesCanBeTurnedOnWhileShown();
    void checkMayCaptureAndBeRemoved();
};

void InputOptionsTest::startsWithoutAnyOption()
{
    const Scene scene;
    QVERIFY(!scene.error());
    QVERIFY(!scene.sheet->getTextEdit());
    QVERIFY(scene.ok()->isEnabled());
    QCOMPARE(scene.sheet->echoMode(), QLineEdit::Normal);
    QCOMPARE(scene.sheet->errorText(), QString());
    scene.sheet->setContent("ab");
    QCOMPARE(scene.sheet->getContent(), QString("ab"));
    QCOMPARE(scene.sheet->getLineEdit()->text(), QString("ab"));
}

void InputOptionsTest::severalLinesBeginWhereTheirLanguageDoes_data()
{
    QTest::addColumn<Qt::LayoutDirection>("layout");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isFromRight");
    const QString hebrew(3, QChar(0x5d0));
    addRow("empty", Qt::LeftToRight, QString(), false);
    addRow("empty, from the right", Qt::RightToLeft, QString(), true);
    addRow("Latin", Qt::LeftToRight, QString("ab\ncd"), false);
    addRow("Latin, from the right", Qt::RightToLeft, QString("ab\ncd"), false);
    addRow("Hebrew", Qt::LeftToRight, hebrew, true);
    addRow("Hebrew, from the right", Qt::RightToLeft, hebrew, true);
}

void InputOptionsTest::severalLinesBeginWhereTheirLanguageDoes()
{
    QFETCH(Qt::LayoutDirection, layout);
    QFETCH(QString, text);
    Scene scene;
    scene.window.setLayoutDirection(layout);
    scene.sheet->setMultiLine(true);
    scene.sheet->setContent(text);
    scene.show();
    QPlainTextEdit *edit = scene.sheet->getTextEdit();
    const int start = edit->cursorRect(QTextCursor(edit->document())).center().x();
    QTEST(start > edit->viewport()->width() / 2, "isFromRight");
    QCOMPARE(scene.sheet->getContent(), text);
}

void InputOptionsTest::aDiscardedTextFieldMayStillChange()
{
    const Scene scene;
    scene.sheet->setMultiLine(true);
    QPlainTextEdit *edit = scene.sheet->getTextEdit();
    scene.sheet->setMultiLine(false);
    edit->setPlainText("ab"); // It is deleted later.
    QCOMPARE(scene.sheet->getContent(), QString());
}

void InputOptionsTest::okIsDisabledWhileTheTextIsInvalid_data()
{
    QTest::addColumn<bool>("isMultiLine");
    QTest::addColumn<bool>("hasValidator");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isValid");
    addRow("empty", false, false, QString(), false);
    addRow("filled", false, false, QString("a"), true);
    addRow("validator rejects", false, true, QString("1"), false);
    addRow("validator accepts", false, true, QString("12"), true);
    addRow("several lines, empty", true, false, QString("\n"), false);
    addRow("several lines, filled", true, false, QString("a\nb"), true);
}

void InputOptionsTest::okIsDisabledWhileTheTextIsInvalid()
{
    QFETCH(bool, isMultiLine);
    QFETCH(bool, hasValidator);
    QFETCH(QString, text);
    const Scene scene;
    scene.sheet->setMultiLine(isMultiLine);
    if (hasValidator) {
        scene.sheet->getLineEdit()->setValidator(
            new QRegularExpressionValidator(QRegularExpression("[0-9]{2}"), scene.sheet));
    }
    scene.sheet->setCheck(isFilled);
    QVERIFY(!scene.ok()->isEnabled());
    scene.sheet->setContent(text);
    QTEST(scene.ok()->isEnabled(), "isValid");
}

void InputOptionsTest::withoutACheckOkBelongsToTheHost()
{
    const Scene scene;
    scene.ok()->setEnabled(false);
    scene.sheet->setContent("ab");
    scene.sheet->setErrorText("Wrong");
    QVERIFY(!scene.ok()->isEnabled());
}

void InputOptionsTest::returnHasNoEffectOnAnInvalidText()
{
    Scene scene;
    scene.sheet->setCheck(isFilled);
    const SheetDriver driver([&] {
        QLineEdit *field = scene.sheet->getLineEdit();
        QTest::keyClick(field, Qt::Key_Return);
        QVERIFY(scene.sheet->isVisible());
        QTest::keyClick(field, Qt::Key_A);
        QTest::keyClick(field, Qt::Key_Return);
    });
    scene.window.show();
    QCOMPARE(scene.sheet->exec(), int(Button::Ok));
    QCOMPARE(scene.sheet->getContent(), QString("a"));
}

void InputOptionsTest::errorAppearsOnceTheTextHasBeenChanged_data()
{
    QTest::addColumn<bool>("isMultiLine");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    addRow("line", false, Qt::LeftToRight);
    addRow("several lines", true, Qt::LeftToRight);
    addRow("right to left", false, Qt::RightToLeft);
}

void InputOptionsTest::errorAppearsOnceTheTextHasBeenChanged()
{
    QFETCH(bool, isMultiLine);
    QFETCH(Qt::LayoutDirection, direction);
    Scene scene;
    scene.window.setLayoutDirection(direction);
    scene.sheet->setMultiLine(isMultiLine);
    scene.sheet->setCheck(isFilled);
    scene.sheet->setErrorText("Enter <a> name");
    scene.show();
    QWidget *field = isMultiLine ? static_cast<QWidget *>(scene.sheet->getTextEdit())
                                 : scene.sheet->getLineEdit();
    QVERIFY(!scene.error()->isVisible());
    QVERIFY(!field->property("error").toBool());
    const int height = scene.sheet->height();

    scene.sheet->setContent("a");
    QVERIFY(!scene.error()->isVisible());
    scene.sheet->setContent({});
    QVERIFY(scene.error()->isVisible());
    QVERIFY(field->property("error").toBool());
    QCOMPARE(scene.error()->textFormat(), Qt::PlainText);
    QCOMPARE(description(field), QString("Enter <a> name"));
    QTRY_COMPARE(scene.sheet->height(), height + scene.error()->height());
    QVERIFY(scene.error()->y() >= field->geometry().bottom());
    QCOMPARE(scene.error()->x(), field->x());

    scene.sheet->setContent("b");
    QVERIFY(!scene.error()->isVisible());
    QCOMPARE(description(field), QString());
    QTRY_COMPARE(scene.sheet->height(), height);
}

void InputOptionsTest::longErrorTakesTheLinesThatItNeeds()
{
    Scene scene;
    scene.sheet->setCheck(isFilled);
    scene.sheet->setErrorText("kurz");
    scene.show();
    scene.sheet->setContent("a");
    scene.sheet->setContent({});
    const int height = scene.error()->height();
    scene.sheet->setErrorText(
        "Der Name enthält Zeichen, die in Dateinamen auf Netzwerklaufwerken nicht zulässig sind; "
        "verwenden Sie Buchstaben, Ziffern, Bindestriche und Unterstriche.");
    QTRY_VERIFY(scene.error()->height() >= 2 * height - scaled(4));
    QVERIFY(scene.sheet->rect().contains(scene.error()->geometry()));
}

void InputOptionsTest::echoModeHidesTheText()
{
    const Scene scene;
    scene.sheet->setEchoMode(QLineEdit::Password);
    scene.sheet->setContent("secret");
    QCOMPARE(scene.sheet->echoMode(), QLineEdit::Password);
    QVERIFY(!scene.sheet->getLineEdit()->displayText().contains('s'));
    QCOMPARE(scene.sheet->getContent(), QString("secret"));
}

void InputOptionsTest::severalLinesKeepTheText()
{
    Scene scene;
    scene.sheet->setContent("a");
    scene.sheet->setMultiLine(true);
    scene.sheet->setMultiLine(true);
    QCOMPARE(scene.sheet->getContent(), QString("a"));
    scene.show();
    QPlainTextEdit *field = scene.sheet->getTextEdit();
    QVERIFY(field->isVisible() && !scene.sheet->getLineEdit()->isVisible());
    QCOMPARE(field->height(), scaled(112));
    QCOMPARE(
        QAccessible::queryAccessibleInterface(field)->text(QAccessible::Name), QString("Name"));
    scene.sheet->setText("Other");
    QCOMPARE(
        QAccessible::queryAccessibleInterface(field)->text(QAccessible::Name), QString("Other"));
    scene.sheet->setMultiLine(false);
    QVERIFY(!scene.sheet->getTextEdit());
    QVERIFY(scene.sheet->getLineEdit()->isVisible());
    QCOMPARE(scene.sheet->getContent(), QString("a"));
}

void InputOptionsTest::returnStartsALineAndControlReturnConfirms()
{
    Scene scene;
    scene.sheet->setMultiLine(true);
    const SheetDriver driver([&] {
        QPlainTextEdit *field = scene.sheet->getTextEdit();
        QCOMPARE(scene.window.focusWidget(), field);
        QTest::keyClicks(field, "a b");
        QTest::keyClick(field, Qt::Key_Return);
        QTest::keyClick(field, Qt::Key_C);
        QVERIFY(scene.sheet->isVisible());
        QTest::keyClick(field, Qt::Key_Return, Qt::ControlModifier);
    });
    scene.window.show();
    QCOMPARE(scene.sheet->exec(), int(Button::Ok));
    QCOMPARE(scene.sheet->getContent(), QString("a b\nc"));
}

void InputOptionsTest::tabLeavesTheFieldOfSeveralLines()
{
    Scene scene;
    scene.sheet->setMultiLine(true);
    scene.show();
    const QWidgetList stops {
        scene.sheet->getTextEdit(), scene.sheet->button(QMessageBox::Discard), scene.ok()};
    QTRY_COMPARE(scene.window.focusWidget(), stops.first());
    for (int i = 1; i <= stops.size(); ++i) {
        QTest::keyClick(scene.window.focusWidget(), Qt::Key_Tab);
        QCOMPARE(scene.window.focusWidget(), stops[i % stops.size()]);
    }
    for (int i = stops.size() - 1; i >= 0; --i) {
        QTest::keyClick(scene.window.focusWidget(), Qt::Key_Backtab);
        QCOMPARE(scene.window.focusWidget(), stops[i]);
    }
    QCOMPARE(scene.sheet->getContent(), QString());
}

void InputOptionsTest::severalLinesCanBeTurnedOnWhileShown()
{
    Scene scene;
    scene.show();
    const int height = scene.sheet->height();
    scene.sheet->setMultiLine(true);
    QVERIFY(scene.sheet->getTextEdit()->isVisible());
    QTRY_COMPARE(scene.sheet->height(), height + scaled(112) - scaled(28));
}

void InputOptionsTest::checkMayCaptureAndBeRemoved()
{
    const Scene scene;
    QStringList taken {"report"};
    scene.sheet->setContent("report");
    scene.sheet->setCheck([&taken](const QString &name) { return !taken.contains(name); });
    QVERIFY(!scene.ok()->isEnabled());
    scene.sheet->setCheck({});
    QVERIFY(scene.ok()->isEnabled());
    QVERIFY(!scene.sheet->getLineEdit()->property("error").toBool());
}

VEMO_TEST_MAIN(InputOptionsTest)
#include "tst_inputoptions.moc"
