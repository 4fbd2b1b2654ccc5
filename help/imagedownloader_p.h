// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "core/testexport_p.h"

#include <QObject>

class QNetworkAccessManager;
class QNetworkReply;

/// Fetches one picture into one file. There is no time limit. Where the file already is a whole
/// picture, a body that may have been cut off and is none counts as failed.
class VEMO_TEST_EXPORT ImageDownloader : public QObject
{
    Q_OBJECT

public:
    ImageDownloader(const QString &localPath, const QString &url);
    ~ImageDownloader() override;

    /// Begins to fetch; sigDownloadFinish() comes later in any case.
    void start();
    /// Fetches nothing: sigDownloadFinish() comes later, as after a failure.
    void refuse();

    QString localPath() const { return m_local_path; }
    QString url() const { return m_url; }
    bool isFinished() const { return m_finished; }
    int result() const { return m_result; }

Q_SIGNALS:
    /// res is 0, or -1 after a network error; a file that can't be written is no error.
    void sigDownloadFinish(QString url, int res);

private Q_SLOTS:
    void slotFinishDownload(QNetworkReply *reply);
    void slotFinishRefused();

private:
    bool keep(QNetworkReply *reply) const;
    void finish(int result);

    QString m_local_path;
    QString m_url;
    QNetworkAccessManager *m_network_manager = nullptr;
    bool m_finished = false;
    int m_result = 0;
};
