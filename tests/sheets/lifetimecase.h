// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// A case in which a sheet or its surroundings are created and deleted, described by its name:
///
///     "showInfoMsg / while shown / window / delete"
///
/// The names of all cases; each is run in its own process.
QStringList lifetimeCases();

/// Runs a case. Returns 0 on success; otherwise prints the reason to standard error.
int runLifetimeCase(const QString &name);
