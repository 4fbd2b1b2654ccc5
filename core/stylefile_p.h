// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QString>

#include <map>

/// Replaces every placeholder in text by folder. The placeholder must contain a "G", for which the
/// text is searched first.
QString withFolder(const QString &text, QLatin1String placeholder, const QString &folder);

/// Removes the comments from text: first each slash-star comment that ends on the line where it
/// starts, then each "//" comment including its line break.
QString withoutComments(QString text);

/// Splits text at its header lines ("== key ==") and stores the sections under their keys. Each
/// section begins with a line break.
void storeSections(QString text, std::map<QString, QString> &sections);
