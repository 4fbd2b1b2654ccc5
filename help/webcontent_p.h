// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QPixmap>
#include <QUrl>

class QIODevice;
class QNetworkReply;
class QNetworkRequest;

/// What pages from the network may fetch and show.

/// Whether a page from the network may fetch url.
inline bool isWebUrl(const QUrl &url)
{
    return url.scheme() == QLatin1String("http") || url.scheme() == QLatin1String("https");
}

/// A request that does not follow redirects and leaves the limits of the body's size to
/// limitReply().
QNetworkRequest plainRequest(const QUrl &url);

/// Aborts reply with a warning as soon as the server has sent more than maxBytes. The caller must
/// not read from reply before it has finished.
void limitReply(QNetworkReply *reply, qint64 maxBytes);

/// A picture of a page from the network.
struct WebPicture
{
    enum Problem { NONE, UNREADABLE, UNKNOWN_FORMAT, TOO_LARGE, TOO_MANY };

    QPixmap pixmap; ///< Null if there is a problem; smaller than size if that is too wide.
    QSize size; ///< According to the picture's header.
    Problem problem = NONE;
};

/// Reads a picture if its content is PNG, JPEG, GIF, BMP or WebP. Checks the size in
/// its header before it is decoded: at most kMaxPicturePixels and at most pixelsLeft.
/// Decodes pictures that are wider than maxWidth at that width.
WebPicture readWebPicture(QIODevice *device, qint64 pixelsLeft, int maxWidth);

/// The bytes in an address of the scheme data; empty if it is malformed.
QByteArray bytesOfDataAddress(const QString &address);
