// SPDX-License-Identifier: MIT
#include "help/findbar_p.h"

#include "core/scaling_p.h"
#include "core/stringof_p.h"

#include <vemo/imagemanager.h>
#include <vemo/stylemanager.h>

#include <QAction>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QTextBrowser>
#include <QTextCursor>
#include <QTextDocument>
#include <QToolButton>

#include <algorithm>

namespace {

// In design pixels.
constexpr int kGap = 4;
constexpr int kTextWidth = 220;

constexpr int kMaxLength = 200; // of the text to find

void setName(QWidget *part, const QString &name)
{
    part->setAccessibleName(name);
    part->setToolTip(name);
}

} // namespace

QVector<int> matchesIn(const QTextDocument &page, const QString &text)
{
    QVector<int> positions;
    const QString all = page.toPlainText(); // with the positions of the document
    for (int at = text.isEmpty() ? -1 : int(all.indexOf(text, 0, Qt::CaseInsensitive)); at >= 0;
         at = int(all.indexOf(text, at + text.size(), Qt::CaseInsensitive)))
        positions += at;
    return positions;
}

FindBar::FindBar(QTextBrowser *view)
    : QWidget(view->window()), m_view(view), m_text(new QLineEdit), m_result(new QLabel)
{
    hide();
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(scaled(kGap));
    layout->addWidget(m_text);
    m_previous = addButton("arrow_up");
    m_next = addButton("arrow_down");
    layout->addWidget(m_result, 1);
    m_close = addButton("bt_close");
    m_text->setFixedWidth(scaled(kTextWidth));
    m_text->setMaxLength(kMaxLength);
    m_text->setStyleSheet(getStyleSheet("component.lineedit"));
    m_result->setStyleSheet(getStyleSheet("component.label"));
    m_result->setTextFormat(Qt::PlainText);
    growToFont();
    setTexts();
    connect(m_text, &QLineEdit::textEdited, this, [this] { find(FROM_SELECTION); });
    connect(m_previous, &QToolButton::clicked, this, [this] { find(BACKWARD); });
    connect(m_next, &QToolButton::clicked, this, [this] { find(FORWARD); });
    connect(m_close, &QToolButton::clicked, this, [this] { close(); });
    connect(view, &QTextBrowser::textChanged, this, [this] { forgetMatch(); });
    addKeys(view->window());
}

void FindBar::open()
{
    const QString selected = m_view->textCursor().selectedText();
    const bool isOneLine = !selected.isEmpty() && selected.size() <= kMaxLength
        && !selected.contains(QChar::ParagraphSeparator)
        && !selected.contains(QChar::LineSeparator);
    if (isOneLine)
        m_text->setText(selected);
    growToFont();
    show();
    m_escape->setEnabled(true);
    m_text->setFocus(Qt::ShortcutFocusReason);
    m_text->selectAll();
    find(FROM_SELECTION);
}

void FindBar::close()
{
    m_escape->setEnabled(false);
    m_view->setExtraSelections({});
    m_view->setFocus(Qt::OtherFocusReason);
    hide();
}

void FindBar::keyPressEvent(QKeyEvent *event)
{
    // Not to the window, which would press a default button.
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        find(event->modifiers() & Qt::ShiftModifier ? BACKWARD : FORWARD);
    else
        QWidget::keyPressEvent(event);
}

void FindBar::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        setTexts();
}

void FindBar::addKeys(QWidget *window)
{
    const auto addKey = [this, window](const QKeySequence &key, const auto &slot) {
        auto *action = new QAction(this);
        action->setShortcut(key);
        connect(action, &QAction::triggered, this, slot);
        window->addAction(action);
        return action;
    };
    // F3 opens a bar that is closed: its text is the one to find again.
    const auto findAgain = [this](Direction direction) {
        if (m_text->text().isEmpty())
            open();
        else
            find(direction);
    };
    addKey(Qt::CTRL | Qt::Key_F, [this] { open(); });
    addKey(Qt::Key_F3, [findAgain] { findAgain(FORWARD); });
    addKey(Qt::SHIFT | Qt::Key_F3, [findAgain] { findAgain(BACKWARD); });
    // Only while the bar is shown; otherwise Escape closes the window.
    m_escape = addKey(Qt::Key_Escape, [this] { close(); });
    m_escape->setEnabled(false);
}

QToolButton *FindBar::addButton(const char *picture)
{
    auto *button = new QToolButton;
    button->setIcon(getGlobalIcon(picture));
    button->setFocusPolicy(Qt::TabFocus);
    button->setStyleSheet(getStyleSheet("component.icon_button"));
    layout()->addWidget(button);
    return button;
}

/// Searches the whole page each time: it may have changed, and that is faster than finding single
/// matches with QTextDocument.
void FindBar::find(Direction direction)
{
    const QString text = m_text->text();
    const QVector<int> matches = matchesIn(*m_view->document(), text);
    if (matches.isEmpty()) {
        m_view->setExtraSelections({});
        showResult(text.isEmpty() ? QString() : stringOf("find_nothing"), !text.isEmpty());
        return;
    }
    const QTextCursor selection = m_view->textCursor();
    const int from = direction == FORWARD ? selection.selectionEnd() : selection.selectionStart();
    int index = int(std::lower_bound(matches.begin(), matches.end(), from) - matches.begin());
    if (direction == BACKWARD)
        --index;
    index = int((index + matches.size()) % matches.size()); // goes on at the other end of the page
    select(matches.at(index), text.size());
    showResult(stringOf("find_position")
                   .arg(locale().toString(index + 1), locale().toString(matches.size())),
        false);
}

void FindBar::select(int position, int length)
{
    QTextCursor match(m_view->document());
    match.setPosition(position);
    match.setPosition(position + length, QTextCursor::KeepAnchor);
    m_view->setTextCursor(match);
    // While the bar has the focus, the selection itself is grey.
    QTextEdit::ExtraSelection highlight;
    highlight.cursor = match;
    highlight.format.setBackground(m_view->palette().brush(QPalette::Active, QPalette::Highlight));
    highlight.format.setForeground(
        m_view->palette().brush(QPalette::Active, QPalette::HighlightedText));
    m_view->setExtraSelections(isHidden() ? QList<QTextEdit::ExtraSelection>()
                                          : QList<QTextEdit::ExtraSelection> {highlight});
}

void FindBar::showResult(const QString &text, bool isMissing)
{
    m_result->setText(text);
    m_text->setAccessibleDescription(text); // screen readers announce the change
    m_text->setProperty("error", isMissing);
    m_text->style()->polish(m_text);
}

/// After the page has changed. Pictures that arrive change it as well, but not its selection.
void FindBar::forgetMatch()
{
    if (m_view->textCursor().hasSelection())
        return;
    m_view->setExtraSelections({});
    showResult(QString(), false);
}

void FindBar::setTexts()
{
    setName(m_text, stringOf("find_in_page"));
    setName(m_previous, stringOf("find_previous"));
    setName(m_next, stringOf("find_next"));
    setName(m_close, stringOf("accessible_close"));
}

/// The style sheet gives the field a height in pixels, which does not grow with the font.
void FindBar::growToFont()
{
    m_text->ensurePolished();
    QStyleOptionFrame option;
    option.initFrom(m_text);
    option.rect = QRect(QPoint(), m_text->sizeHint());
    const QRect text =
        m_text->style()->subElementRect(QStyle::SE_LineEditContents, &option, m_text);
    const int lacking = m_text->fontMetrics().height() - text.height();
    m_text->setMinimumHeight(option.rect.height() + qMax(0, lacking));
}
