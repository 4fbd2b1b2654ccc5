// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

/// What a child process, started by runChild(), may change for itself alone.
namespace ChildWorld {

constexpr unsigned kNobody = 65534;
constexpr int kCannot = 77; ///< The exit code of a child that may not change its world.

/// Passed to the child as the folder to work in.
QString variableFor(const QString &folder);
QByteArray folder();

/// Puts a new file system in memory on a folder, seen by this process only.
bool mountMemory(const QByteArray &folder, const char *options);
bool becomeNobody();

} // namespace ChildWorld
