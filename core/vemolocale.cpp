// SPDX-License-Identifier: MIT
#include <vemo/vemolocale.h>

#include <QLocale>

#include <utility>

VemoLocale &VemoLocale::getInstance()
{
    static VemoLocale instance;
    return instance;
}

VemoLocale::VemoLocale()
    : m_languageMap {
        { QStringLiteral("en"), QStringLiteral("enu") },
        { QStringLiteral("ja"), QStringLiteral("jpn") },
        { QStringLiteral("de"), QStringLiteral("deu") },
        { QStringLiteral("ko"), QStringLiteral("krn") },
        { QStringLiteral("fr"), QStringLiteral("fra") },
        { QStringLiteral("it"), QStringLiteral("ita") },
        { QStringLiteral("es"), QStringLiteral("esn") },
        { QStringLiteral("ru"), QStringLiteral("rus") },
        { QStringLiteral("da"), QStringLiteral("dan") },
        { QStringLiteral("no"), QStringLiteral("nor") },
        { QStringLiteral("nb"), QStringLiteral("nor") },
        { QStringLiteral("nn"), QStringLiteral("nor") },
        { QStringLiteral("sv"), QStringLiteral("sve") },
        { QStringLiteral("nl"), QStringLiteral("nld") },
        { QStringLiteral("pl"), QStringLiteral("plk") },
        { QStringLiteral("hu"), QStringLiteral("hun") },
        { QStringLiteral("tr"), QStringLiteral("trk") },
        { QStringLiteral("cs"), QStringLiteral("csy") },
    }
    , m_defaultLanguage(QStringLiteral("enu"))
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
    const QString language = locale.left(locale.indexOf(QLatin1Char('_')));
    if (language == QLatin1String("pt"))
        return getPortugueseLanguage(locale);
    if (language == QLatin1String("zh"))
        return getChineseLanguage(locale);
    const auto found = m_languageMap.find(language);
    return found != m_languageMap.end() ? found->second : m_defaultLanguage;
}

QString VemoLocale::getChineseLanguage(const QString &locale) const
{
    const bool isTraditional = locale == QLatin1String("zh_tw") || locale == QLatin1String("zh_hk")
        || locale == QLatin1String("zh_mo");
    return isTraditional ? QStringLiteral("cht") : QStringLiteral("chs");
}

QString VemoLocale::getPortugueseLanguage(const QString &locale) const
{
    const bool isEuropean = locale == QLatin1String("pt") || locale == QLatin1String("pt_pt");
    return isEuropean ? QStringLiteral("ptg") : QStringLiteral("ptb");
}
