// SPDX-License-Identifier: MIT
#include "look.h"

#include "languages.h"

#include <vemo/componentstrings.h>
#include <vemo/defaulttheme.h>
#include <vemo/stylemanager.h>

#include <QApplication>
#include <QFile>
#include <QFont>
#include <QFontInfo>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

constexpr int kDesktopFontSize = 10; // points

void insertStrings(QMap<QString, QString> &strings, const QString &path)
{
    QFile file(path);
    // A language without a file of its own keeps the English texts.
    if (!file.open(QIODevice::ReadOnly))
        return;
    const QJsonObject table = QJsonDocument::fromJson(file.readAll()).object();
    for (auto entry = table.begin(); entry != table.end(); ++entry)
        strings.insert(entry.key(), entry.value().toString());
}

/// installStrings() replaces the whole table, so that the theme's texts have to be in it, too.
void installOwnStrings(const QString &languageCode)
{
    QMap<QString, QString> strings;
    for (const QString &code : {QString("enu"), languageCode}) {
        insertStrings(strings, QString(":/vemo/theme/strings/%1.json").arg(code));
        insertStrings(strings, QString(":/filebrowser/strings/%1.json").arg(code));
    }
    ComponentStrings::getInstance().installStrings(strings);
}

void setApplicationLook()
{
    QApplication::setStyle("fusion");
    QApplication::setPalette(defaultThemePalette());
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

} // namespace

static void initializeResources()
{
    Q_INIT_RESOURCE(filebrowser);
}

bool startLook(const QString &userFolder, const QString &languageCode)
{
    initializeResources();
    setApplicationLook();
    if (!installDefaultTheme(userFolder, languageCode, ImageManager::LAZY_LOAD))
        return false;
    speak(languageCode);
    StyleManager::getInstance().initialize({QString(":/filebrowser/filebrowser.qss")});
    return true;
}

void speak(const QString &languageCode)
{
    QLocale::setDefault(localeOf(languageCode));
    setFontFor(languageCode);
    installOwnStrings(languageCode);
}

QString windowStyle()
{
    return withDefaultThemeColors(getStyleSheet("filebrowser.window"));
}
