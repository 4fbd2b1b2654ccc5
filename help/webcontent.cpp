// SPDX-License-Identifier: MIT
#include "help/webcontent_p.h"

#include "core/logging_p.h"
#include "core/qtcompat_p.h"
#include "help/helplimits_p.h"

#include <QIODevice>
#include <QImageReader>
#include <QNetworkReply>

#include <cctype>

namespace {

constexpr qint64 kBufferMargin = qint64(1024) * 1024;

/// The format of a picture that begins with bytes; empty if pages from the network may not use it.
/// Other formats are not harmless: an SVG can refer to files.
QByteArray formatOf(const QByteArray &bytes)
{
    if (bytes.startsWith("\x89PNG\r\n\x1A\n"))
        return "png";
    if (bytes.startsWith("\xFF\xD8\xFF"))
        return "jpeg";
    if (bytes.startsWith("GIF8"))
        return "gif";
    if (bytes.startsWith("BM"))
        return "bmp";
    if (bytes.startsWith("RIFF") && bytes.mid(8, 4) == "WEBP")
        return "webp";
    return {};
}

/// Whether bytes begin a picture of any other format.
bool isOtherPicture(const QByteArray &bytes)
{
    const QByteArray ico("\0\0\1\0", 4);
    const QByteArray tiff("II*\0", 4);
    for (const QByteArray &start : {QByteArray("\x1F\x8B"), ico, tiff, QByteArray("MM\0*", 4),
             QByteArray("/* XPM"), QByteArray("#define")}) {
        if (bytes.startsWith(start))
            return true;
    }
    const bool isPortable = bytes.size() > 2 && bytes.at(0) == 'P' && bytes.at(1) >= '1'
        && bytes.at(1) <= '6' && std::isspace(uchar(bytes.at(2)));
    return isPortable || bytes.contains("<svg");
}

WebPicture failed(WebPicture::Problem problem)
{
    WebPicture picture;
    picture.problem = problem;
    return picture;
}

} // namespace

QNetworkRequest plainRequest(const QUrl &url)
{
    QNetworkRequest request(url);
    request.setAttribute(
        QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    acceptAnyPacking(&request);
    return request;
}

void limitReply(QNetworkReply *reply, qint64 maxBytes)
{
    if (!isWebUrl(reply->url()))
        return; // Local files are trusted, and their replies do not support abort().
    // This also stops the network thread, which decompresses the body on its own. It may stop a
    // block before the buffer is full: because of the margin, the excess is still reported by
    // readyRead().
    reply->setReadBufferSize(maxBytes + kBufferMargin);
    QObject::connect(reply, &QIODevice::readyRead, reply, [reply, maxBytes] {
        if (reply->bytesAvailable() <= maxBytes || reply->isFinished())
            return;
        qCWarning(vemoLog) << "Too much data from" << reply->url().toString();
        reply->abort();
    });
}

WebPicture readWebPicture(QIODevice *device, qint64 pixelsLeft, int maxWidth)
{
    const QByteArray format = formatOf(device->peek(12));
    if (format.isEmpty())
        return failed(isOtherPicture(device->peek(1024)) ? WebPicture::UNKNOWN_FORMAT
                                                         : WebPicture::UNREADABLE);
    QImageReader reader(device, format);
    reader.setAutoDetectImageFormat(false); // No other image plug-in may read it.
    WebPicture picture;
    picture.size = reader.size();
    if (picture.size.isEmpty())
        return failed(WebPicture::UNREADABLE);
    const qint64 pixels = qint64(picture.size.width()) * picture.size.height();
    if (pixels > kMaxPicturePixels)
        return failed(WebPicture::TOO_LARGE);
    if (pixels > pixelsLeft)
        return failed(WebPicture::TOO_MANY);
    if (picture.size.width() > maxWidth) {
        const qint64 height = qint64(picture.size.height()) * maxWidth / picture.size.width();
        reader.setScaledSize(QSize(maxWidth, qMax(1, int(height))));
    }
    picture.pixmap = QPixmap::fromImageReader(&reader);
    picture.problem = picture.pixmap.isNull() ? WebPicture::UNREADABLE : WebPicture::NONE;
    return picture;
}

QByteArray bytesOfDataAddress(const QString &address)
{
    const int comma = address.indexOf(QLatin1Char(','));
    if (comma < 0)
        return {};
    const QByteArray bytes = QByteArray::fromPercentEncoding(address.mid(comma + 1).toLatin1());
    const bool isBase64 =
        address.left(comma).trimmed().endsWith(QLatin1String(";base64"), Qt::CaseInsensitive);
    return isBase64 ? QByteArray::fromBase64(bytes) : bytes;
}
