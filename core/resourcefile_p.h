// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QFile>
#include <QFileInfo>

/// The maximum size of a style file or a catalogue.
constexpr qint64 kMaxTextBytes = qint64(16) * 1024 * 1024;
/// The maximum size of a picture or movie file.
constexpr qint64 kMaxPictureBytes = qint64(64) * 1024 * 1024;

/// Whether a resource may be read from file: a regular file of at most maxBytes. Pipes and devices
/// count as missing, because opening a pipe may block forever and a device may be endless.
inline bool isResourceFile(const QFileInfo &file, qint64 maxBytes)
{
    return file.isFile() && file.size() <= maxBytes;
}

/// The whole content of the resource file at path, without any "\r" in text mode; empty if it
/// cannot or must not be read.
inline QByteArray bytesOfResource(
    const QString &path, qint64 maxBytes, QIODevice::OpenMode mode = QIODevice::NotOpen)
{
    const QFileInfo info(path);
    QFile file(path);
    if (!isResourceFile(info, maxBytes) || !file.open(QIODevice::ReadOnly | mode))
        return {};
    // Not readAll(): the file may have been replaced by an endless one in the meantime.
    return file.read(info.size());
}

/// The text of a UTF-8 file, without any "\r" and without a byte order mark; empty if the file
/// cannot or must not be read.
inline QString textOfResource(const QString &path)
{
    const QByteArray bytes = bytesOfResource(path, kMaxTextBytes, QIODevice::Text);
    // The size is passed because the text would otherwise end at the first NUL.
    return QString::fromUtf8(bytes.constData(), bytes.size());
}
