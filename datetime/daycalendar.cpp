// SPDX-License-Identifier: MIT
#include "datetime/daycalendar_p.h"

#include "core/pixelgrid_p.h"
#include "core/scaling_p.h"
#include "datetime/enterkey_p.h"
#include "datetime/headingfont_p.h"

#include <QAccessible>
#include <QAction>
#include <QHoverEvent>
#include <QItemSelectionModel>
#include <QMenu>
#include <QPainter>
#include <QSpinBox>
#include <QTableWidget>
#include <QTextCharFormat>
#include <QTimer>
#include <QToolButton>

namespace {

// Of 255.
constexpr int kHoverTint = 24;
constexpr int kVeil = 150;
constexpr int kOtherMonthInk = 190;

constexpr int kRingWidth = 2; // design pixels

/// Of the frame of today, in screen pixels.
int frameWidth()
{
    return qMax(1, scaled(1));
}

QColor withAlpha(QColor colour, int alpha)
{
    colour.setAlpha(alpha);
    return colour;
}

/// Mixes amount / 255 of ink with ground.
QColor mixed(const QColor &ink, const QColor &ground, int amount)
{
    const auto mix = [amount](int a, int b) { return (a * amount + b * (255 - amount)) / 255; };
    return {mix(ink.red(), ground.red()), mix(ink.green(), ground.green()),
        mix(ink.blue(), ground.blue())};
}

/// The font, made smaller if the number would not fit into the room.
QFont fitted(QFont font, const QString &number, const QSize &room)
{
    const QFontMetrics metrics(font);
    const double width = double(room.width()) / qMax(1, metrics.horizontalAdvance(number));
    const double height = double(room.height()) / qMax(1, metrics.capHeight());
    const double part = qMin(width, height);
    if (part < 1.0)
        font.setPixelSize(qMax(1, int(QFontInfo(font).pixelSize() * part)));
    return font;
}

void paintNumber(QPainter *painter, const QRect &rect, const QString &number, const QFont &font)
{
    const int air = frameWidth() + scaled(kRingWidth);
    painter->setFont(fitted(font, number, rect.adjusted(air, air, -air, -air).size()));
    const QSize size = painter->fontMetrics().size(Qt::TextSingleLine, number);
    const QRect place = QStyle::alignedRect(Qt::LeftToRight, Qt::AlignCenter, size, rect);
    painter->drawText(place, Qt::AlignCenter | Qt::TextDontClip, number);
}

/// Paints a frame inside rect; width is in screen pixels.
void paintFrame(QPainter *painter, const QRect &rect, const QColor &colour, int width)
{
    const int side = qMax(1, int(width * painter->deviceTransform().m11()));
    const QRect frame = toDevicePixels(*painter, rect);
    for (const QRect &part : QRegion(frame).subtracted(frame.adjusted(side, side, -side, -side)))
        painter->fillRect(fromDevicePixels(*painter, part), colour);
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
    m_grid->installEventFilter(this);
    // Makes the grid repaint the days that the pointer enters and leaves.
    m_grid->viewport()->setAttribute(Qt::WA_Hover);
    m_grid->viewport()->installEventFilter(this);
    parent->installEventFilter(this);
    connect(this, &QCalendarWidget::currentPageChanged, this, &DayCalendar::announceNoDay);
}

QDate DayCalendar::dateAt(int row, int column) const
{
    const QAbstractItemModel *days = m_grid->model();
    int first = 0;
    // The page begins at most a week before the first day of the month.
    while (first < days->columnCount() * 2
        && days->index(first / days->columnCount(), first % days->columnCount()).data().toInt()
            != 1)
        ++first;
    const int distance = row * days->columnCount() + column - first;
    return QDate(yearShown(), monthShown(), 1).addDays(distance);
}

void DayCalendar::pick(const QDate &date)
{
    if (!canBePicked(date))
        return;
    setSelectedDate(date);
    Q_EMIT clicked(date);
}

bool DayCalendar::showsFocus() const
{
    return m_grid->hasFocus() || parentWidget()->hasFocus();
}

QString DayCalendar::weekdayName(int column) const
{
    const auto *row = findChild<QTableWidget *>(QStringLiteral("qt_calendar_weekdayview"));
    const QTableWidgetItem *item = row ? row->item(0, column) : nullptr;
    return item ? item->data(Qt::AccessibleTextRole).toString() : QString();
}

void DayCalendar::fitHeading(const QStringList &months)
{
    m_heading = new HeadingFont(this, months);
}

int DayCalendar::headingWidth() const
{
    return m_heading ? m_heading->wantedWidth() : 0;
}

bool DayCalendar::eventFilter(QObject *watched, QEvent *event)
{
    if ((watched == m_year_edit || watched == m_grid) && keepEnter(event))
        return true;
    // The day also shows the focus of the surrounding view.
    if (watched == parent()
        && (event->type() == QEvent::FocusIn || event->type() == QEvent::FocusOut))
        m_grid->viewport()->update();
    if (watched == m_grid->viewport()) {
        if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverMove)
            m_pointer = positionOf(static_cast<QHoverEvent *>(event));
        else if (event->type() == QEvent::Leave)
            leaveDay();
        else if (event->type() == QEvent::Paint)
            m_today = QDate::currentDate(); // A system call: too expensive per cell.
    }
    return QCalendarWidget::eventFilter(watched, event);
}

// While a menu is open, there is no hover event, which would repaint the day.
void DayCalendar::leaveDay()
{
    m_pointer = kNowhere;
    m_grid->viewport()->update();
}

bool DayCalendar::event(QEvent *event)
{
    const bool changesFace =
        event->type() == QEvent::LocaleChange || event->type() == QEvent::LayoutDirectionChange;
    return changesFace ? keepFace(event) : QCalendarWidget::event(event);
}

// When the locale changes, Qt resets the first weekday and the month names; when the layout
// direction changes, it resets the arrows.
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

// When the page changes, QTableView announces its new current day as if that had the focus, even if
// an arrow or another widget has it. It needs these signals for nothing else here: the whole page
// is repainted anyway.
void DayCalendar::announceNoDay()
{
    if (!QAccessible::isActive() || showsFocus())
        return;
    QItemSelectionModel *selection = m_grid->selectionModel();
    selection->blockSignals(true);
    QTimer::singleShot(0, selection, [selection] { selection->blockSignals(false); });
}

// Does not use Qt's implementation: it paints days of other months like disabled text although they
// can be selected, weekends in their own colour even if they cannot, and cuts off numbers that are
// slightly too wide.
void DayCalendar::paintCell(QPainter *painter, const QRect &rect, DateArgument date) const
{
    const QPalette &colours = m_grid->palette();
    QTextCharFormat format = weekdayTextFormat(Qt::DayOfWeek(date.dayOfWeek()));
    format.merge(dateTextFormat(date));
    const QBrush ground = groundOf(date, format);
    painter->fillRect(rect, ground);
    painter->setPen(inkOf(date, format, ground.color()));
    paintNumber(painter, rect, m_grid->locale().toString(date.day()),
        format.font().resolve(m_grid->font()));

    if (isVeiled(date))
        painter->fillRect(rect, withAlpha(colours.color(QPalette::Base), kVeil));
    else if (canBePicked(date) && date != selectedDate() && rect.contains(m_pointer))
        painter->fillRect(rect, withAlpha(colours.color(QPalette::Highlight), kHoverTint));
    const int line = frameWidth();
    if (date == m_today)
        paintFrame(
            painter, rect, colours.color(isEnabled() ? QPalette::Highlight : QPalette::Text), line);
    if (hasFocusOn(rect)) {
        const bool isFilled = date == selectedDate();
        paintFrame(painter, rect.adjusted(line, line, -line, -line),
            colours.color(isFilled ? QPalette::HighlightedText : QPalette::Highlight),
            scaled(kRingWidth));
    }
}

QBrush DayCalendar::groundOf(const QDate &date, const QTextCharFormat &format) const
{
    const QPalette &colours = m_grid->palette();
    if (date == selectedDate())
        return colours.brush(QPalette::Highlight);
    if (format.hasProperty(QTextFormat::BackgroundBrush))
        return format.background();
    const bool isInRange = date >= minimumDate() && date <= maximumDate();
    return colours.brush(isInRange ? QPalette::Base : QPalette::Window);
}

QColor DayCalendar::inkOf(
    const QDate &date, const QTextCharFormat &format, const QColor &ground) const
{
    const QPalette &colours = m_grid->palette();
    if (date == selectedDate())
        return colours.color(QPalette::HighlightedText);
    if (!canBePicked(date))
        return colours.color(QPalette::Disabled, QPalette::Text);
    if (date.month() != monthShown())
        return mixed(colours.color(QPalette::Text), ground, kOtherMonthInk);
    const bool hasInk = format.hasProperty(QTextFormat::ForegroundBrush);
    return hasInk ? format.foreground().color() : colours.color(QPalette::Text);
}

bool DayCalendar::canBePicked(const QDate &date) const
{
    return isEnabled() && date >= minimumDate() && date <= maximumDate();
}

/// Whether the selected day would look enabled: the style has one colour for both.
bool DayCalendar::isVeiled(const QDate &date) const
{
    const QPalette &colours = m_grid->palette();
    return !isEnabled() && date == selectedDate()
        && colours.color(QPalette::Disabled, QPalette::Highlight)
        == colours.color(QPalette::Active, QPalette::Highlight);
}

bool DayCalendar::hasFocusOn(const QRect &cell) const
{
    return showsFocus() && m_grid->visualRect(m_grid->currentIndex()).contains(cell.center());
}
