// SPDX-License-Identifier: MIT
#include "sheets/closeitem_p.h"

#include <windows.h>

void setCloseItemEnabled(std::uintptr_t windowId, bool isEnabled)
{
    if (windowId == 0)
        return;
    const HMENU menu = GetSystemMenu(reinterpret_cast<HWND>(windowId), FALSE);
    if (!menu)
        return;
    const UINT state = isEnabled ? MF_ENABLED : MF_GRAYED | MF_DISABLED;
    EnableMenuItem(menu, SC_CLOSE, MF_BYCOMMAND | state);
}
