// SPDX-License-Identifier: MIT
#include "gallery/languages.h"

#include <algorithm>

const std::vector<Language> &languages()
{
    static const std::vector<Language> table {
        {"ara", "العربية", "ar_AE", ""},
        {"chs", "简体中文", "zh_CN", "Noto Sans CJK SC"},
        {"cht", "繁體中文", "zh_TW", "Noto Sans CJK TC"},
        {"csy", "Čeština", "cs_CZ", ""},
        {"dan", "Dansk", "da_DK", ""},
        {"deu", "Deutsch", "de_DE", ""},
        {"enu", "English", "en_US", ""},
        {"esn", "Español", "es_ES", ""},
        {"fra", "Français", "fr_FR", ""},
        {"heb", "עברית", "he_IL", ""},
        {"hun", "Magyar", "hu_HU", ""},
        {"ita", "Italiano", "it_IT", ""},
        {"jpn", "日本語", "ja_JP", "Noto Sans CJK JP"},
        {"krn", "한국어", "ko_KR", "Noto Sans CJK KR"},
        {"nld", "Nederlands", "nl_NL", ""},
        {"nor", "Norsk", "nb_NO", ""},
        {"plk", "Polski", "pl_PL", ""},
        {"ptb", "Português (Brasil)", "pt_BR", ""},
        {"ptg", "Português", "pt_PT", ""},
        {"rus", "Русский", "ru_RU", ""},
        {"sve", "Svenska", "sv_SE", ""},
        {"trk", "Türkçe", "tr_TR", ""},
    };
    return table;
}

const Language &languageOf(const QString &code)
{
    const auto isMeant = [&](const Language &language) { return code == language.code; };
    const auto found = std::find_if(languages().begin(), languages().end(), isMeant);
    return found != languages().end() ? *found : languageOf("enu");
}
