// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QString>

#include <map>

/// Three-letter language codes ("enu", "deu", "cht", ...) for locale names, used in the names of
/// string tables and help pages. Requires: nothing.
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
    /// The only instance, created on first use; it exists until the process ends.
    static VemoLocale &getInstance();

    /// The code for the system's current locale; "enu" for languages without a code.
    QString getDefaultLanguage() const;

    /// Sets the code of a language (two lower-case letters). Has no effect on "pt" and "zh", whose
    /// code also depends on the region.
    void setLanguageMap(QString language, QString code);

private:
    VemoLocale();

    QString getLanguageByLocale(const QString &locale) const;
    QString getChineseLanguage(const QString &locale) const;
    QString getPortugueseLanguage(const QString &locale) const;

    std::map<QString, QString> m_languageMap;
    QString m_defaultLanguage;
};
