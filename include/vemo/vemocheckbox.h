// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QCheckBox>

/// A check box in the library's look. Load the style files first: without the section
/// "component.checkbox" it is a plain one, with a warning. It belongs to its parent.
///
///     auto *keep = new VemoCheckBox(tr("Keep a copy"), page);
///     connect(keep, SIGNAL(toggled(bool)), this, SLOT(slotKeepChanged(bool)));
///     layout->addWidget(keep);
///
/// \image html choices-check-boxes.png
class VEMO_EXPORT VemoCheckBox : public QCheckBox
{
    Q_OBJECT

public:
    /// An unchecked box; looks its style up.
    explicit VemoCheckBox(const QString &text = QString(), QWidget *parent = nullptr);
    /// Without a text, as code made from a form needs it.
    explicit VemoCheckBox(QWidget *parent);
};
