// SPDX-License-Identifier: MIT
#include <vemo/vemodaterangeselector.h>

#include "core/scaling_p.h"
#include "core/stringof_p.h"

#include <vemo/vemocalanderview.h>
#include <vemo/vemodateselector.h>
#include <vemo/vemolabel.h>

#include <QEvent>
#include <QFontMetrics>
#include <QHBoxLayout>
#include <QLocale>
#include <QScopedValueRollback>

namespace {

constexpr int kGap = 8; // design pixels
constexpr int kMonths = 12;
constexpr char16_t kDash = 0x2013;

/// Texts as long as any date in a format; the names of months and weekdays differ in length.
QStringList sampleDates(const QString &format, const QLocale &locale)
{
    QStringList dates(QStringLiteral("2024-03-07"));
    for (int month = 1; month <= kMonths && !format.isEmpty(); ++month) {
        for (int day = 20; day < 27; ++day)
            dates += locale.toString(QDate(2000, month, day), format);
    }
    return dates;
}

/// Selects the date of a field in its calendar; that of the other field if it is empty.
/// setSelectedDate() does not show the month of a day that is selected already.
void selectDay(const VemoDateSelector &field, const QDate &other)
{
    const QDate day = field.date().isValid() ? field.date() : other;
    if (!day.isValid())
        return;
    field.getCalendarView()->setSelectedDate(day);
    field.getCalendarView()->setCurrentPage(day.year(), day.month());
}

} // namespace

VemoDateRangeSelector::VemoDateRangeSelector(QWidget *parent)
    : QWidget(parent), m_start(new VemoDateSelector(this)),
      m_separator(new VemoLabel(QString(QChar(kDash)), this)), m_end(new VemoDateSelector(this))
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(scaled(kGap));
    layout->addWidget(m_start, 1);
    layout->addWidget(m_separator);
    layout->addWidget(m_end, 1);
    m_separator->setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
    // Set the policy first: a label's mnemonic checks the focus policy of its buddy, not of the
    // proxy.
    setFocusPolicy(m_start->focusPolicy());
    setFocusProxy(m_start);
    setFieldWidths();
    nameFields();
    watch(m_start);
    watch(m_end);
}

QDate VemoDateRangeSelector::start() const
{
    return m_start->date();
}

QDate VemoDateRangeSelector::end() const
{
    return m_end->date();
}

QDate VemoDateRangeSelector::minimumDate() const
{
    return m_start->minimumDate();
}

void VemoDateRangeSelector::setMinimumDate(const QDate &date)
{
    if (date.isValid())
        limitCalendars(date, qMax(date, maximumDate()));
}

QDate VemoDateRangeSelector::maximumDate() const
{
    return m_end->maximumDate();
}

void VemoDateRangeSelector::setMaximumDate(const QDate &date)
{
    if (date.isValid())
        limitCalendars(qMin(minimumDate(), date), date);
}

void VemoDateRangeSelector::setDisplayFormat(const QString &format)
{
    m_start->setDisplayFormat(format);
    m_end->setDisplayFormat(format);
    setFieldWidths();
}

QString VemoDateRangeSelector::displayFormat() const
{
    return m_start->displayFormat();
}

void VemoDateRangeSelector::setStartPlaceholder(const QString &text)
{
    m_start->setPlaceholder(text);
    setFieldWidths();
}

QString VemoDateRangeSelector::startPlaceholder() const
{
    return m_start->placeholder();
}

void VemoDateRangeSelector::setEndPlaceholder(const QString &text)
{
    m_end->setPlaceholder(text);
    setFieldWidths();
}

QString VemoDateRangeSelector::endPlaceholder() const
{
    return m_end->placeholder();
}

void VemoDateRangeSelector::setPlaceholders(const QString &start, const QString &end)
{
    setStartPlaceholder(start);
    setEndPlaceholder(end);
}

void VemoDateRangeSelector::setSeparator(const QString &text)
{
    m_separator->setText(text);
}

QString VemoDateRangeSelector::separator() const
{
    return m_separator->text();
}

void VemoDateRangeSelector::setFirstDayOfWeek(Qt::DayOfWeek day)
{
    m_start->setFirstDayOfWeek(day);
    m_end->setFirstDayOfWeek(day);
}

Qt::DayOfWeek VemoDateRangeSelector::firstDayOfWeek() const
{
    return m_start->firstDayOfWeek();
}

void VemoDateRangeSelector::setClearable(bool clearable)
{
    m_start->setClearable(clearable);
    m_end->setClearable(clearable);
}

bool VemoDateRangeSelector::isClearable() const
{
    return m_start->isClearable();
}

void VemoDateRangeSelector::setTypingEnabled(bool enabled)
{
    m_start->setTypingEnabled(enabled);
    m_end->setTypingEnabled(enabled);
}

bool VemoDateRangeSelector::isTypingEnabled() const
{
    return m_start->isTypingEnabled();
}

void VemoDateRangeSelector::setStart(const QDate &date)
{
    setField(m_start, date);
}

void VemoDateRangeSelector::setEnd(const QDate &date)
{
    setField(m_end, date);
}

void VemoDateRangeSelector::setRange(const QDate &start, const QDate &end)
{
    const bool isReversed = start.isValid() && end.isValid() && start > end;
    {
        const QScopedValueRollback<bool> settling(m_settling, true);
        m_start->setDate(isReversed ? end : start);
        m_end->setDate(isReversed ? start : end);
    }
    settle(m_start);
}

void VemoDateRangeSelector::clear()
{
    {
        const QScopedValueRollback<bool> settling(m_settling, true);
        m_start->clearDate();
        m_end->clearDate();
    }
    settle(m_start);
}

void VemoDateRangeSelector::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        nameFields();
    else if (event->type() == QEvent::LocaleChange || event->type() == QEvent::FontChange)
        setFieldWidths();
}

void VemoDateRangeSelector::watch(VemoDateSelector *field)
{
    connect(field->getCalendarView(), &VemoCalanderView::sigDateSelect, this,
        [this, field] { settle(field); });
    // For dates that are cleared, or set by the program in the field itself. Later, because the
    // field still has to close its calendar and to show another month there.
    connect(
        field, qOverload<int>(&QComboBox::currentIndexChanged), this,
        [this, field] { settle(field); }, Qt::QueuedConnection);
}

void VemoDateRangeSelector::setField(VemoDateSelector *field, const QDate &date)
{
    {
        const QScopedValueRollback<bool> settling(m_settling, true);
        field->setDate(date);
    }
    settle(field);
}

/// Brings the range in order after one of its fields has changed, and reports it.
void VemoDateRangeSelector::settle(const VemoDateSelector *changed)
{
    if (m_settling || m_range == qMakePair(start(), end()))
        return;
    {
        const QScopedValueRollback<bool> settling(m_settling, true);
        if (start().isValid() && end().isValid() && start() > end())
            changed == m_start ? m_end->setDate(start()) : m_start->setDate(end());
        limitCalendars(minimumDate(), maximumDate());
    }
    const QPair<QDate, QDate> range(start(), end());
    m_range = range;
    Q_EMIT rangeChanged(range.first, range.second);
}

void VemoDateRangeSelector::limitCalendars(const QDate &minimum, const QDate &maximum)
{
    const QDate last = end().isValid() ? qBound(minimum, end(), maximum) : maximum;
    const QDate first = start().isValid() ? qBound(minimum, start(), maximum) : minimum;
    m_start->setDateRange(minimum, last);
    m_end->setDateRange(first, maximum);
    // Qt has moved the selection and the page to a day in range.
    selectDay(*m_start, end());
    selectDay(*m_end, start());
}

void VemoDateRangeSelector::nameFields()
{
    followLanguage(m_start, {"accessibleName"}, &m_start_name, stringOf("accessible_from"));
    followLanguage(m_end, {"accessibleName"}, &m_end_name, stringOf("accessible_to"));
}

/// Both fields request the width of the longest text, so that they are equally wide. QComboBox
/// counts in widths of the letter X.
void VemoDateRangeSelector::setFieldWidths()
{
    const QFontMetrics metrics = m_start->fontMetrics();
    int width = 0;
    const QStringList texts =
        sampleDates(displayFormat(), locale()) + QStringList {startPlaceholder(), endPlaceholder()};
    for (const QString &text : texts)
        width = qMax(width, metrics.horizontalAdvance(text));
    const int letters = width / qMax(1, metrics.horizontalAdvance(QLatin1Char('X'))) + 1;
    m_start->setMinimumContentsLength(letters);
    m_end->setMinimumContentsLength(letters);
}
