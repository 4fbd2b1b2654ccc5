// SPDX-License-Identifier: MIT
#include "controls/fittingfont_p.h"

#include "controls/growntofont_p.h"

#include <QEvent>
#include <QScopedValueRollback>
#include <QWidget>

void FittingFont::keep(QWidget *control, int height)
{
    if (!control->findChild<FittingFont *>(QString(), Qt::FindDirectChildrenOnly))
        new FittingFont(control, height);
}

FittingFont::FittingFont(QWidget *control, int height)
    : QObject(control), m_control(control), m_height(height)
{
    control->installEventFilter(this);
    fit();
}

bool FittingFont::eventFilter(QObject * /*watched*/, QEvent *event)
{
    if (event->type() == QEvent::FontChange && !m_is_fitting)
        fit();
    return false;
}

void FittingFont::fit()
{
    const QScopedValueRollback<bool> whileFitting(m_is_fitting, true);
    const bool isOurs = m_smaller_size != 0 && m_control->font().pixelSize() == m_smaller_size;
    m_smaller_size = 0;
    if (isOurs)
        m_control->setFont({});
    else if (m_control->testAttribute(Qt::WA_SetFont))
        return;
    if (m_control->fontMetrics().height() <= m_height)
        return;
    // Only the size: family and weight stay those of the surroundings.
    QFont smaller;
    m_smaller_size = fontForHeight(m_control->font(), m_height).pixelSize();
    smaller.setPixelSize(m_smaller_size);
    m_control->setFont(smaller);
}
