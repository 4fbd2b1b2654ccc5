// SPDX-License-Identifier: MIT
#include <vemo/browserwindow.h>

#include "core/scaling_p.h"
#include "help/findbar_p.h"
#include "help/helplimits_p.h"
#include "help/htmltextbrowser_p.h"
#include "help/keptzoom_p.h"
#include "help/navigationbar_p.h"
#include "help/webcontent_p.h"

#include <vemo/stylemanager.h>

#include <QAction>
#include <QGuiApplication>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QPointer>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr int kWidth = 760; // In design pixels, 96 dpi.
constexpr int kHeight = 560;

QSize firstSize()
{
    // On small screens, leave room for the window's frame.
    const QSize most = QGuiApplication::primaryScreen()->availableSize() * 0.9;
    return QSize(scaled(kWidth), scaled(kHeight)).boundedTo(most);
}

QAction *newShortcut(QWidget *window, const QKeySequence &keys)
{
    auto *action = new QAction(window);
    action->setShortcut(keys);
    window->addAction(action);
    return action;
}

void addShortcut(QWidget *window, const QKeySequence &keys, QObject *receiver, const char *slot)
{
    QObject::connect(newShortcut(window, keys), SIGNAL(triggered()), receiver, slot);
}

bool &zoomKept()
{
    static bool kept = false;
    return kept;
}

} // namespace

const int BrowserWindow::TIMEOUT;

void BrowserWindow::setZoomKept(bool kept)
{
    zoomKept() = kept;
}

bool BrowserWindow::isZoomKept()
{
    return zoomKept();
}

BrowserWindow::BrowserWindow(QWidget *parent)
    : QDialog(parent), m_text_browser(new HtmlTextBrowser(this)),
      m_addresses([](const QUrl &target) { return QVector<QUrl> {target}; })
{
    m_text_browser->setOpenExternalLinks(true);
    init();
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_text_browser);
    setWindowModality(Qt::ApplicationModal);
    // If the parent has a style sheet, the scroll bars have already evaluated their rules, and Qt
    // only evaluates them again for polished widgets.
    ensurePolished();
    setStyleSheet(getStyleSheet("component.scrollbar"));
    makeShortcuts();
    if (zoomKept())
        new KeptZoom(m_text_browser);
    resize(firstSize());
}

BrowserWindow::~BrowserWindow()
{
    delete m_timer;
    // While a reply is being handled, its manager is still active further up the call stack.
    if (m_replies_in_hand > 0)
        m_network_manager->deleteLater();
    else
        delete m_network_manager;
}

void BrowserWindow::init()
{
    m_network_manager = new QNetworkAccessManager;
    connect(m_network_manager,
        SIGNAL(finished(QNetworkReply*)), SLOT(slotReceiveReply(QNetworkReply*)));
    m_timer = new QTimer;
    m_timer->setSingleShot(true);
    connect(m_timer, SIGNAL(timeout()), SLOT(slotQueryTimeout()));
    connect(m_text_browser, SIGNAL(textChanged()), SLOT(slotPageChanged()));
}

void BrowserWindow::makeShortcuts()
{
    addShortcut(this, Qt::CTRL | Qt::Key_Plus, m_text_browser, SLOT(zoomIn()));
    addShortcut(this, Qt::CTRL | Qt::Key_Equal, m_text_browser, SLOT(zoomIn()));
    addShortcut(this, Qt::CTRL | Qt::Key_Minus, m_text_browser, SLOT(zoomOut()));
    addShortcut(this, Qt::CTRL | Qt::Key_0, this, SLOT(slotResetZoom()));
    addShortcut(this, Qt::Key_F7, this, SLOT(slotToggleTextCursor()));
}

void BrowserWindow::reload(const QUrl &url)
{
    m_url = url;
    m_target = QUrl();
    reload();
}

void BrowserWindow::reload()
{
    m_timer->stop();
    m_timer->setInterval(0);
    query();
}

void BrowserWindow::setFindEnabled(bool enabled)
{
    if (enabled == isFindEnabled())
        return;
    delete m_find_bar;
    m_find_bar = enabled ? new FindBar(m_text_browser) : nullptr;
    if (m_find_bar)
        layout()->addWidget(m_find_bar);
}

bool BrowserWindow::isFindEnabled() const
{
    return m_find_bar;
}

void BrowserWindow::setPrintingEnabled(bool enabled)
{
    if (enabled == isPrintingEnabled())
        return;
    delete m_print;
    m_print = enabled ? newShortcut(this, Qt::CTRL | Qt::Key_P) : nullptr;
    if (m_print) {
        connect(m_print, &QAction::triggered, this,
            [this] { Q_EMIT printRequested(m_text_browser->document()); });
    }
}

bool BrowserWindow::isPrintingEnabled() const
{
    return m_print;
}

void BrowserWindow::setHistoryEnabled(bool enabled)
{
    if (enabled == isHistoryEnabled())
        return;
    navigation()->setHistoryEnabled(enabled);
    removeUnusedNavigation();
}

bool BrowserWindow::isHistoryEnabled() const
{
    return m_navigation && m_navigation->isHistoryEnabled();
}

bool BrowserWindow::isBackwardAvailable() const
{
    return m_navigation && m_navigation->isBackwardAvailable();
}

bool BrowserWindow::isForwardAvailable() const
{
    return m_navigation && m_navigation->isForwardAvailable();
}

void BrowserWindow::backward()
{
    if (m_navigation)
        m_navigation->backward();
}

void BrowserWindow::forward()
{
    if (m_navigation)
        m_navigation->forward();
}

void BrowserWindow::setContents(const QVector<ContentsEntry> &entries)
{
    if (entries.isEmpty() && contents().isEmpty())
        return;
    navigation()->setContents(entries);
    removeUnusedNavigation();
}

QVector<ContentsEntry> BrowserWindow::contents() const
{
    return m_navigation ? m_navigation->contents() : QVector<ContentsEntry>();
}

NavigationBar *BrowserWindow::navigation()
{
    if (m_navigation)
        return m_navigation;
    m_navigation = new NavigationBar(m_text_browser, m_addresses);
    connect(m_navigation, &NavigationBar::sigOpen, this, &BrowserWindow::openTarget);
    connect(m_navigation, &NavigationBar::sigGoing, this, &BrowserWindow::dropFetch);
    connect(m_navigation, &NavigationBar::sigHistoryChanged, this, &BrowserWindow::historyChanged);
    return m_navigation;
}

void BrowserWindow::removeUnusedNavigation()
{
    if (isHistoryEnabled() || !contents().isEmpty())
        return;
    delete m_navigation;
    m_navigation = nullptr;
    m_text_browser->setNavigated(false);
}

void BrowserWindow::openTarget(const QUrl &target)
{
    const QUrl url = m_addresses(target).constFirst();
    if (m_awaited && url == m_url)
        return; // the second click of a double click
    m_url = url;
    m_target = target;
    reload();
}

/// The user has chosen another page in the meantime.
void BrowserWindow::dropFetch()
{
    m_timer->stop();
    QNetworkReply *dropped = m_awaited;
    m_awaited.clear(); // before abort(), which reports the end of the reply at once
    if (dropped)
        dropped->abort();
}

void BrowserWindow::query()
{
    m_timer->start(TIMEOUT);
    QNetworkReply *reply = m_network_manager->get(plainRequest(m_url));
    connect(this, SIGNAL(sigAbortRequest()), reply, SLOT(abort()));
    limitReply(reply, kMaxPageBytes);
    m_awaited = reply;
}

void BrowserWindow::slotQueryTimeout()
{
    Q_EMIT sigAbortRequest();
}

void BrowserWindow::slotReceiveReply(QNetworkReply *reply)
{
    reply->deleteLater();
    if (m_navigation && reply != m_awaited)
        return;
    if (reply == m_awaited)
        m_awaited.clear();
    // Deliberate: when an earlier fetch ends, a later one has no time limit any more.
    m_timer->stop();
    const QPointer<BrowserWindow> self(this);
    ++m_replies_in_hand;
    if (reply->error() != QNetworkReply::NoError)
        fallbackOffline();
    else
        showPage(reply);
    if (!self)
        return;
    --m_replies_in_hand;
    if (m_navigation)
        m_navigation->followPage(); // after a failure, back to the page that is shown
}

void BrowserWindow::showPage(QNetworkReply *reply)
{
    const QByteArray body = reply->readAll();
    // The length is passed so that a zero byte does not end the text.
    const QString html = QString::fromUtf8(body.constData(), body.size());
    if (!m_text_browser->showPage(reply->url(), html))
        fallbackOffline();
}

void BrowserWindow::fallbackOffline() { }

void BrowserWindow::slotPageChanged()
{
    if (windowTitle() != m_page_title)
        return; // Set by the host.
    // The X server closes the connection if a title has megabytes.
    m_page_title = m_text_browser->documentTitle().left(kMaxTitleLength);
    setWindowTitle(m_page_title);
}

void BrowserWindow::slotResetZoom()
{
    m_text_browser->setFont(QFont());
}

void BrowserWindow::slotToggleTextCursor()
{
    m_text_browser->setTextInteractionFlags(
        m_text_browser->textInteractionFlags() ^ Qt::TextSelectableByKeyboard);
}
