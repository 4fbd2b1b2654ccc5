// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Sets up the process as on a desktop in the language: number formats, and the fallback font for
/// Chinese characters.
void setDesktopLanguage(const QString &code);

/// Loads the gallery's own style file after those of the theme, as any host would.
void installGalleryStyle();

/// The section for the gallery's window. Its rules are scoped by object name: a rule that matches
/// every QWidget would remove the colour of masks.
QString galleryStyle();
