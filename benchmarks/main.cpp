// SPDX-License-Identifier: MIT
#include "benchmarks/harness.h"
#include "benchmarks/report.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QFile>
#include <QLoggingCategory>
#include <QTemporaryDir>
#include <QTextStream>

#include <algorithm>

namespace {

constexpr int kUsageError = 2;

void setUnlessSet(const char *variable, const QByteArray &value)
{
    if (!qEnvironmentVariableIsSet(variable))
        qputenv(variable, value);
}

void setUpScreen()
{
    setUnlessSet("QT_QPA_PLATFORM", "offscreen");
    setUnlessSet("QT_FONT_DPI", "120");
    for (const char *variable :
        {"QT_ENABLE_HIGHDPI_SCALING", "QT_AUTO_SCREEN_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS"})
        qunsetenv(variable);
    if (QT_VERSION_MAJOR > 5) // Otherwise QT_FONT_DPI would become a device pixel ratio.
        qputenv("QT_ENABLE_HIGHDPI_SCALING", "0");
}

/// Keeps messages that the offscreen platform logs for each window out of the table.
void passOn(QtMsgType, const QMessageLogContext &, const QString &message)
{
    if (!message.startsWith(QLatin1String("This plugin does not support")))
        QTextStream(stderr) << message << '\n';
}

int refuse(const QString &sentence)
{
    QTextStream(stderr) << "vemo-bench: " << sentence << '\n';
    return kUsageError;
}

bool isWanted(const QString &name, const QStringList &filters)
{
    return filters.isEmpty() || filters.contains(QLatin1Char('=') + name)
        || std::any_of(filters.begin(), filters.end(),
            [&](const QString &filter) { return name.contains(filter); });
}

int list(const QStringList &filters)
{
    const bench::Cases cases = bench::allCases();
    for (const auto &entry : cases.entries()) {
        if (isWanted(entry.name, filters))
            QTextStream(stdout) << entry.name << '\n';
    }
    return 0;
}

int run(const QStringList &filters, int rounds)
{
    const bool onX11 = QGuiApplication::platformName() == QLatin1String("xcb");
    const bench::Cases cases = bench::allCases();
    bench::Report report(onX11);
    bool isAnyMeasured = false;
    for (const auto &entry : cases.entries()) {
        if (!isWanted(entry.name, filters))
            continue;
        bench::Case c(entry.name);
        entry.setup(c);
        if (!c.isRunOn(onX11))
            continue;
        if (!isAnyMeasured)
            report.begin();
        isAnyMeasured = true;
        report.add(c, bench::measure(c, rounds, onX11));
    }
    return isAnyMeasured ? report.end() : refuse(QStringLiteral("No such case has a goal here"));
}

} // namespace

int main(int argc, char *argv[])
{
    const QTemporaryDir runtimeFolder;
    setUnlessSet("XDG_RUNTIME_DIR", QFile::encodeName(runtimeFolder.path()));
    setUpScreen();
    qInstallMessageHandler(passOn);
    const QApplication app(argc, argv);
    QApplication::setStyle(QStringLiteral("fusion"));
    // Otherwise cases with missing pictures would measure the terminal.
    QLoggingCategory::setFilterRules(QStringLiteral("debug.message=false"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Measures the library against stock classes. Exit code 1: a goal is missed."));
    const QCommandLineOption helpOption = parser.addHelpOption();
    const QCommandLineOption listOption(QStringLiteral("list"), QStringLiteral("Name the cases."));
    const QCommandLineOption roundsOption(QStringLiteral("rounds"),
        QStringLiteral("How often each variant is measured (15)."), QStringLiteral("count"),
        QStringLiteral("15"));
    parser.addOptions({listOption, roundsOption});
    parser.addPositionalArgument(QStringLiteral("filter"),
        QStringLiteral("Only cases with this in their name, or, after \"=\", of this name."),
        QStringLiteral("[filter...]"));
    if (!parser.parse(QCoreApplication::arguments()))
        return refuse(parser.errorText());
    if (parser.isSet(helpOption))
        parser.showHelp();

    const QStringList filters = parser.positionalArguments();
    if (parser.isSet(listOption))
        return list(filters);
    const int rounds = parser.value(roundsOption).toInt();
    if (rounds < 1)
        return refuse(QStringLiteral("--rounds takes a count of at least 1"));
    return run(filters, rounds);
}
