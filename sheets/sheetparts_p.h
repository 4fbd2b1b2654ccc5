// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "controls/fittingfont_p.h"
#include "controls/spokentext_p.h"
#include "core/scaling_p.h"

#include <vemo/stylemanager.h>

#include <QColor>
#include <QPushButton>
#include <QStyleOption>

/// Of a mask that the library lays itself.
inline QColor maskShade()
{
    return StyleManager::getInstance().getColor(QStringLiteral("mask"), QColor(0, 0, 0, 20));
}

/// The width, in screen pixels, of what a button draws around one of its elements.
inline int frameWidth(QAbstractButton *button, QStyle::SubElement element)
{
    button->ensurePolished();
    QStyleOptionButton option;
    option.initFrom(button);
    option.direction = Qt::LeftToRight;
    return button->style()->subElementRect(element, &option, button).left();
}

/// Hides a part and deletes it later, because it may be emitting a signal.
inline void discard(QWidget *widget)
{
    widget->hide();
    widget->deleteLater();
}

/// Fixes the height, in design pixels, of a button or field, whose text fits between its borders.
inline void setHeight(QWidget *control, double height)
{
    constexpr int kBorder = 1;
    constexpr int kPadding = 2;
    control->setFixedHeight(scaled(height));
    FittingFont::keep(control, scaled(height) - 2 * (scaled(kBorder) + scaled(kPadding)));
}

/// Sets the caption and the style of a sheet's button.
inline void styleButton(QPushButton *button, const QString &caption, const char *styleKey)
{
    button->setText(caption);
    // Some desktops add stock icons to the buttons of a QDialogButtonBox.
    button->setIcon(QIcon());
    button->setStyleSheet(getStyleSheet(styleKey));
}
