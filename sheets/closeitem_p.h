// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

// Without Qt, so that it can be built and run against a native window on its own.
#include <cstdint>

/// Greys out the Close item in the system menu of a native window, or restores it. Does nothing
/// where the window has no such menu, and on any platform but Windows.
void setCloseItemEnabled(std::uintptr_t windowId, bool isEnabled);
