// SPDX-License-Identifier: MIT
#include <vemo/defaulttheme.h>

#include "core/logging_p.h"

#include <vemo/componentstrings.h>
#include <vemo/stylemanager.h>
#include <vemo/uipathmanager.h>

#include <QColor>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryFile>

#include <tuple>

namespace {

const QLatin1String kThemeFolder(":/vemo/theme");
const QLatin1String kDefaultLanguage("enu");

bool isWritable(const QString &folder)
{
    if (folder.isEmpty() || folder.startsWith(QLatin1Char(':')) || !QDir().mkpath(folder))
        return false;
    // Only a file that was really written proves it: permissions don't say it all.
    return QTemporaryFile(folder + QLatin1String("/vemo-XXXXXX")).open();
}

QJsonObject stringTable(const QString &languageCode)
{
    QFile file(QStringLiteral("%1/strings/%2.json").arg(kThemeFolder, languageCode));
    if (!file.open(QIODevice::ReadOnly)) {
        qCWarning(vemoLog) << "No strings for language" << languageCode;
        return {};
    }
    return QJsonDocument::fromJson(file.readAll()).object();
}

void insertStrings(QMap<QString, QString> &strings, const QJsonObject &table)
{
    for (auto entry = table.begin(); entry != table.end(); ++entry)
        strings.insert(entry.key(), entry.value().toString());
}

QMap<QString, QString> stringsIn(const QString &languageCode)
{
    QMap<QString, QString> strings;
    insertStrings(strings, stringTable(kDefaultLanguage));
    if (languageCode != kDefaultLanguage)
        insertStrings(strings, stringTable(languageCode));
    return strings;
}

std::vector<QString> styleFiles()
{
    std::vector<QString> paths;
    const QFileInfoList files =
        QDir(kThemeFolder + QLatin1String("/style"))
            .entryInfoList({QStringLiteral("*.qss")}, QDir::Files, QDir::Name);
    for (const QFileInfo &file : files)
        paths.push_back(file.filePath());
    return paths;
}

} // namespace

static void initializeResources()
{
    Q_INIT_RESOURCE(vemo_theme);
}

bool installDefaultTheme(
    const QString &userDataPath, const QString &languageCode, ImageManager::InitializeType type)
{
    if (!isWritable(userDataPath)) {
        qCWarning(vemoLog) << "Cannot write to user data folder" << userDataPath;
        return false;
    }
    initializeResources();
    UIPathManager::getInstance().setPath(QStringLiteral("resource_path"), kThemeFolder);
    UIPathManager::getInstance().setPath(QStringLiteral("user_data_path"), userDataPath);
    ComponentStrings::getInstance().installStrings(stringsIn(languageCode));
    ImageManager::getInstance().initialize(type);
    StyleManager::getInstance().initialize(styleFiles());
    return true;
}

QPalette defaultThemePalette()
{
    QPalette palette;
    for (const auto &[role, colour] : {
             std::make_tuple(QPalette::Window, "#F5F7FA"),
             std::make_tuple(QPalette::WindowText, "#1F2933"),
             std::make_tuple(QPalette::Base, "#FFFFFF"),
             std::make_tuple(QPalette::AlternateBase, "#F5F7FA"),
             std::make_tuple(QPalette::Text, "#1F2933"),
             std::make_tuple(QPalette::Button, "#FFFFFF"),
             std::make_tuple(QPalette::ButtonText, "#1F2933"),
             std::make_tuple(QPalette::PlaceholderText, "#52606D"),
             std::make_tuple(QPalette::Highlight, "#1769E0"),
             std::make_tuple(QPalette::HighlightedText, "#FFFFFF"),
             std::make_tuple(QPalette::Link, "#1769E0"),
             std::make_tuple(QPalette::ToolTipBase, "#FFFFFF"),
             std::make_tuple(QPalette::ToolTipText, "#1F2933"),
         })
        palette.setColor(role, QColor(colour));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(0x9A, 0xA5, 0xB1));
    return palette;
}
