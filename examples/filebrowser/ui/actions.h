// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>

/// The actions for keys, the bar and the menu. They belong to the window for which they were
/// created, which connects them.
struct Actions
{
    QAction *up = nullptr;
    QAction *refresh = nullptr;
    QAction *open = nullptr;
    QAction *rename = nullptr;
    QAction *newFolder = nullptr;
    QAction *trash = nullptr;
    QAction *copy = nullptr;
    QAction *paste = nullptr;
    QAction *search = nullptr;
    QAction *details = nullptr; ///< checkable: whether the panel is shown
    QAction *help = nullptr;

    /// files gets the shortcuts that are only valid if the list has the focus.
    static Actions make(QWidget *window, QWidget *files);
};
