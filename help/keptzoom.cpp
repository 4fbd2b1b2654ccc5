// SPDX-License-Identifier: MIT
#include "help/keptzoom_p.h"

#include <QEvent>
#include <QFont>
#include <QTextEdit>

namespace {

constexpr qreal kMinFactor = 0.5;
constexpr qreal kMaxFactor = 3;

qreal &keptPoints()
{
    static qreal points = 0;
    return points;
}

} // namespace

KeptZoom::KeptZoom(QTextEdit *view) : QObject(view), m_view(view)
{
    if (keptPoints() != 0)
        setSize(originalSize() + keptPoints());
    view->installEventFilter(this);
}

bool KeptZoom::eventFilter(QObject * /*watched*/, QEvent *event)
{
    const qreal original = originalSize();
    // A font whose size is in pixels cannot be zoomed.
    if (event->type() != QEvent::FontChange || original <= 0)
        return false;
    const qreal size = m_view->font().pointSizeF();
    const qreal limited = qBound(kMinFactor * original, size, kMaxFactor * original);
    keptPoints() = limited - original;
    if (limited != size)
        setSize(limited);
    return false;
}

qreal KeptZoom::originalSize() const
{
    return m_view->parentWidget()->font().pointSizeF();
}

void KeptZoom::setSize(qreal points)
{
    if (points <= 0)
        return;
    QFont font = m_view->font();
    font.setPointSizeF(points);
    m_view->setFont(font);
}
