// SPDX-License-Identifier: MIT
#pragma once

#include "support/vemotest.h"

#include <vemo/vemobutton.h>
#include <vemo/vemocalanderview.h>

#include <QCalendarWidget>
#include <QHeaderView>
#include <QMenu>
#include <QSpinBox>
#include <QTableWidget>
#include <QTimer>
#include <QToolButton>

/// The parts of a calendar view, by their object names.
struct Parts
{
    explicit Parts(const QObject *view)
        : calendar(view->findChild<QCalendarWidget *>()),
          previous(view->findChild<QToolButton *>("qt_calendar_prevmonth")),
          next(view->findChild<QToolButton *>("qt_calendar_nextmonth")),
          month(view->findChild<QToolButton *>("qt_calendar_monthbutton")),
          year(view->findChild<QToolButton *>("qt_calendar_yearbutton")),
          yearEdit(view->findChild<QSpinBox *>("qt_calendar_yearedit")),
          bar(view->findChild<QWidget *>("qt_calendar_navigationbar")),
          grid(view->findChild<QTableView *>("qt_calendar_calendarview")),
          weekdays(view->findChild<QTableWidget *>("qt_calendar_weekdayview")),
          today(view->findChild<VemoButton *>("qt_calendar_today_button"))
    {
    }

    /// The rectangle of a day of the current page in the grid's viewport.
    QRect cell(int day) const
    {
        const QAbstractItemModel *days = grid->model();
        bool hasBegun = false;
        for (int row = 0; row < days->rowCount(); ++row) {
            for (int column = 0; column < days->columnCount(); ++column) {
                const QModelIndex index = days->index(row, column);
                const QRect place = grid->visualRect(index);
                const int number = index.data().toInt();
                hasBegun |= number == 1 && !place.isEmpty();
                if (hasBegun && number == day)
                    return place;
            }
        }
        return {};
    }
    void clickDay(int day) const
    {
        QTest::mouseClick(grid->viewport(), Qt::LeftButton, {}, cell(day).center());
    }
    /// Opens the month menu, which runs its own event loop, and selects a month.
    void pickMonth(int number, bool byMouse = false) const
    {
        QTimer::singleShot(0, month, [this, number, byMouse] {
            QMenu *menu = month->menu();
            QAction *entry = menu->actions().at(number - 1);
            if (byMouse) {
                QTest::mouseMove(menu, menu->actionGeometry(entry).center());
                QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(entry).center());
            } else {
                menu->setActiveAction(entry);
                QTest::keyClick(menu, Qt::Key_Return);
            }
            menu->close();
        });
        QTest::mousePress(month, Qt::LeftButton);
    }

    QCalendarWidget *calendar;
    QToolButton *previous;
    QToolButton *next;
    QToolButton *month;
    QToolButton *year;
    QSpinBox *yearEdit;
    QWidget *bar;
    QTableView *grid;
    QTableWidget *weekdays;
    VemoButton *today;
};

/// The text of Qt's year button, in the digits of the locale.
inline QString yearText(int year)
{
    return QLocale().toString(QDate(year, 1, 1), "yyyy");
}

inline QStringList englishMonths()
{
    return {"January", "February", "March", "April", "May", "June", "July", "August", "September",
        "October", "November", "December"};
}
