// SPDX-License-Identifier: MIT
#include "help/imagedownloader_p.h"

#include "help/helplimits_p.h"
#include "help/picturefolder_p.h"
#include "help/replylimit_p.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>

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
    if (m_network_manager)
        m_network_manager->deleteLater();
}

void ImageDownloader::start()
{
    m_network_manager = new QNetworkAccessManager;
    connect(m_network_manager,
        SIGNAL(finished(QNetworkReply*)), this, SLOT(slotFinishDownload(QNetworkReply*)));
    m_reply = m_network_manager->get(QNetworkRequest(QUrl(m_url)));
    limitReply(m_reply, kMostPictureBytes);
    connect(m_reply, &QNetworkReply::readyRead, this, [this] { m_silence_timer.start(); });
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
    const bool isReceived = reply->error() == QNetworkReply::NoError;
    // Deliberate: the whole body replaces the file, even if the connection broke off in a way that
    // the network does not report.
    if (isReceived)
        writePicture(m_local_path, reply->readAll());
    finish(isReceived ? 0 : -1);
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
