// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

/// The result of running this test program as a child process for a scenario.
struct ChildResult
{
    QProcess::ExitStatus status = QProcess::CrashExit;
    int exitCode = -1;
    QString errorOutput; ///< messages as "category.level: text"
};

/// Starts this test program again to run a scenario (see VEMO_TEST_MAIN_WITH_CHILD) and waits for
/// its end. environment contains "NAME=value", or "NAME" for a variable to remove.
ChildResult runChild(const QString &scenario, const QStringList &environment = {});

/// The environment of such a child, for tests that start it themselves.
QProcessEnvironment childProcessEnvironment(
    const QString &scenario, const QStringList &environment);

/// The scenario for which this process was started; empty in the test itself.
QString childScenario();
