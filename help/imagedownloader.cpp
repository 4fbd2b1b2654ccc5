// SPDX-License-Identifier: MIT
#include "help/imagedownloader_p.h"

#include "core/logging_p.h"
#include "help/helplimits_p.h"
#include "help/picturefolder_p.h"
#include "help/webcontent_p.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>

namespace {

constexpr qint64 kReadBytes = qint64(1024) * 1024;

} // namespace

ImageDownloader::ImageDownloader(const QString &localPath, const QString &url)
    : m_local_path(localPath), m_url(url)
{
    m_silence_timer.setSingleShot(true);
    m_silence_timer.setInterval(maxSilence());
    connect(&m_silence_timer, &QTimer::timeout, this, &ImageDownloader::sigSilent);
}

int &ImageDownloader::maxSilence()
{
    static int milliseconds = kMaxSilence;
    return milliseconds;
}

ImageDownloader::~ImageDownloader()
{
    *m_buffered_bytes -= m_body.size();
    if (m_network_manager)
        m_network_manager->deleteLater();
}

void ImageDownloader::start()
{
    m_network_manager = new QNetworkAccessManager;
    connect(m_network_manager,
        SIGNAL(finished(QNetworkReply*)), this, SLOT(slotFinishDownload(QNetworkReply*)));
    m_reply = m_network_manager->get(plainRequest(QUrl(m_url)));
    // Data is read immediately, so the network threads never buffer more than this.
    if (isWebUrl(m_reply->url()))
        m_reply->setReadBufferSize(kReadBytes);
    connect(m_reply, &QNetworkReply::readyRead, this, &ImageDownloader::receive);
    m_silence_timer.start();
}

void ImageDownloader::abort()
{
    if (m_reply)
        m_reply->abort();
}

void ImageDownloader::refuse()
{
    QMetaObject::invokeMethod(this, "slotFinishRefused", Qt::QueuedConnection);
}

void ImageDownloader::slotFinishDownload(QNetworkReply *reply)
{
    reply->deleteLater();
    m_silence_timer.stop();
    if (reply->error() == QNetworkReply::NoError)
        receive();
    const bool isReceived = reply->error() == QNetworkReply::NoError && !m_is_too_much;
    // Deliberate: the body replaces the file even if the connection was aborted without an error
    // from QNetworkReply.
    if (isReceived)
        writePicture(m_local_path, m_body);
    *m_buffered_bytes -= m_body.size();
    m_body.clear();
    finish(isReceived ? 0 : -1);
}

void ImageDownloader::receive()
{
    m_silence_timer.start();
    const QByteArray bytes = m_reply->readAll();
    if (m_is_too_much)
        return;
    m_body += bytes;
    *m_buffered_bytes += bytes.size();
    const bool isFromNetwork = isWebUrl(m_reply->url());
    if (!isFromNetwork
        || (m_body.size() <= kMaxWebPictureBytes && *m_buffered_bytes <= kMaxBufferedBytes))
        return;
    qCWarning(vemoLog) << "Too much data from" << m_reply->url().toString();
    *m_buffered_bytes -= m_body.size();
    m_body.clear();
    m_is_too_much = true;
    if (!m_reply->isFinished())
        m_reply->abort();
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
