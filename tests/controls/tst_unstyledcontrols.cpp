// SPDX-License-Identifier: MIT
#include "support/vemotest.h"

#include <vemo/vemobadge.h>
#include <vemo/vemobutton.h>
#include <vemo/vemocheckbox.h>
#include <vemo/vemocombobox.h>
#include <vemo/vemoiconbutton.h>
#include <vemo/vemolabel.h>
#include <vemo/vemolineedit.h>
#include <vemo/vemoradiobutton.h>
#include <vemo/vemospinner.h>
#include <vemo/vemoswitch.h>

#include <QLineEdit>

/// Controls in a host without style files.
class UnstyledControlsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void warnOnceForEachMissingSectionAndStayPlain_data();
    void warnOnceForEachMissingSectionAndStayPlain();
    void fieldStillShowsItsError();
};

namespace {

using Make = QWidget *(*)();

QString missing(const QString &name)
{
    return "Cannot find stylesheet \"component." + name + "\"";
}

} // namespace

Q_DECLARE_METATYPE(Make)

void UnstyledControlsTest::warnOnceForEachMissingSectionAndStayPlain_data()
{
    QTest::addColumn<Make>("make");
    QTest::addColumn<QStringList>("warnings");
    const auto row = [](const char *name, Make make, const QStringList &warnings) {
        QTest::newRow(name) << make << warnings;
    };
    row("button", [] { return static_cast<QWidget *>(new VemoButton("Save", 0)); },
        {missing("apply_button")});
    row("icon button", [] { return static_cast<QWidget *>(new VemoIconButton(QPixmap())); },
        {missing("icon_button")});
    row("badge", [] { return static_cast<QWidget *>(new VemoBadge); }, {missing("badge_accent")});
    row("label", [] { return static_cast<QWidget *>(new VemoLabel("Name")); }, {missing("label")});
    row("check box", [] { return static_cast<QWidget *>(new VemoCheckBox); },
        {missing("checkbox")});
    row("radio button", [] { return static_cast<QWidget *>(new VemoRadioButton); },
        {missing("radio_button")});
    row("spinner", [] { return static_cast<QWidget *>(new VemoSpinner); }, {missing("spinner")});
    row("switch", [] { return static_cast<QWidget *>(new VemoSwitch); }, {missing("switch")});
    row("line edit", [] { return static_cast<QWidget *>(new VemoLineEdit); },
        {missing("lineedit_label"), missing("lineedit"), missing("lineedit_label")});
    // The empty section also lacks the placeholders for the padding and the border.
    row("combo box", [] { return static_cast<QWidget *>(new VemoComboBox); },
        {missing("combobox"),
            "default: QString::arg: Argument missing: , padding-left: 6px; \npadding-right: 6px;",
            "default: QString::arg: Argument missing: , border: 1px solid #C8D2DC;",
            missing("scrollbar")});
}

void UnstyledControlsTest::warnOnceForEachMissingSectionAndStayPlain()
{
    QFETCH(Make, make);
    QFETCH(QStringList, warnings);
    const QScopedPointer<QWidget> widget(make());
    QCOMPARE(messages.take(), warnings);
    QCOMPARE(widget->styleSheet(), QString());
    QVERIFY(!widget->grab().isNull());
}

void UnstyledControlsTest::fieldStillShowsItsError()
{
    VemoLineEdit edit;
    messages.take();
    edit.getLineEdit()->setStyleSheet("QLineEdit[error=\"true\"] { background: #FF0000; }");
    edit.show();
    const QPoint inside(5, edit.getLineEdit()->height() / 2);
    QVERIFY(pixelAt(edit.getLineEdit(), inside) != QColor(Qt::red));
    edit.setError(true);
    QCOMPARE(pixelAt(edit.getLineEdit(), inside), QColor(Qt::red));
    edit.setError(false);
    QVERIFY(pixelAt(edit.getLineEdit(), inside) != QColor(Qt::red));
}

VEMO_TEST_MAIN(UnstyledControlsTest)
#include "tst_unstyledcontrols.moc"
