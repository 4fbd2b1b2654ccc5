// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QMenu>

/// A menu that moves itself into the primary screen's available area when it is shown.
///
/// It has no look of its own; give it the section "component.menu" where it should have the
/// library's. It belongs to its parent.
///
///     auto *menu = new VemoMenu(this);
///     menu->setStyleSheet(getStyleSheet("component.menu"));
///     menu->addAction(tr("Rename"), this, SLOT(slotRename()));
///
/// \image html choices-menus.png
class VEMO_EXPORT VemoMenu : public QMenu
{
    Q_OBJECT

public:
    /// An empty menu.
    explicit VemoMenu(QWidget *parent = nullptr);
    /// An empty menu with a title.
    explicit VemoMenu(const QString &title, QWidget *parent = nullptr);

protected:
    void showEvent(QShowEvent *event) override;
};
