// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QCalendarWidget>
#include <QDate>

class QSpinBox;
class QTableView;
class QTextCharFormat;
class QToolButton;

/// Qt's calendar, which also shows which day is today, which one the pointer is on, which ones are
/// out of range, and which one has the focus: the grid's, or that of the parent. The colours are
/// those of the day grid's palette. The Return that ends the typing of a year, or picks a day, is
/// not taken by a pop-up around it. Names, arrows and first weekday stay as they were set, whatever
/// locale or layout direction it gets.
class DayCalendar : public QCalendarWidget
{
public:
    explicit DayCalendar(QWidget *parent);

    QTableView *grid() const { return m_grid; }
    /// The day at a place of the grid.
    QDate dateAt(int row, int column) const;
    bool canBePicked(const QDate &date) const;
    /// As a click does; nothing for a day that can't be picked.
    void pick(const QDate &date);
    /// Whether the current day shows the focus, which is the grid's or that of the parent.
    bool showsFocus() const;
    /// In full, as assistive tools speak it.
    QString weekdayName(int column) const;

    bool eventFilter(QObject *watched, QEvent *event) override;

protected:
    bool event(QEvent *event) override;
    void paintCell(QPainter *painter, const QRect &rect, const QDate &date) const override;

private:
    static constexpr QPoint kNowhere {-1, -1};

    bool keepFace(QEvent *event);
    QBrush groundOf(const QDate &date, const QTextCharFormat &format) const;
    QColor inkOf(const QDate &date, const QTextCharFormat &format, const QColor &ground) const;
    bool hasFocusOn(const QRect &cell) const;

    QTableView *m_grid;
    QSpinBox *m_year_edit;
    QToolButton *m_previous;
    QToolButton *m_next;
    QToolButton *m_month;
    QPoint m_pointer = kNowhere;
    QDate m_today; // Of the last painting.
};
