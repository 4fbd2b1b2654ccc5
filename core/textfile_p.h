// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QFile>

/// The whole text of a UTF-8 file, without any "\r" and without a byte order mark; empty where the
/// file can't be read.
inline QString textOfFile(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    const QByteArray bytes = file.readAll();
    // With its size: without, the text would end at the first NUL.
    return QString::fromUtf8(bytes.constData(), bytes.size());
}
