// SPDX-License-Identifier: MIT
#include "datefilter.h"

#include "texts.h"

#include <vemo/dpiinfo.h>
#include <vemo/vemobutton.h>
#include <vemo/vemocalanderview.h>
#include <vemo/vemodateselector.h>
#include <vemo/vemolabel.h>
#include <vemo/vemotimecombobox.h>

#include <QGridLayout>
#include <QTime>

namespace {

constexpr int kGap = 8; // design pixels
constexpr int kSmallGap = 4; // design pixels
constexpr int kTimeWidth = 88; // design pixels
constexpr int kMinutesApart = 30;
constexpr int kMinutesOfDay = 24 * 60;
constexpr int kLastMillisecond = 59999; // of a minute

const char *const kFirstMinute = "00:00";
const char *const kLastMinute = "23:59";

VemoTimeComboBox *newTimeBox(const char *time)
{
    auto *box = new VemoTimeComboBox;
    for (int minute = 0; minute < kMinutesOfDay; minute += kMinutesApart)
        box->addItem(QTime(0, 0).addSecs(minute * 60).toString("HH:mm"));
    box->addItem(kLastMinute);
    box->setEditable(true);
    box->setDefault(time);
    box->setCurrentText(time);
    box->setFixedWidth(DPIinfo::scaled(kTimeWidth));
    return box;
}

} // namespace

DateFilter::DateFilter(QWidget *parent)
    : QWidget(parent), m_clear(new VemoButton(QString(), VemoButton::CANCEL))
{
    setObjectName("dateFilter");
    auto *layout = new QGridLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setHorizontalSpacing(DPIinfo::scaled(kGap));
    layout->setVerticalSpacing(DPIinfo::scaled(kSmallGap));
    m_from = addMoment(layout, "changed_from", "from");
    layout->setRowMinimumHeight(layout->rowCount(), DPIinfo::scaled(kSmallGap));
    m_to = addMoment(layout, "changed_to", "to");
    layout->setRowMinimumHeight(layout->rowCount(), DPIinfo::scaled(kSmallGap));
    m_clear->setObjectName("clearDates");
    translate(m_clear, [this] { m_clear->setText(text("clear_dates")); });
    layout->addWidget(m_clear, layout->rowCount(), 0, 1, 2, Qt::AlignRight);
    connect(m_clear, &VemoButton::clicked, this, &DateFilter::clear);
    m_from.time->setCurrentText(kFirstMinute);
    m_to.time->setDefault(kLastMinute);
    m_to.time->setCurrentText(kLastMinute);
    update();
}

DateFilter::Moment DateFilter::addMoment(
    QGridLayout *layout, const char *caption, const QString &name)
{
    Moment moment;
    moment.date = new VemoDateSelector(text("any_day"));
    moment.date->setObjectName(name + "Date");
    moment.date->getCalendarView()->setObjectName(name + "Calendar");
    moment.time = newTimeBox(kFirstMinute);
    moment.time->setObjectName(name + "Time");
    auto *label = new VemoLabel(QString());
    translate(label, [=] {
        label->setText(text(caption));
        moment.date->setPlaceholder(text("any_day"));
        moment.date->setAccessibleName(text(caption));
        moment.time->setAccessibleName(text("accessible_time", text(caption)));
    });
    const int row = layout->rowCount();
    layout->addWidget(label, row, 0, 1, 2);
    layout->addWidget(moment.date, row + 1, 0);
    layout->addWidget(moment.time, row + 1, 1);
    connect(moment.date->getCalendarView(), &VemoCalanderView::sigDateSelect, this,
        &DateFilter::update, Qt::QueuedConnection);
    connect(moment.time, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
        &DateFilter::update, Qt::QueuedConnection);
    return moment;
}

QDateTime DateFilter::Moment::value() const
{
    const QDate day = date->currentData().toDate();
    return day.isValid() ? QDateTime(day, QTime::fromString(time->currentText(), "HH:mm"))
                         : QDateTime();
}

QDateTime DateFilter::from() const
{
    return m_from.value();
}

QDateTime DateFilter::to() const
{
    const QDateTime minute = m_to.value();
    return minute.isValid() ? minute.addMSecs(kLastMillisecond) : minute;
}

void DateFilter::setDays(const QDate &from, const QDate &to)
{
    m_from.date->dateSelect(from);
    m_to.date->dateSelect(to);
    update();
}

void DateFilter::clear()
{
    m_from.date->clearDate();
    m_to.date->clearDate();
    update();
}

/// A time requires a day.
void DateFilter::update()
{
    m_from.time->setEnabled(from().isValid());
    m_to.time->setEnabled(to().isValid());
    m_clear->setEnabled(from().isValid() || to().isValid());
    Q_EMIT changed();
}
