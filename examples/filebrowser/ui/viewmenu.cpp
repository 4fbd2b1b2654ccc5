// SPDX-License-Identifier: MIT
#include "viewmenu.h"

#include "languages.h"
#include "look.h"
#include "texts.h"

#include <vemo/defaulttheme.h>
#include <vemo/stylemanager.h>

#include <QActionGroup>

namespace {

const char *const kLooks[] = {"look_light", "look_dark", "look_system"}; // as DefaultThemeMode

QAction *newChoice(QMenu *menu, QActionGroup *group, const QString &name, const QVariant &data)
{
    auto *action = new QAction(menu);
    action->setObjectName(name);
    action->setCheckable(true);
    action->setData(data);
    group->addAction(action);
    menu->addAction(action);
    return action;
}

void mark(const QActionGroup *group, const QVariant &current)
{
    const QList<QAction *> actions = group->actions();
    for (QAction *action : actions)
        action->setChecked(action->data() == current);
}

} // namespace

ViewMenu::ViewMenu(QWidget *parent)
    : VemoMenu(parent), m_looks(new QActionGroup(this)), m_languages(new QActionGroup(this))
{
    setObjectName("viewMenu");
    setStyleSheet(getStyleSheet("component.menu"));
    addLooks();
    addSeparator();
    addLanguages();
    connect(this, &QMenu::aboutToShow, this, &ViewMenu::markCurrent);
    // Queued: widgets are polished again, among them the menu that is still closing.
    connect(
        m_looks, &QActionGroup::triggered, this,
        [](const QAction *look) { setDefaultThemeMode(DefaultThemeMode(look->data().toInt())); },
        Qt::QueuedConnection);
    connect(
        m_languages, &QActionGroup::triggered, this,
        [](const QAction *language) { speak(language->data().toString()); }, Qt::QueuedConnection);
}

void ViewMenu::addLooks()
{
    for (int mode = 0; mode < 3; ++mode) {
        QAction *look = newChoice(this, m_looks, kLooks[mode], mode);
        translate(look, [=] { look->setText(text(kLooks[mode])); });
    }
}

/// In a menu of their own, each by its own name.
void ViewMenu::addLanguages()
{
    auto *menu = new VemoMenu(this);
    menu->setObjectName("languageMenu");
    menu->setStyleSheet(getStyleSheet("component.menu"));
    const QStringList codes = languageCodes();
    const QVector<DefaultThemeLanguage> languages = defaultThemeLanguages();
    for (const DefaultThemeLanguage &language : languages) {
        if (codes.contains(language.code))
            newChoice(menu, m_languages, "language_" + language.code, language.code)
                ->setText(language.nativeName);
    }
    addMenu(menu);
    translate(menu, [menu] { menu->setTitle(text("language")); });
}

void ViewMenu::markCurrent()
{
    mark(m_looks, int(defaultThemeMode()));
    mark(m_languages, language());
}
