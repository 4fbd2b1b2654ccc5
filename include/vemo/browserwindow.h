// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QDialog>
#include <QPointer>
#include <QString>
#include <QUrl>
#include <QVector>

#include <functional>

class FindBar;
class HtmlTextBrowser;
class NavigationBar;
class QAction;
class QNetworkAccessManager;
class QNetworkReply;
class QTextDocument;
class QTimer;

/// An entry of the table of contents of a help window.
///
///     const QVector<ContentsEntry> contents {
///         {"Backup", 0, QUrl()}, // a heading
///         {"Set up a backup", 1, QUrl("backup.html")},
///         {"Schedules", 1, QUrl("backup.html#schedules")},
///     };
struct ContentsEntry
{
    QString title; ///< Shown as plain text.
    int level = 0; ///< 0 at the top; at most 9, and one more than that of the entry before it.
    /// The page and, after "#", the anchor in it. In a HelpWindow a file name as in
    /// HelpContext::link, otherwise a complete address. Empty for a heading without a page. It must
    /// come from a source that the host trusts.
    QUrl target;
};

/// An application-modal window that fetches a web page and shows it with its pictures.
///
/// Nothing is fetched until reload() is called. If a fetch fails or takes longer than TIMEOUT, the
/// view does not change and fallbackOffline() is called, which derived classes override to show
/// something else. Redirects are not followed. Requires: style files; without the section
/// "component.scrollbar" the scroll bars look plain, with a warning.
///
/// Links to http, https and mailto open in the user's programs. A page from the network cannot make
/// the window read local files or any address other than http and https; a page from a file can,
/// and its relative addresses refer to the file's folder. A page counts as failed, with a warning,
/// if it has more than 32 MiB, more than 12 nested tables or 1000 nested tags, or would take longer
/// than about 1.5 seconds to show. A picture is not shown if it has more than 64 MiB or 64 million
/// pixels or, on a page from the network, if it is not a PNG, JPEG, GIF, BMP or WebP or exceeds the
/// 128 million pixels allowed for all pictures; there it is shown no wider than the page. At most
/// 64 pictures of a page are fetched at once, not counting those that have received no data for 30
/// seconds.
///
/// Ctrl with the wheel, plus, minus and 0 zooms; F7 shows a text cursor for the arrow keys, which
/// select with Shift; Escape closes the window. The title is that of the page unless the host sets
/// one. setFindEnabled(), setPrintingEnabled(), setZoomKept(), setHistoryEnabled() and
/// setContents() offer more.
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
    /// Time limit for fetching a page, in milliseconds.
    static const int TIMEOUT = 10000;

    /// Sets whether windows created later begin with the zoom of the window that was zoomed last,
    /// initially false. Their zoom is limited to half and three times the size of the font.
    static void setZoomKept(bool kept);
    static bool isZoomKept(); ///< whether windows created later begin with the last zoom

    /// Creates an empty window of 760 x 560 design pixels, or nine tenths of the primary screen if
    /// that is smaller. It belongs to parent; if that is null, the caller must delete it.
    explicit BrowserWindow(QWidget *parent = nullptr);
    ~BrowserWindow() override;

    /// Fetches url. An earlier fetch continues; the page that arrives last is shown.
    void reload(const QUrl &url);
    /// Fetches the same page again. Without an earlier page the address is empty, so the fetch
    /// fails.
    void reload();

    /// Sets whether the user can find a text in the page, initially false. Ctrl+F opens a bar below
    /// the page; F3 and Return find the next match, the same with Shift the previous one, and go on
    /// at the other end of the page. Escape closes the bar before it closes the window. Looks up
    /// the sections "component.lineedit", "component.label" and "component.icon_button", the
    /// pictures "arrow_up", "arrow_down" and "bt_close", and the strings "find_in_page",
    /// "find_next", "find_previous", "find_position", "find_nothing" and "accessible_close".
    void setFindEnabled(bool enabled);
    bool isFindEnabled() const; ///< whether the user can find a text in the page

    /// Sets whether Ctrl+P emits printRequested(), initially false.
    void setPrintingEnabled(bool enabled);
    bool isPrintingEnabled() const; ///< whether Ctrl+P emits printRequested()

    /// Sets whether the user can go back and forward, initially false. A bar above the page has a
    /// button for each; the platform's keys, such as Alt+Left and Alt+Right, and the buttons of the
    /// mouse do the same.
    /// The history begins with the next page that arrives, so call this before the first one does.
    /// It includes the pages and anchors that links of local pages lead to, keeps the place that
    /// was read, and shows pages as they were, without fetching them again. It is limited to 50
    /// pages and 16 million letters.
    ///
    /// With a history or contents, only the page that was requested last is shown, and links
    /// between local pages are followed within the limits of pages. reload() still refers to the
    /// page that was fetched last. Looks up the section "component.icon_button", the pictures
    /// "arrow_left" and "arrow_right", and the strings "help_back" and "help_forward".
    void setHistoryEnabled(bool enabled);
    bool isHistoryEnabled() const; ///< whether the user can go back and forward
    bool isBackwardAvailable() const; ///< whether there is an earlier page in the history
    bool isForwardAvailable() const; ///< whether there is a later page in the history

    /// Shows a table of contents beside the page; none if entries is empty, as initially. A click,
    /// Return or Enter opens the page of an entry; the entry of the page that is shown is current.
    /// A button in a bar above the page and F9 hide and show the table. Looks up the sections
    /// "component.help_contents" and "component.icon_button", the picture "bt_details", and the
    /// string "help_contents".
    ///
    /// With a history or contents, F6 moves the focus between the page, the bar and the table.
    void setContents(const QVector<ContentsEntry> &entries);
    QVector<ContentsEntry> contents() const; ///< the table of contents

public Q_SLOTS:
    void backward(); ///< Shows the previous page of the history; does nothing without one.
    void forward(); ///< Shows the next page of the history; does nothing without one.

Q_SIGNALS:
    /// Emitted after a page has been added to the history or shown again by it.
    void historyChanged();

    /// Aborts all running fetches of pages, which then fail. The window emits it after TIMEOUT; a
    /// host may emit it earlier.
    void sigAbortRequest();

    /// Emitted if the user wants to print the page and setPrintingEnabled() was called. The library
    /// does not link Qt's print support; a host that does shows its print dialog and calls
    /// document->print(&printer). The document belongs to the window and must not be changed.
    void printRequested(QTextDocument *document);

private Q_SLOTS:
    void slotReceiveReply(QNetworkReply *reply);
    void slotQueryTimeout();
    void slotPageChanged();
    void slotResetZoom();
    void slotToggleTextCursor();

private:
    friend class HelpWindow; // Shows its local page in this window's text browser.

    /// The addresses that the page of an entry may come from, the one to fetch first.
    using Addresses = std::function<QVector<QUrl>(const QUrl &target)>;

    void init();
    void query();
    /// Called whenever a fetch has failed. May delete the window.
    virtual void fallbackOffline();

    void makeShortcuts();
    void showPage(QNetworkReply *reply);
    NavigationBar *navigation();
    void removeUnusedNavigation();
    void openTarget(const QUrl &target);
    void dropFetch();

    QUrl m_url;
    QNetworkAccessManager *m_network_manager = nullptr;
    QTimer *m_timer = nullptr;
    HtmlTextBrowser *m_text_browser = nullptr;
    QString m_page_title;
    int m_replies_in_hand = 0;
    FindBar *m_find_bar = nullptr; ///< if the user can find a text
    QAction *m_print = nullptr; ///< if the user can print
    NavigationBar *m_navigation = nullptr; ///< if there is a history or a table of contents
    QPointer<QNetworkReply> m_awaited; ///< of the page that was requested last
    Addresses m_addresses;
    QUrl m_target; ///< of the contents that was requested last
};
