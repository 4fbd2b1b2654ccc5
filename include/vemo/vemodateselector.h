// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QComboBox>
#include <QDate>
#include <QString>

class DateClearing;
class VemoCalanderView;

/// A date field: a combo box that opens a whole month calendar. Its single item shows the date as
/// "yyyy-MM-dd", or a placeholder while there is none; the item's data holds the date, null for the
/// placeholder.
///
/// It has no signal of its own: listen to getCalendarView()'s sigDateSelect(QDate), which comes
/// when the user picks a day, or to those of QComboBox: as the item is made anew, each change of
/// the date, the program's too, emits currentIndexChanged() twice, with -1 and with 0. Picking a
/// date closes the calendar. The field is 32 design pixels high, the calendar 280 x 260.
///
/// Load pictures, style files and strings before; without the sections "component.date_selector"
/// and "component.menu" it looks plain, with a warning each. It belongs to its parent.
///
///     auto *from = new VemoDateSelector(tr("Any date"), page);
///     from->getCalendarView()->setMaximumDate(QDate::currentDate());
///     const QDate date = from->currentData().toDate(); // null while none is chosen
///
/// \image html date-and-time-date-fields.png
class VEMO_EXPORT VemoDateSelector : public QComboBox
{
    Q_OBJECT
    Q_PROPERTY(QDate date READ date WRITE setDate RESET clearDate)
    Q_PROPERTY(QDate minimumDate READ minimumDate WRITE setMinimumDate)
    Q_PROPERTY(QDate maximumDate READ maximumDate WRITE setMaximumDate)
    Q_PROPERTY(QString displayFormat READ displayFormat WRITE setDisplayFormat)
    Q_PROPERTY(bool clearable READ isClearable WRITE setClearable)
    Q_PROPERTY(QString placeholder READ placeholder WRITE setPlaceholder)

public:
    /// Shows the placeholder, which may be empty and is kept.
    explicit VemoDateSelector(QString placeholder, QWidget *parent = nullptr);
    explicit VemoDateSelector(QWidget *parent = nullptr); ///< with an empty placeholder
    ~VemoDateSelector() override;

    /// The chosen date, null while there is none.
    QDate date() const;
    /// dateSelect() by another name, for forms.
    void setDate(const QDate &date);

    QDate minimumDate() const; ///< the first day that the calendar lets the user pick
    void setMinimumDate(const QDate &date); ///< see VemoCalanderView::setMinimumDate()
    QDate maximumDate() const; ///< the last day that the calendar lets the user pick
    void setMaximumDate(const QDate &date); ///< see VemoCalanderView::setMaximumDate()
    void setDateRange(const QDate &first, const QDate &last); ///< both at once

    /// How the date is written, as QLocale::toString() takes it, in the widget's locale(). An empty
    /// format, as at first, means "yyyy-MM-dd" with the digits 0 to 9 in every locale; for the
    /// locale's own write setDisplayFormat(locale().dateFormat(QLocale::ShortFormat)).
    void setDisplayFormat(const QString &format);
    QString displayFormat() const { return m_display_format; } ///< empty at first

    /// Whether the user can go back to the placeholder: by Delete or Backspace, and by a button in
    /// the field, which is shown while there is a date. False at first. Looks up the picture
    /// "bt_close", the section "component.icon_button" and the string "accessible_clear".
    void setClearable(bool clearable);
    bool isClearable() const; ///< whether the user can go back to the placeholder

    /// Takes the place of the old one where that is shown. (QComboBox's own placeholder text is
    /// never seen: the field has an item at all times.)
    void setPlaceholder(const QString &placeholder);
    /// What shows while there is no date.
    QString placeholder() const { return m_placeholder; }

    /// Back to the placeholder; the calendar shows the current month.
    void clearDate();

    /// The calendar that opens, which is the field's own.
    VemoCalanderView *getCalendarView() const;

public Q_SLOTS:
    /// Shows date, turns the calendar to its month, without selecting the day there, and closes it.
    /// The calendar's range is not looked at. An invalid date shows the placeholder and leaves the
    /// calendar as it is.
    void dateSelect(const QDate &date);

private:
    friend class DateClearing;

    void showPlaceholder();
    void setUpSizes();
    void setUpStyle();
    QString textOf(const QDate &date) const;

    VemoCalanderView *m_calendar_view;
    QString m_placeholder;
    QString m_display_format;
    DateClearing *m_clearing = nullptr; ///< a child, while the date can be cleared
};
