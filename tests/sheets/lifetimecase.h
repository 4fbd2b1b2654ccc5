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

/// Runs a case. Returns 0 on success; otherwise prints the reason to standard error.
int runLifetimeCase(const QString &name);
