// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

#include <functional>

class QWidget;

/// A window to shake, made from a seed. With isOwned the monkey may also delete it, and its direct
/// children; a program's own windows are left to their program.
struct Scene
{
    QString name;
    std::function<QWidget *(quint32 seed)> make;
    bool isOwned = false;
};

/// Runs the scene described by scenario, which monkeyFinding() has created. Never returns.
[[noreturn]] void playMonkey(const QString &scenario, const std::vector<Scene> &scenes);

/// What happens to the scene under count random events; empty if it survives them. A finding names
/// the seed and the shortest list of events that still shows it.
QString monkeyFinding(const QString &scene, quint32 seed, int count);
