// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <functional>

class VemoSheet;
class QWidget;

/// Shows a hidden or minimised window. Otherwise the caller would wait for an answer to an
/// invisible sheet.
void showWindow(QWidget *window);

/// Creates a mask for sheet, runs it with exec, calls atEnd with the result if the sheet still
/// exists, and deletes the sheet and the mask. Sheet, mask and window may be deleted at any time.
int execOnce(
    VemoSheet *sheet, const std::function<int()> &exec, const std::function<void(int)> &atEnd);

/// The same without waiting: show makes the sheet visible, and finished() is emitted at its end.
void openOnce(
    VemoSheet *sheet, const std::function<void()> &show, const std::function<void(int)> &atEnd);
