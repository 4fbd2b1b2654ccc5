// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QHash>
#include <QMap>
#include <QQueue>
#include <QSet>
#include <QSharedPointer>
#include <QTextBrowser>
#include <QTimer>

class ImageDownloader;
class PageDocument;

/// Shows the text of a page, and its pictures as soon as they have been downloaded.
///
/// Only a page with a base address has pictures downloaded. They are kept in a folder that all
/// pages share; the page finds them there by their bare names.
class HtmlTextBrowser : public QTextBrowser
{
    Q_OBJECT

public:
    explicit HtmlTextBrowser(QWidget *parent);
    ~HtmlTextBrowser() override;

    /// Shows a page and starts to download its pictures. Downloads of an earlier page go on.
    void setHtmlContent(const QString &html);
    /// The same; false, with a warning, if the page would take too long to show. Nothing is fetched
    /// for it then, and the earlier page stays.
    bool showContent(const QString &html);

    /// Says where the pages from now on come from. Only those from a file or a resource may use
    /// local files, and have pictures fetched from any address; at first, none may.
    void setPageUrl(const QUrl &url);
    QUrl pageUrl() const { return m_page_url; }

    QVariant loadResource(int type, const QUrl &name) override;

protected:
    void resizeEvent(QResizeEvent *event) override;

private Q_SLOTS:
    void slotDownloadFinished(const QString &url, int res);
    void slotShowArrivedPictures();
    void slotOpenLink(const QUrl &link);

private:
    struct Turns
    {
        bool areLocalFilesAllowed = false; // As they were for the page.
        int running = 0; // Without the silent ones.
        QQueue<ImageDownloader *> silent; // Started, and without a byte for long.
        QQueue<ImageDownloader *> waiting;
    };

    void downloadPictures(const QVector<QStringView> &sources);
    ImageDownloader *makeDownloader(const QString &source, const QString &folder);
    void startDownloads(int page);
    void makeRoomForOthers(ImageDownloader *silent);
    void release(ImageDownloader *downloader);
    void reloadInPlace();
    QUrl hrefOf(const QUrl &link) const;
    PageDocument *page() const;

    QString m_base_url;
    QString m_reserved; // Deliberately unused.
    QMap<QString, ImageDownloader *> m_downloads;
    QSharedPointer<qint64> m_buffered_bytes {new qint64(0)}; // Of all of them.

    QUrl m_page_url;
    QUrl m_replaced_source; // What the base class showed before the page, and still holds.
    int m_page_number = 0;
    QHash<ImageDownloader *, int> m_page_numbers; // Of all downloaders that are alive.
    QHash<int, Turns> m_turns; // By page number; none where all downloads have finished.
    QSet<QString> m_arrived; // Names of files that the view doesn't show yet.
    QTimer m_show_timer;
    int m_show_pause = 0; // In milliseconds.
};
