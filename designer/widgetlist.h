// SPDX-License-Identifier: MIT
#pragma once

#include "designer/formwidget.h"

#include <vector>

/// In the order of the widget box.
const std::vector<FormWidgetInfo> &widgetList();
