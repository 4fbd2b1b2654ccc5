// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

class QWidget;

/// A widget of the library, and the nearest one that Qt itself has.
struct WidgetKind
{
    const char *name;
    std::function<QWidget *(QWidget *parent)> make;
    std::function<QWidget *(QWidget *parent)> makeStock;
};

/// Every public widget, with something in it.
const std::vector<WidgetKind> &widgetKinds();

/// A number that the environment sets for longer runs, or what the suite uses.
int stressNumber(const char *variable, int inSuite);
