// SPDX-License-Identifier: MIT
#include "gallery/demotexts.h"
#include "gallery/page.h"
#include "gallery/pages/pages.h"

#include <vemo/dpiinfo.h>
#include <vemo/stylemanager.h>
#include <vemo/vemobutton.h>
#include <vemo/vemocalanderview.h>
#include <vemo/vemocheckbox.h>
#include <vemo/vemodaterangeselector.h>
#include <vemo/vemodateselector.h>
#include <vemo/vemolineedit.h>
#include <vemo/vemotimecombobox.h>

#include <QCalendarWidget>
#include <QDate>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QTime>

namespace {

// In design pixels.
constexpr int kFieldWidth = 224;
constexpr int kTimeWidth = 200;
constexpr int kGap = 12;

constexpr int kLogLines = 3;
constexpr int kMinutesApart = 30;
constexpr int kRange = 10; // Days before and after today.

/// The last signals, the newest first.
class SignalLog
{
public:
    SignalLog() : m_label(note("No signal yet")) { m_label->setAccessibleName("Signals"); }
    QLabel *label() const { return m_label; }

    void watch(const QString &name, VemoDateSelector *field) const
    {
        QObject::connect(field->getCalendarView(), &VemoCalanderView::sigDateSelect, m_label,
            [label = m_label, name](const QDate &date) {
                write(label, name, "sigDateSelect " + date.toString(Qt::ISODate));
            });
        watchIndex(name, field);
    }
    void watch(const QString &name, VemoDateRangeSelector *range) const
    {
        QObject::connect(range, &VemoDateRangeSelector::rangeChanged, m_label,
            [label = m_label, name](const QDate &start, const QDate &end) {
                write(label, name,
                    QString("rangeChanged \"%1\", \"%2\"")
                        .arg(start.toString(Qt::ISODate), end.toString(Qt::ISODate)));
            });
    }
    void watch(const QString &name, VemoCalanderView *calendar) const
    {
        QObject::connect(calendar, &VemoCalanderView::sigDateSelect, m_label,
            [label = m_label, name](const QDate &date) {
                write(label, name, "sigDateSelect " + date.toString(Qt::ISODate));
            });
    }
    void watchIndex(const QString &name, QComboBox *box) const
    {
        QObject::connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), m_label,
            [label = m_label, name, box](int index) {
                write(label, name,
                    QString("currentIndexChanged %1, \"%2\"").arg(index).arg(box->currentText()));
            });
    }

private:
    static void write(QLabel *label, const QString &name, const QString &signal)
    {
        QStringList lines = label->property("lines").toStringList();
        lines.prepend(name + ": " + signal);
        lines = lines.mid(0, kLogLines);
        label->setProperty("lines", lines);
        label->setText(lines.join('\n'));
    }

    QLabel *m_label;
};

/// Widgets side by side.
QWidget *row(const QList<QWidget *> &widgets)
{
    auto *host = new QWidget;
    auto *layout = new QHBoxLayout(host);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(DPIinfo::scaled(kGap));
    for (QWidget *widget : widgets)
        layout->addWidget(widget);
    return host;
}

VemoDateSelector *dateField(const QString &placeholder, const QString &name)
{
    auto *field = new VemoDateSelector(placeholder, nullptr);
    field->setFixedWidth(DPIinfo::scaled(kFieldWidth));
    field->setAccessibleName(name);
    return field;
}

void limit(VemoCalanderView *calendar)
{
    calendar->setMinimumDate(QDate::currentDate().addDays(-kRange));
    calendar->setMaximumDate(QDate::currentDate().addDays(kRange));
}

/// What a date field looks like when it is open.
QPixmap openField(bool isLimited)
{
    VemoDateSelector field(demo("any_date"), nullptr);
    VemoCalanderView *calendar = field.getCalendarView();
    if (isLimited)
        limit(calendar);
    calendar->findChild<QCalendarWidget *>()->setSelectedDate(QDate::currentDate().addDays(3));
    QWidget *list = calendar->parentWidget();
    list->resize(calendar->size());
    return list->grab();
}

void addFields(Page &page)
{
    const SignalLog log;
    VemoDateSelector *any = dateField(demo("any_date"), "Date");
    VemoDateSelector *limited = dateField(demo("within_ten_days"), "Date within ten days");
    limit(limited->getCalendarView());
    VemoDateSelector *chosen = dateField(demo("any_date"), "Chosen date");
    chosen->dateSelect(QDate::currentDate());
    VemoDateSelector *disabled = dateField(demo("any_date"), "Disabled date");
    disabled->setEnabled(false);
    log.watch("Live", any);
    log.watch("Limited", limited);
    log.watch("Chosen", chosen);
    auto *clear = new VemoButton(demo("clear"), VemoButton::CANCEL);
    QObject::connect(clear, &VemoButton::clicked, any, &VemoDateSelector::clearDate);

    page.addSection("Date fields", "A field opens a whole calendar, and shows what is picked.");
    page.addRow(
        {captioned(row({any, clear}), "Live"), captioned(limited, "Ten days around today")});
    page.addRow({captioned(chosen, "A date chosen"), captioned(disabled, "Disabled")});
    page.addRow({captioned(dateField("Beliebiges Datum", "German date"), "German"),
        captioned(dateField("任何日期", "Chinese date"), "Chinese")});
    page.addRow({captioned(picture([] { return openField(false); }), "The open calendar"),
        captioned(picture([] { return openField(true); }), "With a range")});
    page.add(log.label());
    page.addCode(R"(auto *from = new VemoDateSelector(tr("Any date"), page);
from->getCalendarView()->setMaximumDate(QDate::currentDate());
const QDate date = from->currentData().toDate(); // null while none is chosen)");
}

void addTyping(Page &page)
{
    VemoDateSelector *empty = dateField(demo("any_date"), "Typed date");
    VemoDateSelector *chosen = dateField(demo("any_date"), "Typed date to clear");
    chosen->dateSelect(QDate::currentDate());
    chosen->setClearable(true);
    for (VemoDateSelector *field : {empty, chosen}) {
        field->setTypingEnabled(true);
        field->getCalendarView()->setFirstDayOfWeek(Qt::Monday);
    }
    page.addSection("Typing a date",
        "Return, or leaving the field, takes a date such as 2026-3-7; any other text is replaced "
        "by the date before. The weeks of these calendars begin on Monday.");
    page.addRow({captioned(empty, "No date"), captioned(chosen, "Can be cleared")});
    page.addCode(R"(from->setTypingEnabled(true);
from->getCalendarView()->setFirstDayOfWeek(Qt::Monday);)");
}

VemoDateRangeSelector *rangeField(const QDate &start, const QDate &end)
{
    auto *range = new VemoDateRangeSelector;
    range->setPlaceholders(demo("any_date"), demo("any_date"));
    range->setRange(start, end);
    range->setClearable(true);
    return range;
}

void addRanges(Page &page)
{
    const SignalLog log;
    VemoDateRangeSelector *live = rangeField({}, {});
    log.watch("Live", live);
    const QDate today = QDate::currentDate();
    VemoDateRangeSelector *chosen = rangeField(today.addDays(-kRange), today);
    chosen->setTypingEnabled(true);
    VemoDateRangeSelector *open = rangeField(today, {});
    open->setSeparator(demo("until"));
    VemoDateRangeSelector *disabled = rangeField(today.addDays(-kRange), today);
    disabled->setEnabled(false);
    page.addSection("A range of dates",
        "Two fields. The calendar of each offers no days beyond the other date, and one signal "
        "reports the range.");
    page.addRow({captioned(live, "Live"), captioned(chosen, "Dates can be typed")});
    page.addRow({captioned(open, "No end, a text between"), captioned(disabled, "Disabled")});
    page.add(log.label());
    page.addCode(R"(auto *changed = new VemoDateRangeSelector(page);
changed->setPlaceholders(tr("Any date"), tr("Any date"));
connect(changed, &VemoDateRangeSelector::rangeChanged, this, &MainWindow::filterByDates);)");
}

VemoCalanderView *calendar()
{
    auto *view = new VemoCalanderView(nullptr);
    view->setStyleSheet(getStyleSheet("component.date_selector") + getStyleSheet("component.menu"));
    view->setFixedSize(DPIinfo::scaled(280), DPIinfo::scaled(260));
    return view;
}

void addCalendars(Page &page)
{
    const SignalLog log;
    VemoCalanderView *any = calendar();
    VemoCalanderView *limited = calendar();
    limit(limited);
    VemoCalanderView *disabled = calendar();
    disabled->setEnabled(false);
    log.watch("Live", any);
    log.watch("Limited", limited);
    page.addSection("Calendars",
        "The view of a date field also works on its own, with the field's style. Today has a "
        "frame. Tab walks through its parts; Return picks the day.");
    page.addRow({captioned(any, "Live"), captioned(limited, "Ten days around today"),
        captioned(disabled, "Disabled")});
    page.add(log.label());
    page.addCode(R"(auto *calendar = new VemoCalanderView(page);
connect(calendar, &VemoCalanderView::sigDateSelect, this, &MainWindow::selectDate);)");
}

VemoTimeComboBox *timeBox(bool isEditable, const QString &name)
{
    auto *box = new VemoTimeComboBox(nullptr);
    for (int minute = 0; minute < 24 * 60; minute += kMinutesApart)
        box->addItem(QTime(0, 0).addSecs(minute * 60).toString("HH:mm"));
    box->setEditable(isEditable);
    box->setDefault("08:00");
    box->setCurrentText("08:00");
    box->setFixedWidth(DPIinfo::scaled(kTimeWidth));
    box->setAccessibleName(name);
    return box;
}

VemoTimeComboBox *customTimeBox(const QString &time, const QString &text, const QString &name)
{
    VemoTimeComboBox *box = timeBox(true, name);
    box->setCustomText(text);
    box->setCurrentText(time.toStdString());
    return box;
}

/// A box with a switch for typing and a field for the custom text.
QWidget *livingTime(const SignalLog &log)
{
    VemoTimeComboBox *box = timeBox(true, "Time");
    log.watchIndex("Live", box);
    auto *editable = new VemoCheckBox(demo("editable"));
    editable->setChecked(true);
    QObject::connect(
        editable, &VemoCheckBox::toggled, box, [box](bool isOn) { box->setEditable(isOn); });
    auto *custom = new VemoLineEdit;
    custom->setFixedWidth(DPIinfo::scaled(kTimeWidth));
    custom->getLineEdit()->setPlaceholderText(demo("custom_text"));
    custom->getLineEdit()->setAccessibleName("Custom text");
    QObject::connect(custom->getLineEdit(), &QLineEdit::textChanged, box,
        [box](const QString &text) { box->setCustomText(text); });
    return row({box, editable, custom});
}

void addTimes(Page &page)
{
    const SignalLog log;
    VemoTimeComboBox *plain = timeBox(false, "Plain time");
    log.watchIndex("Plain", plain);
    VemoTimeComboBox *disabled = timeBox(true, "Disabled time");
    disabled->setEnabled(false);
    page.addSection("Times of day",
        "Type 9:5 and leave the field: it is completed, and shown though it is not in the list. "
        "An emptied field returns to 08:00.");
    page.addRow({captioned(livingTime(log), "Live")});
    page.addRow({captioned(plain, "Not editable"), captioned(disabled, "Disabled")});
    page.addRow({captioned(customTimeBox("07:45", demo("own_time"), "Own time"), "Custom text"),
        captioned(customTimeBox("07:45", "(selbst gewählt)", "German time"), "German"),
        captioned(customTimeBox("07:45", "（自定义）", "Chinese time"), "Chinese")});
    page.add(log.label());
    page.addCode(R"(auto *start = new VemoTimeComboBox(page);
start->addItems({"00:00", "06:00", "12:00", "18:00"});
start->setEditable(true);
start->setCurrentText("06:00");
start->setDefault("06:00");)");
}

} // namespace

void buildDateAndTimePage(Page &page)
{
    page.addSummary(
        "A date field, a range of two, the calendar that they open, and a box for a time of day.");
    addFields(page);
    addTyping(page);
    addRanges(page);
    addCalendars(page);
    addTimes(page);
}
