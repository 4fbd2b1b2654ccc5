// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QFontInfo>
#include <QFontMetrics>
#include <QSize>
#include <QStyleOption>
#include <QWidget>

/// A size hint of widget, higher by what a line of its font lacks in the height that the style
/// leaves to the text: that of textRect() when option has the size of the hint. Style sheets give
/// heights in pixels, which do not grow with the font.
template <typename TextRect>
QSize grownToFont(
    const QSize &hint, const QWidget &widget, QStyleOption *option, const TextRect &textRect)
{
    option->rect = QRect({0, 0}, hint);
    const int lacking = widget.fontMetrics().height() - textRect().height();
    return {hint.width(), hint.height() + qMax(0, lacking)};
}

/// font, smaller if a line of it is higher than height. For controls of a fixed height.
inline QFont fontForHeight(QFont font, int height)
{
    const int line = QFontMetrics(font).height();
    if (line > height)
        font.setPixelSize(qMax(1, QFontInfo(font).pixelSize() * height / line));
    return font;
}
