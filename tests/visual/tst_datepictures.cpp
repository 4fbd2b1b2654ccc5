// SPDX-License-Identifier: MIT
#include "core/scaling_p.h"
#include "visual/baselinetest.h"

#include <vemo/stylemanager.h>
#include <vemo/vemocalanderview.h>
#include <vemo/vemodaterangeselector.h>
#include <vemo/vemodateselector.h>
#include <vemo/vemotimecombobox.h>

#include <QCalendarWidget>
#include <QHeaderView>
#include <QSpinBox>
#include <QTableView>
#include <QToolButton>

namespace {

constexpr QSize kFieldSize(112, 0); // design pixels
constexpr QSize kRangeSize(340, 0);
constexpr QSize kTimeSize(72, 0);
constexpr QSize kCalendarSize(280, 260);
constexpr int kCorner = 6;
const QDate kChosen(2021, 2, 10); // in a month of four whole weeks but one day

VemoDateSelector *newDateField()
{
    auto *field = new VemoDateSelector("abc", nullptr);
    field->dateSelect(kChosen);
    return field;
}

QWidget *newRange()
{
    auto *range = new VemoDateRangeSelector;
    range->setRange(kChosen, {});
    range->setPlaceholders("abc", "abc");
    range->setClearable(true);
    return range;
}

QTableView *gridOf(QWidget *view)
{
    return view->findChild<QTableView *>("qt_calendar_calendarview");
}

VemoCalanderView *newCalendar()
{
    auto *view = new VemoCalanderView(nullptr);
    view->setStyleSheet(getStyleSheet("component.date_selector"));
    view->findChild<QCalendarWidget *>()->setSelectedDate(kChosen);
    return view;
}

QWidget *newLimitedCalendar()
{
    VemoCalanderView *view = newCalendar();
    view->setMinimumDate(kChosen.addDays(-8));
    view->setMaximumDate(kChosen.addDays(8));
    return view;
}

PartOf named(const char *name)
{
    return [name](QWidget *view) { return view->findChild<QWidget *>(name); };
}

QRect cellOf(QWidget *view, int row, int column)
{
    QTableView *grid = gridOf(view);
    return grid->visualRect(grid->model()->index(row, column));
}

/// The calendar's bar and grid come out apart: the button of today is an ordinary one.
QImage calendarPicture(
    const NewWidget &make, const std::function<void(Stage &, QWidget *)> &change = {})
{
    QWidget *view = make();
    Stage stage(view, kCalendarSize);
    if (change)
        change(stage, view);
    return stage.picture();
}

QImage hoveredDay()
{
    return calendarPicture(newCalendar, [](Stage &stage, QWidget *view) {
        stage.hover(gridOf(view)->viewport(), cellOf(view, 2, 5).center());
    });
}

/// A corner of today's frame: the number in it, and how wide and high it is, change with the day.
QImage todaysFrame()
{
    VemoCalanderView *view = newCalendar();
    Stage stage(view, kCalendarSize);
    const QDate today = QDate::currentDate();
    view->setCurrentPage(today.year(), today.month());
    const QAbstractItemModel *model = gridOf(view)->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        for (int column = 0; column < model->columnCount(); ++column) {
            const bool isOfMonth = row > 0 || model->index(row, column).data().toInt() <= 7;
            if (isOfMonth && model->index(row, column).data().toInt() == today.day()) {
                const QRect cell = cellOf(view, row, column);
                QCoreApplication::processEvents();
                return gridOf(view)
                    ->viewport()
                    ->grab(QRect(cell.topLeft(), QSize(scaled(kCorner), scaled(kCorner))))
                    .toImage();
            }
        }
    }
    return {};
}

void addCalendars(Looks &looks)
{
    looks.append({"calendar", [] { return calendarPicture(newCalendar); }});
    looks.append({"calendar-limited", [] { return calendarPicture(newLimitedCalendar); }});
    looks.append({"calendar-day-hover", hoveredDay});
    looks.append({"calendar-today", todaysFrame});
    for (const auto &[name, part] : {std::make_pair("calendar-day", "qt_calendar_calendarview"),
             std::make_pair("calendar-back", "qt_calendar_prevmonth"),
             std::make_pair("calendar-month", "qt_calendar_monthbutton")})
        addPartStates(looks, name, newCalendar, named(part), {State::Focus}, kCalendarSize);
    addPartStates(looks, "calendar-back", newCalendar, named("qt_calendar_prevmonth"),
        {State::Hover, State::Pressed}, kCalendarSize);
    addStates(looks, "calendar", newCalendar, {State::Disabled}, kCalendarSize);
    looks.append({"calendar-year-edit", [] {
                      return calendarPicture(newCalendar, [](Stage &, QWidget *view) {
                          view->findChild<QToolButton *>("qt_calendar_yearbutton")->click();
                      });
                  }});
}

VemoTimeComboBox *newTimeBox(bool isEditable)
{
    auto *box = new VemoTimeComboBox;
    box->addItems({"00:00", "08:00", "12:00"});
    box->setEditable(isEditable);
    box->setCurrentText("08:00");
    return box;
}

} // namespace

class DatePictures : public BaselineTest
{
    Q_OBJECT

public:
    DatePictures() : BaselineTest("date") { }

protected:
    Looks looks() const override;
};

Looks DatePictures::looks() const
{
    Looks looks;
    addStates(looks, "field", newDateField, kFieldStates, kFieldSize);
    addStates(
        looks, "field-empty", [] { return new VemoDateSelector("abc", nullptr); }, {State::Rest},
        kFieldSize);
    addStates(looks, "range", newRange, kFocusStates, kRangeSize);
    addCalendars(looks);
    addStates(
        looks, "time", [] { return newTimeBox(false); }, kFieldStates, kTimeSize);
    addStates(
        looks, "time-editable", [] { return newTimeBox(true); }, kFieldStates, kTimeSize);
    return looks;
}

VEMO_TEST_MAIN(DatePictures)
#include "tst_datepictures.moc"
