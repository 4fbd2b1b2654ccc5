// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractButton>
#include <QButtonGroup>
#include <QWidget>

/// Sets the accessible name of widget and returns it.
template <typename Widget> Widget *named(Widget *widget, const QString &name)
{
    widget->setAccessibleName(name);
    return widget;
}

/// Disables widget and returns it.
template <typename Widget> Widget *disabled(Widget *widget)
{
    widget->setEnabled(false);
    return widget;
}

/// Puts button into its own group, so that it is not exclusive with others in its row. A radio
/// button without exclusivity would be announced as a check box.
template <typename Button> Button *alone(Button *button)
{
    (new QButtonGroup(button))->addButton(button);
    return button;
}
