// SPDX-License-Identifier: MIT
#include "look.h"

#include "languages.h"

#include <vemo/componentstrings.h>
#include <vemo/defaulttheme.h>
#include <vemo/stylemanager.h>
#include <vemo/uipathmanager.h>

#include <QApplication>
#include <QFont>
#include <QFontInfo>

namespace {

constexpr int kDesktopFontSize = 10; // points

void setApplicationFont()
{
    if (QGuiApplication::platformName() == "offscreen") {
        // Its font is larger than that of any desktop.
        QFont font = QApplication::font();
        font.setPointSize(kDesktopFontSize);
        QApplication::setFont(font);
    }
}

/// Several languages share characters that each draws in its own way.
void setFontFor(const QString &languageCode)
{
    QFont font = QApplication::font();
    QStringList families {QFontInfo(font).family()};
    if (const QString family = fontFamilyOf(languageCode); !family.isEmpty())
        families += family;
    font.setFamilies(families);
    QApplication::setFont(font);
}

QString &currentLanguage()
{
    static QString code;
    return code;
}

bool install(const QString &userFolder, const QString &languageCode)
{
    DefaultThemeOptions options;
    options.userDataPath = userFolder;
    options.languageCode = languageCode;
    options.setsPalette = false;
    options.stylesStockWidgets = false;
    options.resourceFolders = QStringList {":/filebrowser"};
    if (!installDefaultTheme(options))
        return false;
    QApplication::setPalette(defaultThemePalette());
    return true;
}

/// How dates and numbers are written, and on which side lines begin. Qt's option "-reverse" applies
/// to the languages from left to right.
void setLocale(const QString &languageCode)
{
    static const Qt::LayoutDirection chosen = QGuiApplication::layoutDirection();
    currentLanguage() = languageCode;
    const QLocale locale = localeOf(languageCode);
    QLocale::setDefault(locale);
    const bool isRightToLeft = locale.textDirection() == Qt::RightToLeft;
    QGuiApplication::setLayoutDirection(isRightToLeft ? Qt::RightToLeft : chosen);
    setFontFor(languageCode);
}

} // namespace

static void initializeResources()
{
    Q_INIT_RESOURCE(filebrowser);
}

bool startLook(const QString &userFolder, const QString &languageCode, const QString &style)
{
    initializeResources();
    QApplication::setStyle(style.isEmpty() ? QString("fusion") : style);
    setApplicationFont();
    if (!install(userFolder, languageCode))
        return false;
    setLocale(languageCode);
    return true;
}

void speak(const QString &languageCode)
{
    install(UIPathManager::getInstance().getPath("user_data_path"), languageCode);
    setLocale(languageCode);
    ComponentStrings &texts = ComponentStrings::getInstance();
    texts.changeStrings(texts.strings());
}

QString language()
{
    return currentLanguage();
}

QString windowStyle()
{
    return withDefaultThemeColors(getStyleSheet("filebrowser.window"));
}
