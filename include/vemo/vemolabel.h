// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QLabel>

/// A text label in the library's look that is at least as tall as its wrapped text needs.
///
/// Turn word wrap on and give it the vertical size policy Minimum: each resize then sets the
/// minimum height to what the text needs at the new width, more when narrowed and less when
/// widened. A new text alone doesn't: after a shorter one the height stays until the next resize.
/// With any other policy the minimum height is left alone.
///
/// Requires: style files; without the section "component.label" it is a plain label, with a
/// warning. It belongs to its parent.
///
///     auto *hint = new VemoLabel(tr("Files are kept for 30 days ..."), page);
///     hint->setWordWrap(true);
///     hint->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Minimum);
///
/// \image html labels-wrapped-text.png
class VEMO_EXPORT VemoLabel : public QLabel
{
public:
    /// With a text, plain or rich as QLabel takes it; looks its style up.
    explicit VemoLabel(
        const QString &text, QWidget *parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());
    /// Without a text.
    explicit VemoLabel(QWidget *parent = nullptr, Qt::WindowFlags flags = Qt::WindowFlags());

    void resizeEvent(QResizeEvent *event) override;
};
