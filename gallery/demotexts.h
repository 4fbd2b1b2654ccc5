// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

/// A text that a host would bring itself: the caption of a specimen. key names it in
/// gallery/strings/; an unknown key yields itself.
///
/// The gallery keeps these apart from ComponentStrings, so that a page can be built wherever the
/// theme has been started.
QString demo(const char *key);

/// From now on demo() speaks the language code, one of languages(); until then English.
void setDemoLanguage(const QString &code);
