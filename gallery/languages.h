// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

/// One language code of VemoLocale, with a locale that leads to it.
struct Language
{
    const char *code;
    const char *name; ///< in the language itself, UTF-8
    const char *locale;
};

/// The 20 languages, by code.
const std::vector<Language> &languages();
