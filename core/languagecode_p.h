// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QString>

#include <map>

/// The rules of VemoLocale. Names of locales are in lower case, as in "pt_br". In a namespace,
/// because a host that links the static library may well have functions of these names.
namespace languagecode {

/// The codes of the languages that have the same one in every region.
std::map<QString, QString> languageCodes();

/// The name up to the first underscore.
QString languageOf(const QString &locale);

QString chineseCode(const QString &locale);
QString portugueseCode(const QString &locale);

} // namespace languagecode
