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

#include <vector>

class QApplication;

/// Which of the theme's two looks is shown.
enum class DefaultThemeMode {
    Light,
    Dark,
    System, ///< that of the desktop, now and whenever it changes
};

/// What installDefaultTheme() does, with a default for everything.
///
///     DefaultThemeOptions options;
///     options.languageCode = "deu";
///     options.resourceFolders = {":/tea"};
///     installDefaultTheme(options);
struct DefaultThemeOptions
{
    /// Takes the generated pictures; it is created if it is missing. Empty: the application's cache
    /// folder (QStandardPaths::CacheLocation).
    QString userDataPath;

    /// One of VemoLocale's codes; empty: that of the system. A language that the theme lacks is
    /// warned about and shown in English.
    QString languageCode;

    /// When pictures are loaded, see ImageManager::initialize().
    ImageManager::InitializeType pictureLoading = ImageManager::LAZY_LOAD;

    /// Sets the style Fusion and defaultThemePalette(), for windows and everything else that no
    /// style section covers.
    bool setsPalette = true;

    /// Gives Qt's own widgets the look of ours, see applyDefaultThemeStyle(). The palette is a
    /// matter of setsPalette.
    bool stylesStockWidgets = true;

    /// Folders of the host's own resources, beside those of the theme, and like them: pictures as
    /// in ImageManager::addCatalogue(), style files "/style/*.qss", and texts
    /// "/strings/<code>.json", of English and of languageCode. A folder may lack any of these. What
    /// has the name of something in the theme, or in a folder before it, takes its place: a
    /// section, a picture, or a text.
    QStringList resourceFolders;

    /// Further texts of the host, already in the right language; they take the place of all others.
    QMap<QString, QString> strings;
};

/// Does the host's whole start-up from the embedded default theme: folders, strings, pictures and
/// styles, in that order, and then the look of the application. Call it after the application
/// object and before the first widget. It is in a library of its own: link Vemo::Theme.
///
/// It may be called again, with another language for instance; widgets keep the texts that they
/// have. Returns false after a warning, with nothing registered, if userDataPath can't be written.
///
///     QApplication app(argc, argv);
///     if (!installDefaultTheme())
///         return 1;
VEMO_THEME_EXPORT bool installDefaultTheme(const DefaultThemeOptions &options = {});

/// The same for a host that sets style and palette itself: neither of them is changed, and stock
/// widgets stay as Qt has them. Nothing is taken for an empty userDataPath or languageCode.
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

/// The theme's colours for what no style section dresses: windows, and stock widgets among ours.
/// The host's to set, before or after the start-up; every role that is not the theme's has Qt's
/// default.
///
///     QApplication::setStyle("fusion");
///     QApplication::setPalette(defaultThemePalette());
VEMO_THEME_EXPORT QPalette defaultThemePalette();

/// Gives Qt's own widgets the look of ours: the style (Fusion), the palette, and the section
/// "application" as the application's style sheet, in place of one that it had. Call it once, after
/// installDefaultTheme() and before the first widget, if that was called without this option;
/// without either stock widgets stay as Qt has them.
///
/// It dresses the classes that Qt has, not their subclasses, so that VemoButton and a host's own
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
    QString code; ///< one of VemoLocale's, such as "deu"
    QString nativeName; ///< as its speakers call it, such as "Deutsch"
    QLocale locale;
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

/// text, say a host's own style section, with the theme's colours for their names between "@". A
/// name that is none is warned about. setDefaultThemeMode() exchanges the colours in style sheets
/// that have the result in them.
///
///     window->setStyleSheet(withDefaultThemeColors(getStyleSheet("tea.window")));
///     // == tea.window ==
///     // #TeaWindow { background: @surface@; border: 1px solid @line@; }
VEMO_THEME_EXPORT QString withDefaultThemeColors(const QString &text);
