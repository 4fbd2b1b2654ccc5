// SPDX-License-Identifier: MIT
#include "gallery/commandline.h"

#include "gallery/languages.h"
#include "gallery/pagelist.h"

#include <vemo/vemolocale.h>

#include <QCommandLineParser>
#include <QDir>
#include <QStandardPaths>

#include <algorithm>

namespace {

const QLatin1String kScreenshots("screenshots");
const QLatin1String kLanguage("language");
const QLatin1String kTheme("theme");
const QLatin1String kLazy("lazy");
const QLatin1String kPreload("preload");
const QLatin1String kUserFolder("user-folder");
const QLatin1String kPage("page");
const QLatin1String kList("list");
const QLatin1String kHelp("help");
const QLatin1String kVersion("version");
// Qt's own, which QApplication reads.
const QLatin1String kReverse("reverse");
const QLatin1String kStyle("style");
const QLatin1String kPlatform("platform");

// In the order of DefaultThemeMode.
const QStringList kThemes {"light", "dark", "system"}; // clazy:exclude=non-pod-global-static

void declareOptions(QCommandLineParser &parser)
{
    parser.setApplicationDescription(
        "Shows every Vemo widget in all its states, with the code that made it.");
    parser.addOptions({
        {{"h", kHelp}, "Print this help and leave."},
        {{"v", kVersion}, "Print the version and leave."},
        {kScreenshots, "Write one PNG file per page into <folder> and leave.", "folder"},
        {kLanguage, "Show the widgets in the language <code>, such as deu.", "code"},
        {kTheme, "Show the <look>: light (the default), dark or system.", "look"},
        {kLazy, "Load each picture on its first use (the default)."},
        {kPreload, "Load all pictures at the start."},
        {kUserFolder, "Keep the generated pictures in <folder>.", "folder"},
        {kPage, "Start with the page <title>; with --screenshots, write only this one.", "title"},
        {kList, "Print the titles of all pages and leave."},
        {kReverse, "Lay everything out from right to left."},
        {kStyle, "Leave Qt's own widgets to the style <name>.", "name"},
        {kPlatform, "Use Qt's platform plug-in <name>.", "name"},
    });
    // As Qt takes its own: "-reverse" as well as "--reverse".
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
}

QString unknownLanguage(const QString &code)
{
    QStringList codes;
    for (const Language &language : languages()) {
        if (QLatin1String(language.code) == code)
            return {};
        codes << language.code;
    }
    return QString("Unknown language \"%1\"; there are: %2.").arg(code, codes.join(' '));
}

/// An option that is given with an empty value would otherwise pass for one that isn't given.
QString emptyValue(const QCommandLineParser &parser)
{
    for (const QLatin1String option :
        {kScreenshots, kLanguage, kTheme, kUserFolder, kPage, kStyle, kPlatform}) {
        if (parser.isSet(option) && parser.value(option).isEmpty())
            return QString("Option \"%1\" needs a value.").arg(option);
    }
    return {};
}

QString mistakeIn(const QCommandLineParser &parser)
{
    const QStringList surplus = parser.positionalArguments();
    const QString title = parser.value(kPage);
    if (!surplus.isEmpty())
        return QString("Unexpected argument \"%1\".").arg(surplus.first());
    if (const QString empty = emptyValue(parser); !empty.isEmpty())
        return empty;
    if (parser.isSet(kLazy) && parser.isSet(kPreload))
        return "Choose one of --lazy and --preload.";
    if (parser.isSet(kTheme) && !kThemes.contains(parser.value(kTheme)))
        return QString("Unknown look \"%1\"; there are: %2.")
            .arg(parser.value(kTheme), kThemes.join(' '));
    if (parser.isSet(kPage) && pageIndex(title) < 0)
        return QString("Unknown page \"%1\"; there are: %2.")
            .arg(title, pageTitles().join(QLatin1String(", ")));
    return parser.isSet(kLanguage) ? unknownLanguage(parser.value(kLanguage)) : QString();
}

QString valueOr(const QCommandLineParser &parser, QLatin1String option, const QString &fallback)
{
    return parser.isSet(option) ? parser.value(option) : fallback;
}

Options optionsIn(const QCommandLineParser &parser)
{
    Options options;
    options.language = valueOr(parser, kLanguage, VemoLocale::getInstance().getDefaultLanguage());
    options.theme = DefaultThemeMode(qMax(0, kThemes.indexOf(parser.value(kTheme))));
    options.pictures = parser.isSet(kPreload) ? ImageManager::PRELOAD : ImageManager::LAZY_LOAD;
    options.userFolder = QDir::fromNativeSeparators(valueOr(
        parser, kUserFolder, QStandardPaths::writableLocation(QStandardPaths::CacheLocation)));
    options.page = parser.value(kPage);
    options.screenshots = parser.value(kScreenshots);
    options.style = parser.value(kStyle);
    options.platform = parser.value(kPlatform);
    return options;
}

QString answerTo(const QCommandLineParser &parser)
{
    if (parser.isSet(kHelp))
        return parser.helpText();
    if (parser.isSet(kVersion))
        return "vemo-gallery " VEMO_VERSION "\n";
    return parser.isSet(kList) ? pageTitles().join('\n') + '\n' : QString();
}

} // namespace

CommandLine readCommandLine(const QStringList &arguments)
{
    QCommandLineParser parser;
    declareOptions(parser);
    CommandLine line;
    if (!parser.parse(arguments))
        line.error = parser.errorText();
    else
        line.error = mistakeIn(parser);
    if (!line.error.isEmpty())
        return line;
    line.answer = answerTo(parser);
    line.options = optionsIn(parser);
    return line;
}
