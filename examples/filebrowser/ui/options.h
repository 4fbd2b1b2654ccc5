// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

/// What the user chose for this run.
struct Options
{
    QString folder; ///< absolute
    QString language; ///< one of languageCodes()
    QString userFolder; ///< takes the generated pictures
    QString screenshots; ///< folder to write PNG files into; empty: show the window
    QString style; ///< of Qt's own widgets; empty: Fusion
};

/// A command line as it was understood.
struct CommandLine
{
    Options options;
    QString error; ///< what is wrong with it, a sentence; empty when nothing is
    QString answer; ///< what it only asked to print
};

/// arguments begin with the program's own name, as QCoreApplication::arguments() do; there must be
/// an application object.
CommandLine readCommandLine(const QStringList &arguments);
