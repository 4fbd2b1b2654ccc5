// SPDX-License-Identifier: MIT
#include "core/languagecode_p.h"

namespace languagecode {

std::map<QString, QString> languageCodes()
{
    return {
        {QStringLiteral("en"), QStringLiteral("enu")},
        {QStringLiteral("ja"), QStringLiteral("jpn")},
        {QStringLiteral("de"), QStringLiteral("deu")},
        {QStringLiteral("ko"), QStringLiteral("krn")},
        {QStringLiteral("fr"), QStringLiteral("fra")},
        {QStringLiteral("it"), QStringLiteral("ita")},
        {QStringLiteral("es"), QStringLiteral("esn")},
        {QStringLiteral("ru"), QStringLiteral("rus")},
        {QStringLiteral("da"), QStringLiteral("dan")},
        {QStringLiteral("no"), QStringLiteral("nor")},
        {QStringLiteral("nb"), QStringLiteral("nor")},
        {QStringLiteral("nn"), QStringLiteral("nor")},
        {QStringLiteral("sv"), QStringLiteral("sve")},
        {QStringLiteral("nl"), QStringLiteral("nld")},
        {QStringLiteral("pl"), QStringLiteral("plk")},
        {QStringLiteral("hu"), QStringLiteral("hun")},
        {QStringLiteral("tr"), QStringLiteral("trk")},
        {QStringLiteral("cs"), QStringLiteral("csy")},
    };
}

QString languageOf(const QString &locale)
{
    return locale.left(locale.indexOf(QLatin1Char('_')));
}

QString chineseCode(const QString &locale)
{
    const bool isTraditional = locale == QLatin1String("zh_tw") || locale == QLatin1String("zh_hk")
        || locale == QLatin1String("zh_mo");
    return isTraditional ? QStringLiteral("cht") : QStringLiteral("chs");
}

QString portugueseCode(const QString &locale)
{
    const bool isEuropean = locale == QLatin1String("pt") || locale == QLatin1String("pt_pt");
    return isEuropean ? QStringLiteral("ptg") : QStringLiteral("ptb");
}

} // namespace languagecode
