// SPDX-License-Identifier: MIT
#pragma once

#include "accessibility/accessibilitybus.h"

#include <QMap>

/// The findings of a walk over the objects of a program.
struct BusWalk
{
    int objects = 0;
    int controls = 0; ///< can take the focus, be pressed, typed into or chosen
    int flawless = 0; ///< controls with role, name, state and action
    QStringList flaws; ///< a line for each other control, and for tables of nothing
    QMap<QString, int> roles; ///< number of objects by role
    QMap<QString, int> names; ///< number of controls outside tables and trees by role and name
};

/// Looks at every visible object in and below root.
BusWalk walk(const AccessibilityBus &bus, const BusObject &root);

/// The first object in or below root with this role and name; one without service if there is none.
BusObject findObject(
    const AccessibilityBus &bus, const BusObject &root, const QString &role, const QString &name);
