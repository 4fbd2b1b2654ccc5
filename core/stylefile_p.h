// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QString>

#include <map>

/// text with folder in the place of every placeholder, which is a word with a "G".
QString withFolder(const QString &text, QLatin1String placeholder, const QString &folder);

/// text without its comments: first each slash-star comment that ends on its own line, then each
/// "//" comment together with its line break.
QString withoutComments(QString text);

/// Cuts text at its header lines ("== key ==") and stores the sections, each beginning with a line
/// break, under their keys.
void storeSections(QString text, std::map<QString, QString> &sections);
