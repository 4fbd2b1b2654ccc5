// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

/// One language code of VemoLocale, with a locale that leads to it.
struct Language
{
    const char *code;
    const char *name; ///< in the language itself, UTF-8
    const char *locale;
    const char *family; ///< has its Chinese characters, which are not drawn alike everywhere
};

/// The 20 languages, by code.
const std::vector<Language> &languages();

/// That of a code, or English.
const Language &languageOf(const QString &code);
