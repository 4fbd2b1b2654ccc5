// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

class QDateTime;

/// The text under "filebrowser." + key, with its place markers filled by values that stand as they
/// are: for plain text only.
QString text(const char *key);
QString text(const char *key, const QString &first);
QString text(const char *key, const QString &first, const QString &second);

/// The same as a piece of rich text: the values, which may come from a disk, are shown, in bold,
/// and never understood as markup.
QString markedText(const char *key, const QStringList &values = {});
/// Such a piece as the whole text of a label, which takes it for rich text then.
QString richText(const char *key, const QStringList &values = {});

/// A file name on one line, with a mark for each character that can't be seen, and those that turn
/// the direction of writing.
QString displayName(const QString &name);
/// The same for a text that breaks its lines: shortened, and with places to break.
QString nameInText(const QString &name);

/// In the locale's units; bytes by their symbol: "1 B".
QString sizeText(qint64 bytes);
/// Year first, as the date fields have it, in every language; empty if the moment is invalid.
QString dateText(const QDateTime &moment);
QString numberText(int number);

/// What kind of file it is, for a type name of FileTypeMap or "folder".
QString kindText(const QString &kind);
