// SPDX-License-Identifier: MIT
#include "gallery/page.h"
#include "gallery/pages/pages.h"
#include "gallery/specimens.h"

#include <vemo/dpiinfo.h>

#include <QCheckBox>
#include <QDial>
#include <QGroupBox>
#include <QLabel>
#include <QProgressBar>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QVBoxLayout>

namespace {

// In design pixels.
constexpr int kLength = 160;
constexpr int kHeight = 96;
constexpr int kDial = 72;

QCheckBox *newBox(const QString &text, Qt::CheckState state)
{
    auto *box = new QCheckBox(text);
    box->setTristate(state == Qt::PartiallyChecked);
    box->setCheckState(state);
    return box;
}

QRadioButton *newRadio(const QString &text, bool isChecked)
{
    auto *button = new QRadioButton(text);
    alone(button);
    button->setChecked(isChecked);
    return button;
}

QGroupBox *newGroup(const QString &title)
{
    auto *group = new QGroupBox(title);
    auto *layout = new QVBoxLayout(group);
    layout->addWidget(newBox("Hidden files", Qt::Checked));
    layout->addWidget(newBox("Links", Qt::Unchecked));
    return group;
}

QGroupBox *newCheckableGroup(bool isChecked)
{
    QGroupBox *group = newGroup("With a choice");
    group->setCheckable(true);
    group->setChecked(isChecked);
    return group;
}

QGroupBox *newFlatGroup()
{
    QGroupBox *group = newGroup("Flat");
    group->setFlat(true);
    return group;
}

void addChoices(Page &page)
{
    page.addSection("Choices");
    page.addRow({newBox("Off", Qt::Unchecked), newBox("Partly", Qt::PartiallyChecked),
        newBox("On", Qt::Checked), disabled(newBox("Disabled", Qt::Unchecked)),
        disabled(newBox("Disabled", Qt::Checked))});
    page.addRow({newRadio("Off", false), newRadio("On", true),
        disabled(newRadio("Disabled", false)), disabled(newRadio("Disabled", true))});
    page.addSection("Groups");
    page.addGrid(
        4, {newGroup("Group"), newCheckableGroup(true), newCheckableGroup(false), newFlatGroup()});
}

QProgressBar *newProgress(int value)
{
    auto *bar = new QProgressBar;
    bar->setValue(value);
    return bar;
}

QProgressBar *newPlainProgress()
{
    QProgressBar *bar = newProgress(60);
    bar->setTextVisible(false);
    return bar;
}

QProgressBar *newBusyProgress()
{
    QProgressBar *bar = newProgress(0);
    bar->setRange(0, 0);
    return bar;
}

QSlider *newSlider(Qt::Orientation orientation, QSlider::TickPosition ticks)
{
    auto *slider = named(new QSlider(orientation), "Volume");
    slider->setTickPosition(ticks);
    slider->setTickInterval(10); // Otherwise QSlider draws more of them on a longer groove.
    slider->setValue(40);
    if (orientation == Qt::Horizontal)
        slider->setFixedWidth(DPIinfo::scaled(kLength));
    else
        slider->setFixedHeight(DPIinfo::scaled(kHeight));
    return slider;
}

QDial *newDial(bool hasNotches)
{
    auto *dial = named(new QDial, "Brightness");
    dial->setNotchesVisible(hasNotches);
    dial->setValue(30);
    dial->setFixedSize(DPIinfo::scaled(kDial), DPIinfo::scaled(kDial));
    return dial;
}

QScrollBar *newScrollBar()
{
    auto *bar = new QScrollBar(Qt::Horizontal);
    bar->setPageStep(30);
    bar->setFixedWidth(DPIinfo::scaled(kLength));
    return bar;
}

void addRanges(Page &page)
{
    page.addSection("Progress", "With a text, without one, busy, and disabled.");
    page.addGrid(
        4, {newProgress(45), newPlainProgress(), newBusyProgress(), disabled(newProgress(70))});
    page.addSection("Sliders, dials and scroll bars");
    page.addRow({newSlider(Qt::Horizontal, QSlider::NoTicks),
        newSlider(Qt::Horizontal, QSlider::TicksBelow),
        disabled(newSlider(Qt::Horizontal, QSlider::NoTicks)), newScrollBar()});
    page.addRow({newSlider(Qt::Vertical, QSlider::NoTicks),
        newSlider(Qt::Vertical, QSlider::TicksBothSides), newDial(false), newDial(true),
        disabled(newDial(true))});
}

} // namespace

void buildStockChoicesPage(Page &page)
{
    page.addSummary("Qt's own choices, groups, progress bars, sliders and dials.");
    addChoices(page);
    addRanges(page);
}
