// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

// Does not use Qt, so that it can be built separately and tested with a native window.
#include <cstdint>

/// Disables the Close item in the system menu of a native window, or enables it again. Has no
/// effect if the window has no such menu, and on platforms other than Windows.
void setCloseItemEnabled(std::uintptr_t windowId, bool isEnabled);
