// SPDX-License-Identifier: MIT
#include "controls/fieldbuttons_p.h"

#include <vemo/componentstrings.h>
#include <vemo/imagemanager.h>

#include <QAction>
#include <QLineEdit>

namespace {

QIcon iconOf(const char *name)
{
    QIcon icon(getGlobalImage(name));
    icon.addPixmap(getGlobalImage(name, ImageManager::CLICK), QIcon::Active);
    icon.addPixmap(getGlobalImage(name, ImageManager::DISABLE), QIcon::Disabled);
    return icon;
}

} // namespace

void setNamedClearButton(QLineEdit *field, bool enabled)
{
    field->setClearButtonEnabled(enabled);
    QAction *action = clearButtonAction(field);
    if (enabled && action) {
        action->setIcon(iconOf("bt_close"));
        action->setText(
            ComponentStrings::getInstance().getString(QStringLiteral("accessible_clear")));
    }
}

QAction *clearButtonAction(const QLineEdit *field)
{
    // The name is Qt's own, the same in all versions.
    return field->findChild<QAction *>(QStringLiteral("_q_qlineeditclearaction"));
}
