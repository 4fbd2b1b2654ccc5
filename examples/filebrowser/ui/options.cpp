// SPDX-License-Identifier: MIT
#include "options.h"

#include "languages.h"
#include "paths.h"

#include <vemo/vemolocale.h>

#include <QCommandLineParser>
#include <QDir>
#include <QStandardPaths>

namespace {

const QLatin1String kHelp("help");
const QLatin1String kLanguage("language");
const QLatin1String kUserFolder("user-folder");
const QLatin1String kScreenshots("screenshots");
// Qt's own, which QApplication reads.
const QLatin1String kReverse("reverse");
const QLatin1String kStyle("style");
const QLatin1String kPlatform("platform");

void declareOptions(QCommandLineParser &parser)
{
    parser.setApplicationDescription("Shows a folder and does the everyday work in it.");
    parser.addPositionalArgument("folder", "The folder to show; without it, the home folder.");
    parser.addOptions({
        {{"h", kHelp}, "Print this help and leave."},
        {kLanguage, "Speak the language <code>, such as deu.", "code"},
        {kUserFolder, "Keep the generated pictures in <folder>.", "folder"},
        {kScreenshots, "Write the main states as PNG files into <folder> and leave.", "folder"},
        {kReverse, "Lay everything out from right to left."},
        {kStyle, "Leave Qt's own widgets to the style <name>.", "name"},
        {kPlatform, "Use Qt's platform plug-in <name>.", "name"},
    });
    // As Qt takes its own: "-reverse" as well as "--reverse".
    parser.setSingleDashWordOptionMode(QCommandLineParser::ParseAsLongOptions);
}

/// An option that is given with an empty value would otherwise pass for one that isn't given.
QString emptyValue(const QCommandLineParser &parser)
{
    for (const QLatin1String option : {kLanguage, kUserFolder, kScreenshots, kStyle, kPlatform}) {
        if (parser.isSet(option) && parser.value(option).isEmpty())
            return QString("Option \"%1\" needs a value.").arg(option);
    }
    return {};
}

QString mistakeIn(const QCommandLineParser &parser)
{
    const QStringList arguments = parser.positionalArguments();
    if (arguments.size() > 1)
        return QString("Unexpected argument \"%1\".").arg(arguments.at(1));
    if (const QString empty = emptyValue(parser); !empty.isEmpty())
        return empty;
    const QString code = parser.value(kLanguage);
    if (parser.isSet(kLanguage) && !languageCodes().contains(code))
        return QString("Unknown language \"%1\"; there are: %2.")
            .arg(code, languageCodes().join(' '));
    return {};
}

QString valueOr(const QCommandLineParser &parser, QLatin1String option, const QString &fallback)
{
    return parser.isSet(option) ? parser.value(option) : fallback;
}

QString folderIn(const QCommandLineParser &parser)
{
    const QString folder = parser.positionalArguments().value(0);
    return pathFromQt(QDir::cleanPath(
        folder.isEmpty() ? QDir::homePath() : QDir::current().absoluteFilePath(folder)));
}

} // namespace

CommandLine readCommandLine(const QStringList &arguments)
{
    QCommandLineParser parser;
    declareOptions(parser);
    CommandLine line;
    line.error = parser.parse(arguments) ? mistakeIn(parser) : parser.errorText();
    if (!line.error.isEmpty())
        return line;
    if (parser.isSet(kHelp))
        line.answer = parser.helpText();
    line.options.folder = folderIn(parser);
    line.options.language =
        valueOr(parser, kLanguage, VemoLocale::getInstance().getDefaultLanguage());
    line.options.userFolder = QDir::fromNativeSeparators(valueOr(
        parser, kUserFolder, QStandardPaths::writableLocation(QStandardPaths::CacheLocation)));
    line.options.screenshots = parser.value(kScreenshots);
    line.options.style = parser.value(kStyle);
    return line;
}
