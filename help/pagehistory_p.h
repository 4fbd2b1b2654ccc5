// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QObject>
#include <QStringList>
#include <QUrl>
#include <QVector>

class HtmlTextBrowser;

/// The pages that a window has shown, with the place that was read. Pages are kept as they were, so
/// that going back needs neither the server nor the file; each has the rights of its own origin.
///
/// The number of pages and of their letters is limited; those farthest back are forgotten first.
class PageHistory : public QObject
{
    Q_OBJECT

public:
    /// Begins with the next page that view shows.
    explicit PageHistory(HtmlTextBrowser *view);

    bool isBackwardAvailable() const { return m_current > 0; }
    bool isForwardAvailable() const { return m_current + 1 < m_pages.size(); }
    void backward() { go(-1); }
    void forward() { go(1); }

Q_SIGNALS:
    /// Emitted after a page has been recorded or shown again.
    void sigChanged();
    /// Emitted before a page is shown again.
    void sigGoing();

private:
    struct Page
    {
        QUrl url; ///< with the anchor that was opened
        QString html; ///< shared by the anchors of one page
        QStringList folders;
        int column = 0; ///< of the horizontal scroll bar
        int line = 0; ///< position in the text of the line at the top
        int top = 0; ///< of that line, in pixels
    };

    static bool isSamePage(const Page &a, const Page &b);
    /// Excluding the page itself if it is shared with another entry.
    static qint64 lettersOf(const Page &page, bool isShared);
    void savePlace();
    void restorePlace(const Page &page);
    void record(const QString &html);
    void recordAnchor();
    void trim();
    void go(int step);
    bool show(const Page &page);

    HtmlTextBrowser *m_view;
    QVector<Page> m_pages;
    int m_current = -1;
    bool m_is_going = false;
};
