// SPDX-License-Identifier: MIT
#pragma once

#include <QAction>

/// What the user can do, by key, by the bar and by the menu. The actions belong to the window that
/// they were made for, which connects them.
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

    /// files gets the keys that are only meant while the list has the focus.
    static Actions make(QWidget *window, QWidget *files);
};
