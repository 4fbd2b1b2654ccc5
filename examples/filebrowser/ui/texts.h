// SPDX-License-Identifier: MIT
#pragma once

#include <QString>
#include <QStringList>

#include <functional>

class QDateTime;
class QObject;

/// The text for "filebrowser." + key, with its placeholders replaced by the unescaped values: for
/// plain text only.
QString text(const char *key);
QString text(const char *key, const QString &first);
QString text(const char *key, const QString &first, const QString &second);

/// The same as a piece of rich text: the values, which may come from a disk, are escaped and shown
/// in bold.
QString markedText(const char *key, const QStringList &values = {});
/// The same as the complete rich text of a label.
QString richText(const char *key, const QStringList &values = {});

/// A file name on one line, with a symbol for each invisible character and each character that
/// changes the writing direction.
QString displayName(const QString &name);
/// The same for a text that breaks its lines: shortened, and with places to break.
QString nameInText(const QString &name);
/// displayName() for a path.
QString displayPath(const QString &path);

/// Calls function now and after each change of the language, as long as widget lives.
void translate(QObject *widget, const std::function<void()> &function);

/// For a label of its own, which a QLabel aligns by its text: names and numbers begin on the same
/// side as the texts of the language.
QString lineText(const QString &content);

/// In the locale's units, from right to left in those of English; bytes by their symbol: "1 B".
QString sizeText(qint64 bytes);
/// Year first, as the date fields have it, in every language; empty if the moment is invalid.
QString dateText(const QDateTime &moment);
QString numberText(int number);

/// What kind of file it is, for a type name of FileTypeMap or "folder".
QString kindText(const QString &kind);
