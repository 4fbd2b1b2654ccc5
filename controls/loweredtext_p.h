// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QFontMetricsF>
#include <QTextLayout>
#include <QtMath>

#include <algorithm>

/// Where the line of text begins in an area of that height, as Qt places it: styles between two
/// pixels, QItemDelegate on whole ones.
enum class LinePlace { Exact, WholePixel };

/// By how many pixels Qt draws a text in the middle of an area lower than one whose letters are all
/// in the font. It centres the line, and letters that are taken from another font, such as Chinese
/// ones, often have a larger ascent.
inline int loweredBy(
    const QFont &font, const QString &text, int height, LinePlace place = LinePlace::Exact)
{
    const bool isLatin = std::all_of(
        text.begin(), text.end(), [](QChar letter) { return letter.unicode() < 0x180; });
    if (isLatin)
        return 0;
    const auto baseline = [&](double ascent, double lineHeight) {
        const int wholeTop = height / 2 - qCeil(lineHeight) / 2;
        const double top = place == LinePlace::WholePixel ? wholeTop : (height - lineHeight) / 2;
        return qFloor(top + ascent + 0.5);
    };
    QTextLayout layout(text, font);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    const QFontMetricsF own(font);
    // Not line.height(), which is rounded up: with Qt 6 ascent and descent have fractions.
    return baseline(line.ascent(), line.ascent() + line.descent())
        - baseline(own.ascent(), own.height());
}
