// SPDX-License-Identifier: MIT
#include "controls/fieldbuttons_p.h"

#include <vemo/componentstrings.h>
#include <vemo/imagemanager.h>

#include <QAction>
#include <QLineEdit>

namespace {

const QLatin1String kPasswordAction("vemo_password_action");

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

void setPasswordButton(QLineEdit *field, bool enabled)
{
    QAction *action = passwordButtonAction(field);
    if (enabled == bool(action))
        return;
    field->setEchoMode(enabled ? QLineEdit::Password : QLineEdit::Normal);
    if (!enabled) {
        action->setObjectName({});
        action->setVisible(false);
        // Later, because its button, which is deleted with it, may be emitting a signal.
        action->deleteLater();
        return;
    }
    action = field->addAction(getGlobalIcon("bt_show"), QLineEdit::TrailingPosition);
    action->setObjectName(kPasswordAction);
    action->setText(
        ComponentStrings::getInstance().getString(QStringLiteral("accessible_show_password")));
    action->setCheckable(true);
    QObject::connect(action, &QAction::toggled, field, [field, action](bool isShown) {
        field->setEchoMode(isShown ? QLineEdit::Normal : QLineEdit::Password);
        // The button does not show whether it is checked.
        action->setIcon(getGlobalIcon(isShown ? "bt_hide" : "bt_show"));
    });
}

QAction *passwordButtonAction(const QLineEdit *field)
{
    return field->findChild<QAction *>(kPasswordAction);
}
