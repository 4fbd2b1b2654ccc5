// SPDX-License-Identifier: MIT
// Greys out and restores the Close item of a real window; built for Windows by tst_closeitem.
#include "sheets/closeitem_p.h"

#include <windows.h>

#include <cstdio>

namespace {

constexpr UINT kNoMenu = 0xFFFFFFFF;
int failures = 0;

void check(const char *what, UINT expected, UINT actual)
{
    if (expected != actual)
        ++failures;
    std::printf("%s: %s (0x%x)\n", expected == actual ? "PASS" : "FAIL", what, actual);
}

/// Whether the Close item is greyed and disabled, as bits of MF_GRAYED and MF_DISABLED.
UINT closeItemOf(HWND window)
{
    const UINT state = GetMenuState(GetSystemMenu(window, FALSE), SC_CLOSE, MF_BYCOMMAND);
    return state == kNoMenu ? kNoMenu : state & (MF_GRAYED | MF_DISABLED);
}

void enable(HWND window, bool isEnabled)
{
    setCloseItemEnabled(reinterpret_cast<std::uintptr_t>(window), isEnabled);
}

HWND newWindow(DWORD style, HWND parent)
{
    return CreateWindowExW(0, L"STATIC", L"window", style, 0, 0, 200, 100, parent, nullptr,
        GetModuleHandleW(nullptr), nullptr);
}

} // namespace

int main()
{
    constexpr UINT grey = MF_GRAYED | MF_DISABLED;
    const HWND window = newWindow(WS_OVERLAPPEDWINDOW | WS_VISIBLE, nullptr);
    if (!window) {
        std::printf("FAIL: no window (error %lu)\n", GetLastError());
        return 1;
    }
    check("enabled at first", 0, closeItemOf(window));
    enable(window, false);
    check("grey after blocking", grey, closeItemOf(window));
    enable(window, false);
    check("still grey after blocking twice", grey, closeItemOf(window));
    enable(window, true);
    check("enabled after unblocking", 0, closeItemOf(window));
    enable(window, true);
    check("still enabled after unblocking twice", 0, closeItemOf(window));

    const HWND bare = newWindow(WS_POPUP | WS_VISIBLE, nullptr);
    enable(bare, false);
    check("a window without a system menu has none afterwards", kNoMenu, closeItemOf(bare));
    setCloseItemEnabled(0, false);
    DestroyWindow(bare);
    enable(bare, false);
    check("a window that is gone harms nobody", 0, closeItemOf(window));
    DestroyWindow(window);
    return failures == 0 ? 0 : 1;
}
