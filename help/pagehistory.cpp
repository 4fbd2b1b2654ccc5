// SPDX-License-Identifier: MIT
#include "help/pagehistory_p.h"

#include "help/helplimits_p.h"
#include "help/htmltextbrowser_p.h"

#include <QPointer>
#include <QScrollBar>
#include <QTextCursor>

PageHistory::PageHistory(HtmlTextBrowser *view) : QObject(view), m_view(view)
{
    connect(view, &HtmlTextBrowser::sigPageLeft, this, &PageHistory::savePlace);
    connect(view, &HtmlTextBrowser::sigPageShown, this, &PageHistory::record);
    connect(view, &HtmlTextBrowser::sigAnchorShown, this, &PageHistory::recordAnchor);
}

bool PageHistory::isSamePage(const Page &a, const Page &b)
{
    return a.html.constData() == b.html.constData() && a.url.matches(b.url, QUrl::RemoveFragment);
}

qint64 PageHistory::lettersOf(const Page &page, bool isShared)
{
    const qint64 fragment = page.url.fragment().size(); // The rest of an address is short.
    return isShared ? fragment : fragment + page.html.size();
}

/// The line at the top rather than the scroll bar's value: the width or the zoom may have changed
/// when the page is shown again.
void PageHistory::savePlace()
{
    if (m_current < 0 || m_is_going)
        return;
    Page &page = m_pages[m_current];
    const QTextCursor line = m_view->cursorForPosition(QPoint(0, 0));
    page.column = m_view->horizontalScrollBar()->value();
    page.line = line.position();
    page.top = m_view->cursorRect(line).top();
}

void PageHistory::restorePlace(const Page &page)
{
    QTextCursor line(m_view->document());
    line.setPosition(qMin(page.line, m_view->document()->characterCount() - 1));
    QScrollBar *bar = m_view->verticalScrollBar();
    bar->setValue(bar->value() + m_view->cursorRect(line).top() - page.top);
    m_view->horizontalScrollBar()->setValue(page.column);
}

void PageHistory::record(const QString &html)
{
    if (m_is_going)
        return;
    Page page;
    page.url = m_view->pageUrl();
    page.html = html;
    page.folders = m_view->searchPaths();
    if (m_current >= 0 && m_pages.at(m_current).url == page.url) {
        m_pages[m_current] = page; // fetched again
    } else {
        m_pages.resize(++m_current); // A new page ends the way forward.
        m_pages.append(page);
    }
    trim();
    Q_EMIT sigChanged();
}

void PageHistory::recordAnchor()
{
    if (m_current >= 0)
        record(QString(m_pages.at(m_current).html));
}

/// Forgets the pages that are farthest from the current one, which is always kept.
void PageHistory::trim()
{
    qint64 letters = lettersOf(m_pages.at(m_current), false);
    int count = 1;
    const auto fits = [this, &letters, &count](int index, int neighbour) {
        if (index < 0 || index >= m_pages.size() || count == kMaxHistoryPages)
            return false;
        const bool isShared = isSamePage(m_pages.at(index), m_pages.at(neighbour));
        const qint64 added = lettersOf(m_pages.at(index), isShared);
        if (letters + added > kMaxHistoryLetters)
            return false;
        letters += added;
        ++count;
        return true;
    };
    int first = m_current;
    while (fits(first - 1, first))
        --first;
    int last = m_current;
    while (fits(last + 1, last))
        ++last;
    m_pages = m_pages.mid(first, last - first + 1);
    m_current -= first;
}

void PageHistory::go(int step)
{
    const int index = m_current + step;
    if (index < 0 || index >= m_pages.size() || m_is_going)
        return;
    Q_EMIT sigGoing();
    savePlace();
    const Page page = m_pages.at(index);
    const QPointer<PageHistory> self(this);
    m_is_going = true;
    const bool isShown = isSamePage(page, m_pages.at(m_current)) || show(page);
    if (!self)
        return; // A slot of the host has turned the history off.
    m_is_going = false;
    if (!isShown)
        return;
    m_view->setPageUrl(page.url);
    m_current = index;
    restorePlace(page);
    Q_EMIT sigChanged();
}

/// Its origin first, on which the rights of a page depend.
bool PageHistory::show(const Page &page)
{
    const QStringList folders = m_view->searchPaths();
    HtmlTextBrowser *view = m_view; // The history may be gone after that.
    view->setSearchPaths(page.folders);
    const bool isShown = view->showPage(page.url, page.html);
    view->setSearchPaths(isShown ? page.folders : folders);
    return isShown;
}
