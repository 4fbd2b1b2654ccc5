// SPDX-License-Identifier: MIT
#include <vemo/vemofilterbar.h>

#include "controls/fieldbuttons_p.h"
#include "controls/fittingfont_p.h"
#include "controls/placeholderink_p.h"
#include "core/scaling_p.h"

#include <vemo/stylemanager.h>
#include <vemo/vemoiconbutton.h>

#include <QAction>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QTimer>

namespace {

// In design pixels.
constexpr int kHeight = 28;
constexpr int kFrame = 2; // that of the focus
constexpr int kButtonLeft = 4;
constexpr int kButtonTop = 2;
constexpr int kButtonWidth = 34;
constexpr int kButtonHeight = 24;

} // namespace

VemoFilterBar::VemoFilterBar(QWidget *parent)
    : QLineEdit(parent),
      m_dropdown_button(new VemoIconButton(QStringLiteral("bt_search_dropdown"))),
      m_search_timer(new QTimer(this))
{
    setAttribute(Qt::WA_MacShowFocusRect, false);

    m_dropdown_button->setFocusPolicy(Qt::NoFocus);
    m_dropdown_button->setParent(this);
    m_dropdown_button->setStyleSheet(getStyleSheet("component.filter_search_button"));
    m_dropdown_button->move(scaled(kButtonLeft), scaled(kButtonTop));
    m_dropdown_button->setCursor(Qt::ArrowCursor);
    m_dropdown_button->setFixedSize(scaled(kButtonWidth), scaled(kButtonHeight));

    setStyleSheet(
        getStyleSheet("component.lineedit") + getStyleSheet("component.filter_bar_padding"));
    palePlaceholder(this);
    setFixedHeight(scaled(kHeight));
    FittingFont::keep(this, scaled(kHeight) - 2 * scaled(kFrame));
    addButtonLayout();
    m_search_timer->setSingleShot(true);
    connect(this, SIGNAL(returnPressed()), this, SLOT(slotKeywordChange()));
    connect(m_search_timer, SIGNAL(timeout()), this, SLOT(slotKeywordChange()));
    connect(this, &QLineEdit::textEdited, this, [this] {
        if (m_search_delay >= 0)
            m_search_timer->start(m_search_delay);
    });
}

/// In a right-to-left layout the button moves to the right, like the padding of the text.
void VemoFilterBar::addButtonLayout()
{
    auto *layout = new QHBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetNoConstraint);
    layout->setContentsMargins(scaled(kButtonLeft), scaled(kButtonTop), scaled(kButtonLeft), 0);
    layout->addWidget(m_dropdown_button, 0, Qt::AlignTop);
    layout->addStretch();
}

void VemoFilterBar::setMenu(QMenu *menu)
{
    m_dropdown_button->setMenu(menu);
    // The menu's title without its mnemonic.
    const QString title = menu ? menu->menuAction()->iconText() : QString();
    m_dropdown_button->setAccessibleName(title.isEmpty() ? placeholderText() : title);
}

void VemoFilterBar::setSearchDelay(int msecs)
{
    m_search_delay = qMax(msecs, -1);
    m_search_timer->stop();
}

void VemoFilterBar::setClearedByEscape(bool cleared)
{
    m_is_cleared_by_escape = cleared;
}

void VemoFilterBar::setClearButtonVisible(bool visible)
{
    if (visible == m_is_clear_button_visible)
        return;
    m_is_clear_button_visible = visible;
    setNamedClearButton(this, visible);
    // It is triggered before the button empties the line.
    if (const QAction *clear = clearButtonAction(this))
        connect(clear, &QAction::triggered, this, [this] { clearAndReport(); });
}

void VemoFilterBar::keyPressEvent(QKeyEvent *event)
{
    if (m_is_cleared_by_escape && event->key() == Qt::Key_Escape && !text().isEmpty()) {
        event->accept();
        clearAndReport();
        return;
    }
    if (event->key() != Qt::Key_Down) {
        QLineEdit::keyPressEvent(event);
        return;
    }
    event->accept();
    // The menu runs its own event loop, in which the bar may be deleted.
    if (m_dropdown_button->menu())
        m_dropdown_button->showMenu();
}

void VemoFilterBar::clearAndReport()
{
    clear();
    slotKeywordChange();
}

void VemoFilterBar::slotKeywordChange()
{
    m_search_timer->stop();
    Q_EMIT sigKeywordChanged(text());
}
