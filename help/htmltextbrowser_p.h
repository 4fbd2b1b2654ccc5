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
struct SafePage;

/// Shows the text of a page, and its pictures as soon as they have been downloaded.
///
/// Pictures are only downloaded for pages with a base address. They are stored in a folder that all
/// pages share, where a page finds them by their file names.
class HtmlTextBrowser : public QTextBrowser
{
    Q_OBJECT

public:
    explicit HtmlTextBrowser(QWidget *parent);
    ~HtmlTextBrowser() override;

    /// Shows a page and starts to download its pictures. Downloads of an earlier page continue.
    void setHtmlContent(const QString &html);
    /// The same. Returns false, with a warning, if the page would take too long to show; then
    /// nothing is downloaded, and the previous page remains.
    bool showContent(const QString &html);

    /// Sets the origin of the following pages. Only pages from a file or a resource may use local
    /// files and fetch pictures from any address; initially none may.
    void setPageUrl(const QUrl &url);
    QUrl pageUrl() const { return m_page_url; }

    /// Shows a page from url, and only then sets url as its origin. Returns false as showContent().
    bool showPage(const QUrl &url, const QString &html);

    /// Sets whether links between local pages are followed by this class instead of its base,
    /// within the limits of pages, and whether a page is shown from the anchor in its address on.
    /// Initially false.
    void setNavigated(bool navigated);
    /// Scrolls to an anchor of the page, or to its top if fragment is empty.
    void openAnchor(const QString &fragment);

    QVariant loadResource(int type, const QUrl &name) override;

Q_SIGNALS:
    void sigPageLeft(); ///< before another page, or another anchor, is shown
    void sigPageShown(const QString &html);
    void sigAnchorShown();
    void sigLinkFollowed(); ///< before a page is shown that a link leads to

protected:
    void resizeEvent(QResizeEvent *event) override;

private Q_SLOTS:
    void slotDownloadFinished(const QString &url, int res);
    void slotShowArrivedPictures();
    void slotOpenLink(const QUrl &link);

private:
    struct Turns
    {
        bool areLocalFilesAllowed = false; // For the page of these downloads.
        int running = 0; // Excluding the silent ones.
        QQueue<ImageDownloader *> silent; // Started, but no data for kMaxSilence.
        QQueue<ImageDownloader *> waiting;
    };

    void layOut(const SafePage &safe, bool isRichText);
    void downloadPictures(const QVector<QStringView> &sources);
    ImageDownloader *makeDownloader(const QString &source, const QString &folder);
    void startDownloads(int page);
    void makeRoomForOthers(ImageDownloader *silent);
    void release(ImageDownloader *downloader);
    void reloadInPlace();
    void openLocalPage(const QUrl &url);
    QUrl origin() const;
    QUrl hrefOf(const QUrl &link) const;
    PageDocument *page() const;

    QString m_base_url;
    QString m_reserved; // Deliberately unused.
    QMap<QString, ImageDownloader *> m_downloads;
    QSharedPointer<qint64> m_buffered_bytes {new qint64(0)}; // Of all downloads.

    QUrl m_page_url;
    bool m_is_navigated = false;
    QUrl m_replaced_source; // The previous page of the base class, which still stores it.
    int m_page_number = 0;
    QHash<ImageDownloader *, int> m_page_numbers; // Of all existing downloaders.
    QHash<int, Turns> m_turns; // By page number; removed when all downloads have finished.
    QSet<QString> m_arrived; // Names of files that the view does not show yet.
    QTimer m_show_timer;
    int m_show_pause = 0; // In milliseconds.
};
