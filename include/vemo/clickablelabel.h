// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QLabel>

/// A label that reports each press of a mouse button on it, whichever button it is.
///
/// It has no look of its own and takes no keyboard focus: where the keyboard must reach it too, use
/// a button. It may be deleted in a slot of clicked(). It belongs to its parent.
///
///     auto *title = new ClickableLabel(tr("Details"), header);
///     connect(title, SIGNAL(clicked()), this, SLOT(slotToggleDetails()));
///
/// \image html labels-labels-to-press.png
class VEMO_EXPORT ClickableLabel : public QLabel
{
    Q_OBJECT

public:
    /// A label with a text; no resources are needed.
    explicit ClickableLabel(const QString &text, QWidget *parent = nullptr);
    /// Without a text.
    explicit ClickableLabel(QWidget *parent = nullptr);

Q_SIGNALS:
    /// The user pressed a mouse button, any of them, on the label. Both presses of a double click
    /// count; a disabled label gets none.
    void clicked();

protected:
    void mousePressEvent(QMouseEvent *event) override;
};
