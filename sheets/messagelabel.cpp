// SPDX-License-Identifier: MIT
#include "sheets/messagelabel_p.h"

#include <QEvent>
#include <QStyleOptionFocusRect>
#include <QStylePainter>

void MessageLabel::fit()
{
    // heightForWidth() never returns less than the minimum height, so a fixed height could only
    // grow.
    setMinimumHeight(0);
    setMaximumHeight(QWIDGETSIZE_MAX);
    const int height = QLabel::heightForWidth(width());
    // Without word wrap there is no height for a width.
    m_fittedWidth = height >= 0 ? width() : -1;
    if (height >= 0)
        setFixedHeight(height);
}

void MessageLabel::fitTo(int width)
{
    ensurePolished();
    if (isFitted() && width == m_fittedWidth && width == this->width())
        return;
    resize(width, height());
    fit();
}

QSize MessageLabel::sizeHint() const
{
    return isFitted() ? QSize(m_fittedWidth, minimumHeight()) : QLabel::sizeHint();
}

QSize MessageLabel::minimumSizeHint() const
{
    return isFitted() ? QSize(0, minimumHeight()) : QLabel::minimumSizeHint();
}

int MessageLabel::heightForWidth(int width) const
{
    return width == m_fittedWidth ? minimumHeight() : QLabel::heightForWidth(width);
}

void MessageLabel::changeEvent(QEvent *event)
{
    QLabel::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        m_fittedWidth = -1;
}

void MessageLabel::paintEvent(QPaintEvent *event)
{
    QLabel::paintEvent(event);
    if (!hasFocus())
        return;
    QStyleOptionFocusRect ring;
    ring.initFrom(this);
    QStylePainter(this).drawPrimitive(QStyle::PE_FrameFocusRect, ring);
}

void MessageLabel::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    if (width() != m_fittedWidth)
        fit();
}
