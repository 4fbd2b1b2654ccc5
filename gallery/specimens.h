// SPDX-License-Identifier: MIT
#pragma once

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
