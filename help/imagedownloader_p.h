// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QNetworkReply>
#include <QObject>
#include <QPointer>
#include <QSharedPointer>
#include <QTimer>

class QNetworkAccessManager;

/// Fetches one picture into one file. There is no time limit.
class ImageDownloader : public QObject
{
    Q_OBJECT

public:
    ImageDownloader(const QString &localPath, const QString &url);
    ~ImageDownloader() override;

    /// Counts what is being received in bytes, too, which must not exceed kMaxBufferedBytes.
    void shareBuffers(const QSharedPointer<qint64> &bytes) { m_buffered_bytes = bytes; }

    /// Begins to fetch; sigDownloadFinish() comes later in any case.
    void start();
    /// Fetches nothing: sigDownloadFinish() comes later, as after a failure.
    void refuse();
    /// Breaks off a download that has been started: it fails at once.
    void abort();

    /// Milliseconds without a byte after which later downloads send sigSilent(); tests shorten it.
    static int &maxSilence();

    QString localPath() const { return m_local_path; }
    QString url() const { return m_url; }
    bool isFinished() const { return m_finished; }
    int result() const { return m_result; }

Q_SIGNALS:
    /// res is 0, or -1 after a network error; a file that can't be written is no error.
    void sigDownloadFinish(QString url, int res);
    /// The server has sent nothing for maxSilence() milliseconds. The download goes on.
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
