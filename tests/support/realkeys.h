// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

/// Presses and releases a key like a user: on X11 through the server, so that the window manager,
/// focus, pop-ups and shortcuts are involved; on other platforms the focused window receives the
/// events. On X11 the key arrives later, so wait for its effect (QTRY_...).
///
/// Fails the test if the program xdotool is missing or does not know the key.
void pressRealKey(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
