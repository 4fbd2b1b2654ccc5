// SPDX-License-Identifier: MIT
#include <vemo/defaulttheme.h>

#include "core/logging_p.h"
#include "theme/stockstyle_p.h"

#include <vemo/componentstrings.h>
#include <vemo/stylemanager.h>
#include <vemo/uipathmanager.h>

#include <QApplication>
#include <QColor>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QTemporaryFile>

#include <tuple>

namespace {

const QLatin1String kThemeFolder(":/vemo/theme");
const QLatin1String kDefaultLanguage("enu");

bool isWritable(const QString &folder)
{
    if (folder.isEmpty() || folder.startsWith(QLatin1Char(':')) || !QDir().mkpath(folder))
        return false;
    // The only reliable test is to create a file: permissions are not sufficient.
    return QTemporaryFile(folder + QLatin1String("/vemo-XXXXXX")).open();
}

QJsonObject jsonObject(const QString &path)
{
    QFile file(path);
    const QByteArray content = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    return QJsonDocument::fromJson(content).object();
}

QJsonObject stringTable(const QString &languageCode)
{
    const QJsonObject table =
        jsonObject(QStringLiteral("%1/strings/%2.json").arg(kThemeFolder, languageCode));
    if (table.isEmpty())
        qCWarning(vemoLog) << "No strings for language" << languageCode;
    return table;
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

QColor defaultThemeColor(const QString &name)
{
    initializeResources();
    static const QJsonObject colours = jsonObject(kThemeFolder + QLatin1String("/palette.json"));
    if (!colours.contains(name))
        qCWarning(vemoLog) << "No colour of the theme is called" << name;
    return QColor(colours.value(name).toString());
}

QString withDefaultThemeColors(const QString &text)
{
    static const QRegularExpression pattern(QStringLiteral("@([a-z]+(?:-[a-z]+)*)@"));
    QString result;
    int end = 0;
    for (auto match = pattern.globalMatch(text); match.hasNext();) {
        const QRegularExpressionMatch name = match.next();
        result += text.midRef(end, name.capturedStart() - end);
        result += defaultThemeColor(name.captured(1)).name();
        end = name.capturedEnd();
    }
    return result + text.midRef(end);
}

QPalette defaultThemePalette()
{
    QPalette palette;
    for (const auto &[role, name] : {
             std::make_tuple(QPalette::Window, "canvas"),
             std::make_tuple(QPalette::WindowText, "ink"),
             std::make_tuple(QPalette::Base, "surface"),
             std::make_tuple(QPalette::AlternateBase, "canvas"),
             std::make_tuple(QPalette::Text, "ink"),
             std::make_tuple(QPalette::Button, "surface"),
             std::make_tuple(QPalette::ButtonText, "ink"),
             std::make_tuple(QPalette::PlaceholderText, "soft-ink"),
             std::make_tuple(QPalette::Highlight, "accent"),
             std::make_tuple(QPalette::HighlightedText, "on-accent"),
             std::make_tuple(QPalette::Link, "accent"),
             std::make_tuple(QPalette::ToolTipBase, "surface"),
             std::make_tuple(QPalette::ToolTipText, "ink"),
         })
        palette.setColor(role, defaultThemeColor(QLatin1String(name)));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, defaultThemeColor(QStringLiteral("faint-ink")));
    return palette;
}

void applyDefaultThemeStyle(QApplication &application)
{
    QApplication::setStyle(new StockStyle);
    QApplication::setPalette(defaultThemePalette());
    application.setStyleSheet(getStyleSheet("application"));
}
