// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "controls/spokentext_p.h"

#include <vemo/stylemanager.h>

#include <QColor>
#include <QPushButton>

const QColor kShade(0, 0, 0, 20); // Of a mask that the library lays itself.

/// Gives a button of a sheet its caption and the style of its role.
inline void dressButton(QPushButton *button, const QString &caption, const char *styleKey)
{
    button->setText(caption);
    // Some desktops put stock icons on the buttons of a QDialogButtonBox.
    button->setIcon(QIcon());
    button->setStyleSheet(getStyleSheet(styleKey));
}
