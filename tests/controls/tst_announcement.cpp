// SPDX-License-Identifier: MIT
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/linklabel.h>
#include <vemo/vemobutton.h>
#include <vemo/vemocheckbox.h>
#include <vemo/vemocombobox.h>
#include <vemo/vemolabel.h>
#include <vemo/vemolineedit.h>
#include <vemo/vemoradiobutton.h>

#include <QAccessible>
#include <QLineEdit>

/// What assistive tools are told about each control.
class AnnouncementTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void roleAndTextAreAnnounced_data();
    void roleAndTextAreAnnounced();
    void buddyNamesAControlWithoutText();
    void stateOfACheckBoxIsAnnounced();
    void linkIsPressedByAssistiveTools();
    void nameOfALinkMayBeGiven();
    void textOfALinkIsAnnouncedWithoutMarkUp_data();
    void textOfALinkIsAnnouncedWithoutMarkUp();
};

namespace {

using Make = QWidget *(*)(const QString &text);

template <typename Control> QWidget *newControl(const QString &text)
{
    return new Control(text);
}

QWidget *newButton(const QString &text)
{
    return new VemoButton(text, VemoButton::APPLY);
}

QString nameOf(QWidget *widget)
{
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
}

} // namespace

Q_DECLARE_METATYPE(Make)

void AnnouncementTest::roleAndTextAreAnnounced_data()
{
    QTest::addColumn<Make>("make");
    QTest::addColumn<int>("role");
    const auto row = [](const char *name, Make make, QAccessible::Role role) {
        QTest::newRow(name) << make << int(role);
    };
    row("button", newButton, QAccessible::PushButton);
    row("check box", newControl<VemoCheckBox>, QAccessible::CheckBox);
    row("radio button", newControl<VemoRadioButton>, QAccessible::RadioButton);
    row("label", newControl<VemoLabel>, QAccessible::StaticText);
    row("clickable label", newControl<ClickableLabel>, QAccessible::StaticText);
    row("link label", newControl<LinkLabel>, QAccessible::Link);
}

void AnnouncementTest::roleAndTextAreAnnounced()
{
    QFETCH(Make, make);
    QFETCH(int, role);
    const QScopedPointer<QWidget> control(make("Keep a copy"));
    QCOMPARE(int(QAccessible::queryAccessibleInterface(control.data())->role()), role);
    QCOMPARE(nameOf(control.data()), QString("Keep a copy"));
}

void AnnouncementTest::buddyNamesAControlWithoutText()
{
    QWidget window;
    QLabel caption("&Period", &window);
    VemoComboBox box(&window);
    caption.setBuddy(&box);
    QCOMPARE(QAccessible::queryAccessibleInterface(&box)->role(), QAccessible::ComboBox);
    QCOMPARE(nameOf(&box), QString("Period"));

    VemoLineEdit edit(&window);
    edit.getPreLabel()->setText("&Name");
    edit.getPreLabel()->setBuddy(edit.getLineEdit());
    QCOMPARE(QAccessible::queryAccessibleInterface(edit.getLineEdit())->role(),
        QAccessible::EditableText);
    QCOMPARE(nameOf(edit.getLineEdit()), QString("Name"));
}

void AnnouncementTest::stateOfACheckBoxIsAnnounced()
{
    VemoCheckBox box("Keep a copy");
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&box);
    QVERIFY(!accessible->state().checked);
    box.setChecked(true);
    QVERIFY(accessible->state().checked);
    box.setTristate(true);
    box.setCheckState(Qt::PartiallyChecked);
    QVERIFY(accessible->state().checkStateMixed);
}

void AnnouncementTest::linkIsPressedByAssistiveTools()
{
    LinkLabel link("Licence");
    QSignalSpy clicks(&link, SIGNAL(clicked()));
    QAccessibleActionInterface *actions =
        QAccessible::queryAccessibleInterface(&link)->actionInterface();
    QCOMPARE(actions->actionNames(), QStringList(QAccessibleActionInterface::pressAction()));
    actions->doAction(QAccessibleActionInterface::setFocusAction());
    QCOMPARE(clicks.count(), 0);
    actions->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(clicks.count(), 1);
    link.setEnabled(false);
    actions->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(clicks.count(), 1);
}

void AnnouncementTest::nameOfALinkMayBeGiven()
{
    LinkLabel link("here");
    link.setAccessibleName("Licence terms");
    QCOMPARE(nameOf(&link), QString("Licence terms"));
}

void AnnouncementTest::textOfALinkIsAnnouncedWithoutMarkUp_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<Qt::TextFormat>("format");
    QTest::addColumn<QString>("name");
    const QString rich = "<b>Licence</b> &amp; terms";
    QTest::newRow("rich") << rich << Qt::AutoText << "Licence & terms";
    QTest::newRow("declared rich") << "A &amp; B" << Qt::RichText << "A & B";
    QTest::newRow("plain") << "1 < 2 &amp; 3" << Qt::AutoText << "1 < 2 &amp; 3";
    QTest::newRow("declared plain") << rich << Qt::PlainText << rich;
}

void AnnouncementTest::textOfALinkIsAnnouncedWithoutMarkUp()
{
    QFETCH(QString, text);
    QFETCH(Qt::TextFormat, format);
    QFETCH(QString, name);
    LinkLabel link(text);
    link.setTextFormat(format);
    QCOMPARE(nameOf(&link), name);
}

VEMO_TEST_MAIN(AnnouncementTest)
#include "tst_announcement.moc"
