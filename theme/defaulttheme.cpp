// SPDX-License-Identifier: MIT
#include <vemo/defaulttheme.h>

#include "core/logging_p.h"
#include "theme/stockstyle_p.h"

#include <vemo/componentstrings.h>
#include <vemo/stylemanager.h>
#include <vemo/uipathmanager.h>
#include <vemo/vemolocale.h>

#include <QApplication>
#include <QColor>
#include <QDir>
#include <QFile>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QStandardPaths>
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

QJsonObject stringTable(const QString &folder, const QString &languageCode)
{
    return jsonObject(QStringLiteral("%1/strings/%2.json").arg(folder, languageCode));
}

void insertStrings(QMap<QString, QString> &strings, const QJsonObject &table)
{
    for (auto entry = table.begin(); entry != table.end(); ++entry)
        strings.insert(entry.key(), entry.value().toString());
}

/// English first, for what the language lacks.
QMap<QString, QString> stringsOf(const DefaultThemeOptions &options)
{
    QStringList codes {kDefaultLanguage};
    if (options.languageCode != kDefaultLanguage)
        codes += options.languageCode;
    QMap<QString, QString> strings;
    for (const QString &code : qAsConst(codes)) {
        const QJsonObject table = stringTable(kThemeFolder, code);
        if (table.isEmpty())
            qCWarning(vemoLog) << "No strings for language" << code;
        insertStrings(strings, table);
        for (const QString &folder : options.resourceFolders)
            insertStrings(strings, stringTable(folder, code));
    }
    for (auto entry = options.strings.begin(); entry != options.strings.end(); ++entry)
        strings.insert(entry.key(), entry.value());
    return strings;
}

/// Those of the theme first: a later section takes the place of an earlier one.
std::vector<QString> styleFiles(const QStringList &resourceFolders)
{
    std::vector<QString> paths;
    const QStringList folders = QStringList(kThemeFolder) + resourceFolders;
    for (const QString &folder : folders) {
        const QFileInfoList files =
            QDir(folder + QLatin1String("/style"))
                .entryInfoList({QStringLiteral("*.qss")}, QDir::Files, QDir::Name);
        for (const QFileInfo &file : files)
            paths.push_back(file.filePath());
    }
    return paths;
}

} // namespace

static void initializeResources()
{
    Q_INIT_RESOURCE(vemo_theme);
}

static void registerResources(const DefaultThemeOptions &options)
{
    initializeResources();
    UIPathManager::getInstance().replacePath(QStringLiteral("resource_path"), kThemeFolder);
    UIPathManager::getInstance().replacePath(
        QStringLiteral("user_data_path"), options.userDataPath);
    ComponentStrings::getInstance().installStrings(stringsOf(options));
    ImageManager::getInstance().initialize(options.pictureLoading);
    for (const QString &folder : options.resourceFolders)
        ImageManager::getInstance().addCatalogue(folder);
    StyleManager::getInstance().initialize(styleFiles(options.resourceFolders));
}

static void setApplicationLook(QApplication &application, const DefaultThemeOptions &options)
{
    if (options.stylesStockWidgets)
        QApplication::setStyle(new StockStyle);
    else if (options.setsPalette)
        QApplication::setStyle(QStringLiteral("fusion"));
    if (options.setsPalette)
        QApplication::setPalette(defaultThemePalette());
    if (options.stylesStockWidgets)
        application.setStyleSheet(getStyleSheet("application"));
}

static bool install(const DefaultThemeOptions &options)
{
    if (!isWritable(options.userDataPath)) {
        qCWarning(vemoLog) << "Cannot write to user data folder" << options.userDataPath;
        return false;
    }
    registerResources(options);
    setApplicationLook(*qApp, options);
    return true;
}

bool installDefaultTheme(const DefaultThemeOptions &options)
{
    DefaultThemeOptions complete = options;
    if (complete.userDataPath.isEmpty())
        complete.userDataPath = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
    if (complete.languageCode.isEmpty())
        complete.languageCode = VemoLocale::getInstance().getDefaultLanguage();
    return install(complete);
}

bool installDefaultTheme(
    const QString &userDataPath, const QString &languageCode, ImageManager::InitializeType type)
{
    DefaultThemeOptions options;
    options.userDataPath = userDataPath;
    options.languageCode = languageCode;
    options.pictureLoading = type;
    options.setsPalette = false;
    options.stylesStockWidgets = false;
    return install(options);
}

QString defaultThemeBusyAnimation()
{
    return kThemeFolder + QLatin1String("/images/busy.gif");
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
    setApplicationLook(application, {});
}
