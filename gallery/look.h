// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Makes this process one of a desktop in the language code: numbers, and the font that steps in
/// for Chinese characters.
void setDesktopLanguage(const QString &code);

/// Loads the gallery's own style file after the theme's, as any host does with its own.
void installGalleryStyle();

/// The section for the gallery's window. Its rules go by object name: a rule that matches every
/// QWidget would take the ground off the masks of sheets.
QString galleryStyle();
