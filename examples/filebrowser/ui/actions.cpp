// SPDX-License-Identifier: MIT
#include "actions.h"

#include "texts.h"

#include <QWidget>

namespace {

QAction *newAction(QWidget *owner, const char *name, const char *key, const QKeySequence &shortcut)
{
    auto *action = new QAction(owner);
    action->setObjectName(name);
    action->setShortcut(shortcut);
    translate(owner, [=] {
        action->setText(text(key));
        if (!shortcut.isEmpty())
            action->setToolTip(
                QString("%1 (%2)").arg(text(key), shortcut.toString(QKeySequence::NativeText)));
    });
    owner->addAction(action);
    return action;
}

QAction *newLocalAction(
    QWidget *owner, const char *name, const char *key, const QKeySequence &shortcut)
{
    QAction *action = newAction(owner, name, key, shortcut);
    action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    return action;
}

} // namespace

Actions Actions::make(QWidget *window, QWidget *files)
{
    Actions actions;
    actions.up = newAction(window, "upAction", "up", Qt::Key_Backspace);
    actions.refresh = newAction(window, "refreshAction", "refresh", Qt::Key_F5);
    actions.newFolder = newAction(window, "newFolderAction", "new_folder", QKeySequence::New);
    actions.paste = newAction(window, "pasteAction", "paste", QKeySequence::Paste);
    actions.search = newAction(window, "searchAction", "search", QKeySequence::Find);
    actions.details = newAction(window, "detailsAction", "details", Qt::CTRL | Qt::Key_I);
    actions.details->setCheckable(true);
    actions.help = newAction(window, "helpAction", "help", Qt::Key_F1);
    // The list opens the current row by itself.
    actions.open = newLocalAction(files, "openAction", "open", {});
    actions.rename = newLocalAction(files, "renameAction", "rename", Qt::Key_F2);
    actions.trash = newLocalAction(files, "trashAction", "trash", Qt::Key_Delete);
    actions.copy = newLocalAction(files, "copyAction", "copy", QKeySequence::Copy);
    return actions;
}
