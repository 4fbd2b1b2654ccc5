// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <functional>

class VemoSheet;
class QWidget;

/// Shows a hidden or minimised window: otherwise the caller would wait for an answer to a sheet
/// that nobody sees.
void showWindow(QWidget *window);

/// Lays a mask under sheet, runs it by exec, calls atEnd with the result if the sheet is still
/// there, and deletes sheet and mask. Sheet, mask and window may die at any time.
int execOnce(
    VemoSheet *sheet, const std::function<int()> &exec, const std::function<void(int)> &atEnd);

/// The same without waiting: show makes the sheet visible, finished() ends it.
void openOnce(
    VemoSheet *sheet, const std::function<void()> &show, const std::function<void(int)> &atEnd);
