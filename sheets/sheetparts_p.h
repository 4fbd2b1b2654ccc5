// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "controls/spokentext_p.h"

#include <vemo/stylemanager.h>

#include <QColor>
#include <QPushButton>

const QColor kShade(0, 0, 0, 20); // Of a mask that the library lays itself.

/// Sets the caption and the style of a sheet's button.
inline void dressButton(QPushButton *button, const QString &caption, const char *styleKey)
{
    button->setText(caption);
    // Some desktops add stock icons to the buttons of a QDialogButtonBox.
    button->setIcon(QIcon());
    button->setStyleSheet(getStyleSheet(styleKey));
}
