// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QAbstractItemView>
#include <QColor>
#include <QDate>
#include <QMap>
#include <QStringList>

class QAction;
class QCalendarWidget;
class QTableWidget;

/// A month calendar with translated names, a weekday row, arrows of the library's pictures and a
/// "today" button below. Tab walks through all its parts, beginning with the view itself, where the
/// arrows, Page keys, Home and End already move the day, and Return picks it. (The class is meant
/// to be spelt this way.)
///
/// It is an item view only so that a combo box can take it for its list, as VemoDateSelector does;
/// it shows no model. Pictures, style files and strings must be loaded before; a missing
/// name shows its key. QEvent::LanguageChange makes it take its texts again. It sets no style sheet
/// on itself; the section "component.date_selector" styles it if an ancestor has it set, or you
/// set it. The view belongs to its parent and owns its parts, which keep the object names of
/// QCalendarWidget's own ("qt_calendar_prevmonth", ...).
///
///     auto *calendar = new VemoCalanderView(page);
///     calendar->setMinimumDate(QDate::currentDate());
///     connect(calendar, &VemoCalanderView::sigDateSelect, this, &MainWindow::selectDate);
///
/// \image html date-and-time-calendars.png
class VEMO_EXPORT VemoCalanderView : public QAbstractItemView
{
    Q_OBJECT
    Q_PROPERTY(QDate minimumDate READ minimumDate WRITE setMinimumDate)
    Q_PROPERTY(QDate maximumDate READ maximumDate WRITE setMaximumDate)
    Q_PROPERTY(QDate selectedDate READ selectedDate WRITE setSelectedDate)
    Q_PROPERTY(Qt::DayOfWeek firstDayOfWeek READ firstDayOfWeek WRITE setFirstDayOfWeek)

public:
    /// Creates a calendar that shows the current month, with today selected.
    explicit VemoCalanderView(QWidget *parent = nullptr);
    ~VemoCalanderView() override;

    /// Shows a month, counted from 1, regardless of the range. The selected day does not change.
    void setCurrentPage(int year, int month);
    /// Sets the first day that can be selected. If it is after the last one, it becomes both.
    /// Invalid dates are ignored by this and the other setters.
    void setMinimumDate(const QDate &date);
    /// The first day that can be selected; initially far in the past.
    QDate minimumDate() const;
    /// Sets the last day that can be selected. If it is before the first one, it becomes both.
    void setMaximumDate(const QDate &date);
    /// The last day that can be selected; initially far in the future.
    QDate maximumDate() const;

    /// Sets both, as in QCalendarWidget. Ignored if either is invalid.
    void setDateRange(const QDate &first, const QDate &last);

    /// Sets the first column of the days; initially Sunday in every locale. For that of the locale,
    /// call setFirstDayOfWeek(locale().firstDayOfWeek()).
    void setFirstDayOfWeek(Qt::DayOfWeek day);
    Qt::DayOfWeek firstDayOfWeek() const; ///< initially Sunday

    /// Selects date, or the nearest day in range, and shows its month without emitting a signal.
    /// Initially today is selected.
    void setSelectedDate(const QDate &date);
    /// The selected day.
    QDate selectedDate() const;

    /// At least minimumSizeHint().
    QSize sizeHint() const override;
    /// The space that all days need in the view's font.
    QSize minimumSizeHint() const override;

    bool eventFilter(QObject *watched, QEvent *event) override;

    // The view does not show a model, so these do nothing and return empty values.
    /// Always empty.
    QRect visualRect(const QModelIndex &index) const override;
    /// Does nothing.
    void scrollTo(const QModelIndex &index, ScrollHint hint) override;
    /// Always invalid.
    QModelIndex indexAt(const QPoint &point) const override;

public Q_SLOTS:
    /// Selects today, or the nearest day in range, and emits sigDateSelect() with today.
    void selectToday();

Q_SIGNALS:
    /// Emitted when a day is selected by a click, by Return, by the today button or by
    /// selectToday(), but not by setSelectedDate(). A double click also activates the day and so
    /// emits it twice.
    void sigDateSelect(QDate date);

protected:
    QModelIndex moveCursor(CursorAction cursorAction, Qt::KeyboardModifiers modifiers) override;
    int horizontalOffset() const override;
    int verticalOffset() const override;
    bool isIndexHidden(const QModelIndex &index) const override;
    void setSelection(const QRect &rect, QItemSelectionModel::SelectionFlags command) override;
    QRegion visualRegionForSelection(const QItemSelection &selection) const override;
    void keyPressEvent(QKeyEvent *event) override;
    /// Takes the texts of another language.
    void changeEvent(QEvent *event) override;
    /// Takes pictures and colors of a reloaded theme.
    void customEvent(QEvent *event) override;

private Q_SLOTS:
    void pageChanged(int, int month);
    void slotMonthTriggered(QAction *action);

private:
    void handleNavigationBar();
    void handleMonthMenu();
    void handleWeekdayHeader();
    void handleTabOrder();
    void setUpCalendar();
    void setWeekendInk();
    void translate();
    QString taken(const char *key);
    void showMonthNames();
    void showWeekdays();
    void connectParts();
    void nameParts();
    void showMonthName(int month);

    QTableWidget *m_weekday_header = nullptr;
    QStringList m_month_names;
    QColor m_weekend_ink;
    QMap<QString, QString> m_texts; ///< those on show, by key
    QCalendarWidget *m_calendar = nullptr;
};
