// SPDX-License-Identifier: MIT
#pragma once

#include <QLocale>
#include <QStringList>

/// The three-letter codes that the library's locale table can yield.
QStringList languageCodes();

/// How dates, numbers and names are written and sorted in the language; those of "enu" for a code
/// that is not among languageCodes().
QLocale localeOf(const QString &languageCode);

/// A font that has the language's characters as it draws them; empty where any font has.
QString fontFamilyOf(const QString &languageCode);
