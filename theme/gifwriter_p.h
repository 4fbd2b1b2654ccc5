// SPDX-License-Identifier: MIT
// Internal header of the build tool that draws the pictures.
#pragma once

#include <QByteArray>
#include <QVector>

class QColor;
class QImage;

/// An endless animation of frames of the same size; delay is that between two frames, in hundredths
/// of a second.
///
/// GIF has no partial transparency: the animation has a single colour, and the opacity of a pixel
/// selects a shade between ground, on which the animation is shown, and that colour.
QByteArray animatedGif(
    const QVector<QImage> &frames, int delay, const QColor &ground, const QColor &colour);
