// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QDate>
#include <QPair>
#include <QString>
#include <QWidget>

class QLabel;
class VemoDateSelector;

/// A range of dates: two date fields in a row, with a dash or a caption of the host's between them.
///
/// Each end can be empty, which usually means that there is no limit. The start is never after the
/// end: the calendar of one field does not offer the days on the wrong side of the other date, and
/// typed dates beyond it are rejected. If the user picks such a day all the same, with the today
/// button, or the program sets one, the other date moves to the same day. The calendar of an empty
/// field opens at the other date, with that day selected.
///
/// The focus goes to the first field, also by the mnemonic of a label whose buddy is this widget.
/// The fields are announced as "From" and "To", unless the host names them.
///
/// Requires: what VemoDateSelector requires, the section "component.label", and the strings
/// "accessible_from" and "accessible_to". It belongs to its parent.
///
///     auto *changed = new VemoDateRangeSelector(page);
///     changed->setPlaceholders(tr("Any date"), tr("Any date"));
///     connect(changed, &VemoDateRangeSelector::rangeChanged, this, &MainWindow::filterByDates);
///
/// \image html date-and-time-a-range-of-dates.png
class VEMO_EXPORT VemoDateRangeSelector : public QWidget
{
    Q_OBJECT
    /// The first date; null if there is none.
    Q_PROPERTY(QDate start READ start WRITE setStart NOTIFY rangeChanged)
    /// The last date; null if there is none.
    Q_PROPERTY(QDate end READ end WRITE setEnd NOTIFY rangeChanged)
    /// The first day that can be selected.
    Q_PROPERTY(QDate minimumDate READ minimumDate WRITE setMinimumDate)
    /// The last day that can be selected.
    Q_PROPERTY(QDate maximumDate READ maximumDate WRITE setMaximumDate)
    /// The format of the dates; empty for yyyy-MM-dd.
    Q_PROPERTY(QString displayFormat READ displayFormat WRITE setDisplayFormat)
    /// The text shown if there is no first date.
    Q_PROPERTY(QString startPlaceholder READ startPlaceholder WRITE setStartPlaceholder)
    /// The text shown if there is no last date.
    Q_PROPERTY(QString endPlaceholder READ endPlaceholder WRITE setEndPlaceholder)
    /// The text between the fields.
    Q_PROPERTY(QString separator READ separator WRITE setSeparator)
    /// The first column of the calendars.
    Q_PROPERTY(Qt::DayOfWeek firstDayOfWeek READ firstDayOfWeek WRITE setFirstDayOfWeek)
    /// Whether the user can clear the dates.
    Q_PROPERTY(bool clearable READ isClearable WRITE setClearable)
    /// Whether the user can type the dates.
    Q_PROPERTY(bool typingEnabled READ isTypingEnabled WRITE setTypingEnabled)

public:
    /// Creates an empty range without placeholders.
    explicit VemoDateRangeSelector(QWidget *parent = nullptr);

    QDate start() const; ///< the first date; null if there is none
    QDate end() const; ///< the last date; null if there is none

    /// The first day that can be selected; initially far in the past.
    QDate minimumDate() const;
    /// Sets the first day that can be selected. If it is after the last one, it becomes both.
    /// Invalid dates are ignored. The range that is shown does not change, and the setters of dates
    /// ignore these limits, as in VemoDateSelector.
    void setMinimumDate(const QDate &date);
    /// The last day that can be selected; initially far in the future.
    QDate maximumDate() const;
    /// Sets the last day that can be selected. If it is before the first one, it becomes both.
    /// Otherwise as setMinimumDate().
    void setMaximumDate(const QDate &date);

    /// Sets the format of both dates, see VemoDateSelector::setDisplayFormat(). Both fields request
    /// the width of the longest date in this format, or of a longer placeholder.
    void setDisplayFormat(const QString &format);
    QString displayFormat() const; ///< initially empty, which means yyyy-MM-dd

    void setStartPlaceholder(
        const QString &text); ///< sets the text shown if there is no first date
    QString startPlaceholder() const; ///< initially empty
    void setEndPlaceholder(const QString &text); ///< sets the text shown if there is no last date
    QString endPlaceholder() const; ///< initially empty
    void setPlaceholders(const QString &start, const QString &end); ///< sets both

    /// Sets the text between the fields, plain text such as tr("to"). Initially a dash.
    void setSeparator(const QString &text);
    QString separator() const; ///< the text between the fields

    /// Sets the first column of both calendars, see VemoCalanderView::setFirstDayOfWeek().
    void setFirstDayOfWeek(Qt::DayOfWeek day);
    Qt::DayOfWeek firstDayOfWeek() const; ///< initially Sunday

    /// Sets whether the user can clear each date, see VemoDateSelector::setClearable().
    void setClearable(bool clearable);
    bool isClearable() const; ///< initially false

    /// Sets whether the user can type the dates, see VemoDateSelector::setTypingEnabled().
    void setTypingEnabled(bool enabled);
    bool isTypingEnabled() const; ///< initially false

    /// The field of the first date, which belongs to this widget. A date that the program sets in
    /// the field itself is reported in the next round of the event loop.
    VemoDateSelector *startField() const { return m_start; }
    VemoDateSelector *endField() const { return m_end; } ///< the same for the last date

public Q_SLOTS:
    /// Sets the first date; an invalid one clears it. If it is after the last date, that becomes
    /// the same day.
    void setStart(const QDate &date);
    /// Sets the last date; an invalid one clears it. If it is before the first date, that becomes
    /// the same day.
    void setEnd(const QDate &date);
    /// Sets both dates at once; either may be invalid, which clears it. If the start is after the
    /// end, they are swapped.
    void setRange(const QDate &start, const QDate &end);
    /// Clears both dates.
    void clear();

Q_SIGNALS:
    /// Emitted once for each change of the range, by the user or by the program, after both fields
    /// show it and the calendar is closed. A slot may delete this widget with deleteLater().
    void rangeChanged(const QDate &start, const QDate &end);

protected:
    /// Takes the names of the fields in another language.
    void changeEvent(QEvent *event) override;

private:
    void watch(VemoDateSelector *field);
    void setField(VemoDateSelector *field, const QDate &date);
    void settle(const VemoDateSelector *changed);
    void limitCalendars(const QDate &minimum, const QDate &maximum);
    void nameFields();
    void setFieldWidths();

    VemoDateSelector *m_start;
    QLabel *m_separator;
    VemoDateSelector *m_end;
    QPair<QDate, QDate> m_range; ///< as reported last
    bool m_settling = false; ///< while the program sets a field
    QString m_start_name; ///< ours; a field may have one of the host's
    QString m_end_name;
};
