// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/vemomask.h>

#include <QLabel>
#include <QPointer>

#include <functional>

class VemoButton;
class VemoSheet;

/// What a window of a size in design pixels, with something in it, looks like under a sheet.
QPixmap sheetOverWindow(const QSize &size, const std::function<VemoSheet *(QWidget *)> &newSheet);

/// A button that asks something over its window and writes the result code into result.
VemoButton *newAskingButton(
    const QString &caption, QLabel *result, const std::function<int(QWidget *)> &ask);

/// Runs sheet over window, under a mask, and returns how it ended.
template <typename Sheet> int execOver(Sheet *sheet, QWidget *window)
{
    // By a pointer: the window may be closed with the sheet.
    const QPointer<Sheet> held = sheet;
    VemoMask::createMask(sheet, window, QColor(0, 0, 0, 20));
    const int code = sheet->exec();
    if (held)
        delete held->parentWidget(); // the mask, and the sheet with it
    return code;
}
