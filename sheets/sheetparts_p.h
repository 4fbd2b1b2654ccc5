// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "controls/spokentext_p.h"

#include <vemo/stylemanager.h>

#include <QColor>
#include <QPushButton>

/// Of a mask that the library lays itself.
inline QColor maskShade()
{
    return StyleManager::getInstance().getColor(QStringLiteral("mask"), QColor(0, 0, 0, 20));
}

/// Hides a part and deletes it later, because it may be emitting a signal.
inline void discard(QWidget *widget)
{
    widget->hide();
    widget->deleteLater();
}

/// Sets the caption and the style of a sheet's button.
inline void styleButton(QPushButton *button, const QString &caption, const char *styleKey)
{
    button->setText(caption);
    // Some desktops add stock icons to the buttons of a QDialogButtonBox.
    button->setIcon(QIcon());
    button->setStyleSheet(getStyleSheet(styleKey));
}
