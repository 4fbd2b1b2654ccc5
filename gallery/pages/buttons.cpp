// SPDX-License-Identifier: MIT
#include "gallery/demotexts.h"
#include "gallery/look.h"
#include "gallery/page.h"
#include "gallery/pages/pages.h"
#include "gallery/snapshot.h"

#include <vemo/dpiinfo.h>
#include <vemo/imagemanager.h>

#include <QFrame>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>

#include <utility>

namespace {

struct Role
{
    int role;
    const char *name;
    const char *caption; ///< a key of demo(), or a page number
    const char *german;
    const char *chinese;
};

constexpr Role kRoles[] = {
    {VemoButton::APPLY, "APPLY", "save", "Änderungen übernehmen und schließen", "保存更改并关闭"},
    {VemoButton::CANCEL, "CANCEL", "cancel", "Abbrechen, ohne zu speichern", "取消而不保存"},
    {VemoButton::DEFAULT, "DEFAULT", "restore", "Auf Werkseinstellungen zurücksetzen",
        "恢复出厂设置"},
    {VemoButton::RED, "RED", "delete", "Unwiderruflich vom Datenträger löschen", "从磁盘永久删除"},
    {VemoButton::SELECT_PAGING, "SELECT_PAGING", "3", "1000", "三"},
    {VemoButton::NONSELECT_PAGING, "NONSELECT_PAGING", "4", "1001", "四"},
};

constexpr int kPageNumberWidth = 28; // design pixels

const QStringList kStates {// clazy:exclude=non-pod-global-static
    "Live", "Rest", "Hover", "Pressed", "Keyboard focus", "Disabled"};

template <typename Button> Button *disabled(Button *button)
{
    button->setEnabled(false);
    return button;
}

template <typename Button> Button *named(Button *button, const QString &name)
{
    button->setAccessibleName(name);
    return button;
}

/// A page number is at least as wide as it is high; the style leaves that to the bar.
template <typename Button> Button *sized(Button *button, int role)
{
    if (role == VemoButton::SELECT_PAGING || role == VemoButton::NONSELECT_PAGING)
        button->setMinimumWidth(DPIinfo::scaled(kPageNumberWidth));
    return button;
}

VemoButton *newButton(const QString &caption, int role)
{
    return sized(new VemoButton(caption, role), role);
}

QList<QWidget *> statesOf(const Role &role)
{
    const QString caption = demo(role.caption);
    const auto shot = [&](QStyle::State state) {
        return sized(new ButtonSnapshot(caption, role.role, state), role.role);
    };
    return {newButton(caption, role.role), shot(QStyle::State_None), shot(QStyle::State_MouseOver),
        shot(QStyle::State_Sunken), shot(QStyle::State_HasFocus),
        disabled(newButton(caption, role.role))};
}

bool isPageNumber(const Role &role)
{
    return role.role == VemoButton::SELECT_PAGING || role.role == VemoButton::NONSELECT_PAGING;
}

/// A column for each role: in some languages six captions side by side are wider than the window.
void addTextRoles(Page &page)
{
    QStringList captions("State");
    QList<QList<QWidget *>> rows;
    for (const QString &state : kStates)
        rows << QList<QWidget *> {note(state)};
    for (const Role &role : kRoles) {
        if (isPageNumber(role))
            continue;
        captions << role.name;
        const QList<QWidget *> states = statesOf(role);
        for (int row = 0; row < states.size(); ++row)
            rows[row] << states[row];
    }
    page.addTable(captions, rows);
}

void addPageNumberRoles(Page &page)
{
    QList<QList<QWidget *>> rows;
    for (const Role &role : kRoles) {
        if (isPageNumber(role))
            rows << QList<QWidget *> {note(role.name)} + statesOf(role);
    }
    page.addTable(QStringList("Role") + kStates, rows);
}

void addRoles(Page &page)
{
    page.addSection("Roles and states",
        "The first button of each role is live. The others show one state each, drawn by the same "
        "style with that state set.");
    addTextRoles(page);
    addPageNumberRoles(page);
    page.addCode(R"(auto *save = new VemoButton("Save", VemoButton::APPLY);
layout->addWidget(save); // which becomes its parent
connect(save, &VemoButton::clicked, this, &MainWindow::save);)");
}

void addLongCaptions(Page &page)
{
    QList<QList<QWidget *>> rows;
    for (const Role &role : kRoles) {
        rows << QList<QWidget *> {
            note(role.name), newButton(role.german, role.role), newButton(role.chinese, role.role)};
    }
    page.addSection("Long captions", "A button is as wide as its caption and never wraps it.");
    page.addTable({"Role", "German", "Chinese"}, rows);
}

void addPaging(Page &page)
{
    const char *back = "bt_pagebar_back";
    const char *next = "bt_pagebar_next";
    if (QGuiApplication::isRightToLeft()) // the pictures stay as they are, only the row is mirrored
        std::swap(back, next);
    QList<QWidget *> bar {named(new VemoIconButton(back), "Previous page")};
    for (int number = 1; number <= 7; ++number) {
        bar << newButton(QString::number(number),
            number == 3 ? VemoButton::SELECT_PAGING : VemoButton::NONSELECT_PAGING);
    }
    bar << named(new VemoIconButton(next), "Next page");
    page.addSection(
        "Page numbers", "Two roles that differ in looks only: the page on show and any other.");
    page.addRow(bar);
    page.addCode(R"(new VemoButton("3", VemoButton::SELECT_PAGING);
new VemoButton("4", VemoButton::NONSELECT_PAGING);)");
}

QList<QWidget *> iconStatesOf(const QString &name)
{
    const auto shot = [&](QStyle::State state) { return new IconButtonSnapshot(name, state); };
    return {note(name), named(new VemoIconButton(name), name), shot(QStyle::State_None),
        shot(QStyle::State_MouseOver), shot(QStyle::State_Sunken), shot(QStyle::State_HasFocus),
        disabled(named(new VemoIconButton(name), name))};
}

void addIconButtons(Page &page)
{
    QList<QList<QWidget *>> rows;
    for (const char *name : {"bt_add", "bt_delete", "bt_settings", "bt_pagebar_refresh"})
        rows << iconStatesOf(name);
    page.addSection("Icon buttons",
        "Four pictures of one name in the catalogue. A click leaves the resting picture behind, "
        "and a button with the keyboard focus keeps its hover picture when the pointer leaves.");
    page.addTable(QStringList("Picture") + kStates, rows);
    page.addCode(R"(auto *refresh = new VemoIconButton("bt_pagebar_refresh");
refresh->setAccessibleName(tr("Refresh"));)");
}

VemoIconButton *menuButton()
{
    auto *button = named(new VemoIconButton("bt_more"), "More");
    auto *menu = new QMenu(button);
    for (const char *key : {"rename", "duplicate", "delete"})
        menu->addAction(demo(key));
    button->setMenu(menu);
    return button;
}

VemoIconButton *folderButton()
{
    auto *button = named(new VemoIconButton(getGlobalImage("folder")), "Folder");
    onThemeReload(button, [button] { button->setDefaultIcon(getGlobalImage("folder")); });
    return button;
}

VemoIconButton *markedButton()
{
    VemoIconButton *button = folderButton();
    const auto setHover = [button] {
        button->setHoverIcon(getGlobalImage("bt_new_folder", ImageManager::HOVER));
    };
    setHover();
    onThemeReload(button, setHover);
    return button;
}

/// A row that highlights as a whole, its button with it.
class HighlightRow : public QFrame
{
public:
    HighlightRow()
    {
        auto *layout = new QHBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->addWidget(m_button);
        layout->addWidget(text("Point at this row"));
    }

protected:
    void enterEvent(VemoEnterEvent *) override { m_button->applyHoverStyle(); }
    void leaveEvent(QEvent *) override { m_button->applyNormalStyle(); }

private:
    VemoIconButton *m_button = named(new VemoIconButton("bt_edit"), "Edit");
};

void addIconSources(Page &page)
{
    page.addSection("Where the pictures come from");
    page.addRow({captioned(folderButton(), "One picture for all states"),
        captioned(markedButton(), "Another picture for hover"),
        captioned(disabled(folderButton()), "One picture, disabled"),
        captioned(menuButton(), "With a menu"),
        captioned(new HighlightRow, "Highlighted from outside")});
    page.addCode(R"(auto *folder = new VemoIconButton(getGlobalImage("folder"));
folder->setHoverIcon(getGlobalImage("bt_new_folder", ImageManager::HOVER));
more->setMenu(menu); // opens when the button is pressed
edit->applyHoverStyle(); // in the enterEvent() of a row that highlights as a whole)");
}

} // namespace

void buildButtonsPage(Page &page)
{
    page.addSummary("VemoButton is a text button in six roles, VemoIconButton a tool button that "
                    "is only a picture.");
    addRoles(page);
    addLongCaptions(page);
    addPaging(page);
    addIconButtons(page);
    addIconSources(page);
}
