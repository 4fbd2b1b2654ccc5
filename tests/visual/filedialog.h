// SPDX-License-Identifier: MIT
#pragma once

#include <QImage>

/// Qt's file dialog with a folder and two files, the first of which is selected. No names, icons or
/// settings of the machine are in it.
QImage fileDialogPicture();
