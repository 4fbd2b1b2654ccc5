// SPDX-License-Identifier: MIT
// What a VemoLineEdit can do beyond its three parts; all of it is off at first.
#include <vemo/vemolineedit.h>

#include "core/scaling_p.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/stylemanager.h>

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>
#include <QVBoxLayout>

class LineEditOptionsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void startsWithoutAnyOption();
    void forwardsToItsField();
    void asksBothChecks_data();
    void asksBothChecks();
    void aCheckMayCapture();
    void errorTextAppearsWithTheErrorBelowTheField_data();
    void errorTextAppearsWithTheErrorBelowTheField();
    void errorTextTakesTheLinesThatItNeeds();
    void errorTextKeepsTheMarginsOfTheHost();
    void errorTextIsPlain();
    void errorTextDescribesTheField();
    void hiddenCaptionsTakeNoPlace();
    void hiddenCaptionNamesTheField();
    void clearButtonEmptiesTheField();
    void passwordButtonShowsTheTextWhileItIsChecked();
    void passwordButtonMayBeRemovedByItsOwnSlot();
};

namespace {

QLabel *errorLabel(const VemoLineEdit &edit)
{
    for (QLabel *label : edit.findChildren<QLabel *>()) {
        if (label != edit.getPreLabel() && label != edit.getPostLabel())
            return label;
    }
    return nullptr;
}

/// The buttons in the field, from its start to its end.
QList<QToolButton *> buttons(const VemoLineEdit &edit)
{
    return edit.getLineEdit()->findChildren<QToolButton *>();
}

QAccessibleInterface *spoken(QObject *object)
{
    return QAccessible::queryAccessibleInterface(object);
}

bool isShort(const QString &text)
{
    return text.size() < 4;
}

void show(VemoLineEdit &edit)
{
    edit.show();
    QVERIFY(QTest::qWaitForWindowExposed(&edit));
}

/// Whether some of width columns of a picture, from x on, are of another color than its corner.
bool hasInk(const QImage &picture, int x, int width)
{
    for (int column = x; column < x + width; ++column) {
        for (int row = 0; row < picture.height(); ++row) {
            if (picture.pixel(column, row) != picture.pixel(0, picture.height() - 1))
                return true;
        }
    }
    return false;
}

} // namespace

void LineEditOptionsTest::startsWithoutAnyOption()
{
    const VemoLineEdit edit;
    QVERIFY(!errorLabel(edit));
    QVERIFY(buttons(edit).isEmpty());
    QVERIFY(edit.areCaptionsVisible());
    QVERIFY(!edit.isClearButtonEnabled());
    QVERIFY(!edit.isPasswordButtonEnabled());
    QCOMPARE(edit.getLineEdit()->echoMode(), QLineEdit::Normal);
    QCOMPARE(edit.errorText(), QString());
    QCOMPARE(edit.contentsMargins(), QMargins());
}

void LineEditOptionsTest::forwardsToItsField()
{
    VemoLineEdit edit;
    const QLineEdit *field = edit.getLineEdit();
    edit.setText("30 days");
    QCOMPARE(field->text(), QString("30 days"));
    QCOMPARE(edit.text(), QString("30 days"));
    edit.selectAll();
    QCOMPARE(field->selectedText(), QString("30 days"));
    edit.clear();
    QCOMPARE(field->text(), QString());
    edit.setReadOnly(true);
    QVERIFY(field->isReadOnly() && edit.isReadOnly());
    edit.setMaxLength(5);
    QCOMPARE(field->maxLength(), 5);
    QCOMPARE(edit.maxLength(), 5);
}

void LineEditOptionsTest::asksBothChecks_data()
{
    QTest::addColumn<bool>("hasValidator");
    QTest::addColumn<bool>("hasCheck");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isValid");
    QTest::newRow("none") << false << false << "abcdef" << true;
    QTest::newRow("validator, good") << true << false << "abc" << true;
    QTest::newRow("validator, bad") << true << false << "abcdef" << false;
    QTest::newRow("check, good") << false << true << "abcdef" << true;
    QTest::newRow("check, bad") << false << true << "xyz" << false;
    QTest::newRow("both, good") << true << true << "abc" << true;
    QTest::newRow("both, bad for the validator") << true << true << "abcdef" << false;
    QTest::newRow("both, bad for the check") << true << true << "xyz" << false;
}

void LineEditOptionsTest::asksBothChecks()
{
    QFETCH(bool, hasValidator);
    QFETCH(bool, hasCheck);
    QFETCH(QString, text);
    VemoLineEdit edit;
    if (hasValidator)
        edit.setValidator(isShort);
    if (hasCheck)
        edit.setCheck([](const QString &checked) { return checked.startsWith('a'); });
    edit.setText(text);
    QTEST(edit.validate(), "isValid");
    QVERIFY(!edit.hasError());
    edit.setCheck({});
    QCOMPARE(edit.validate(), !hasValidator || isShort(text));
}

void LineEditOptionsTest::aCheckMayCapture()
{
    VemoLineEdit edit;
    QStringList taken {"report"};
    edit.setCheck([&taken](const QString &name) { return !taken.contains(name); });
    edit.setText("report");
    QVERIFY(!edit.validate());
    taken.clear();
    QVERIFY(edit.validate());
}

void LineEditOptionsTest::errorTextAppearsWithTheErrorBelowTheField_data()
{
    QTest::addColumn<bool>("isErrorFirst");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("error, then text") << true << Qt::LeftToRight;
    QTest::newRow("text, then error") << false << Qt::LeftToRight;
    QTest::newRow("right to left") << false << Qt::RightToLeft;
}

void LineEditOptionsTest::errorTextAppearsWithTheErrorBelowTheField()
{
    QFETCH(bool, isErrorFirst);
    QFETCH(Qt::LayoutDirection, direction);
    QWidget window;
    auto *column = new QVBoxLayout(&window);
    auto *edit = new VemoLineEdit;
    edit->setLayoutDirection(direction);
    edit->setPreText("Keep for");
    column->addWidget(edit);
    window.show();
    const int height = edit->sizeHint().height();
    if (isErrorFirst)
        edit->setError(true);
    edit->setErrorText("A number, please");
    edit->setError(true);

    QLabel *label = errorLabel(*edit);
    QCOMPARE(label->styleSheet(), getStyleSheet("component.lineedit_error"));
    QTRY_COMPARE(edit->height(), height + label->height());
    const QRect field = edit->getLineEdit()->geometry();
    QVERIFY(label->isVisible());
    QCOMPARE(label->y(), field.bottom() + 1);
    QVERIFY(label->height() >= label->fontMetrics().height());
    QVERIFY(edit->rect().contains(label->geometry()));
    if (direction == Qt::LeftToRight)
        QCOMPARE(label->x(), field.x());
    else
        QCOMPARE(label->geometry().right(), field.right());

    const QImage text = label->grab().toImage();
    QVERIFY(hasInk(text, 0, scaled(3)));

    edit->setError(false);
    QVERIFY(!label->isVisible());
    QCOMPARE(edit->sizeHint().height(), height);
    edit->getLineEdit()->setProperty("error", true); // as a form does
    QVERIFY(label->isVisible());
    edit->setErrorText({});
    QVERIFY(!label->isVisible());
    QCOMPARE(edit->sizeHint().height(), height);
}

void LineEditOptionsTest::errorTextTakesTheLinesThatItNeeds()
{
    VemoLineEdit edit;
    edit.setErrorText("The name holds a character that no file can have in its name on a server");
    edit.setError(true);
    edit.resize(900, edit.sizeHint().height());
    show(edit);
    QLabel *label = errorLabel(edit);
    const int wide = label->height();
    edit.resize(120, edit.height());
    QTRY_VERIFY(label->height() >= 3 * wide);
    QCOMPARE(edit.contentsMargins().bottom(), label->height());
    edit.resize(900, edit.height());
    QTRY_COMPARE(label->height(), wide);
}

void LineEditOptionsTest::errorTextKeepsTheMarginsOfTheHost()
{
    VemoLineEdit edit;
    edit.setContentsMargins(1, 2, 3, 4);
    edit.setErrorText("Wrong");
    edit.setError(true);
    show(edit);
    QCOMPARE(edit.contentsMargins(), QMargins(1, 2, 3, 4 + errorLabel(edit)->height()));
    edit.setError(false);
    QCOMPARE(edit.contentsMargins(), QMargins(1, 2, 3, 4));
}

void LineEditOptionsTest::errorTextIsPlain()
{
    VemoLineEdit edit;
    edit.setErrorText("<b>no</b> name");
    QCOMPARE(errorLabel(edit)->textFormat(), Qt::PlainText);
    QCOMPARE(edit.errorText(), QString("<b>no</b> name"));
}

void LineEditOptionsTest::errorTextDescribesTheField()
{
    VemoLineEdit edit;
    edit.getLineEdit()->setAccessibleDescription("In days");
    const auto description = [&edit] {
        return spoken(edit.getLineEdit())->text(QAccessible::Description);
    };
    edit.setErrorText("A number, please");
    QCOMPARE(description(), QString("In days"));
    edit.setError(true);
    QCOMPARE(description(), QString("A number, please"));
    edit.setErrorText("Not more than 365");
    QCOMPARE(description(), QString("Not more than 365"));
    edit.setError(false);
    QCOMPARE(description(), QString("In days"));
}

void LineEditOptionsTest::hiddenCaptionsTakeNoPlace()
{
    VemoLineEdit edit;
    show(edit);
    QVERIFY(edit.getLineEdit()->x() > 0);
    edit.setCaptionsVisible(false);
    QVERIFY(!edit.areCaptionsVisible());
    QTRY_COMPARE(edit.getLineEdit()->geometry().left(), 0);
    QCOMPARE(edit.getLineEdit()->width(), edit.width());
    edit.setCaptionsVisible(true);
    QTRY_VERIFY(edit.getLineEdit()->x() > 0);
}

void LineEditOptionsTest::hiddenCaptionNamesTheField()
{
    VemoLineEdit edit;
    edit.setPreText("Keep for");
    edit.setCaptionsVisible(false);
    show(edit);
    QCOMPARE(spoken(edit.getLineEdit())->text(QAccessible::Name), QString("Keep for"));
}

void LineEditOptionsTest::clearButtonEmptiesTheField()
{
    VemoLineEdit edit;
    edit.setClearButtonEnabled(true);
    edit.setClearButtonEnabled(true);
    QVERIFY(edit.isClearButtonEnabled());
    show(edit);
    edit.setText("report");
    QCOMPARE(buttons(edit).size(), 1);
    QToolButton *button = buttons(edit).first();
    QCOMPARE(spoken(button)->text(QAccessible::Name), QString("Clear"));
    QVERIFY(!button->icon().isNull());
    QTRY_VERIFY(button->isVisible());
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(edit.text(), QString());
    edit.setClearButtonEnabled(false);
    QVERIFY(!edit.isClearButtonEnabled());
}

void LineEditOptionsTest::passwordButtonShowsTheTextWhileItIsChecked()
{
    VemoLineEdit edit;
    edit.setPasswordButtonEnabled(true);
    edit.setPasswordButtonEnabled(true);
    QVERIFY(edit.isPasswordButtonEnabled());
    edit.setText("secret");
    show(edit);
    const QLineEdit *field = edit.getLineEdit();
    QCOMPARE(field->echoMode(), QLineEdit::Password);
    QVERIFY(!field->displayText().contains('s'));
    QCOMPARE(buttons(edit).size(), 1);
    QToolButton *button = buttons(edit).first();
    QCOMPARE(spoken(button)->text(QAccessible::Name), QString("Show password"));
    QVERIFY(spoken(button)->state().checkable);
    QVERIFY(!spoken(button)->state().checked);
    const QImage hidden = button->icon().pixmap(16).toImage();

    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(field->displayText(), QString("secret"));
    QVERIFY(spoken(button)->state().checked);
    QVERIFY(button->icon().pixmap(16).toImage() != hidden);
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(field->echoMode(), QLineEdit::Password);
    QCOMPARE(button->icon().pixmap(16).toImage(), hidden);
}

void LineEditOptionsTest::passwordButtonMayBeRemovedByItsOwnSlot()
{
    VemoLineEdit edit;
    edit.setPasswordButtonEnabled(true);
    show(edit);
    connect(buttons(edit).first(), &QToolButton::toggled, &edit,
        [&edit] { edit.setPasswordButtonEnabled(false); });
    QTest::mouseClick(buttons(edit).first(), Qt::LeftButton);
    QVERIFY(!edit.isPasswordButtonEnabled());
    QCOMPARE(edit.getLineEdit()->echoMode(), QLineEdit::Normal);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(buttons(edit).isEmpty());
}

VEMO_TEST_MAIN(LineEditOptionsTest)
#include "tst_lineeditoptions.moc"
