// SPDX-License-Identifier: MIT
#include "datetime/headingfont_p.h"

#include <QEvent>
#include <QFontInfo>
#include <QFontMetrics>
#include <QScopedValueRollback>
#include <QToolButton>

#include <algorithm>
#include <numeric>

namespace {

template <typename Part> Part *part(const QWidget *calendar, const char *name)
{
    return calendar->findChild<Part *>(QLatin1String(name));
}

int advance(const QFont &font, const QString &text)
{
    return QFontMetrics(font).horizontalAdvance(text);
}

/// What a button needs beside its text.
int frameOf(const QToolButton *button)
{
    return button->sizeHint().width() - advance(button->font(), button->text());
}

} // namespace

HeadingFont::HeadingFont(QWidget *calendar, const QStringList &months)
    : QObject(calendar), m_bar(part<QWidget>(calendar, "qt_calendar_navigationbar")),
      m_month(part<QToolButton>(calendar, "qt_calendar_monthbutton")),
      m_year(part<QToolButton>(calendar, "qt_calendar_yearbutton")), m_months(months)
{
    m_bar->installEventFilter(this);
    m_month->installEventFilter(this);
}

bool HeadingFont::eventFilter(QObject *watched, QEvent *event)
{
    const QEvent::Type type = event->type();
    const bool isNewFont = type == QEvent::FontChange || type == QEvent::StyleChange;
    if (!m_is_fitting
        && (isNewFont || (watched == m_bar && (type == QEvent::Resize || type == QEvent::Show))))
        fit();
    return false;
}

void HeadingFont::fit()
{
    const QScopedValueRollback<bool> whileFitting(m_is_fitting, true);
    // Their own font first, so that a heading with more room grows again.
    if (m_is_smaller)
        setFont({});
    int text = advance(m_year->font(), m_year->text());
    text += std::accumulate(
        m_months.begin(), m_months.end(), 0, [this](int width, const QString &name) {
            return std::max(width, advance(m_month->font(), name));
        });
    const int beside = widthBesideText();
    m_wanted_width = text + beside;
    const int room = std::max(1, m_bar->width() - beside);
    // Before it is shown, the bar has no width of its own yet.
    m_is_smaller = m_bar->isVisible() && text > room;
    if (!m_is_smaller)
        return;
    // Only the size: family and weight stay those of the calendar and its style.
    QFont smaller;
    smaller.setPixelSize(std::max(1, QFontInfo(m_month->font()).pixelSize() * room / text));
    setFont(smaller);
}

int HeadingFont::widthBesideText() const
{
    int width = frameOf(m_month) + frameOf(m_year);
    for (const char *arrow : {"qt_calendar_prevmonth", "qt_calendar_nextmonth"})
        width += part<QToolButton>(m_bar, arrow)->sizeHint().width();
    return width;
}

void HeadingFont::setFont(const QFont &font)
{
    m_month->setFont(font);
    m_year->setFont(font);
}
