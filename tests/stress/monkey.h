// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <functional>

class QWidget;

/// A window for random events, created from a seed. If isOwned, the monkey may also delete it and
/// its direct children.
struct Scene
{
    QString name;
    std::function<QWidget *(quint32 seed)> make;
    bool isOwned = false;
};

/// Runs the scene described by scenario, which monkeyFinding() has created. Never returns.
[[noreturn]] void playMonkey(const QString &scenario, const std::vector<Scene> &scenes);

/// Sends count random events to the scene. Returns an empty text if it survives, otherwise a
/// finding with the seed and the shortest list of events that reproduces it.
QString monkeyFinding(const QString &scene, quint32 seed, int count);
