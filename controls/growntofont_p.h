// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QFontInfo>
#include <QFontMetrics>
#include <QSize>
#include <QWidget>

/// A size hint of widget, higher by what a line of its font lacks in the height that the style
/// leaves to the text. Style sheets give heights in pixels, which do not grow with the font.
inline QSize grownToFont(const QSize &hint, int textHeight, const QWidget &widget)
{
    return {hint.width(), hint.height() + qMax(0, widget.fontMetrics().height() - textHeight)};
}

/// font, smaller if a line of it is higher than height. For controls of a fixed height.
inline QFont fontForHeight(QFont font, int height)
{
    const int line = QFontMetrics(font).height();
    if (line > height)
        font.setPixelSize(qMax(1, QFontInfo(font).pixelSize() * height / line));
    return font;
}
