// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

/// Converts a name or path to the bytes used by the file system, and back. The encoding is UTF-8 in
/// every locale, and invalid bytes become lone surrogates (0xDC00 + byte). The conversion is
/// therefore lossless for every name; with Qt's own functions, it could yield the name of another
/// file.
QByteArray toNativeName(const QString &name);
QString fromNativeName(const QByteArray &name);

/// The start of a name that fits into the given number of bytes, without splitting a character.
QByteArray cutName(const QByteArray &name, int bytes);

/// The system's message for an error number.
QString systemReason(int error);
