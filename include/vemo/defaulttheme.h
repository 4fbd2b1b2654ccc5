// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/imagemanager.h>
#include <vemo/themeexport.h>

#include <QColor>
#include <QLocale>
#include <QMap>
#include <QPalette>
#include <QString>
#include <QStringList>
#include <QVector>

#include <optional>
#include <vector>

class QApplication;

/// Which of the theme's two looks is shown.
enum class DefaultThemeMode {
    Light,
    Dark,
    System, ///< that of the desktop, now and whenever it changes
};

/// Options for installDefaultTheme(), all of which have defaults.
///
///     DefaultThemeOptions options;
///     options.languageCode = "deu";
///     options.resourceFolders = {":/tea"};
///     installDefaultTheme(options);
struct DefaultThemeOptions
{
    /// The folder for generated pictures, which is created if it is missing. If empty, the
    /// application's cache folder (QStandardPaths::CacheLocation).
    QString userDataPath;

    /// A code of VemoLocale; if empty, that of the system. If the theme has no texts for it,
    /// English is used, with a warning.
    QString languageCode;

    /// The time when pictures are loaded, see ImageManager::initialize().
    ImageManager::InitializeType pictureLoading = ImageManager::LAZY_LOAD;

    /// Whether to set the style Fusion and defaultThemePalette(), for windows and everything else
    /// without a style section.
    bool setsPalette = true;

    /// Whether to give Qt's own widgets the look of ours, see applyDefaultThemeStyle(). The palette
    /// depends on setsPalette.
    bool stylesStockWidgets = true;

    /// Which look to show, as setDefaultThemeMode() does. If unset, the one that was last chosen;
    /// light at first. Without a dark look in the library (VEMO_DARK_THEME), light with a warning.
    std::optional<DefaultThemeMode> mode;

    /// Folders with the host's own resources, in addition to those of the theme: pictures as in
    /// ImageManager::addCatalogue(), style files "/style/*.qss", and texts "/strings/<code>.json"
    /// for English and languageCode. A folder may lack any of these. Sections, pictures and texts
    /// replace those with the same name in the theme or in an earlier folder.
    QStringList resourceFolders;

    /// Additional texts of the host in the selected language, which replace all others.
    QMap<QString, QString> strings;
};

/// Performs the host's complete start-up with the embedded default theme: folders, strings,
/// pictures and styles, in that order, and then the look of the application. Call it after creating
/// the application object and before the first widget. It is in a separate library: link
/// Vemo::Theme.
///
/// It may be called again, for example with another language; existing widgets keep their texts. If
/// userDataPath is not writable, returns false with a warning and registers nothing.
///
///     QApplication app(argc, argv);
///     if (!installDefaultTheme())
///         return 1;
VEMO_THEME_EXPORT bool installDefaultTheme(const DefaultThemeOptions &options = {});

/// The same for a host that sets the style and the palette itself: neither is changed, and stock
/// widgets keep Qt's look. There are no defaults for an empty userDataPath or languageCode.
VEMO_THEME_EXPORT bool installDefaultTheme(
    const QString &userDataPath, const QString &languageCode, ImageManager::InitializeType type);

/// The path of the theme's busy animation, for VemoMessageSheet's constructor or a QMovie; after
/// installDefaultTheme().
///
///     auto *sheet = new VemoMessageSheet(tr("Copying ..."), defaultThemeBusyAnimation(), window);
VEMO_THEME_EXPORT QString defaultThemeBusyAnimation();

/// Shows the light or the dark look: in all that is built from now on and, after
/// installDefaultTheme(), at once in everything there is: style sheets of the theme's sections and
/// of what withDefaultThemeColors() has made, pictures that the widgets look up by name, the rows'
/// colours of VemoTreeWidget, and getGlobalIcon(). Called before
/// installDefaultTheme(), it starts in that look; the first start is light. The palette follows if
/// the application shows defaultThemePalette().
///
/// styleFiles are the host's own, loaded after those of the theme and of
/// DefaultThemeOptions::resourceFolders. Host code that has put something
/// together from sections, pictures or colours does so again on StyleManager::reloadEvent().
/// False and a warning if the library was built without the dark look (VEMO_DARK_THEME).
/// Requires: the application object.
///
///     setDefaultThemeMode(DefaultThemeMode::System, {":/tea/tea.qss"});
VEMO_THEME_EXPORT bool setDefaultThemeMode(
    DefaultThemeMode mode, const std::vector<QString> &styleFiles = {});

/// What setDefaultThemeMode() was last called with; light at first.
VEMO_THEME_EXPORT DefaultThemeMode defaultThemeMode();

/// Whether the look on show is the dark one.
VEMO_THEME_EXPORT bool isDefaultThemeDark();

/// The theme's colours for everything without a style section: windows, and stock widgets. The host
/// sets this palette, before or after the start-up. Roles that the theme does not define have Qt's
/// defaults.
///
///     QApplication::setStyle("fusion");
///     QApplication::setPalette(defaultThemePalette());
VEMO_THEME_EXPORT QPalette defaultThemePalette();

/// Gives Qt's own widgets the look of ours: the style (Fusion), the palette, and the section
/// "application" as the application's style sheet, in place of one that it had. Call it once, after
/// installDefaultTheme() and before the first widget, if that was called without this option;
/// without either stock widgets stay as Qt has them.
///
/// It styles Qt's classes but not their subclasses, so that VemoButton and a host's own
/// QPushButton look the same with and without it. A host's own rules go behind:
///
///     applyDefaultThemeStyle(app);
///     app.setStyleSheet(app.styleSheet() + getStyleSheet("tea.application"));
VEMO_THEME_EXPORT void applyDefaultThemeStyle(QApplication &application);

/// A language that the theme has texts in.
///
///     for (const DefaultThemeLanguage &language : defaultThemeLanguages())
///         languageBox->addItem(language.nativeName, language.code);
///
/// \image html resources-language-codes.png
struct DefaultThemeLanguage
{
    QString code; ///< such as "deu"; one of VemoLocale's, except for "ara" and "heb"
    QString nativeName; ///< as its speakers call it, such as "Deutsch"
    QLocale locale; ///< formats dates and numbers in the language
};

/// The theme's languages, by code.
VEMO_THEME_EXPORT QVector<DefaultThemeLanguage> defaultThemeLanguages();

/// The theme's texts in the language with that code, in English where it lacks one; a language that
/// it lacks is warned about. A host merges them with its own.
///
///     QMap<QString, QString> texts = defaultThemeStrings("deu");
///     texts.insert("tea.brew", "Aufbrühen");
///     ComponentStrings::getInstance().changeStrings(texts);
VEMO_THEME_EXPORT QMap<QString, QString> defaultThemeStrings(const QString &code);

/// One of the colours of the look on show, by its name in theme/palette.json: "ink",
/// "accent-hover". A warning and no valid colour where there is none of that name.
VEMO_THEME_EXPORT QColor defaultThemeColor(const QString &name);

/// Replaces the names between "@" in text, for example a host's own style section, by the theme's
/// colours. Unknown names log a warning. setDefaultThemeMode() exchanges the colours in style
/// sheets that have the result in them.
///
///     window->setStyleSheet(withDefaultThemeColors(getStyleSheet("tea.window")));
///     // == tea.window ==
///     // #TeaWindow { background: @surface@; border: 1px solid @line@; }
VEMO_THEME_EXPORT QString withDefaultThemeColors(const QString &text);
