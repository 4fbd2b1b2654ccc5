// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

/// A language code of VemoLocale and a locale that is mapped to it.
struct Language
{
    const char *code;
    const char *name; ///< in the language itself, UTF-8
    const char *locale;
    const char *family; ///< has its Chinese characters, which are not drawn alike everywhere
};

/// The 20 languages, by code.
const std::vector<Language> &languages();

/// The language of a code; English for an unknown code.
const Language &languageOf(const QString &code);
