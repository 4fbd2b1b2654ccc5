// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QComboBox>

/// A combo box in the library's look whose list opens two screen pixels below it, in line with its
/// left edge, wherever on the screen it stands.
///
/// Load the style files before. The section "component.combobox" holds the placeholders %1 and %2,
/// which become the padding at both sides (6 design pixels, fractions kept) and the border; the
/// section "component.scrollbar" follows it. A missing section is warned about and left out. It
/// belongs to its parent. Assistive tools announce it by its accessible name, or else by the text
/// of the label whose buddy it is, or else by its current text.
///
///     auto *unit = new VemoComboBox(page);
///     unit->addItems({ tr("Days"), tr("Weeks") });
///     connect(unit, SIGNAL(currentIndexChanged(int)), this, SLOT(slotUnitChanged(int)));
///
/// \image html choices-combo-boxes.png
class VEMO_EXPORT VemoComboBox : public QComboBox
{
    Q_OBJECT

public:
    /// An empty box; looks its styles up.
    explicit VemoComboBox(QWidget *parent = nullptr);

    /// Opens the list. The box gives up the keyboard focus first and, if it had it, takes it back
    /// once the list is closed, unless another widget of the window has it by then.
    void showPopup() override;
};
