// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <map>

/// The steps of processing style files with stock classes, as the reference for the library's
/// scanners.
namespace bench {

/// Every "px" length of sheet times factor, by regular expression; the text is checked to be valid
/// UTF-16 once instead of at every match.
QString scaledByRegex(const QString &sheet, double factor);

/// The sections of the style files, by regular expressions and a text stream.
void sectionsByRegex(const QStringList &paths, std::map<QString, QString> &sections);

/// The files' texts, one after the other: what any way has to do.
QString textOfFiles(const QStringList &paths);

} // namespace bench
