// SPDX-License-Identifier: MIT
#include "designer/widgetlist.h"

#include <vemo/clickablelabel.h>
#include <vemo/linklabel.h>
#include <vemo/vemobadge.h>
#include <vemo/vemobutton.h>
#include <vemo/vemobuttonpath.h>
#include <vemo/vemocalanderview.h>
#include <vemo/vemocheckbox.h>
#include <vemo/vemocombobox.h>
#include <vemo/vemodaterangeselector.h>
#include <vemo/vemodateselector.h>
#include <vemo/vemofilterbar.h>
#include <vemo/vemofootbar.h>
#include <vemo/vemoiconbutton.h>
#include <vemo/vemolabel.h>
#include <vemo/vemolineedit.h>
#include <vemo/vemopagingbar.h>
#include <vemo/vemoradiobutton.h>
#include <vemo/vemosidebar.h>
#include <vemo/vemospinner.h>
#include <vemo/vemoswitch.h>
#include <vemo/vemotableview.h>
#include <vemo/vemotablewidget.h>
#include <vemo/vemotimecombobox.h>
#include <vemo/vemotreewidget.h>

#include <QIcon>

namespace form {
#include "designer/formclasses_p.h"
#include "moc_formclasses_p.cpp" // NOLINT(bugprone-suspicious-include)
} // namespace form

namespace {

template <typename Widget> QWidget *make(QWidget *parent)
{
    return new Widget(parent);
}

constexpr QSize kBySizeHint;

// clang-format off
const FormWidgetInfo kButtons[] = {
    {"VemoButton", "QPushButton", "Button with the look of a role",
        "A flat push button in one of six roles: apply, cancel, two of a paging bar, default, red.",
        kBySizeHint,
        R"(<property name="text"><string>Button</string></property>)", "",
        make<form::VemoButton>},
    {"VemoIconButton", "QToolButton", "Button that is only a picture",
        "A tool button with a picture each for rest, hover, press and disabled. The property "
        "\"allIcon\" names it in the host's picture catalogue.",
        kBySizeHint,
        R"(<property name="allIcon"><string notr="true">bt_add</string></property>)",
        "allIcon:singleline:notr",
        make<form::VemoIconButton>},
    {"VemoCheckBox", "QCheckBox", "Check box", "A check box in the library's look.",
        kBySizeHint,
        R"(<property name="text"><string>Check box</string></property>)", "",
        make<VemoCheckBox>},
    {"VemoRadioButton", "QRadioButton", "Radio button", "A radio button in the library's look.",
        kBySizeHint,
        R"(<property name="text"><string>Radio button</string></property>)", "",
        make<VemoRadioButton>},
    {"VemoSwitch", "QAbstractButton", "Switch",
        "A switch that is on or off, for settings that take effect at once.",
        kBySizeHint,
        R"(<property name="text"><string>Switch</string></property>)", "",
        make<VemoSwitch>},
};

const FormWidgetInfo kLabels[] = {
    {"VemoLabel", "QLabel", "Text label",
        "A text label in the library's look. With word wrap on and the vertical size policy "
        "Minimum it is as tall as its text needs.",
        {120, 20},
        R"(<property name="text"><string>Text</string></property>)",
        "text:richtext",
        make<form::VemoLabel>},
    {"VemoBadge", "QLabel", "Count, short text or dot",
        "A small label for a count, which is hidden while it is 0, a short text or a dot.",
        kBySizeHint,
        R"(<property name="count"><number>3</number></property>)",
        "text:singleline",
        make<VemoBadge>},
    {"ClickableLabel", "QLabel", "Label that can be clicked",
        "A label that reports each press of a mouse button on it.",
        {120, 20},
        R"(<property name="text"><string>Clickable text</string></property>)",
        "text:richtext",
        make<ClickableLabel>},
    {"LinkLabel", "ClickableLabel", "Label that looks like a hyperlink",
        "A clickable label with a pointing hand and an underline under the pointer. It stores its "
        "target in \"hyperLink\" and leaves opening it to the host.",
        {120, 20},
        R"(<property name="text"><string>Link</string></property>)",
        "hyperLink:url:notr",
        make<form::LinkLabel>},
    {"VemoSpinner", "QWidget", "Ring that turns while the program works",
        "A small ring that turns while \"running\" is on, for work whose end is not known.",
        kBySizeHint,
        R"(<property name="running"><bool>true</bool></property>)", "",
        make<VemoSpinner>},
};

const FormWidgetInfo kFields[] = {
    {"VemoLineEdit", "QWidget", "Text field between two labels",
        "A text field with a caption before it, a unit or hint after it, and an error state.",
        {240, 32}, "",
        "preText:singleline editText:singleline postText:singleline placeholderText:singleline",
        make<form::VemoLineEdit>},
    {"VemoFilterBar", "QLineEdit", "Search line",
        "A search line that hands on its keyword on Return. The host can give it a menu.",
        {200, 28},
        R"(<property name="placeholderText"><string>Search</string></property>)",
        "placeholderText:singleline",
        make<VemoFilterBar>},
    {"VemoComboBox", "QComboBox", "Combo box",
        "A combo box in the library's look, whose list opens below it.",
        {140, 32}, "", "", make<VemoComboBox>},
    {"VemoDateSelector", "QComboBox", "Date field",
        "A date field that opens a month calendar. It shows a placeholder if there is no date.",
        {140, 32},
        R"(<property name="placeholder"><string>Choose a date</string></property>)",
        "placeholder:singleline",
        make<form::VemoDateSelector>},
    {"VemoDateRangeSelector", "QWidget", "Two date fields for a range",
        "A field for the first and one for the last date of a range, which is never reversed.",
        {300, 32},
        R"(<property name="startPlaceholder"><string>Any date</string></property>)"
        R"(<property name="endPlaceholder"><string>Any date</string></property>)",
        "startPlaceholder:singleline endPlaceholder:singleline separator:singleline",
        make<VemoDateRangeSelector>},
    {"VemoTimeComboBox", "VemoComboBox", "Field for a time of day",
        "A combo box of the times in \"times\", written HH:mm. Where it is editable another time "
        "can be typed.",
        {120, 32},
        R"(<property name="times"><stringlist notr="true"><string>00:00</string>)"
        R"(<string>06:00</string><string>12:00</string><string>18:00</string></stringlist>)"
        R"(</property>)",
        "customText:singleline",
        make<form::VemoTimeComboBox>},
    {"VemoCalanderView", "QAbstractItemView", "Month calendar",
        "A month calendar with a weekday row and a button for today.",
        {280, 260}, "", "", make<VemoCalanderView>},
};

const FormWidgetInfo kViews[] = {
    {"VemoTreeWidget", "QTreeWidget", "Tree with highlighted rows",
        "A tree that paints a rounded highlight under selected and hovered rows.",
        {240, 200},
        R"(<property name="selectedColor"><color><red>220</red><green>235</green><blue>251</blue>)"
        R"(</color></property><property name="hoverColor"><color><red>238</red>)"
        R"(<green>243</green><blue>248</blue></color></property>)", "",
        make<VemoTreeWidget>},
    {"VemoTableWidget", "QWidget", "Table under a header of its own",
        "A read-only table of whole rows. Each line of \"columnTexts\" is \"name|width\" for a fixed "
        "column and \"name|width|ratio\" for one that takes that share of the free width.",
        {400, 200},
        R"(<property name="columnTexts"><stringlist><string>Name|120|1</string>)"
        R"(<string>Size|80</string></stringlist></property>)", "",
        make<VemoTableWidget>},
    {"VemoTableView", "QWidget", "Table over a model of the program",
        "A read-only table of whole rows for models of any size, which the program sets. "
        "\"columnTexts\" are those of VemoTableWidget.",
        {400, 200},
        R"(<property name="columnTexts"><stringlist><string>Name|120|1</string>)"
        R"(<string>Size|80</string></stringlist></property>)", "",
        make<VemoTableView>},
    {"ResizeSignalTableWidget", "QTableWidget", "Table that reports its size",
        "A plain table that emits a signal when it is resized.",
        {240, 200}, "", "", make<ResizeSignalTableWidget>},
    {"VemoPagingBar", "QWidget", "Bar that pages through a list",
        "First, last and five numbered pages, five pages on and back, a footer text and a refresh "
        "button. In a form it has a model of its own, pagingModel().",
        {560, 34},
        R"(<property name="itemCount"><number>500</number></property>)",
        "footerText:singleline",
        make<VemoPagingBar>},
    {"VemoButtonPath", "QTableWidget", "Folder path as a row of buttons",
        "One button for each part of \"path\", which leads to that part.",
        {320, 28},
        R"(<property name="path"><string notr="true">Folder/Subfolder</string></property>)",
        "path:singleline:notr",
        make<VemoButtonPath>},
    {"VemoSideBar", "QWidget", "List of pages at the side of a window",
        "The pages of a settings window, which the program adds and binds to a stack of widgets.",
        {160, 240}, "", "", make<VemoSideBar>},
    {"VemoFootbar", "QWidget", "Bar at the foot of a window",
        "Room for a group of widgets at its left and one at its right, which the host pushes "
        "before it calls init().",
        {400, 48}, "", "", make<form::VemoFootbar>},
};
// clang-format on

} // namespace

const std::vector<FormWidgetInfo> &widgetList()
{
    static const std::vector<FormWidgetInfo> list = [] {
        std::vector<FormWidgetInfo> all(std::begin(kButtons), std::end(kButtons));
        all.insert(all.end(), std::begin(kLabels), std::end(kLabels));
        all.insert(all.end(), std::begin(kFields), std::end(kFields));
        all.insert(all.end(), std::begin(kViews), std::end(kViews));
        return all;
    }();
    return list;
}
