// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/defaulttheme.h>
#include <vemo/imagemanager.h>

#include <QStringList>

/// The options for this run of the gallery.
struct Options
{
    QString language; ///< one of languages()
    DefaultThemeMode theme = DefaultThemeMode::Light;
    ImageManager::InitializeType pictures = ImageManager::LAZY_LOAD;
    QString userFolder; ///< takes the generated pictures
    QString page; ///< title of the page to start with; empty: the first
    QString screenshots; ///< folder to write PNG files into; empty: show the window
    QString style; ///< of Qt's own widgets; empty: the theme's
    QString platform; ///< Qt's plug-in; empty: Qt chooses
};

/// A parsed command line.
struct CommandLine
{
    Options options;
    QString error; ///< what is wrong with it, a sentence; empty when nothing is
    QString answer; ///< what it only asked to print: help, version, the page list
};

/// arguments begin with the program's own name, as QCoreApplication::arguments() do; there must be
/// an application object.
CommandLine readCommandLine(const QStringList &arguments);
