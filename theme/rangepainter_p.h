// SPDX-License-Identifier: MIT
#pragma once

// Not part of the public interface.

class QPainter;
class QRect;
class QStyleOptionSlider;

/// A line from end to end, in accent up to the handle, which is a ring of the handle's width; below
/// or above it ticks, where the option asks for them.
void drawSlider(QPainter *painter, const QStyleOptionSlider &option, const QRect &handle);

/// An arc, in accent up to the value, around a knob with a mark; notches where the option asks for
/// them.
void drawDial(QPainter *painter, const QStyleOptionSlider &option);
