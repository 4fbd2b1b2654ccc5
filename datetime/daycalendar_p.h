// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "core/qtcompat_p.h"

#include <QCalendarWidget>
#include <QDate>

class HeadingFont;
class QSpinBox;
class QTableView;
class QTextCharFormat;
class QToolButton;

/// A QCalendarWidget that also marks today, the day under the pointer, days out of range, and the
/// day with the focus of the grid or of the parent, in colours of the grid's palette. When Return
/// finishes the input of a year or selects a day, a surrounding pop-up does not receive the key.
/// Names, arrows and first weekday do not change with the locale or the layout direction.
class DayCalendar : public QCalendarWidget
{
public:
    explicit DayCalendar(QWidget *parent);

    QTableView *grid() const { return m_grid; }
    /// The day in a cell of the grid.
    QDate dateAt(int row, int column) const;
    bool canBePicked(const QDate &date) const;
    /// Selects a day like a click. Has no effect if the day is out of range.
    void pick(const QDate &date);
    /// Whether the current day shows the focus, because the grid or the parent has it.
    bool showsFocus() const;
    /// The full name, for assistive tools.
    QString weekdayName(int column) const;

    /// From now on month and year fit into the calendar, in a smaller font where it is too narrow.
    void fitHeading(const QStringList &months);
    /// What month and year need in their own font, with the arrows; 0 if not known yet.
    int headingWidth() const;

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    bool event(QEvent *event) override;
    void paintCell(QPainter *painter, const QRect &rect, DateArgument date) const override;

private:
    static constexpr QPoint kNowhere {-1, -1};

    void leaveDay();
    bool keepFace(QEvent *event);
    void announceNoDay();
    QBrush groundOf(const QDate &date, const QTextCharFormat &format) const;
    QColor inkOf(const QDate &date, const QTextCharFormat &format, const QColor &ground) const;
    bool isVeiled(const QDate &date) const;
    bool hasFocusOn(const QRect &cell) const;

    QTableView *m_grid;
    QSpinBox *m_year_edit;
    QToolButton *m_previous;
    QToolButton *m_next;
    QToolButton *m_month;
    HeadingFont *m_heading = nullptr;
    QPoint m_pointer = kNowhere;
    QDate m_today; // At the last paint event.
};
