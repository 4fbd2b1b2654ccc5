// SPDX-License-Identifier: MIT
#include "visual/baselinetest.h"

#include <vemo/imagemanager.h>
#include <vemo/stylemanager.h>
#include <vemo/vemocheckbox.h>
#include <vemo/vemocombobox.h>
#include <vemo/vemomenu.h>
#include <vemo/vemoradiobutton.h>
#include <vemo/vemoswitch.h>

#include <QAbstractItemView>
#include <QScrollBar>
#include <QStandardItemModel>

namespace {

VemoCheckBox *newCheckBox(Qt::CheckState state)
{
    auto *box = new VemoCheckBox("ab");
    box->setTristate(state == Qt::PartiallyChecked);
    box->setCheckState(state);
    return box;
}

VemoRadioButton *newRadioButton(bool isOn)
{
    auto *button = new VemoRadioButton("ab");
    button->setChecked(isOn);
    return button;
}

VemoSwitch *newSwitch(bool isOn)
{
    auto *button = new VemoSwitch("ab");
    button->setChecked(isOn);
    return button;
}

VemoComboBox *newComboBox()
{
    auto *box = new VemoComboBox;
    box->addItems({"ab", "cde", "f"});
    qobject_cast<QStandardItemModel *>(box->model())->item(2)->setEnabled(false);
    return box;
}

VemoComboBox *newEditableComboBox()
{
    VemoComboBox *box = newComboBox();
    box->setEditable(true);
    return box;
}

/// The box below its open list, or the list, with the pointer on the second row.
QImage openComboBox(bool isListWanted)
{
    VemoComboBox *box = newComboBox();
    Stage stage(box, {72, 0});
    box->showPopup();
    box->view()->setCurrentIndex(box->model()->index(1, 0));
    const QImage picture = isListWanted ? pictureOf(box->view()->parentWidget()) : stage.picture();
    box->hidePopup();
    return picture;
}

/// Entries of each kind, enabled and disabled.
QImage openMenu()
{
    VemoMenu menu;
    menu.setStyleSheet(getStyleSheet("component.menu"));
    menu.addAction(QIcon(getGlobalImage("bt_edit")), "ab");
    menu.addAction("cd");
    menu.addAction("e")->setEnabled(false);
    menu.addSeparator();
    for (const bool isEnabled : {true, false}) {
        QAction *checked = menu.addAction("f");
        checked->setCheckable(true);
        checked->setChecked(true);
        checked->setEnabled(isEnabled);
        menu.addMenu("g")->setEnabled(isEnabled);
    }
    menu.popup({40, 40});
    menu.setActiveAction(menu.actions().at(1));
    return pictureOf(&menu);
}

QWidget *newScrollBar(Qt::Orientation orientation)
{
    auto *bar = new QScrollBar(orientation);
    bar->setStyleSheet(getStyleSheet("component.scrollbar"));
    bar->setRange(0, 100);
    bar->setPageStep(100);
    bar->setValue(50);
    return bar;
}

void addScrollBars(Looks &looks)
{
    const QVector<State> states {State::Rest, State::Hover, State::Pressed, State::Disabled};
    addStates(looks, "scroll-bar", [] { return newScrollBar(Qt::Vertical); }, states, {0, 64});
    addStates(looks, "scroll-bar-across", [] { return newScrollBar(Qt::Horizontal); },
        {State::Rest}, {64, 0});
}

} // namespace

class ChoicePictures : public BaselineTest
{
    Q_OBJECT

public:
    ChoicePictures() : BaselineTest("choice") { }

protected:
    Looks looks() const override;
};

Looks ChoicePictures::looks() const
{
    Looks looks;
    addStates(looks, "unchecked", [] { return newCheckBox(Qt::Unchecked); });
    addStates(looks, "checked", [] { return newCheckBox(Qt::Checked); });
    addStates(looks, "partial", [] { return newCheckBox(Qt::PartiallyChecked); });
    addStates(looks, "radio-off", [] { return newRadioButton(false); });
    addStates(looks, "radio-on", [] { return newRadioButton(true); });
    addStates(looks, "switch-off", [] { return newSwitch(false); });
    addStates(looks, "switch-on", [] { return newSwitch(true); });
    addStates(looks, "combo", newComboBox, kFieldStates, {72, 0});
    // Without the focus it looks like one that is not editable.
    addStates(looks, "combo-editable", newEditableComboBox, {State::Focus}, {72, 0});
    looks.append({"combo-open", [] { return openComboBox(false); }});
    looks.append({"combo-list", [] { return openComboBox(true); }});
    looks.append({"menu", openMenu});
    addScrollBars(looks);
    return looks;
}

VEMO_TEST_MAIN(ChoicePictures)
#include "tst_choicepictures.moc"
