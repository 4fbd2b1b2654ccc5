// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

/// A case in which a sheet or its surroundings are created and deleted, described by its name:
///
///     "showInfoMsg / while shown / window / delete"
///
/// The names of all cases.
QStringList lifetimeCases();

/// Runs the cases with these names, one to a line. Returns 0 on success; otherwise prints the
/// reasons to standard error.
int runLifetimeCases(const QString &names);
