// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QFile>
#include <QFileInfo>

/// The most bytes that a style file or a catalogue may have.
constexpr qint64 kMaxTextBytes = 16 * 1024 * 1024;
/// The most bytes that a file of a picture or a movie may have.
constexpr qint64 kMaxPictureBytes = 64 * 1024 * 1024;

/// Whether a resource may be read from file: an ordinary file of at most maxBytes. Opening a pipe
/// may block forever, and a device may have no end: these are as good as missing.
inline bool isResourceFile(const QFileInfo &file, qint64 maxBytes)
{
    return file.isFile() && file.size() <= maxBytes;
}

/// The whole content of the resource file at path, in text mode without any "\r"; empty if it can't
/// or must not be read.
inline QByteArray bytesOfResource(
    const QString &path, qint64 maxBytes, QIODevice::OpenMode mode = QIODevice::NotOpen)
{
    const QFileInfo info(path);
    QFile file(path);
    if (!isResourceFile(info, maxBytes) || !file.open(QIODevice::ReadOnly | mode))
        return {};
    // Not readAll(): another file, one without an end, may have taken its place.
    return file.read(info.size());
}

/// The text of a UTF-8 file, without any "\r" and without a byte order mark; empty if the file
/// can't or must not be read.
inline QString textOfResource(const QString &path)
{
    const QByteArray bytes = bytesOfResource(path, kMaxTextBytes, QIODevice::Text);
    // With its size: otherwise the text would end at the first NUL.
    return QString::fromUtf8(bytes.constData(), bytes.size());
}
