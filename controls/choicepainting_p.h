// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "controls/loweredtext_p.h"

#include <QStyleOptionButton>
#include <QStylePainter>
#include <QWidget>

/// By how many pixels a style draws the text of a button lower than one in its own font.
inline int loweredBy(
    const QStyleOptionButton &option, const QWidget &button, QStyle::SubElement contents)
{
    const QRect rect = button.style()->subElementRect(contents, &option, &button);
    return loweredBy(button.font(), option.text, rect.height());
}

/// Paints a button of mark and text, the letters in the middle of the mark whatever their font.
inline void paintChoice(QStylePainter *painter, QStyleOptionButton option, const QWidget &button,
    QStyle::ControlElement choice, QStyle::ControlElement label, QStyle::SubElement contents)
{
    QStyleOptionButton text = option;
    text.rect = button.style()->subElementRect(contents, &option, &button);
    text.rect.translate(0, -loweredBy(option, button, contents));
    option.text.clear();
    option.icon = QIcon();
    // A style sheet puts the knob of a switch at an end by the painter's direction, which Qt does
    // not set. The text has been aligned for its side already.
    painter->setLayoutDirection(option.direction);
    painter->drawControl(choice, option);
    painter->setLayoutDirection(Qt::LayoutDirectionAuto);
    painter->drawControl(label, text);
}
