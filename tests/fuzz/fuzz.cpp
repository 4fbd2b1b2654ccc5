// SPDX-License-Identifier: MIT
#include "fuzz/fuzz.h"

#include "support/testhost.h"
#include "support/vemotest.h"

#include <map>

namespace {

const std::map<QByteArray, FuzzTarget> kTargets = {
    {"stylefiles", fuzzStyleFiles},
    {"scaling", fuzzScaling},
    {"catalogue", fuzzCatalogue},
    {"strings", fuzzStrings},
    {"frames", fuzzFrames},
    {"helppages", fuzzHelpPages},
    {"times", fuzzTimes},
    {"filenames", fuzzFileNames},
    {"paths", fuzzPaths},
    {"paging", fuzzPaging},
};

void startApplication()
{
    static int argc = 1;
    static char name[] = "fuzz";
    static char *argv[] = {name, nullptr};
    setTestEnvironment();
    // Never deleted: at exit, some objects used by its destructor have already been destroyed.
    static const auto *const app = new QApplication(argc, argv);
    Q_UNUSED(app)
    keepScreensReachable();
    // Logging would take most of the time.
    QLoggingCategory::setFilterRules(QStringLiteral("*=false"));
    startDefaultTheme();
    QLoggingCategory::setFilterRules(QStringLiteral("*=false"));
}

} // namespace

void require(bool holds, const char *promise)
{
    if (holds)
        return;
    std::fprintf(stderr, "Broken promise: %s\n", promise);
    std::abort();
}

QString textOf(const QByteArray &bytes)
{
    return QString::fromUtf8(bytes.constData(), bytes.size());
}

QByteArray takePart(QByteArray *data, char separator)
{
    const int end = data->indexOf(separator);
    const QByteArray part = end < 0 ? *data : data->left(end);
    data->remove(0, end < 0 ? data->size() : end + 1);
    return part;
}

FuzzTarget preparedTarget(const QByteArray &name)
{
    const auto found = kTargets.find(name);
    if (found == kTargets.end())
        return nullptr;
    startApplication();
    return found->second;
}

QList<QByteArray> targetNames()
{
    QList<QByteArray> names;
    for (const auto &target : kTargets)
        names += target.first;
    return names;
}
