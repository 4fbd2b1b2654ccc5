// SPDX-License-Identifier: MIT
#include "help/navigationbar_p.h"

#include "core/scaling_p.h"
#include "core/stringof_p.h"
#include "help/contentstree_p.h"
#include "help/htmltextbrowser_p.h"
#include "help/pagehistory_p.h"

#include <vemo/imagemanager.h>
#include <vemo/stylemanager.h>

#include <QAction>
#include <QBoxLayout>
#include <QEvent>
#include <QKeySequence>
#include <QMouseEvent>
#include <QSplitter>
#include <QToolButton>

#include <algorithm>
#include <initializer_list>
#include <memory>

namespace {

// In design pixels.
constexpr int kGap = 4;
constexpr int kTreeWidth = 200;

void setName(QWidget *part, const char *string)
{
    const QString name = stringOf(string);
    part->setAccessibleName(name);
    part->setToolTip(name);
}

/// The keys of the platform, and that of multimedia keyboards. An action with the same key twice
/// would never be triggered.
QList<QKeySequence> keysOf(QKeySequence::StandardKey standard, const QKeySequence &multimedia)
{
    QList<QKeySequence> keys = QKeySequence::keyBindings(standard);
    if (!keys.contains(multimedia))
        keys += multimedia;
    return keys;
}

void replaceInLayout(QWidget *old, QWidget *replacement)
{
    const std::unique_ptr<QLayoutItem> item(
        old->parentWidget()->layout()->replaceWidget(old, replacement));
}

} // namespace

NavigationBar::NavigationBar(HtmlTextBrowser *view, const Addresses &addresses)
    : QWidget(view->window()), m_view(view), m_addresses(addresses)
{
    auto *buttons = new QHBoxLayout(this);
    buttons->setContentsMargins(0, 0, 0, 0);
    buttons->setSpacing(scaled(kGap));
    buttons->addStretch();
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    static_cast<QBoxLayout *>(parentWidget()->layout())->insertWidget(0, this);
    m_view->setNavigated(true);
    connect(view, &HtmlTextBrowser::sigPageShown, this, &NavigationBar::followPage);
    connect(view, &HtmlTextBrowser::sigAnchorShown, this, &NavigationBar::followPage);
    connect(view, &HtmlTextBrowser::sigLinkFollowed, this, &NavigationBar::sigGoing);
    addFocusKey(Qt::Key_F6, 1);
    addFocusKey(Qt::SHIFT | Qt::Key_F6, -1);
}

void NavigationBar::setHistoryEnabled(bool enabled)
{
    if (enabled == isHistoryEnabled())
        return;
    if (enabled)
        addHistory();
    else
        removeHistory();
}

void NavigationBar::addHistory()
{
    m_history = new PageHistory(m_view);
    m_back = addButton(layout()->count() - 1, keysOf(QKeySequence::Back, Qt::Key_Back));
    m_forward = addButton(layout()->count() - 1, keysOf(QKeySequence::Forward, Qt::Key_Forward));
    connect(m_back->actions().constFirst(), &QAction::triggered, this, &NavigationBar::backward);
    connect(m_forward->actions().constFirst(), &QAction::triggered, this, &NavigationBar::forward);
    connect(m_history, &PageHistory::sigChanged, this, &NavigationBar::updateButtons);
    connect(m_history, &PageHistory::sigChanged, this, &NavigationBar::followPage);
    connect(m_history, &PageHistory::sigChanged, this, &NavigationBar::sigHistoryChanged);
    connect(m_history, &PageHistory::sigGoing, this, &NavigationBar::sigGoing);
    // Most buttons of the mouse come to the window from whatever is below the pointer; views handle
    // them.
    parentWidget()->installEventFilter(this);
    m_view->viewport()->installEventFilter(this);
    setTabOrders();
    setPictures();
    setTexts();
    updateButtons();
}

void NavigationBar::removeHistory()
{
    delete m_back;
    delete m_forward;
    delete m_history;
    m_back = m_forward = nullptr;
    m_history = nullptr;
}

bool NavigationBar::isBackwardAvailable() const
{
    return m_history && m_history->isBackwardAvailable();
}

bool NavigationBar::isForwardAvailable() const
{
    return m_history && m_history->isForwardAvailable();
}

void NavigationBar::backward()
{
    if (m_history)
        m_history->backward();
}

void NavigationBar::forward()
{
    if (m_history)
        m_history->forward();
}

void NavigationBar::setContents(const QVector<ContentsEntry> &entries)
{
    if (entries.isEmpty()) {
        removeTree();
        return;
    }
    if (!m_tree)
        addTree();
    m_tree->setEntries(entries);
    followPage();
}

QVector<ContentsEntry> NavigationBar::contents() const
{
    return m_tree ? m_tree->entries() : QVector<ContentsEntry>();
}

void NavigationBar::addTree()
{
    const bool hasFocus = m_view->hasFocus();
    m_splitter = new QSplitter;
    m_splitter->setChildrenCollapsible(false); // The button does that.
    m_splitter->installEventFilter(this);
    replaceInLayout(m_view, m_splitter);
    m_tree = new ContentsTree;
    m_splitter->addWidget(m_tree);
    m_splitter->addWidget(m_view);
    m_splitter->setStretchFactor(1, 1);
    layOutSplitter({scaled(kTreeWidth), qMax(1, window()->width() - scaled(kTreeWidth))});
    if (hasFocus)
        m_view->setFocus(Qt::OtherFocusReason);
    m_toggle = addButton(0, {Qt::Key_F9});
    m_toggle->setCheckable(true);
    m_toggle->setChecked(true);
    connect(
        m_toggle->actions().constFirst(), &QAction::triggered, this, &NavigationBar::toggleTree);
    connect(m_tree, &ContentsTree::sigOpen, this, &NavigationBar::open);
    m_tree->viewport()->installEventFilter(this);
    setTabOrders();
    setPictures();
    setTexts();
}

/// From right to left a splitter places its parts one pixel too far to the right, and it only takes
/// account of its direction when its sizes are set.
void NavigationBar::layOutSplitter(const QList<int> &sizes)
{
    m_splitter->setContentsMargins(0, 0, m_splitter->isRightToLeft() ? 1 : 0, 0);
    m_splitter->setSizes(sizes);
}

void NavigationBar::removeTree()
{
    if (!m_tree)
        return;
    const bool hadFocus = m_splitter->isAncestorOf(m_splitter->window()->focusWidget());
    replaceInLayout(m_splitter, m_view);
    m_view->setParent(parentWidget());
    m_view->show();
    if (hadFocus)
        m_view->setFocus(Qt::OtherFocusReason);
    delete m_splitter;
    delete m_toggle;
    m_splitter = nullptr;
    m_tree = nullptr;
    m_toggle = nullptr;
}

void NavigationBar::toggleTree()
{
    const bool isShown = m_tree->isHidden();
    if (!isShown && m_tree->hasFocus())
        m_view->setFocus(Qt::OtherFocusReason);
    m_tree->setVisible(isShown);
    m_toggle->setChecked(isShown);
}

void NavigationBar::open(const QUrl &target)
{
    if (!matches(target, QUrl::RemoveFragment)) {
        Q_EMIT sigOpen(target);
        return;
    }
    Q_EMIT sigGoing();
    m_view->openAnchor(target.fragment());
}

void NavigationBar::addFocusKey(const QKeySequence &key, int step)
{
    auto *action = new QAction(this);
    action->setShortcut(key);
    addAction(action);
    connect(action, &QAction::triggered, this, [this, step] { moveFocus(step); });
}

/// Moves the focus to the next or the previous one of page, bar and contents. Tab would stop at
/// each link of the page.
void NavigationBar::moveFocus(int step)
{
    QVector<QWidget *> parts {m_view};
    for (QToolButton *button : {m_toggle, m_back, m_forward}) {
        if (button && button->isEnabled()) {
            parts += button; // the first one represents the bar
            break;
        }
    }
    if (m_tree && !m_tree->isHidden())
        parts += m_tree;
    const QWidget *focus = window()->focusWidget();
    const auto holdsFocus = [this, focus](const QWidget *part) {
        return part == focus || (isAncestorOf(part) && isAncestorOf(focus));
    };
    const auto current = std::find_if(parts.begin(), parts.end(), holdsFocus);
    const int from = current == parts.end() ? 0 : int(current - parts.begin());
    parts.at((from + step + parts.size()) % parts.size())->setFocus(Qt::ShortcutFocusReason);
}

void NavigationBar::followPage()
{
    if (m_tree)
        m_tree->setCurrentEntry(entryOfPage());
}

/// Whether target is the page that is shown.
bool NavigationBar::matches(const QUrl &target, QUrl::FormattingOptions ignored) const
{
    const QUrl shown = m_view->pageUrl();
    if (target.isEmpty() || shown.isEmpty())
        return false;
    const QVector<QUrl> addresses = m_addresses(target);
    for (const QUrl &address : addresses) {
        if (address.matches(shown, ignored))
            return true;
    }
    return false;
}

/// The entry of the anchor that is shown, or the first one of its page. If there are several, the
/// current one remains.
int NavigationBar::entryOfPage() const
{
    const QVector<ContentsEntry> &entries = m_tree->entries();
    const QVector<QUrl::FormattingOptions> steps {QUrl::None, QUrl::RemoveFragment};
    for (const QUrl::FormattingOptions ignored : steps) {
        const int current = m_tree->currentEntry();
        if (current >= 0 && matches(entries.at(current).target, ignored))
            return current;
        for (int i = 0; i < entries.size(); ++i) {
            if (matches(entries.at(i).target, ignored))
                return i;
        }
    }
    return -1;
}

bool NavigationBar::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_splitter && event->type() == QEvent::LayoutDirectionChange)
        layOutSplitter(m_splitter->sizes());
    // The second of two fast presses is a double click.
    const bool isPress =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (!isPress || !m_history)
        return false;
    const Qt::MouseButton button = static_cast<QMouseEvent *>(event)->button();
    if (button == Qt::BackButton)
        backward();
    else if (button == Qt::ForwardButton)
        forward();
    return button == Qt::BackButton || button == Qt::ForwardButton;
}

void NavigationBar::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        setTexts();
    else if (event->type() == QEvent::LayoutDirectionChange)
        setPictures();
}

QToolButton *NavigationBar::addButton(int index, const QList<QKeySequence> &keys)
{
    auto *button = new QToolButton;
    button->setFocusPolicy(Qt::TabFocus);
    button->setStyleSheet(getStyleSheet("component.icon_button"));
    static_cast<QBoxLayout *>(layout())->insertWidget(index, button);
    // Enabled even if the button is not: otherwise the view would handle the keys.
    auto *action = new QAction(button);
    action->setShortcuts(keys);
    button->addAction(action);
    connect(button, &QToolButton::clicked, action, &QAction::trigger);
    return button;
}

/// The page first, as it has the focus when the window is shown; Tab leads from the last one to it.
void NavigationBar::setTabOrders()
{
    QWidget *last = m_view;
    for (QWidget *part : std::initializer_list<QWidget *> {m_toggle, m_back, m_forward, m_tree}) {
        if (!part)
            continue;
        QWidget::setTabOrder(last, part);
        last = part;
    }
}

void NavigationBar::updateButtons()
{
    m_back->setEnabled(isBackwardAvailable());
    m_forward->setEnabled(isForwardAvailable());
}

void NavigationBar::setPictures()
{
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    if (m_history) {
        m_back->setIcon(getGlobalIcon(isMirrored ? "arrow_right" : "arrow_left"));
        m_forward->setIcon(getGlobalIcon(isMirrored ? "arrow_left" : "arrow_right"));
    }
    if (m_tree)
        m_toggle->setIcon(getGlobalIcon("bt_details"));
}

void NavigationBar::setTexts()
{
    if (m_history) {
        setName(m_back, "help_back");
        setName(m_forward, "help_forward");
    }
    if (m_tree) {
        setName(m_toggle, "help_contents");
        m_tree->setAccessibleName(m_toggle->accessibleName());
    }
}
