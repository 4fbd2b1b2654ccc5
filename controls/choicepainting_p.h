// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "controls/loweredtext_p.h"

#include <QStyleOptionButton>
#include <QStylePainter>
#include <QWidget>

/// What a style draws of a button of mark and text.
struct ChoiceElements
{
    QStyle::ControlElement button;
    QStyle::ControlElement label;
    QStyle::SubElement contents;
};

/// Paints a button of mark and text, with its text by lowered pixels higher.
inline void paintChoice(QStylePainter *painter, QStyleOptionButton option, const QWidget &button,
    const ChoiceElements &elements, int lowered)
{
    QStyleOptionButton text = option;
    text.rect = button.style()->subElementRect(elements.contents, &option, &button);
    text.rect.translate(0, -lowered);
    option.text.clear();
    option.icon = QIcon();
    // A style sheet puts the knob of a switch at an end by the painter's direction, which Qt does
    // not set. The text has been aligned for its side already.
    painter->setLayoutDirection(option.direction);
    painter->drawControl(elements.button, option);
    painter->setLayoutDirection(Qt::LayoutDirectionAuto);
    painter->drawControl(elements.label, text);
}

/// By how many pixels a style draws the text of a button lower than one in its own font.
inline int loweredBy(
    const QStyleOptionButton &option, const QWidget &button, QStyle::SubElement contents)
{
    const QRect rect = button.style()->subElementRect(contents, &option, &button);
    return loweredBy(button.font(), option.text, rect.height());
}

/// Paints a button whose text the style would draw too low for its mark; false for other buttons,
/// which the style paints.
inline bool paintLowered(
    const QStyleOptionButton &option, QWidget *button, const ChoiceElements &elements)
{
    const int lowered = loweredBy(option, *button, elements.contents);
    if (lowered == 0)
        return false;
    QStylePainter painter(button);
    paintChoice(&painter, option, *button, elements, lowered);
    return true;
}
