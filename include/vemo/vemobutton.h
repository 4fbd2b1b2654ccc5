// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QPushButton>

/// A flat push button whose whole look comes from the style section of its role. A layout doesn't
/// stretch it: both its size policies are fixed.
///
/// It is made without a parent: the layout that it is put into gives it one. The style files must
/// be loaded before; a role without a section leaves a plain flat button and a warning.
///
///     auto *save = new VemoButton(tr("Save"), VemoButton::APPLY);
///     layout->addWidget(save);
///     connect(save, SIGNAL(clicked()), this, SLOT(slotSave()));
///
/// \image html buttons-roles-and-states.png
class VEMO_EXPORT VemoButton : public QPushButton
{
    Q_OBJECT

public:
    /// The number for the constructor, and the style section that it chooses.
    enum Role {
        APPLY = 0, ///< "component.apply_button"
        CANCEL = 1, ///< "component.cancel_button"
        SELECT_PAGING = 2, ///< "component.select_paging_button", the current page
        NONSELECT_PAGING = 3, ///< "component.nonselect_paging_button", any other page
        DEFAULT = 4, ///< "component.default_button"
        RED = 5, ///< "component.red_button"
    };
    Q_ENUM(Role)

    /// Any role but the six above sets no style sheet at all.
    VemoButton(const QString &text, int role);

    /// Without text and in the role DEFAULT, as code made from a form needs it.
    explicit VemoButton(QWidget *parent);

    /// Takes on the look of another role; any but the six above leaves no style sheet.
    void setRole(int role);
};
