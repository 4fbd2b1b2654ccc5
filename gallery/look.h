// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/defaulttheme.h>

#include <QString>

#include <functional>

class QWidget;

/// Sets up the process as on a desktop in the language: number formats, and the fallback font for
/// Chinese characters.
void setDesktopLanguage(const QString &code);

/// Loads the gallery's own style file after those of the theme, as any host would.
void installGalleryStyle();

/// Shows the light or the dark look, also while the gallery runs.
void showTheme(DefaultThemeMode mode);

/// Shows another language, also while the gallery runs; its own texts are those of what is built
/// from now on.
void showLanguage(const QString &code);

/// Calls function after each change of the look, as long as widget lives: for what the gallery has
/// made itself of pictures and colours.
void onThemeReload(QWidget *widget, const std::function<void()> &function);

/// The section for the gallery's window. Its rules are scoped by object name: a rule that matches
/// every QWidget would remove the colour of masks.
QString galleryStyle();
