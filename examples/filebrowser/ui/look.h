// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// Installs everything that widgets look up: the default theme in a language, this program's own
/// strings and styles in addition, and the locale for dates and numbers. To be called once, before
/// the first widget is created. style is that of Qt's own widgets; Fusion if empty. Returns false
/// if userFolder cannot be written.
bool startLook(const QString &userFolder, const QString &languageCode, const QString &style = {});

/// Changes the language of texts, dates and numbers, also in existing windows.
void speak(const QString &languageCode);
/// The code of the current language.
QString language();

/// The section for the program's window. Its rules are scoped by object name: a rule that matches
/// every QWidget would remove the colour of the masks of sheets.
QString windowStyle();
