// SPDX-License-Identifier: MIT
#pragma once

#include <QPixmap>

#include <functional>

class QLabel;
class QWidget;
class VemoButton;
class VemoSheet;

/// What a window of a size in design pixels, with something in it, looks like under a sheet.
QPixmap sheetOverWindow(const QSize &size, const std::function<VemoSheet *(QWidget *)> &newSheet);

/// A button that asks something over its window and writes the result code into result.
VemoButton *newAskingButton(
    const QString &caption, QLabel *result, const std::function<int(QWidget *)> &ask);

/// The shade of the message functions.
QColor maskShade();
