// SPDX-License-Identifier: MIT
#include "languages.h"

#include <QMap>

namespace {

const QMap<QString, QString> &localeNames()
{
    static const QMap<QString, QString> names {
        {"ara", "ar_AE"},
        {"chs", "zh_CN"},
        {"cht", "zh_TW"},
        {"csy", "cs_CZ"},
        {"dan", "da_DK"},
        {"deu", "de_DE"},
        {"enu", "en_US"},
        {"esn", "es_ES"},
        {"fra", "fr_FR"},
        {"heb", "he_IL"},
        {"hun", "hu_HU"},
        {"ita", "it_IT"},
        {"jpn", "ja_JP"},
        {"krn", "ko_KR"},
        {"nld", "nl_NL"},
        {"nor", "nb_NO"},
        {"plk", "pl_PL"},
        {"ptb", "pt_BR"},
        {"ptg", "pt_PT"},
        {"rus", "ru_RU"},
        {"sve", "sv_SE"},
        {"trk", "tr_TR"},
    };
    return names;
}

} // namespace

QStringList languageCodes()
{
    return localeNames().keys();
}

QLocale localeOf(const QString &languageCode)
{
    return QLocale(localeNames().value(languageCode, "en_US"));
}

QString fontFamilyOf(const QString &languageCode)
{
    static const QMap<QString, QString> families {
        {"chs", "Noto Sans CJK SC"},
        {"cht", "Noto Sans CJK TC"},
        {"jpn", "Noto Sans CJK JP"},
        {"krn", "Noto Sans CJK KR"},
    };
    return families.value(languageCode);
}
