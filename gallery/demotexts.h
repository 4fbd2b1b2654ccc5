// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// A text that a host would provide, such as the caption of a specimen. key is a key in
/// gallery/strings/; an unknown key is returned unchanged.
///
/// The gallery does not use ComponentStrings for these, so that a page can be created wherever the
/// theme is installed.
QString demo(const char *key);

/// A size such as "1 KB", the number as in the language. Isolated from texts from right to left,
/// among which it would be shown as "KB 1".
QString demoSize(double amount, const char *unit);

/// Sets the language of demo(), a code of languages(); initially English.
void setDemoLanguage(const QString &code);
