// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QLabel>

/// A text label in the library's look that is as tall as its wrapped text needs.
///
/// Turn word wrap on and give it the vertical size policy Minimum: it then follows its width,
/// taller when narrowed and shorter when widened. With any other policy its minimum height is left
/// alone. Load the style files before; without the section "component.label" it is a plain label,
/// with a warning. It belongs to its parent.
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
