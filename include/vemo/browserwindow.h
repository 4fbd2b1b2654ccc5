// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QDialog>
#include <QUrl>

class HtmlTextBrowser;
class QNetworkAccessManager;
class QNetworkReply;
class QTimer;

/// An application-modal window that fetches one web page and shows it, pictures included.
///
/// Nothing is fetched before reload(). A fetch that fails, or takes longer than TIMEOUT, leaves the
/// view as it was and calls fallbackOffline(), which a derived class overrides to show something
/// else. Redirects are not followed. Style files must be loaded before; without the section
/// "component.scrollbar" there is a warning and the scroll bars look plain.
///
/// Links to http, https and mailto open in the user's programs. A page from the network can't make
/// the window read local files, nor any address that is not http or https; a page from a file can,
/// and refers to what lies beside it. A page of more than 32 MiB, of more than 12 tables or 1000
/// tags inside each other, or that would take longer than about 1.5 seconds to show, counts as
/// failed and is warned about. A picture stays missing if it has more than 64 MiB or 64 million
/// pixels or, on a page from the network, if it is no PNG, JPEG, GIF, BMP or WebP, or exceeds the
/// 128 million pixels that all pictures may have; there it is shown no wider than the page. No more
/// than 64 pictures of a page are fetched at once; one that gets no byte for 30 seconds no longer
/// counts.
///
/// Ctrl with the wheel, plus, minus and 0 zooms, F7 lets the arrow keys move a text cursor (with
/// Shift: select), Escape closes. The title is the page's own, unless the host sets one.
///
///     auto *window = new BrowserWindow(this);
///     window->setAttribute(Qt::WA_DeleteOnClose);
///     window->reload(QUrl(QStringLiteral("https://www.example.com/news.html")));
///     window->show();
///
/// \image html help-a-page-with-pictures-to-fetch.png
class VEMO_EXPORT BrowserWindow : public QDialog
{
    Q_OBJECT

public:
    /// How long a page may take to arrive, in milliseconds.
    static const int TIMEOUT = 10000;

    /// Empty, without a page to fetch; 760 x 560 design pixels, or what nine tenths of the primary
    /// screen hold. It belongs to parent; without one it is the caller's to delete.
    explicit BrowserWindow(QWidget *parent = nullptr);
    ~BrowserWindow() override;

    /// Fetches url. An earlier fetch that still runs goes on, too: the last to arrive stays.
    void reload(const QUrl &url);
    /// Fetches the same page again; an empty address, which fails, where there was none yet.
    void reload();

Q_SIGNALS:
    /// Makes every fetch of a page that still runs fail. The window emits it when TIMEOUT is over;
    /// a host may emit it to give up sooner.
    void sigAbortRequest();

private Q_SLOTS:
    void slotReceiveReply(QNetworkReply *reply);
    void slotQueryTimeout();
    void slotPageChanged();
    void slotResetZoom();
    void slotToggleTextCursor();

private:
    friend class HelpWindow; // It shows its local page in this window's text browser.

    void init();
    void query();
    /// Called whenever a fetch failed. May delete the window.
    virtual void fallbackOffline();

    void makeShortcuts();
    void showPage(QNetworkReply *reply);

    QUrl m_url;
    QNetworkAccessManager *m_network_manager = nullptr;
    QTimer *m_timer = nullptr;
    HtmlTextBrowser *m_text_browser = nullptr;
    QString m_page_title;
    int m_replies_in_hand = 0;
};
