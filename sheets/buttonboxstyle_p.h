// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QDialogButtonBox>

class QPushButton;
class QStyle;

/// A style, the same for all boxes, that puts their buttons in the order of layout on every
/// desktop.
QStyle *buttonBoxStyle(QDialogButtonBox::ButtonLayout layout);

/// Gives a button its height of 32 and its least width of 100 design pixels.
void setButtonSize(QPushButton *button);
