// SPDX-License-Identifier: MIT
#pragma once

#include <QProcess>
#include <QProcessEnvironment>
#include <QStringList>

/// How a test program ended that was started again, as a child, for one scenario.
struct ChildResult
{
    QProcess::ExitStatus status = QProcess::CrashExit;
    int exitCode = -1;
    QString errorOutput; ///< messages as "category.level: text"
};

/// Starts this test program again to run a scenario (see VEMO_TEST_MAIN_WITH_CHILD) and waits for
/// its end. environment holds "NAME=value", and "NAME" for a variable to remove.
ChildResult runChild(const QString &scenario, const QStringList &environment = {});

/// The environment of such a child, for a test that starts it by itself.
QProcessEnvironment childProcessEnvironment(
    const QString &scenario, const QStringList &environment);

/// The scenario that this process was started for; empty in the test itself.
QString childScenario();
