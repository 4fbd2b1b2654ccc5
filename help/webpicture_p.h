// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QPixmap>

class QIODevice;

/// A picture of a page from the network.
struct WebPicture
{
    enum Problem { NONE, UNREADABLE, UNKNOWN_FORMAT, TOO_LARGE, TOO_MANY };

    QPixmap pixmap; ///< Null if there is a problem; smaller than size if that is too wide.
    QSize size; ///< As the picture's header gives it.
    Problem problem = NONE;
};

/// Reads a picture if it is a PNG, JPEG, GIF, BMP or WebP by its content, and judges its size by
/// its header before it is decoded: no more than kMaxPicturePixels, and no more than pixelsLeft.
/// What is wider than maxWidth is decoded at that width.
WebPicture readWebPicture(QIODevice *device, qint64 pixelsLeft, int maxWidth);

/// The bytes that an address of the scheme data holds; empty if they can't be told.
QByteArray bytesOfDataAddress(const QString &address);
