// SPDX-License-Identifier: MIT
#include "benchmarks/fixture.h"
#include "benchmarks/harness.h"

#include <vemo/componentstrings.h>
#include <vemo/stylemanager.h>
#include <vemo/vemocalanderview.h>
#include <vemo/vemodateselector.h>
#include <vemo/vemotimecombobox.h>

#include <QCalendarWidget>
#include <QCoreApplication>
#include <QDateEdit>
#include <QDeadlineTimer>
#include <QMouseEvent>
#include <QStyleOptionComboBox>
#include <QTime>
#include <QWindow>

namespace {

constexpr int kMinutesApart = 30;
constexpr int kCycles = 100;
const QDate kFirst(2024, 3, 7);

void process()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

/// What isn't on the screen yet isn't painted; a window manager takes its time.
void waitUntilExposed(const QWidget &window)
{
    const QDeadlineTimer deadline(5000);
    while (!window.windowHandle()->isExposed() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
    process();
}

// Date fields

QString fieldStyle()
{
    return getStyleSheet("component.date_selector") + getStyleSheet("component.menu");
}

std::unique_ptr<QDateEdit> stockField(bool isStyled)
{
    auto field = std::make_unique<QDateEdit>(kFirst);
    field->setCalendarPopup(true);
    field->setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
    if (isStyled)
        field->setStyleSheet(fieldStyle().replace(QLatin1String("QComboBox"), //
            QLatin1String("QDateEdit")));
    field->show();
    waitUntilExposed(*field);
    return field;
}

std::unique_ptr<VemoDateSelector> ourField()
{
    auto field = std::make_unique<VemoDateSelector>(QStringLiteral("Any date"), nullptr);
    field->dateSelect(kFirst);
    field->show();
    waitUntilExposed(*field);
    return field;
}

/// A date field opens its calendar only for the mouse.
QWidget *openStock(QDateEdit &field)
{
    QStyleOptionComboBox option;
    option.initFrom(&field);
    option.editable = true;
    option.subControls = QStyle::SC_All;
    const QPointF arrow =
        field.style()
            ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, &field)
            .center();
    QMouseEvent press(QEvent::MouseButtonPress, arrow, field.mapToGlobal(arrow.toPoint()),
        Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&field, &press);
    QWidget *popup = field.calendarWidget()->window();
    waitUntilExposed(*popup);
    return popup;
}

QWidget *openOurs(QComboBox &field)
{
    field.showPopup();
    QWidget *popup = field.view()->window();
    waitUntilExposed(*popup);
    return popup;
}

void dateOpen(bench::Case &c)
{
    bench::useTheme();
    c.goal(1.5, 1.25);
    c.goalOnX11(1.5, 1.25);
    c.once();
    c.resultsDiffer(); // Another calendar.
    c.reference(QStringLiteral("styled QDateEdit"), []() -> std::unique_ptr<QWidget> {
        auto field = stockField(true);
        openStock(*field);
        return field;
    });
    c.limit(QStringLiteral("QDateEdit, no sheet"), []() -> std::unique_ptr<QWidget> {
        auto field = stockField(false);
        openStock(*field);
        return field;
    });
    c.ours([]() -> std::unique_ptr<QWidget> {
        auto field = ourField();
        openOurs(*field);
        return field;
    });
}

void dateReopen(bench::Case &c)
{
    bench::useTheme();
    c.goal(1.15, 1.0);
    c.goalOnX11(1.15, 1.0);
    c.resultsDiffer(); // Another calendar.
    const std::shared_ptr<QDateEdit> stock = stockField(true);
    const std::shared_ptr<VemoDateSelector> ours = ourField();
    const auto month = std::make_shared<int>(0);
    c.reference(QStringLiteral("styled QDateEdit"), [stock, month] {
        stock->setDate(kFirst.addMonths(++*month % 24));
        QWidget *popup = openStock(*stock);
        const int height = popup->height();
        popup->close();
        process();
        return height;
    });
    c.ours([ours, month] {
        ours->dateSelect(kFirst.addMonths(++*month % 24));
        QWidget *popup = openOurs(*ours);
        const int height = popup->height();
        ours->hidePopup();
        process();
        return height;
    });
}

void datePage(bench::Case &c)
{
    bench::useTheme();
    c.goal(1.15, 1.0);
    c.goalOnX11(1.15, 1.0);
    c.resultsDiffer(); // Another calendar.
    const auto stock = std::make_shared<QCalendarWidget>();
    const auto ours = std::make_shared<VemoCalanderView>(nullptr);
    for (QWidget *calendar :
        {static_cast<QWidget *>(stock.get()), static_cast<QWidget *>(ours.get())}) {
        calendar->setStyleSheet(fieldStyle());
        calendar->resize(350, 325);
        calendar->show();
        waitUntilExposed(*calendar);
    }
    const auto month = std::make_shared<int>(0);
    const auto page = [month](auto &calendar) {
        const QDate shown = kFirst.addMonths(++*month % 24);
        calendar.setCurrentPage(shown.year(), shown.month());
        process();
        return calendar.height();
    };
    c.reference(QStringLiteral("QCalendarWidget"), [stock, page] { return page(*stock); });
    c.ours([ours, page] { return page(*ours); });
}

template <typename Make> int cycles(Make make)
{
    for (int cycle = 0; cycle < kCycles; ++cycle) {
        const std::unique_ptr<QWidget> calendar = make();
        calendar->show();
        process();
    }
    process();
    return kCycles;
}

void dateCycles(bench::Case &c)
{
    bench::useTheme();
    c.bytes();
    c.items(kCycles);
    c.goal(1.0);
    c.reference(QStringLiteral("QCalendarWidget"),
        [] { return cycles([] { return std::make_unique<QCalendarWidget>(); }); });
    c.ours([] { return cycles([] { return std::make_unique<VemoCalanderView>(nullptr); }); });
}

// Times of day

void addTimes(QComboBox &box)
{
    for (int minute = 0; minute < 24 * 60; minute += kMinutesApart)
        box.addItem(QTime(0, 0).addSecs(minute * 60).toString(QStringLiteral("HH:mm")));
}

template <typename Box> std::unique_ptr<Box> timeBox(std::unique_ptr<Box> box)
{
    addTimes(*box);
    box->show();
    waitUntilExposed(*box);
    return box;
}

std::unique_ptr<QComboBox> stockBox(bool isStyled)
{
    auto box = std::make_unique<QComboBox>();
    if (isStyled)
        box->setStyleSheet(VemoComboBox().styleSheet());
    return timeBox(std::move(box));
}

std::unique_ptr<VemoTimeComboBox> ourBox()
{
    return timeBox(std::make_unique<VemoTimeComboBox>(nullptr));
}

void timeOpen(bench::Case &c)
{
    bench::useTheme();
    const QString sheet = VemoComboBox().styleSheet();
    const auto stock = [](const QString &sheet) -> std::unique_ptr<QWidget> {
        auto box = std::make_unique<QComboBox>();
        box->setStyleSheet(sheet);
        box = timeBox(std::move(box));
        openOurs(*box);
        return box;
    };
    c.goal(1.1, 1.0);
    c.goalOnX11(1.1, 1.0);
    c.once();
    c.resultsDiffer(); // Another focus.
    c.reference(QStringLiteral("styled QComboBox"), [stock, sheet] { return stock(sheet); });
    c.limit(QStringLiteral("no sheet"), [stock] { return stock({}); });
    c.ours([]() -> std::unique_ptr<QWidget> {
        auto box = ourBox();
        openOurs(*box);
        return box;
    });
}

void timeReopen(bench::Case &c)
{
    bench::useTheme();
    c.goal(1.1, 1.0);
    c.goalOnX11(1.1, 1.0);
    c.resultsDiffer(); // Another place.
    const std::shared_ptr<QComboBox> stock = stockBox(true);
    const std::shared_ptr<VemoTimeComboBox> ours = ourBox();
    const auto reopened = [](QComboBox &box) {
        const int height = openOurs(box)->height();
        box.hidePopup();
        process();
        return height;
    };
    c.reference(QStringLiteral("styled QComboBox"), [=] { return reopened(*stock); });
    c.ours([=] { return reopened(*ours); });
}

void dateTimeCases(bench::Cases &cases)
{
    cases.add(QStringLiteral("date.open"), dateOpen);
    cases.add(QStringLiteral("date.reopen"), dateReopen);
    cases.add(QStringLiteral("date.page"), datePage);
    cases.add(QStringLiteral("date.memory/100 cycles"), dateCycles);
    cases.add(QStringLiteral("time.open"), timeOpen);
    cases.add(QStringLiteral("time.reopen"), timeReopen);
}

const bool isRegistered = bench::addFamily(dateTimeCases);

} // namespace
