// SPDX-License-Identifier: MIT
#include "gallery/controlsnapshots.h"
#include "gallery/demotexts.h"
#include "gallery/page.h"
#include "gallery/pages/pages.h"
#include "gallery/specimens.h"

#include <vemo/dpiinfo.h>
#include <vemo/imagemanager.h>
#include <vemo/stylemanager.h>
#include <vemo/vemobutton.h>
#include <vemo/vemomenu.h>

#include <QAbstractItemView>
#include <QLabel>
#include <QStandardItemModel>

namespace {

QStringList states()
{
    return {"", "Live", "Rest", "Hover", "Pressed", "Keyboard focus", "Disabled"};
}

constexpr const char *kText = "Text";
constexpr int kEditableWidth = 96; // design pixels

VemoCheckBox *newCheckBox(Qt::CheckState state)
{
    auto *box = new VemoCheckBox(kText);
    box->setTristate(state == Qt::PartiallyChecked);
    box->setCheckState(state);
    return box;
}

QList<QWidget *> statesOf(const QString &name, Qt::CheckState checked)
{
    const auto shot = [&](QStyle::State state) {
        auto *box = new CheckBoxSnapshot(checked, state);
        box->setText(kText);
        return box;
    };
    return {note(name), newCheckBox(checked), shot(QStyle::State_None),
        shot(QStyle::State_MouseOver), shot(QStyle::State_MouseOver | QStyle::State_Sunken),
        shot(QStyle::State_HasFocus), disabled(newCheckBox(checked))};
}

void addCheckBoxes(Page &page)
{
    page.addSection("Check boxes");
    page.addTable(states(),
        {statesOf("Unchecked", Qt::Unchecked), statesOf("Checked", Qt::Checked),
            statesOf("Indeterminate", Qt::PartiallyChecked)});
    page.addRow({new VemoCheckBox(demo("keep_copy")),
        new VemoCheckBox("Eine Kopie auf diesem Rechner behalten"),
        new VemoCheckBox("在此计算机上保留副本"),
        disabled(new VemoCheckBox(demo("not_available")))});
    page.addCode("auto *keep = new VemoCheckBox(tr(\"Keep a copy on this computer\"), page);");
}

VemoRadioButton *newRadioButton(bool isChecked)
{
    auto *button = alone(new VemoRadioButton(kText));
    button->setChecked(isChecked);
    return button;
}

QList<QWidget *> statesOf(const QString &name, bool isChecked)
{
    const auto shot = [&](QStyle::State state) {
        auto *button = new RadioButtonSnapshot(isChecked, state);
        button->setText(kText);
        return button;
    };
    return {note(name), newRadioButton(isChecked), shot(QStyle::State_None),
        shot(QStyle::State_MouseOver), shot(QStyle::State_MouseOver | QStyle::State_Sunken),
        shot(QStyle::State_HasFocus), disabled(newRadioButton(isChecked))};
}

void addRadioButtons(Page &page)
{
    page.addSection("Radio buttons");
    page.addTable(states(), {statesOf("Off", false), statesOf("On", true)});
    auto *daily = new VemoRadioButton(demo("daily"));
    daily->setChecked(true);
    page.addRow({daily, new VemoRadioButton("Wöchentlich, jeweils am Montag"),
        new VemoRadioButton("每月第一天"), disabled(new VemoRadioButton(demo("not_available")))});
    page.addCode("auto *daily = new VemoRadioButton(tr(\"Daily\"), page);");
}

VemoSwitch *newSwitch(bool isOn)
{
    auto *button = new VemoSwitch(kText);
    button->setChecked(isOn);
    return button;
}

QList<QWidget *> switchStates(const QString &name, bool isOn)
{
    const auto shot = [&](QStyle::State state) {
        auto *button = new SwitchSnapshot(isOn, state);
        button->setText(kText);
        return button;
    };
    return {note(name), newSwitch(isOn), shot(QStyle::State_None), shot(QStyle::State_MouseOver),
        shot(QStyle::State_MouseOver | QStyle::State_Sunken), shot(QStyle::State_HasFocus),
        disabled(newSwitch(isOn))};
}

void addSwitches(Page &page)
{
    page.addSection("Switches", "For settings that take effect at once.");
    page.addTable(states(), {switchStates("Off", false), switchStates("On", true)});
    auto *hidden = new VemoSwitch(demo("show_hidden"));
    hidden->setChecked(true);
    page.addRow({hidden, new VemoSwitch("Diesen Ordner freigeben"), new VemoSwitch("共享此文件夹"),
        disabled(new VemoSwitch(demo("not_available")))});
    page.addRow({captioned(named(new VemoSwitch, "Without a text"), "Without a text")});
    page.addCode("auto *share = new VemoSwitch(tr(\"Share this folder\"), page);");
}

QStringList periods()
{
    return {demo("minutes"), demo("hours"), demo("days"), demo("weeks"), demo("months"),
        demo("quarters"), demo("years")};
}

VemoComboBox *newComboBox(const QStringList &items)
{
    auto *box = named(new VemoComboBox, "Period");
    box->addItems(items);
    return box;
}

/// What the list of a combo box looks like when it is open, with the pointer on the second row.
QPixmap openList()
{
    VemoComboBox box;
    box.addItems(periods());
    qobject_cast<QStandardItemModel *>(box.model())->item(3)->setEnabled(false);
    QWidget *list = box.view()->parentWidget();
    list->resize(DPIinfo::scaled(160), DPIinfo::scaled(28) * 5 + 2);
    box.view()->setCurrentIndex(box.model()->index(1, 0));
    // A list that is not shown measures its rows only when asked to, once it has its size.
    list->grab();
    box.view()->doItemsLayout();
    return list->grab();
}

void addComboBoxes(Page &page)
{
    const auto shot = [](QStyle::State state) {
        return named(new ComboBoxSnapshot(demo("minutes"), state), "Period");
    };
    page.addSection("Combo boxes", "The list opens two pixels below the box, wherever it stands.");
    page.addTable(states(),
        {{note("Closed"), newComboBox(periods()), shot(QStyle::State_None),
            shot(QStyle::State_MouseOver), shot(QStyle::State_On), shot(QStyle::State_HasFocus),
            disabled(newComboBox(periods()))}});
    VemoComboBox *editable = newComboBox(periods());
    editable->setEditable(true);
    // By its own hint the field would be a little too narrow for the widest item.
    editable->setMinimumWidth(DPIinfo::scaled(kEditableWidth));
    page.addRow({captioned(picture(openList), "The open list"), captioned(editable, "Editable"),
        captioned(newComboBox({"Jede volle Stunde", "Täglich um Mitternacht"}), "German"),
        captioned(newComboBox({"每天午夜", "每小时"}), "Chinese")});
    page.addCode(R"(auto *period = new VemoComboBox(page);
period->addItems({tr("Minutes"), tr("Hours")});)");
}

void fill(QMenu *menu)
{
    const auto addCheckable = [menu](const QString &text, bool isChecked) {
        QAction *action = menu->addAction(text);
        action->setCheckable(true);
        action->setChecked(isChecked);
        return action;
    };
    menu->setStyleSheet(getStyleSheet("component.menu"));
    menu->addAction(getGlobalIcon("bt_folder"), demo("open"))->setShortcut(QKeySequence("Ctrl+O"));
    menu->addAction(getGlobalIcon("bt_edit"), demo("rename"))->setShortcut(QKeySequence("F2"));
    menu->addAction(demo("move"))->setEnabled(false);
    menu->addSeparator();
    addCheckable(demo("show_hidden"), true);
    addCheckable(demo("show_previews"), false);
    addCheckable(demo("show_sizes"), true)->setEnabled(false);
    menu->addSeparator();
    QMenu *share = menu->addMenu(demo("share"));
    share->setStyleSheet(getStyleSheet("component.menu"));
    share->addAction(demo("by_link"));
    share->addAction(demo("by_mail"));
    menu->addMenu(demo("export"))->setEnabled(false);
}

QPixmap openMenu()
{
    QMenu menu;
    fill(&menu);
    menu.ensurePolished();
    menu.resize(menu.sizeHint());
    menu.setActiveAction(menu.actions().at(1));
    return menu.grab();
}

void addMenus(Page &page)
{
    auto *button = new VemoButton(demo("open_menu"), VemoButton::CANCEL);
    auto *menu = new VemoMenu(button);
    fill(menu);
    QObject::connect(button, &VemoButton::clicked, menu,
        [=] { menu->popup(button->mapToGlobal(QPoint(0, button->height()))); });
    page.addSection("Menus",
        "Icons, shortcuts, check marks, separators, sub-menus and disabled entries. The menu moves "
        "itself into the primary screen.");
    page.addRow({picture(openMenu), captioned(button, "Live")});
    page.addCode(R"(auto *menu = new VemoMenu(this);
menu->setStyleSheet(getStyleSheet("component.menu"));)");
}

} // namespace

void buildChoicesPage(Page &page)
{
    page.addSummary("Check boxes, radio buttons, switches, combo boxes and menus.");
    addCheckBoxes(page);
    addRadioButtons(page);
    addSwitches(page);
    addComboBoxes(page);
    addMenus(page);
}
