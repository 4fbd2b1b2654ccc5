// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

/// Shows window and waits until it is active and stays so; false if it does not become active.
///
/// On X11 a window manager that has been told of an earlier window's end may still take the focus
/// away for a moment, whereupon Qt closes all pop-ups and shortcuts are lost.
bool showActive(QWidget *window);
