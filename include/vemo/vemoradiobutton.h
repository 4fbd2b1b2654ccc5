// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QRadioButton>

/// A radio button in the library's look. Load the style files first: without the section
/// "component.radio_button" it is a plain one, with a warning. It belongs to its parent, and
/// excludes the other radio buttons of that parent.
///
///     auto *daily = new VemoRadioButton(tr("Daily"), page);
///     auto *weekly = new VemoRadioButton(tr("Weekly"), page);
///     daily->setChecked(true);
///
/// \image html choices-radio-buttons.png
class VEMO_EXPORT VemoRadioButton : public QRadioButton
{
    Q_OBJECT

public:
    /// An unchecked button; looks its style up.
    explicit VemoRadioButton(const QString &text = QString(), QWidget *parent = nullptr);
    /// Without a text, as code made from a form needs it.
    explicit VemoRadioButton(QWidget *parent);
};
