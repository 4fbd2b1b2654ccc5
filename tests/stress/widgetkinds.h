// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

class QWidget;

/// A widget of the library, and the most similar one of Qt.
struct WidgetKind
{
    const char *name;
    std::function<QWidget *(QWidget *parent)> make;
    std::function<QWidget *(QWidget *parent)> makeStock;
};

/// Every public widget, with some content.
const std::vector<WidgetKind> &widgetKinds();

/// A number from the environment for longer runs, or the suite's default.
int stressNumber(const char *variable, int inSuite);
