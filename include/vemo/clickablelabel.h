// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QLabel>

/// A label that emits a signal when any mouse button is pressed on it.
///
/// It has no look of its own and does not accept the keyboard focus: if users must reach it with
/// the keyboard, use a button. A slot of clicked() may delete it. It belongs to its parent.
///
///     auto *title = new ClickableLabel(tr("Details"), header);
///     connect(title, &ClickableLabel::clicked, this, &MainWindow::toggleDetails);
///
/// \image html labels-labels-to-press.png
class VEMO_EXPORT ClickableLabel : public QLabel
{
    Q_OBJECT

public:
    /// Creates a label with a text. Requires: nothing.
    explicit ClickableLabel(const QString &text, QWidget *parent = nullptr);
    /// Creates a label without a text.
    explicit ClickableLabel(QWidget *parent = nullptr);

Q_SIGNALS:
    /// Emitted when any mouse button is pressed on the label, twice for a double click. A disabled
    /// label does not emit it.
    void clicked();

protected:
    void mousePressEvent(QMouseEvent *event) override;
};
