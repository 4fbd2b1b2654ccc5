// SPDX-License-Identifier: MIT
#pragma once

// Not part of the public interface.

#include <vemo/defaulttheme.h>

#include <QHash>
#include <QRgb>
#include <QString>
#include <QStringList>

#include <vector>

class QPalette;

/// The resource folder of the look on show.
QString themeFolder();

/// The theme's style files of the look on show, then those of the host.
std::vector<QString> themeStyleFiles();

/// To be called by the start-up, with how the pictures are loaded and the host's own folders: a
/// change of the mode now shows.
void themeWasInstalled(ImageManager::InitializeType type, const QStringList &resourceFolders);

/// setDefaultThemeMode() with the host's style files as they were.
void chooseMode(DefaultThemeMode mode);

/// The names of the colours of the look on show; of two with one colour, the one that sorts first.
QHash<QRgb, QString> themeColourNames();

/// Keeps that text, with the colours for their names, is coloured: another look exchanges it.
void rememberColoured(const QString &coloured, const QString &text);

/// The palette that the theme's colours go into.
QPalette basePalette();

/// Makes the embedded files known.
void initializeThemeResources();
