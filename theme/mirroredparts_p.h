// SPDX-License-Identifier: MIT
#pragma once

// Not part of the public interface.

#include <QObject>

/// Draws the titles of group boxes and the tabs of tool boxes from right to left. Qt's style sheets
/// place the check box of a title on the left of its text, the text beyond the edge, and the icon
/// of a tab on the left, in either direction.
class MirroredParts : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Whether it can draw the parts of widget.
    static bool isFor(const QWidget *widget);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
};
