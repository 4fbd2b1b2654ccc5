// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QLabel>

/// A text label in the library's look that is at least as high as its wrapped text.
///
/// Enable word wrap and set the vertical size policy Minimum: each resize then sets the minimum
/// height to what the text needs at the new width. Setting a text does not: with a shorter text the
/// height remains until the next resize. With any other policy the minimum height does not change.
///
/// Requires: style files; without the section "component.label" it looks plain, with a warning. It
/// belongs to its parent.
///
///     auto *hint = new VemoLabel(tr("Files are kept for 30 days ..."), page);
///     hint->setWordWrap(true);
///     hint->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
///
/// \image html labels-wrapped-text.png
class VEMO_EXPORT VemoLabel : public QLabel
{
public:
    /// Creates a label with a plain or rich text, like QLabel, and looks up its style.
    explicit VemoLabel(
        const QString &text, QWidget *parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    /// Creates a label without a text.
    explicit VemoLabel(QWidget *parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());

    void resizeEvent(QResizeEvent *event) override;
};
