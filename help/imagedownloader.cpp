// SPDX-License-Identifier: MIT
#include "help/imagedownloader_p.h"

#include "help/helplimits_p.h"
#include "help/picturefolder_p.h"
#include "help/replylimit_p.h"
#include "help/wholepicture_p.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>

namespace {

/// Whether body may lack its end though the network reports no error: it doesn't always for a
/// connection that breaks off, unless the answer has told a length.
bool mayBeCutOff(const QNetworkReply *reply, const QByteArray &body)
{
    const QVariant length = reply->header(QNetworkRequest::ContentLengthHeader);
    return !length.isValid() || length.toLongLong() != body.size();
}

} // namespace

ImageDownloader::ImageDownloader(const QString &localPath, const QString &url)
    : m_local_path(localPath), m_url(url)
{
}

ImageDownloader::~ImageDownloader()
{
    if (m_network_manager)
        m_network_manager->deleteLater();
}

void ImageDownloader::start()
{
    m_network_manager = new QNetworkAccessManager;
    connect(m_network_manager,
        SIGNAL(finished(QNetworkReply*)), this, SLOT(slotFinishDownload(QNetworkReply*)));
    QNetworkReply *reply = m_network_manager->get(QNetworkRequest(QUrl(m_url)));
    limitReply(reply, kMostPictureBytes);
}

void ImageDownloader::refuse()
{
    QMetaObject::invokeMethod(this, "slotFinishRefused", Qt::QueuedConnection);
}

void ImageDownloader::slotFinishDownload(QNetworkReply *reply)
{
    reply->deleteLater();
    const bool isReceived = reply->error() == QNetworkReply::NoError && keep(reply);
    finish(isReceived ? 0 : -1);
}

/// Makes reply's body the file; false where that is worse than the file that stands there.
bool ImageDownloader::keep(QNetworkReply *reply) const
{
    const QByteArray body = reply->readAll();
    // Half a picture is better than none, but not than a whole one.
    if (mayBeCutOff(reply, body) && !isWholePicture(body)
        && isWholePicture(keptPicture(m_local_path)))
        return false;
    writePicture(m_local_path, body);
    return true;
}

void ImageDownloader::slotFinishRefused()
{
    finish(-1);
}

void ImageDownloader::finish(int result)
{
    m_result = result;
    m_finished = true;
    Q_EMIT sigDownloadFinish(m_url, m_result);
}
