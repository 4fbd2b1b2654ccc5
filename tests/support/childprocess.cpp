// SPDX-License-Identifier: MIT
#include "support/childprocess.h"

#include <QCoreApplication>
#include <QProcessEnvironment>

namespace {

const QString kScenario = QStringLiteral("VEMO_TEST_CHILD_SCENARIO");
constexpr int kTimeout = 50000; // Milliseconds; shorter than the time-out of a test.

} // namespace

QProcessEnvironment childProcessEnvironment(const QString &scenario, const QStringList &changes)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(kScenario, scenario);
    environment.insert(
        QStringLiteral("QT_MESSAGE_PATTERN"), QStringLiteral("%{category}.%{type}: %{message}"));
    for (const QString &change : changes) {
        const int equals = change.indexOf(QLatin1Char('='));
        if (equals < 0)
            environment.remove(change);
        else
            environment.insert(change.left(equals), change.mid(equals + 1));
    }
    return environment;
}

ChildResult runChild(const QString &scenario, const QStringList &environment)
{
    QProcess child;
    child.setProcessEnvironment(childProcessEnvironment(scenario, environment));
    child.start(QCoreApplication::applicationFilePath(), QStringList());
    if (!child.waitForFinished(kTimeout)) {
        child.kill();
        child.waitForFinished();
        return {};
    }
    return {child.exitStatus(), child.exitCode(), QString::fromUtf8(child.readAllStandardError())};
}

QString childScenario()
{
    return qEnvironmentVariable(kScenario.toLatin1().constData());
}
