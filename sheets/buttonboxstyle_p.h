// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QDialogButtonBox>

class QPushButton;
class QStyle;

/// A style, shared by all boxes, that arranges their buttons in the order of layout on every
/// desktop.
QStyle *buttonBoxStyle(QDialogButtonBox::ButtonLayout layout);

/// Sets a button's height to 32 and its minimum width to 100 design pixels.
void setButtonSize(QPushButton *button);
