// SPDX-License-Identifier: MIT
#pragma once

#include <Qt>

/// Presses and releases a key as a user does: on X11 the server does it, so that window manager,
/// focus, pop-ups and shortcuts have their say; elsewhere the window with the focus gets the
/// events. On X11 it arrives later: wait for what it brings about (QTRY_...).
///
/// Fails the test where the program xdotool is missing, and for a key that it doesn't know.
void pressRealKey(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
