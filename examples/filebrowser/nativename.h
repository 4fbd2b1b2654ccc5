// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

/// The bytes that the file system knows a name or path by, and back. Both are UTF-8 whatever the
/// locale is, and a byte that is none becomes a lone surrogate (0xDC00 + byte): so every name there
/// is survives the way to the screen and back, where Qt's own functions would name another file.
QByteArray toNativeName(const QString &name);
QString fromNativeName(const QByteArray &name);

/// As much of a name's start as fits into so many bytes; a character is not cut in two.
QByteArray cutName(const QByteArray &name, int bytes);

/// The system's words for an error number.
QString systemReason(int error);
