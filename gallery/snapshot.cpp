// SPDX-License-Identifier: MIT
#include "gallery/snapshot.h"

#include <vemo/imagemanager.h>
#include <vemo/stylemanager.h>

#include <QStyleOptionButton>
#include <QStyleOptionToolButton>
#include <QStylePainter>

namespace {

/// Without the hover flag the style does not draw the frame of the pressed state.
QStyle::State completed(QStyle::State state)
{
    return state & QStyle::State_Sunken ? state | QStyle::State_MouseOver : state;
}

void freeze(QAbstractButton *button)
{
    button->setFocusPolicy(Qt::NoFocus);
    button->setAttribute(Qt::WA_TransparentForMouseEvents);
}

QPixmap pictureOf(const QString &name, QStyle::State state)
{
    if (state & QStyle::State_Sunken)
        return getGlobalImage(name, ImageManager::CLICK);
    return getGlobalImage(
        name, state & QStyle::State_MouseOver ? ImageManager::HOVER : ImageManager::NORMAL);
}

} // namespace

ButtonSnapshot::ButtonSnapshot(const QString &text, int role, QStyle::State state)
    : VemoButton(text, role), m_state(completed(state))
{
    freeze(this);
}

void ButtonSnapshot::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.state |= m_state;
    painter.drawControl(QStyle::CE_PushButton, option);
}

IconButtonSnapshot::IconButtonSnapshot(const QString &name, QStyle::State state)
    : VemoIconButton(name), m_name(name), m_state(completed(state))
{
    setAccessibleName(name);
    freeze(this);
}

void IconButtonSnapshot::showEvent(QShowEvent *event)
{
    VemoIconButton::showEvent(event);
    setIcon(pictureOf(m_name, m_state));
}

void IconButtonSnapshot::customEvent(QEvent *event)
{
    VemoIconButton::customEvent(event);
    if (event->type() == StyleManager::reloadEvent())
        setIcon(pictureOf(m_name, m_state));
}

void IconButtonSnapshot::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionToolButton option;
    initStyleOption(&option);
    option.state |= m_state;
    painter.drawComplexControl(QStyle::CC_ToolButton, option);
}
