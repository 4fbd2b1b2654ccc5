// SPDX-License-Identifier: MIT
#include "gallery/demotexts.h"
#include "gallery/page.h"
#include "gallery/pages/pages.h"

#include <vemo/mousebuttonfilter.h>
#include <vemo/vemobutton.h>
#include <vemo/vemocheckbox.h>
#include <vemo/vemofootbar.h>
#include <vemo/vemolabel.h>

#include <QFrame>
#include <QVBoxLayout>

namespace {

using Widgets = QList<QWidget *>;

VemoFootbar *newBar(const Widgets &left, const Widgets &right)
{
    auto *bar = new VemoFootbar;
    for (QWidget *widget : left)
        bar->pushLeftWidget(widget);
    for (QWidget *widget : right)
        bar->pushRightWidget(widget);
    bar->init();
    return bar;
}

/// The bottom of a window, which contains the bar.
QWidget *framed(VemoFootbar *bar)
{
    auto *frame = new QFrame;
    frame->setObjectName("card");
    auto *layout = new QVBoxLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(bar);
    return frame;
}

void addBars(Page &page)
{
    page.addSection("Two groups", "Widgets stand in the order in which they were pushed.");
    page.add(framed(newBar({new VemoButton(demo("help"), VemoButton::DEFAULT)},
        {new VemoButton(demo("cancel"), VemoButton::CANCEL),
            new VemoButton(demo("save"), VemoButton::APPLY)})));
    page.add(framed(newBar({new VemoCheckBox("Nicht mehr fragen")},
        {new VemoButton("Abbrechen", VemoButton::CANCEL),
            new VemoButton("Änderungen übernehmen", VemoButton::APPLY)})));
    page.add(framed(newBar({new VemoLabel("已选择三个文件")},
        {new VemoButton("取消", VemoButton::CANCEL), new VemoButton("删除", VemoButton::RED)})));
    page.addCode(R"(bar->pushLeftWidget(help);
bar->pushRightWidget(cancel);
bar->pushRightWidget(save);
bar->init();)");
}

void addOneGroup(Page &page)
{
    VemoFootbar *tight = newBar({}, {new VemoButton(demo("close"), VemoButton::CANCEL)});
    tight->setMargins(8, 4, 8, 4);
    page.addSection("One group, other margins");
    page.add(framed(newBar({new VemoButton(demo("close"), VemoButton::CANCEL)}, {})));
    page.add(framed(tight));
    page.addCode("bar->setMargins(8, 4, 8, 4); // after init(), in design pixels");
}

template <typename Filter> VemoButton *newFiltered()
{
    auto *button = new VemoButton("Click me", VemoButton::CANCEL);
    auto *filter = new Filter;
    filter->setParent(button);
    button->installEventFilter(filter);
    QObject::connect(
        button, &VemoButton::clicked, button, [button] { button->setText("Clicked"); });
    return button;
}

void addFilters(Page &page)
{
    page.addSection("Mouse filters",
        "The first button feels no mouse button at all, the second is pressed but never clicked. "
        "Both still take the keyboard.");
    page.addRow({captioned(newFiltered<MouseButtonFilter>(), "MouseButtonFilter"),
        captioned(newFiltered<MouseReleaseFilter>(), "MouseReleaseFilter")});
    page.addCode(R"(auto *filter = new MouseButtonFilter;
filter->setParent(button);
button->installEventFilter(filter);)");
}

} // namespace

void buildFootBarPage(Page &page)
{
    page.addSummary("VemoFootbar holds the buttons at the foot of a window. Two event filters keep "
                    "the mouse from a widget.");
    addBars(page);
    addOneGroup(page);
    addFilters(page);
}
