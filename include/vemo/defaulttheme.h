// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/imagemanager.h>
#include <vemo/themeexport.h>

#include <QColor>
#include <QPalette>
#include <QString>

class QApplication;

/// Does the host's whole start-up from the embedded default theme: folders, strings, pictures and
/// styles, in that order. Call it once, after the application object and before the first widget.
/// It is in a library of its own: link Vemo::Theme.
///
/// The folder userDataPath is made if it is missing and takes the generated pictures. languageCode
/// is one of VemoLocale's; a language that the theme lacks is warned about and shown in English.
/// type is handed to ImageManager::initialize().
/// False and a warning, with nothing registered, where userDataPath can't be written.
///
///     QApplication app(argc, argv);
///     installDefaultTheme(QStandardPaths::writableLocation(QStandardPaths::CacheLocation),
///         VemoLocale::getInstance().getDefaultLanguage(), ImageManager::LAZY_LOAD);
VEMO_THEME_EXPORT bool installDefaultTheme(
    const QString &userDataPath, const QString &languageCode, ImageManager::InitializeType type);

/// The theme's colours for what no style section dresses: windows, and stock widgets among ours.
/// The host's to set, before or after the start-up; every role that is not the theme's has Qt's
/// default.
///
///     QApplication::setStyle("fusion");
///     QApplication::setPalette(defaultThemePalette());
VEMO_THEME_EXPORT QPalette defaultThemePalette();

/// Gives Qt's own widgets the look of ours: the style (Fusion), the palette, and the section
/// "application" as the application's style sheet, in place of one that it had. Call it once, after
/// installDefaultTheme() and before the first widget; without it stock widgets stay as Qt has them.
///
/// It dresses the classes that Qt has, not their subclasses, so that VemoButton and a host's own
/// QPushButton look the same with and without it. A host's own rules go behind:
///
///     applyDefaultThemeStyle(app);
///     app.setStyleSheet(app.styleSheet() + getStyleSheet("tea.application"));
VEMO_THEME_EXPORT void applyDefaultThemeStyle(QApplication &application);

/// One of the theme's colours, by its name in theme/palette.json: "ink", "accent-hover". A warning
/// and no valid colour where there is none of that name.
VEMO_THEME_EXPORT QColor defaultThemeColor(const QString &name);

/// text, say a host's own style section, with the theme's colours for their names between "@". A
/// name that is none is warned about.
///
///     window->setStyleSheet(withDefaultThemeColors(getStyleSheet("tea.window")));
///     // == tea.window ==
///     // #TeaWindow { background: @surface@; border: 1px solid @line@; }
VEMO_THEME_EXPORT QString withDefaultThemeColors(const QString &text);
