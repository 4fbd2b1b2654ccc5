// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/componentstrings.h>
#include <vemo/vemomessagesheet.h>

#include <QLabel>
#include <QPushButton>

// The parts of a message sheet, as a user would name them.

inline QString string(const char *key)
{
    return ComponentStrings::getInstance().getString(key);
}

inline QPushButton *buttonOf(const VemoMessageSheet &sheet, int which)
{
    return static_cast<QPushButton *>(sheet.button(QMessageBox::StandardButton(which)));
}

/// The label that shows text, for texts and captions alike; null: none does.
inline QLabel *labelOf(const VemoMessageSheet &sheet, const QString &text)
{
    for (QLabel *label : sheet.findChildren<QLabel *>()) {
        if (label->text() == text && label->isVisibleTo(&sheet))
            return label;
    }
    return nullptr;
}

/// The one label without a text is the icon's.
inline QLabel *iconOf(const VemoMessageSheet &sheet)
{
    return sheet.findChildren<QLabel *>(QString(), Qt::FindDirectChildrenOnly).constFirst();
}

inline QImage iconImage(const VemoMessageSheet &sheet)
{
    return iconOf(sheet)->pixmap(Qt::ReturnByValue).toImage();
}

inline int buttonsOf(const VemoMessageSheet &sheet)
{
    return sheet.findChild<QDialogButtonBox *>()->standardButtons();
}
