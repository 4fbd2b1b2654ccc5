// SPDX-License-Identifier: MIT
#include "datetime/daycalendar_p.h"

#include <QAction>
#include <QHoverEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QSpinBox>
#include <QTableView>
#include <QToolButton>

namespace {

// Of 255.
constexpr int kHoverTint = 24;
constexpr int kVeil = 150;

QColor withAlpha(QColor colour, int alpha)
{
    colour.setAlpha(alpha);
    return colour;
}

bool isEnter(const QKeyEvent *event)
{
    return event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
}

} // namespace

DayCalendar::DayCalendar(QWidget *parent)
    : QCalendarWidget(parent),
      m_grid(findChild<QTableView *>(QStringLiteral("qt_calendar_calendarview"))),
      m_year_edit(findChild<QSpinBox *>(QStringLiteral("qt_calendar_yearedit"))),
      m_previous(findChild<QToolButton *>(QStringLiteral("qt_calendar_prevmonth"))),
      m_next(findChild<QToolButton *>(QStringLiteral("qt_calendar_nextmonth"))),
      m_month(findChild<QToolButton *>(QStringLiteral("qt_calendar_monthbutton")))
{
    m_year_edit->installEventFilter(this);
    // So that the grid repaints the day that the pointer enters or leaves.
    m_grid->viewport()->setAttribute(Qt::WA_Hover);
    m_grid->viewport()->installEventFilter(this);
}

bool DayCalendar::eventFilter(QObject *watched, QEvent *event)
{
    // The list of a combo box would take it for itself, and close.
    if (watched == m_year_edit && event->type() == QEvent::ShortcutOverride
        && isEnter(static_cast<QKeyEvent *>(event))) {
        event->accept();
        return true;
    }
    if (watched == m_grid->viewport()) {
        if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverMove)
            m_pointer = static_cast<QHoverEvent *>(event)->pos();
        else if (event->type() == QEvent::HoverLeave)
            m_pointer = kNowhere;
        else if (event->type() == QEvent::Paint)
            m_today = QDate::currentDate(); // Asks the system; too dear for each day.
    }
    return QCalendarWidget::eventFilter(watched, event);
}

bool DayCalendar::event(QEvent *event)
{
    const bool changesFace =
        event->type() == QEvent::LocaleChange || event->type() == QEvent::LayoutDirectionChange;
    return changesFace ? keepFace(event) : QCalendarWidget::event(event);
}

// For a new locale Qt takes its first weekday and its month names, for a new direction arrows of
// the style.
bool DayCalendar::keepFace(QEvent *event)
{
    const Qt::DayOfWeek firstDay = firstDayOfWeek();
    const QIcon previous = m_previous->icon();
    const QIcon next = m_next->icon();
    const QString month = m_month->text();
    const QList<QAction *> entries = m_month->menu()->actions();
    QStringList names;
    for (const QAction *entry : entries)
        names += entry->text();

    const bool isHandled = QCalendarWidget::event(event);
    setFirstDayOfWeek(firstDay);
    m_previous->setIcon(previous);
    m_next->setIcon(next);
    m_month->setText(month);
    for (int entry = 0; entry < entries.size(); ++entry)
        entries[entry]->setText(names[entry]);
    return isHandled;
}

void DayCalendar::paintCell(QPainter *painter, const QRect &rect, const QDate &date) const
{
    QCalendarWidget::paintCell(painter, rect, date);
    const QPalette &colours = m_grid->palette();
    const bool isInRange = date >= minimumDate() && date <= maximumDate();
    if (!isInRange || !isEnabled())
        painter->fillRect(rect, withAlpha(colours.color(QPalette::Base), kVeil));
    else if (date != selectedDate() && rect.contains(m_pointer))
        painter->fillRect(rect, withAlpha(colours.color(QPalette::Highlight), kHoverTint));
    if (date == m_today) {
        painter->setPen(colours.color(QPalette::Highlight));
        painter->drawRect(rect.adjusted(0, 0, -1, -1));
    }
}
