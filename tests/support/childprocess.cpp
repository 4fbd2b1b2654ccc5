// SPDX-License-Identifier: MIT
#include "support/childprocess.h"

#include <QCoreApplication>
#include <QProcessEnvironment>

namespace {

const QString kScenario = QStringLiteral("VEMO_TEST_CHILD_SCENARIO");
constexpr int kTimeout = 50000; // Milliseconds; shorter than the time-out of a test.

/// On Windows abort() is a normal end with this code.
QProcess::ExitStatus statusOf(const QProcess &child)
{
#ifdef Q_OS_WIN
    constexpr int kAborted = 3;
    if (child.exitCode() == kAborted)
        return QProcess::CrashExit;
#endif
    return child.exitStatus();
}

} // namespace

QProcessEnvironment childProcessEnvironment(const QString &scenario, const QStringList &changes)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(kScenario, scenario);
    environment.insert(
        QStringLiteral("QT_MESSAGE_PATTERN"), QStringLiteral("%{category}.%{type}: %{message}"));
    // Otherwise they would go to the debugger on Windows, or to the journal.
    environment.insert(QStringLiteral("QT_FORCE_STDERR_LOGGING"), QStringLiteral("1"));
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
    const QString errors = QString::fromUtf8(child.readAllStandardError());
    return {statusOf(child), child.exitCode(), QString(errors).remove(QLatin1Char('\r'))};
}

QString childScenario()
{
    return qEnvironmentVariable(kScenario.toLatin1().constData());
}
