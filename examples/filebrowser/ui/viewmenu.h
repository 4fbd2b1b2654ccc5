// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/vemomenu.h>

class QActionGroup;

/// The menu that chooses the look and the language, both while the window is open.
///
/// Its actions are called "look_light", "look_dark", "look_system" and "language_enu" and so on.
class ViewMenu : public VemoMenu
{
    Q_OBJECT

public:
    explicit ViewMenu(QWidget *parent);

private:
    void addLooks();
    void addLanguages();
    void markCurrent();

    QActionGroup *m_looks;
    QActionGroup *m_languages;
};
