// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "core/scaling_p.h"

#include <QFontInfo>
#include <QFontMetrics>
#include <QSize>
#include <QStyleOption>
#include <QWidget>

/// A size hint of widget, higher by what a line of its font lacks in the height that the style
/// leaves to the text: that of textRect() when option has the size of the hint, without a frame if
/// a negative padding leaves the whole height. Style sheets give heights in pixels, which do not
/// grow with the font.
template <typename TextRect>
QSize grownToFont(
    const QSize &hint, const QWidget &widget, QStyleOption *option, const TextRect &textRect)
{
    constexpr int kFrame = 3; // design pixels: a border, and air between it and the letters
    option->rect = QRect({0, 0}, hint);
    const int room = textRect().height();
    const int frame = room < hint.height() ? 0 : 2 * scaled(kFrame);
    const int lacking = widget.fontMetrics().height() + frame - room;
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
