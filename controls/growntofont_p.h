// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QFontMetrics>
#include <QSize>
#include <QWidget>

/// A size hint of widget, higher by what a line of its font lacks in the height that the style
/// leaves to the text. Style sheets give heights in pixels, which do not grow with the font.
inline QSize grownToFont(const QSize &hint, int textHeight, const QWidget &widget)
{
    return {hint.width(), hint.height() + qMax(0, widget.fontMetrics().height() - textHeight)};
}
