// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/componentstrings.h>
#include <vemo/vemomessagesheet.h>

#include <QLabel>
#include <QPushButton>

// Functions that find the parts of a message sheet.

inline QString string(const char *key)
{
    return ComponentStrings::getInstance().getString(key);
}

inline QPushButton *buttonOf(const VemoMessageSheet &sheet, int which)
{
    return static_cast<QPushButton *>(sheet.button(QMessageBox::StandardButton(which)));
}

/// The label that shows text, which may be a text or a caption; null if there is none.
inline QLabel *labelOf(const VemoMessageSheet &sheet, const QString &text)
{
    for (QLabel *label : sheet.findChildren<QLabel *>()) {
        if (label->text() == text && label->isVisibleTo(&sheet))
            return label;
    }
    return nullptr;
}

/// The only label without a text is that of the icon.
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
