// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QSharedPointer>
#include <QTimer>

class QNetworkAccessManager;

/// Downloads a picture to a file, without a time limit.
class ImageDownloader : public QObject
{
    Q_OBJECT

public:
    ImageDownloader(const QString &localPath, const QString &url);
    ~ImageDownloader() override;

    /// Also adds the size of its buffer to bytes, which must not exceed kMaxBufferedBytes.
    void shareBuffers(const QSharedPointer<qint64> &bytes) { m_buffered_bytes = bytes; }

    /// Starts the download. Always emits sigDownloadFinish() later.
    void start();
    /// Downloads nothing, but emits sigDownloadFinish() later as after a failure.
    void refuse();
    /// Aborts a download that has been started, which then fails immediately.
    void abort();

    /// Milliseconds without data after which later downloads emit sigSilent(). Tests set a shorter
    /// time.
    static int &maxSilence();

    QString localPath() const { return m_local_path; }
    QString url() const { return m_url; }
    bool isFinished() const { return m_finished; }
    int result() const { return m_result; }

Q_SIGNALS:
    /// res is 0, or -1 after a network error; a file that cannot be written is not an error.
    void sigDownloadFinish(QString url, int res);
    /// The server has sent nothing for maxSilence() milliseconds. The download continues.
    void sigSilent();

private Q_SLOTS:
    void slotFinishDownload(QNetworkReply *reply);
    void slotFinishRefused();

private:
    void receive();
    void finish(int result);

    QString m_local_path;
    QString m_url;
    QNetworkAccessManager *m_network_manager = nullptr;
    QPointer<QNetworkReply> m_reply;
    QTimer m_silence_timer;
    QByteArray m_body;
    QSharedPointer<qint64> m_buffered_bytes {new qint64(0)};
    bool m_is_too_much = false;
    bool m_finished = false;
    int m_result = 0;
};
