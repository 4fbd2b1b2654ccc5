// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QComboBox>
#include <QDate>
#include <QString>

class DateClearing;
class DateTyping;
class VemoCalanderView;

/// A date field: a combo box that opens a month calendar. Its only item shows the date as
/// "yyyy-MM-dd", or a placeholder if there is none; the item's data is the date, or null for the
/// placeholder.
///
/// It has no signal of its own: connect to sigDateSelect(QDate) of getCalendarView(), which is
/// emitted when the user selects a day, or to the signals of QComboBox. Because the item is
/// recreated, every change of the date, including those by the program, emits currentIndexChanged()
/// twice, with -1 and with 0. Selecting a date closes the calendar. The field is 32 design pixels
/// high, the calendar 280 x 260.
///
/// Requires: pictures, style files, strings; without the sections "component.date_selector" and
/// "component.menu" it looks plain, with warnings. It belongs to its parent.
///
///     auto *from = new VemoDateSelector(tr("Any date"), page);
///     from->getCalendarView()->setMaximumDate(QDate::currentDate());
///     const QDate date = from->currentData().toDate(); // null if none is selected
///
/// \image html date-and-time-date-fields.png
class VEMO_EXPORT VemoDateSelector : public QComboBox
{
    Q_OBJECT
    /// The selected date; null if there is none.
    Q_PROPERTY(QDate date READ date WRITE setDate RESET clearDate)
    /// The first day that can be selected.
    Q_PROPERTY(QDate minimumDate READ minimumDate WRITE setMinimumDate)
    /// The last day that can be selected.
    Q_PROPERTY(QDate maximumDate READ maximumDate WRITE setMaximumDate)
    /// The first column of the calendar.
    Q_PROPERTY(Qt::DayOfWeek firstDayOfWeek READ firstDayOfWeek WRITE setFirstDayOfWeek)
    /// The format of the date; empty for yyyy-MM-dd.
    Q_PROPERTY(QString displayFormat READ displayFormat WRITE setDisplayFormat)
    /// Whether the user can clear the date.
    Q_PROPERTY(bool clearable READ isClearable WRITE setClearable)
    /// Whether the user can type a date.
    Q_PROPERTY(bool typingEnabled READ isTypingEnabled WRITE setTypingEnabled)
    /// The text shown if there is no date.
    Q_PROPERTY(QString placeholder READ placeholder WRITE setPlaceholder)

public:
    /// Creates a field that shows the placeholder, which may be empty.
    explicit VemoDateSelector(QString placeholder, QWidget *parent = nullptr);
    explicit VemoDateSelector(QWidget *parent = nullptr); ///< Creates one without a placeholder.
    ~VemoDateSelector() override;

    /// The selected date; null if there is none.
    QDate date() const;
    /// Same as dateSelect(); for forms.
    void setDate(const QDate &date);

    QDate minimumDate() const; ///< the first day that can be selected in the calendar
    void setMinimumDate(const QDate &date); ///< see VemoCalanderView::setMinimumDate()
    QDate maximumDate() const; ///< the last day that can be selected in the calendar
    void setMaximumDate(const QDate &date); ///< see VemoCalanderView::setMaximumDate()
    void setDateRange(const QDate &first, const QDate &last); ///< sets both

    /// Sets the first column of the calendar, see VemoCalanderView::setFirstDayOfWeek().
    void setFirstDayOfWeek(Qt::DayOfWeek day);
    Qt::DayOfWeek firstDayOfWeek() const; ///< initially Sunday

    /// Sets the format of the date for QLocale::toString(), with the widget's locale(). The
    /// default, an empty format, means "yyyy-MM-dd" with the digits 0 to 9 in every locale. For the
    /// locale's own format, call setDisplayFormat(locale().dateFormat(QLocale::ShortFormat)).
    void setDisplayFormat(const QString &format);
    QString displayFormat() const { return m_display_format; } ///< initially empty

    /// Sets whether the user can clear the date with Delete or Backspace, and with a button in the
    /// field that is shown if there is a date. Initially false. Looks up the picture "bt_close",
    /// the section "component.icon_button" and the string "accessible_clear".
    void setClearable(bool clearable);
    bool isClearable() const; ///< whether the user can clear the date

    /// Sets whether the user can type a date, initially false. Return and the loss of the focus
    /// take a date in displayFormat(), in the short format of locale() or as "yyyy-MM-dd", in which
    /// the zeros may be missing, and emit sigDateSelect() of the calendar. Years of two digits are
    /// those from 1950 to 2049. An empty text clears the date; any other text, and a date out of
    /// range, shows the previous date again. Without a date, currentText() is then empty.
    void setTypingEnabled(bool enabled);
    bool isTypingEnabled() const; ///< whether the user can type a date

    /// Sets the placeholder and shows it if there is no date. (QComboBox's own placeholder text is
    /// never visible, because the field always has an item.)
    void setPlaceholder(const QString &placeholder);
    /// The text shown if there is no date.
    QString placeholder() const { return m_placeholder; }

    /// Shows the placeholder, and the current month in the calendar.
    void clearDate();

    /// The calendar in the pop-up, which belongs to the field.
    VemoCalanderView *getCalendarView() const;

public Q_SLOTS:
    /// Shows date in the field, shows its month in the calendar without selecting the day there,
    /// and closes the calendar. The calendar's range is ignored. An invalid date shows the
    /// placeholder and does not change the calendar.
    void dateSelect(const QDate &date);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    friend class DateClearing;

    void showPlaceholder();
    void setUpSizes();
    void setUpStyle();
    QString textOf(const QDate &date) const;

    VemoCalanderView *m_calendar_view;
    QString m_placeholder;
    QString m_display_format;
    DateClearing *m_clearing = nullptr; ///< a child if the date can be cleared, otherwise null
    DateTyping *m_typing = nullptr; ///< a child if a date can be typed, otherwise null
};
