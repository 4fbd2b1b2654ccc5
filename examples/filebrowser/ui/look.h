// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Starts everything that widgets look up: the default theme in the language, this program's own
/// strings and styles on top of it, and how dates and numbers are written. Call it once, before the
/// first widget; false where userFolder can't be written. style is that of Qt's own widgets; empty:
/// Fusion.
bool startLook(const QString &userFolder, const QString &languageCode, const QString &style = {});

/// Another language, also for the windows there are: texts, dates and numbers.
void speak(const QString &languageCode);
/// The code of the language on show.
QString language();

/// The section for the program's window. Its rules go by object name: a rule that matches every
/// QWidget would take the ground off the masks of sheets.
QString windowStyle();
