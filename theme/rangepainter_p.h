// SPDX-License-Identifier: MIT
#pragma once

// Not part of the public interface.

class QPainter;
class QRect;
class QStyleOptionSlider;

/// Draws a groove, in accent up to the handle, and the handle as a ring with the handle's width.
/// Draws ticks above or below it if the option requests them.
void drawSlider(QPainter *painter, const QStyleOptionSlider &option, const QRect &handle);

/// Draws an arc, in accent up to the value, around a knob with a mark, and notches if the option
/// requests them.
void drawDial(QPainter *painter, const QStyleOptionSlider &option);
