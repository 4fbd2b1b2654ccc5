// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QString>

#include <map>

/// Three-letter language codes ("enu", "deu", "cht", ...) for locale names, by which string tables
/// and help pages are named. Nothing has to be initialised before.
///
/// chs (Chinese), cht (Chinese of Taiwan, Hong Kong and Macau), csy, dan, deu, enu, esn, fra, hun,
/// ita, jpn, krn (Korean), nld, nor, plk, ptb (Portuguese), ptg (that of Portugal), rus, sve, trk.
///
///     const QString code = VemoLocale::getInstance().getDefaultLanguage();
///     strings.load(QStringLiteral(":/strings/%1.json").arg(code));
///
/// \image html resources-language-codes.png
class VEMO_EXPORT VemoLocale
{
public:
    /// The one instance, made on first use; it lives until the process ends.
    static VemoLocale &getInstance();

    /// The code for the system's locale, asked for at each call; "enu" for a language without one.
    QString getDefaultLanguage() const;

    /// Stores code under a language (lower case, two letters). Without effect on "pt" and "zh",
    /// whose code depends on the region too.
    void setLanguageMap(QString language, QString code);

private:
    friend class VemoLocaleTest;

    VemoLocale();

    QString getLanguageByLocale(const QString &locale) const;
    QString getChineseLanguage(const QString &locale) const;
    QString getPortugueseLanguage(const QString &locale) const;

    std::map<QString, QString> m_languageMap;
    QString m_defaultLanguage;
};
