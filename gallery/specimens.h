// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QButtonGroup>
#include <QWidget>

/// widget with the name that assistive tools say.
template <typename Widget> Widget *named(Widget *widget, const QString &name)
{
    widget->setAccessibleName(name);
    return widget;
}

/// widget, which takes no input.
template <typename Widget> Widget *disabled(Widget *widget)
{
    widget->setEnabled(false);
    return widget;
}

/// button in a group of its own, so that it excludes no other of its row. A radio button that is
/// not exclusive at all is announced as a check box.
template <typename Button> Button *alone(Button *button)
{
    (new QButtonGroup(button))->addButton(button);
    return button;
}
