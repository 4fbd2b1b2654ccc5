// SPDX-License-Identifier: MIT
#pragma once

#include <QLocale>
#include <QStringList>

/// The three-letter codes that the library's locale table can yield.
QStringList languageCodes();

/// The locale that formats dates and numbers and sorts names in the language; that of "enu" for an
/// unknown code.
QLocale localeOf(const QString &languageCode);

/// A font with the language's variants of characters; empty if any font will do.
QString fontFamilyOf(const QString &languageCode);
