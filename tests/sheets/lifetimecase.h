// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// One life and death of a sheet and what it stands on, told by its name:
///
///     "showInfoMsg / while shown / window / delete"
///
/// The names of all of them; each is run in a process of its own.
QStringList lifetimeCases();

/// Runs one. 0: it went well; else it says on standard error what did not.
int runLifetimeCase(const QString &name);
