// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <vemo/browserwindow.h>

#include <QList>
#include <QVector>
#include <QWidget>

#include <functional>

class ContentsTree;
class HtmlTextBrowser;
class PageHistory;
class QKeySequence;
class QSplitter;
class QToolButton;

/// A bar above a page with what leads to other pages: buttons for back and forward, and one that
/// shows the table of contents beside the page.
class NavigationBar : public QWidget
{
    Q_OBJECT

public:
    /// The addresses that the page of an entry may come from, the preferred one first.
    using Addresses = std::function<QVector<QUrl>(const QUrl &target)>;

    /// Adds the bar to the layout of view's window, above view. Before the bar is deleted, both the
    /// history and the contents must be removed, unless the window is deleted.
    NavigationBar(HtmlTextBrowser *view, const Addresses &addresses);

    void setHistoryEnabled(bool enabled);
    bool isHistoryEnabled() const { return m_history; }
    bool isBackwardAvailable() const;
    bool isForwardAvailable() const;
    void backward();
    void forward();

    void setContents(const QVector<ContentsEntry> &entries);
    QVector<ContentsEntry> contents() const;

    /// Makes the entry of the page that is shown the current one.
    void followPage();

Q_SIGNALS:
    /// Emitted if a page has been recorded or shown again.
    void sigHistoryChanged();
    /// Emitted if the user has chosen a page that must be fetched.
    void sigOpen(const QUrl &target);
    /// Emitted before a page is shown that needs no fetch.
    void sigGoing();

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QToolButton *addButton(int index, const QList<QKeySequence> &keys);
    void addHistory();
    void removeHistory();
    void addTree();
    void layOutSplitter(const QList<int> &sizes);
    void removeTree();
    void toggleTree();
    void open(const QUrl &target);
    void addFocusKey(const QKeySequence &key, int step);
    void moveFocus(int step);
    bool matches(const QUrl &target, QUrl::FormattingOptions ignored) const;
    int entryOfPage() const;
    void setTabOrders();
    void updateButtons();
    void setPictures();
    void setTexts();

    HtmlTextBrowser *m_view;
    Addresses m_addresses;
    PageHistory *m_history = nullptr; ///< if the user can go back
    QToolButton *m_back = nullptr;
    QToolButton *m_forward = nullptr;
    QSplitter *m_splitter = nullptr; ///< if there are contents
    ContentsTree *m_tree = nullptr;
    QToolButton *m_toggle = nullptr;
};
