// SPDX-License-Identifier: MIT
// Internal header of the build tool that draws the pictures.
#pragma once

class QImage;
class QSvgRenderer;

/// Draws the whole picture into image, which is unit times as large as the drawing, so that
/// straight strokes stay crisp where it is scaled.
///
/// A stroke that is drawn on half pixels covers one pixel of the drawing and a little of both
/// neighbours: (k - 1/8) to (k + 9/8). Here it begins, or ends, at an even coordinate instead,
/// which is the edge of a pixel at factors 1, 1.5 and 2: half of the strokes' edges are sharp there
/// and the other edge spills into one pixel only. All else follows, by an eighth of a pixel at
/// most.
void drawOnGrid(QSvgRenderer &renderer, QImage &image, double unit);
