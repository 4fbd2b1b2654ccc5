// SPDX-License-Identifier: MIT
#include <vemo/vemolocale.h>

#include "core/languagecode_p.h"

#include <QLocale>

#include <utility>

VemoLocale &VemoLocale::getInstance()
{
    static VemoLocale instance;
    return instance;
}

VemoLocale::VemoLocale()
    : m_languageMap(languagecode::languageCodes()), m_defaultLanguage(QStringLiteral("enu"))
{
}

QString VemoLocale::getDefaultLanguage() const
{
    return getLanguageByLocale(QLocale::system().name().toLower());
}

void VemoLocale::setLanguageMap(QString language, QString code)
{
    m_languageMap[std::move(language)] = std::move(code);
}

QString VemoLocale::getLanguageByLocale(const QString &locale) const
{
    const QString language = languagecode::languageOf(locale);
    if (language == QLatin1String("pt"))
        return getPortugueseLanguage(locale);
    if (language == QLatin1String("zh"))
        return getChineseLanguage(locale);
    const auto found = m_languageMap.find(language);
    return found != m_languageMap.end() ? found->second : m_defaultLanguage;
}

QString VemoLocale::getChineseLanguage(const QString &locale) const
{
    return languagecode::chineseCode(locale);
}

QString VemoLocale::getPortugueseLanguage(const QString &locale) const
{
    return languagecode::portugueseCode(locale);
}
