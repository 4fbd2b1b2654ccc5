// SPDX-License-Identifier: MIT
#include "help/htmltextbrowser_p.h"

#include "core/logging_p.h"
#include "core/scaling_p.h"
#include "help/helplimits_p.h"
#include "help/imagedownloader_p.h"
#include "help/localpage_p.h"
#include "help/pagecss_p.h"
#include "help/pagedocument_p.h"
#include "help/picturefolder_p.h"
#include "help/picturescan_p.h"
#include "help/safepage_p.h"
#include "help/webcontent_p.h"

#include <QDesktopServices>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QScrollBar>
#include <QTextBlock>

namespace {

constexpr int kMargin = 12; // In design pixels, 96 dpi.
constexpr int kLetterSide = 7; // The same; half of the area of a letter of usual size.
constexpr int kLineHeight = 12; // The same; less than that of a line of usual size.
constexpr int kMaxShownAddress = 200; // Letters in a warning.
constexpr int kPausePerWork = 4;
constexpr int kStartsPerEvent = 8; // Each creates a thread.

bool isLocal(const QUrl &url)
{
    return url.isLocalFile() || url.scheme() == QLatin1String("qrc");
}

/// Keeps the scroll position of a view while its content changes: the line at its top stays there.
class ReadingPlace
{
public:
    explicit ReadingPlace(QTextBrowser *browser)
        : m_browser(browser), m_is_at_top(browser->verticalScrollBar()->value() == 0),
          m_line(browser->cursorForPosition(QPoint(0, 0))), m_top(browser->cursorRect(m_line).top())
    {
    }
    void restore() const
    {
        QScrollBar *bar = m_browser->verticalScrollBar();
        if (!m_is_at_top)
            bar->setValue(bar->value() + m_browser->cursorRect(m_line).top() - m_top);
    }

private:
    QTextBrowser *m_browser;
    bool m_is_at_top;
    QTextCursor m_line;
    int m_top;
};

} // namespace

HtmlTextBrowser::HtmlTextBrowser(QWidget *parent) : QTextBrowser(parent)
{
    setDocument(new PageDocument(this));
    setPageUrl(QUrl());
    document()->setDocumentMargin(scaled(kMargin));
    connect(this, SIGNAL(anchorClicked(QUrl)), SLOT(slotOpenLink(QUrl)));
    m_show_timer.setSingleShot(true);
    connect(&m_show_timer, SIGNAL(timeout()), SLOT(slotShowArrivedPictures()));
}

HtmlTextBrowser::~HtmlTextBrowser() = default; // The downloaders are children.

void HtmlTextBrowser::setPageUrl(const QUrl &url)
{
    m_page_url = url;
    page()->setLocalFilesAllowed(isLocal(url));
    // By default the base class searches the disk for relative links and links to files.
    setOpenLinks(isLocal(url) && !m_is_navigated);
}

void HtmlTextBrowser::setNavigated(bool navigated)
{
    m_is_navigated = navigated;
    setPageUrl(m_page_url);
}

void HtmlTextBrowser::openAnchor(const QString &fragment)
{
    Q_EMIT sigPageLeft();
    m_page_url.setFragment(fragment.isEmpty() ? QString() : fragment);
    if (fragment.isEmpty())
        verticalScrollBar()->setValue(0);
    else
        scrollToAnchor(fragment);
    Q_EMIT sigAnchorShown();
}

bool HtmlTextBrowser::showPage(const QUrl &url, const QString &html)
{
    const QUrl earlier = m_page_url;
    setPageUrl(url);
    if (showContent(html))
        return true;
    setPageUrl(earlier);
    return false;
}

void HtmlTextBrowser::setHtmlContent(const QString &html)
{
    showContent(html);
}

bool HtmlTextBrowser::showContent(const QString &html)
{
    const bool isRichText = Qt::mightBeRichText(html);
    const SafePage safe =
        isRichText ? safePage(html, !page()->areLocalFilesAllowed()) : safePlainText(html);
    if (safe.verdict != SafePage::FINE) {
        qCWarning(vemoLog) << (safe.verdict == SafePage::TOO_DEEP ? "Page is nested too deeply"
                                                                  : "Page takes too long to show")
                           << m_page_url.toString();
        return false;
    }
    Q_EMIT sigPageLeft();
    page()->forgetPictures(safe.pictures);
    m_replaced_source = source();
    const BaseAddress base = isRichText ? findBaseAddress(html) : BaseAddress();
    if (base.start >= 0) {
        m_base_url = html.mid(base.start, base.end - base.start);
        downloadPictures(pictureSources(html, base.end));
    }
    layOut(safe, isRichText);
    // Before the layout has set the size of the view, the base class scrolls so that the first line
    // is cut off.
    verticalScrollBar()->setValue(0);
    if (m_is_navigated && m_page_url.hasFragment())
        scrollToAnchor(m_page_url.fragment());
    Q_EMIT sigPageShown(html);
    return true;
}

/// The base class only shows the scroll bar when it knows the height of the page, and then lays the
/// page out again in the width that remains. So a page that is certainly higher than the view gets
/// the scroll bar first.
void HtmlTextBrowser::layOut(const SafePage &safe, bool isRichText)
{
    const qint64 letterArea = qint64(scaled(kLetterSide)) * scaled(kLetterSide);
    const qint64 area = qint64(viewport()->width()) * viewport()->height();
    const qint64 linesHeight = qint64(scaled(kLineHeight)) * safe.lines;
    const bool isHigher = safe.letters * letterArea > area || linesHeight > viewport()->height();
    const Qt::ScrollBarPolicy policy = verticalScrollBarPolicy();
    if (policy == Qt::ScrollBarAsNeeded && isHigher)
        setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOn);
    if (isRichText)
        setHtml(safe.html);
    else
        setPlainText(safe.html);
    setVerticalScrollBarPolicy(policy);
}

void HtmlTextBrowser::downloadPictures(const QVector<QStringView> &sources)
{
    const QString folder = pictureFolder();
    if (!preparePictureFolder())
        qCWarning(vemoLog) << "Cannot keep pictures in a folder that is not the user's own"
                           << folder;
    setSearchPaths(QStringList(folder) + searchPaths());
    Turns &turns = m_turns[++m_page_number];
    turns.areLocalFilesAllowed = page()->areLocalFilesAllowed();
    for (const QStringView source : sources)
        turns.waiting.enqueue(makeDownloader(source.toString(), folder));
    startDownloads(m_page_number);
}

ImageDownloader *HtmlTextBrowser::makeDownloader(const QString &source, const QString &folder)
{
    const QString name = source.mid(source.lastIndexOf(QLatin1Char('/')) + 1);
    const QString url = m_base_url + source; // Deliberate: joined, not resolved.
    // Pages may also refer to ../image/name, which the search path resolves to this folder.
    auto *downloader = new ImageDownloader(folder + QLatin1String("/../image/") + name, url);
    downloader->setParent(this);
    downloader->shareBuffers(m_buffered_bytes);
    connect(downloader, &ImageDownloader::sigDownloadFinish, this,
        &HtmlTextBrowser::slotDownloadFinished); // Not by name: there may be ten thousand.
    connect(downloader, &ImageDownloader::sigSilent, this,
        [this, downloader] { makeRoomForOthers(downloader); });
    m_downloads.insert(url, downloader);
    m_page_numbers.insert(downloader, m_page_number);
    return downloader;
}

void HtmlTextBrowser::startDownloads(int page)
{
    const auto turns = m_turns.find(page);
    if (turns == m_turns.end())
        return;
    for (int started = 0; turns->running < kMaxDownloadsAtOnce && !turns->waiting.isEmpty();
         ++started) {
        if (started == kStartsPerEvent) {
            QMetaObject::invokeMethod(
                this, [this, page] { startDownloads(page); }, Qt::QueuedConnection);
            return;
        }
        ++turns->running;
        ImageDownloader *downloader = turns->waiting.dequeue();
        if (turns->areLocalFilesAllowed || isWebUrl(QUrl(downloader->url())))
            downloader->start();
        else
            downloader->refuse();
    }
    if (turns->running == 0 && turns->silent.isEmpty())
        m_turns.erase(turns);
}

void HtmlTextBrowser::slotDownloadFinished(const QString &url, int res)
{
    Q_UNUSED(res) // Deliberate: the view is also refreshed after a failure.
    auto *downloader = qobject_cast<ImageDownloader *>(sender());
    ImageDownloader *stored = m_downloads.value(url);
    // A later download of the same address may have replaced the entry.
    if (!downloader || downloader == stored) {
        m_downloads.remove(url);
        downloader = stored;
    }
    if (downloader)
        release(downloader);
    // If a link to a file was followed before this page, reload() would show that file again.
    if (source().isEmpty() || source() != m_replaced_source)
        reloadInPlace();
    if (!m_show_timer.isActive())
        m_show_timer.start(m_show_pause);
}

void HtmlTextBrowser::release(ImageDownloader *downloader)
{
    const int page = m_page_numbers.take(downloader);
    m_arrived.insert(QFileInfo(downloader->localPath()).fileName());
    downloader->deleteLater();
    Turns &turns = m_turns[page];
    if (!turns.waiting.removeOne(downloader) && !turns.silent.removeOne(downloader))
        --turns.running;
    startDownloads(page);
}

/// Makes sure that every picture is fetched, even if a server does not answer the maximum number of
/// parallel requests. A silent download continues, as there is no time limit, but is not counted.
void HtmlTextBrowser::makeRoomForOthers(ImageDownloader *silent)
{
    if (!m_page_numbers.contains(silent))
        return; // Its finish has been handled already.
    const int page = m_page_numbers.value(silent);
    Turns &turns = m_turns[page];
    if (turns.waiting.isEmpty() || turns.silent.contains(silent))
        return;
    --turns.running;
    turns.silent.enqueue(silent);
    if (turns.silent.size() > kMaxSilentDownloads)
        turns.silent.head()->abort(); // Comes back through release().
    else
        startDownloads(page);
}

void HtmlTextBrowser::reloadInPlace()
{
    const int column = horizontalScrollBar()->value();
    const int row = verticalScrollBar()->value();
    reload();
    horizontalScrollBar()->setValue(column);
    verticalScrollBar()->setValue(row);
}

/// Updates the layout for the pictures that have arrived, many at a time. reload() is not enough,
/// since text set with setHtml() has no source to reload.
void HtmlTextBrowser::slotShowArrivedPictures()
{
    QElapsedTimer timer;
    timer.start();
    const ReadingPlace place(this);
    page()->renewPictures(m_arrived);
    m_arrived.clear();
    place.restore();
    // A long page with many pictures must remain responsive.
    m_show_pause = kPausePerWork * int(timer.elapsed());
}

void HtmlTextBrowser::slotOpenLink(const QUrl &link)
{
    if (openLinks())
        return; // The base class handles the link.
    const QUrl href = hrefOf(link);
    if (href.isRelative() && href.path().isEmpty() && href.hasFragment()) {
        if (m_is_navigated)
            openAnchor(href.fragment());
        else
            scrollToAnchor(href.fragment());
        return;
    }
    const QUrl target = origin().resolved(href);
    const bool isFromFile = page()->areLocalFilesAllowed();
    if (isFromFile && isLocal(target))
        openLocalPage(target);
    else if (isFromFile || isWebUrl(target) || target.scheme() == QLatin1String("mailto"))
        QDesktopServices::openUrl(target);
    else
        qCWarning(vemoLog) << "Link is not opened" << target.toString().left(kMaxShownAddress);
}

/// Follows a link of a page from a file. If there is no such page, the current one remains.
void HtmlTextBrowser::openLocalPage(const QUrl &url)
{
    if (url.matches(origin(), QUrl::RemoveFragment) && url.hasFragment()) {
        openAnchor(url.fragment());
        return;
    }
    QString html;
    if (!readLocalPage(
            url.isLocalFile() ? url.toLocalFile() : QLatin1Char(':') + url.path(), &html)) {
        qCWarning(vemoLog) << "Page is missing" << url.toString().left(kMaxShownAddress);
        return;
    }
    Q_EMIT sigLinkFollowed();
    showPage(url, html);
}

/// The address of the page that is shown, also if the base class has followed a link to it.
QUrl HtmlTextBrowser::origin() const
{
    return source() == m_replaced_source ? m_page_url : source();
}

/// The href of link as in the page. The base class resolves links against the last file that it has
/// shown itself, even if that was another page.
QUrl HtmlTextBrowser::hrefOf(const QUrl &link) const
{
    if (source().isEmpty())
        return link;
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        for (auto part = block.begin(); !part.atEnd(); ++part) {
            const QUrl href(part.fragment().charFormat().anchorHref());
            if (!href.isEmpty() && (href == link || source().resolved(href) == link))
                return href;
        }
    }
    return link;
}

/// Resolves addresses relative to the file of a page. Pages from the network get nothing here.
QVariant HtmlTextBrowser::loadResource(int type, const QUrl &name)
{
    const bool isPage =
        type != QTextDocument::ImageResource && type != QTextDocument::StyleSheetResource;
    if (!isPage && !page()->areLocalFilesAllowed())
        return {};
    const bool isRelative = name.isRelative();
    // The base class would search it.
    const bool isForeignFolder =
        isRelative && searchPaths().contains(pictureFolder()) && !isPictureFolderOwn();
    const QVariant found = isForeignFolder ? QVariant() : QTextBrowser::loadResource(type, name);
    const QVariant resource = found.isNull() && isRelative
        ? QTextBrowser::loadResource(type, m_page_url.resolved(name))
        : found;
    if (type != QTextDocument::StyleSheetResource || resource.isNull())
        return resource;
    return withoutLargeNumbers(QString::fromUtf8(resource.toByteArray()));
}

void HtmlTextBrowser::resizeEvent(QResizeEvent *event)
{
    QTextBrowser::resizeEvent(event);
    page()->fitPictures();
}

PageDocument *HtmlTextBrowser::page() const
{
    return static_cast<PageDocument *>(document());
}
