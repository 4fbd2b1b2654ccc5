// SPDX-License-Identifier: MIT
#include <vemo/defaulttheme.h>

#include "core/logging_p.h"
#include "theme/stockstyle_p.h"
#include "theme/thememode_p.h"

#include <vemo/componentstrings.h>
#include <vemo/stylemanager.h>
#include <vemo/uipathmanager.h>
#include <vemo/vemolocale.h>

#include <QApplication>
#include <QColor>
#include <QDir>
#include <QFile>
#include <QHash>
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

/// Edges and the like, which Qt has for light windows.
void setEdges(QPalette &palette)
{
    for (const auto &[role, name] : {
             std::make_tuple(QPalette::Light, "line"),
             std::make_tuple(QPalette::Midlight, "line"),
             std::make_tuple(QPalette::Mid, "hover"),
             std::make_tuple(QPalette::Dark, "canvas"),
             std::make_tuple(QPalette::Shadow, "shadow"),
             std::make_tuple(QPalette::BrightText, "ink"),
             std::make_tuple(QPalette::LinkVisited, "accent-hover"),
         })
        palette.setColor(role, defaultThemeColor(QLatin1String(name)));
}

/// The colours of the look on show.
QJsonObject themeColours()
{
    static QHash<QString, QJsonObject> known; // by folder
    const QString folder = themeFolder();
    if (!known.contains(folder))
        known.insert(folder, jsonObject(folder + QLatin1String("/palette.json")));
    return known.value(folder);
}

} // namespace

QHash<QRgb, QString> themeColourNames()
{
    QHash<QRgb, QString> names;
    const QJsonObject colours = themeColours();
    for (auto colour = colours.begin(); colour != colours.end(); ++colour) {
        const QRgb rgb = QColor(colour.value().toString()).rgba();
        if (!names.contains(rgb))
            names.insert(rgb, colour.key());
    }
    return names;
}

void initializeThemeResources()
{
    Q_INIT_RESOURCE(vemo_theme);
}

static void registerResources(const DefaultThemeOptions &options)
{
    initializeThemeResources();
    UIPathManager::getInstance().replacePath(QStringLiteral("resource_path"), themeFolder());
    UIPathManager::getInstance().replacePath(
        QStringLiteral("user_data_path"), options.userDataPath);
    ComponentStrings::getInstance().installStrings(stringsOf(options));
    ImageManager::getInstance().initialize(options.pictureLoading);
    for (const QString &folder : options.resourceFolders)
        ImageManager::getInstance().addCatalogue(folder);
    themeWasInstalled(options.pictureLoading, options.resourceFolders);
    StyleManager::getInstance().initialize(themeStyleFiles());
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
    if (options.mode)
        chooseMode(*options.mode);
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
    return themeFolder() + QLatin1String("/images/busy.gif");
}

QVector<DefaultThemeLanguage> defaultThemeLanguages()
{
    QVector<DefaultThemeLanguage> languages;
    for (const auto &[code, name, locale] : {
             std::make_tuple("ara", "العربية", "ar_AE"),
             std::make_tuple("chs", "简体中文", "zh_CN"),
             std::make_tuple("cht", "繁體中文", "zh_TW"),
             std::make_tuple("csy", "Čeština", "cs_CZ"),
             std::make_tuple("dan", "Dansk", "da_DK"),
             std::make_tuple("deu", "Deutsch", "de_DE"),
             std::make_tuple("enu", "English", "en_US"),
             std::make_tuple("esn", "Español", "es_ES"),
             std::make_tuple("fra", "Français", "fr_FR"),
             std::make_tuple("heb", "עברית", "he_IL"),
             std::make_tuple("hun", "Magyar", "hu_HU"),
             std::make_tuple("ita", "Italiano", "it_IT"),
             std::make_tuple("jpn", "日本語", "ja_JP"),
             std::make_tuple("krn", "한국어", "ko_KR"),
             std::make_tuple("nld", "Nederlands", "nl_NL"),
             std::make_tuple("nor", "Norsk", "nb_NO"),
             std::make_tuple("plk", "Polski", "pl_PL"),
             std::make_tuple("ptb", "Português (Brasil)", "pt_BR"),
             std::make_tuple("ptg", "Português", "pt_PT"),
             std::make_tuple("rus", "Русский", "ru_RU"),
             std::make_tuple("sve", "Svenska", "sv_SE"),
             std::make_tuple("trk", "Türkçe", "tr_TR"),
         })
        languages.append(
            {QLatin1String(code), QString::fromUtf8(name), QLocale(QLatin1String(locale))});
    return languages;
}

QMap<QString, QString> defaultThemeStrings(const QString &code)
{
    initializeThemeResources();
    DefaultThemeOptions options;
    options.languageCode = code;
    return stringsOf(options);
}

QColor defaultThemeColor(const QString &name)
{
    initializeThemeResources();
    const QJsonObject colours = themeColours();
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
        result += text.mid(end, name.capturedStart() - end);
        result += defaultThemeColor(name.captured(1)).name();
        end = name.capturedEnd();
    }
    result += text.mid(end);
    rememberColoured(result, text);
    return result;
}

QPalette defaultThemePalette()
{
    QPalette palette = basePalette();
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
    if (isDefaultThemeDark())
        setEdges(palette);
    return palette;
}

void applyDefaultThemeStyle(QApplication &application)
{
    setApplicationLook(application, {});
}
