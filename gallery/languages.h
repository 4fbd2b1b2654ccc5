// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

/// One language that the theme and the gallery have texts in.
struct Language
{
    const char *code;
    const char *name; ///< in the language itself, UTF-8
    const char *locale; ///< its numbers and its direction
    const char *family; ///< has its Chinese characters, which are not drawn alike everywhere
};

/// The 20 languages of VemoLocale, and two more that are written from right to left; by code.
const std::vector<Language> &languages();

/// The language of a code; English for an unknown code.
const Language &languageOf(const QString &code);
