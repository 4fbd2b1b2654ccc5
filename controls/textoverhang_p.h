// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

class QComboBox;
class QStyleOptionComboBox;
class QStylePainter;

/// Paints the part of a box's first letter that is outside its field, where a style sheet cuts the
/// text off: in many fonts a J begins left of its place. For the end of a paint event.
void paintOverhang(
    QStylePainter *painter, const QStyleOptionComboBox &option, const QComboBox &box);
