// SPDX-License-Identifier: MIT
#pragma once

#include "stress/monkey.h"
#include "stress/widgetkinds.h"
#include "support/vemotest.h"

#include <QElapsedTimer>

/// Runs each scene once, or all in turn for VEMO_MONKEY_SECONDS. The seeds start at
/// VEMO_MONKEY_SEED.
inline void shake(const std::vector<Scene> &scenes, int eventsInSuite)
{
    const int seconds = stressNumber("VEMO_MONKEY_SECONDS", 0);
    const int first = stressNumber("VEMO_MONKEY_SEED", 1);
    const int count = stressNumber("VEMO_MONKEY_EVENTS", eventsInSuite);
    QElapsedTimer clock;
    clock.start();
    int windows = 0;
    do {
        const Scene &scene = scenes[size_t(windows) % scenes.size()];
        const QString finding = monkeyFinding(scene.name, quint32(first + windows), count);
        QVERIFY2(finding.isEmpty(), qPrintable(finding));
        ++windows;
    } while (windows < int(scenes.size()) || clock.elapsed() < seconds * 1000);
    qInfo("%d windows, %d events each", windows, count);
}
