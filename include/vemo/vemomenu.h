// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QMenu>

/// A menu that moves itself into the primary screen's available area when it is shown.
///
/// It does not style itself; set the section "component.menu" for the library's look. It belongs to
/// its parent.
///
///     auto *menu = new VemoMenu(this);
///     menu->setStyleSheet(getStyleSheet("component.menu"));
///     menu->addAction(tr("Rename"), this, &MainWindow::renameFile);
///
/// \image html choices-menus.png
class VEMO_EXPORT VemoMenu : public QMenu
{
    Q_OBJECT

public:
    /// Creates an empty menu.
    explicit VemoMenu(QWidget *parent = nullptr);
    /// An empty menu with a title.
    explicit VemoMenu(const QString &title, QWidget *parent = nullptr);

protected:
    void showEvent(QShowEvent *event) override;
};
