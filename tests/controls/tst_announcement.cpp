// SPDX-License-Identifier: MIT
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/linklabel.h>
#include <vemo/tooltiptext.h>
#include <vemo/vemobutton.h>
#include <vemo/vemocheckbox.h>
#include <vemo/vemocombobox.h>
#include <vemo/vemoiconbutton.h>
#include <vemo/vemolabel.h>
#include <vemo/vemolineedit.h>
#include <vemo/vemoradiobutton.h>
#include <vemo/vemosidebar.h>
#include <vemo/vemospinner.h>
#include <vemo/vemoswitch.h>

#include <QAbstractItemView>
#include <QAccessible>
#include <QAction>
#include <QLineEdit>
#include <QMenu>

/// The accessible names and descriptions of the controls.
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
    void iconButtonIsPressedByAssistiveTools();
    void iconButtonOpensItsMenuForAssistiveTools();
    void iconButtonReportsItsKindAndState();
    void comboBoxIsAnnouncedByItsGivenName_data();
    void comboBoxIsAnnouncedByItsGivenName();
    void comboBoxOpensForAssistiveTools();
    void toolTipIsDescribedWithoutMarkUp_data();
    void toolTipIsDescribedWithoutMarkUp();
    void descriptionOfTheHostStays();
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

QAccessibleInterface *interfaceOf(QWidget *widget)
{
    return QAccessible::queryAccessibleInterface(widget);
}

QString nameOf(QWidget *widget)
{
    return interfaceOf(widget)->text(QAccessible::Name);
}

QString descriptionOf(QWidget *widget)
{
    return interfaceOf(widget)->text(QAccessible::Description);
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
    row("switch", newControl<VemoSwitch>, QAccessible::CheckBox);
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

void AnnouncementTest::iconButtonIsPressedByAssistiveTools()
{
    VemoIconButton button("bt_add");
    button.setAccessibleName("Add");
    QCOMPARE(interfaceOf(&button)->role(), QAccessible::PushButton);
    QCOMPARE(nameOf(&button), QString("Add"));
    QAccessibleActionInterface *actions = interfaceOf(&button)->actionInterface();
    QVERIFY(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
    QSignalSpy clicks(&button, SIGNAL(clicked()));
    actions->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(clicks.count(), 1);
    button.setEnabled(false);
    QVERIFY(!actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
    actions->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(clicks.count(), 1);
}

void AnnouncementTest::iconButtonOpensItsMenuForAssistiveTools()
{
    VemoIconButton button("bt_add");
    button.show();
    QMenu menu;
    menu.addAction("Folder");
    button.setMenu(&menu);
    QCOMPARE(interfaceOf(&button)->role(), QAccessible::ButtonMenu);
    QVERIFY(interfaceOf(&button)->state().hasPopup);
    QAccessibleActionInterface *actions = interfaceOf(&button)->actionInterface();
    int openings = 0;
    connect(&menu, &QMenu::aboutToShow, &menu, [&] {
        ++openings;
        QTimer::singleShot(0, &menu, &QMenu::close);
    });
    actions->doAction(QAccessibleActionInterface::showMenuAction());
    QTRY_COMPARE(openings, 1);
    actions->doAction(QAccessibleActionInterface::pressAction());
    QTRY_COMPARE(openings, 2);
    QVERIFY(actions->actionNames().contains(QAccessibleActionInterface::showMenuAction()));
    QVERIFY(actions->actionNames().contains(QAccessibleActionInterface::pressAction()));
}

void AnnouncementTest::iconButtonReportsItsKindAndState()
{
    VemoIconButton button("bt_add");
    QVERIFY(!interfaceOf(&button)->state().checkable);
    button.setCheckable(true);
    QCOMPARE(interfaceOf(&button)->role(), QAccessible::CheckBox);
    QVERIFY(interfaceOf(&button)->state().checkable);
    QVERIFY(!interfaceOf(&button)->state().checked);
    button.setChecked(true);
    QVERIFY(interfaceOf(&button)->state().checked);
    button.setDown(true);
    QVERIFY(interfaceOf(&button)->state().pressed);
    QAction action("Refresh");
    button.setDefaultAction(&action);
    QCOMPARE(nameOf(&button), QString("Refresh"));
}

void AnnouncementTest::comboBoxIsAnnouncedByItsGivenName_data()
{
    QTest::addColumn<QString>("given");
    QTest::addColumn<bool>("hasBuddy");
    QTest::addColumn<bool>("isEditable");
    QTest::addColumn<QString>("name");
    for (const bool isEditable : {false, true}) {
        const QByteArray kind = isEditable ? "editable, " : "";
        QTest::newRow(kind + "given") << "From" << false << isEditable << "From";
        QTest::newRow(kind + "given, and a buddy") << "From" << true << isEditable << "From";
        QTest::newRow(kind + "a buddy") << QString() << true << isEditable << "Period";
    }
}

void AnnouncementTest::comboBoxIsAnnouncedByItsGivenName()
{
    QFETCH(QString, given);
    QFETCH(bool, hasBuddy);
    QFETCH(bool, isEditable);
    QFETCH(QString, name);
    QWidget window;
    QLabel caption("&Period", &window);
    VemoComboBox box(&window);
    box.setEditable(isEditable);
    box.addItems({"Days", "Weeks"});
    box.setAccessibleName(given);
    if (hasBuddy)
        caption.setBuddy(&box);
    QCOMPARE(interfaceOf(&box)->role(), QAccessible::ComboBox);
    QCOMPARE(nameOf(&box), name);
    QCOMPARE(interfaceOf(&box)->text(QAccessible::Value), QString("Days"));
    QCOMPARE(interfaceOf(&box)->state().editable, isEditable);
    QCOMPARE(interfaceOf(&box)->childCount(), isEditable ? 2 : 1);
    QCOMPARE(interfaceOf(&box)->child(0)->object(), box.view());
    QCOMPARE(interfaceOf(&box)->indexOfChild(interfaceOf(box.view())), 0);
    if (isEditable) {
        QCOMPARE(interfaceOf(&box)->child(1)->object(), box.lineEdit());
        QCOMPARE(interfaceOf(&box)->indexOfChild(interfaceOf(box.lineEdit())), 1);
    }
    QVERIFY(!interfaceOf(&box)->child(2));
}

void AnnouncementTest::comboBoxOpensForAssistiveTools()
{
    VemoComboBox box;
    box.addItems({"Days", "Weeks"});
    box.show();
    QAccessibleActionInterface *actions = interfaceOf(&box)->actionInterface();
    for (const QString &action :
        {QAccessibleActionInterface::showMenuAction(), QAccessibleActionInterface::pressAction()}) {
        QVERIFY(actions->actionNames().contains(action));
        actions->doAction(action);
        QTRY_VERIFY(box.view()->isVisible());
        QVERIFY(interfaceOf(&box)->state().expanded);
        actions->doAction(action);
        QTRY_VERIFY(!box.view()->isVisible());
        QVERIFY(!interfaceOf(&box)->state().expanded);
    }
    box.setEnabled(false);
    QCOMPARE(actions->actionNames(), QStringList());
    actions->doAction(QAccessibleActionInterface::showMenuAction());
    QVERIFY(!box.view()->isVisible());
}

void AnnouncementTest::toolTipIsDescribedWithoutMarkUp_data()
{
    QTest::addColumn<Make>("make");
    QTest::newRow("button") << Make(newButton);
    QTest::newRow("icon button") << Make([](const QString &name) -> QWidget * {
        auto *button = new VemoIconButton(QPixmap(4, 4));
        button->setAccessibleName(name);
        return button;
    });
    QTest::newRow("check box") << Make(newControl<VemoCheckBox>);
    QTest::newRow("radio button") << Make(newControl<VemoRadioButton>);
    QTest::newRow("switch") << Make(newControl<VemoSwitch>);
    QTest::newRow("label") << Make(newControl<VemoLabel>);
    QTest::newRow("clickable label") << Make(newControl<ClickableLabel>);
    QTest::newRow("link label") << Make(newControl<LinkLabel>);
    QTest::newRow("combo box") << Make(
        [](const QString & /*text*/) -> QWidget * { return new VemoComboBox; });
    QTest::newRow("spinner") << Make(
        [](const QString & /*text*/) -> QWidget * { return new VemoSpinner; });
    QTest::newRow("line edit") << Make(
        [](const QString & /*text*/) -> QWidget * { return new VemoLineEdit; });
    QTest::newRow("side bar") << Make(
        [](const QString & /*text*/) -> QWidget * { return new VemoSideBar; });
}

void AnnouncementTest::toolTipIsDescribedWithoutMarkUp()
{
    QFETCH(Make, make);
    const QScopedPointer<QWidget> control(make("Keep a copy"));
    QWidget *spoken = control.data(); // For a line edit, the field has the focus.
    if (auto *edit = qobject_cast<VemoLineEdit *>(spoken))
        spoken = edit->getLineEdit();
    QWidget *focused = spoken->focusProxy() ? spoken->focusProxy() : spoken;
    const QString name = "a & b <draft>\nsecond line";
    spoken->setToolTip(getHtmlEscapedStringForToolTip(name));
    QCOMPARE(descriptionOf(focused), name);
    spoken->setToolTip("1 < 2 &amp; plain");
    QCOMPARE(descriptionOf(focused), QString("1 < 2 &amp; plain"));
    spoken->setToolTip("<b>Bold</b>");
    QCOMPARE(descriptionOf(focused), QString("Bold"));
    spoken->setToolTip(QString());
    QCOMPARE(descriptionOf(focused), QString());
}

void AnnouncementTest::descriptionOfTheHostStays()
{
    VemoCheckBox box("Keep a copy");
    box.setAccessibleDescription("The <b>host's</b> own");
    box.setToolTip("<b>Tip</b>");
    QCOMPARE(descriptionOf(&box), QString("The <b>host's</b> own"));
    VemoCheckBox later("Keep a copy");
    later.setToolTip("<b>Tip</b>");
    later.setAccessibleDescription("Own");
    later.setToolTip("<i>Tip</i>");
    QCOMPARE(descriptionOf(&later), QString("Own"));
}

VEMO_TEST_MAIN(AnnouncementTest)
#include "tst_announcement.moc"
