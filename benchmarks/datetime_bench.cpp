// SPDX-License-Identifier: MIT
#include "benchmarks/datetimefields.h"
#include "benchmarks/families.h"
#include "benchmarks/fixture.h"
#include "benchmarks/harness.h"

#include <vemo/componentstrings.h>
#include <vemo/stylemanager.h>
#include <vemo/vemocalanderview.h>

#include <QCalendarWidget>
#include <QDateEdit>
#include <QMouseEvent>
#include <QStyleOptionComboBox>

using namespace bench;

namespace {

constexpr int kCycles = 100;

// Date fields

QString fieldStyle()
{
    return getStyleSheet("component.date_selector") + getStyleSheet("component.menu");
}

std::unique_ptr<QDateEdit> stockField(bool isStyled)
{
    auto field = std::make_unique<QDateEdit>(kFirstDate);
    field->setCalendarPopup(true);
    field->setDisplayFormat(QStringLiteral("yyyy-MM-dd"));
    if (isStyled)
        field->setStyleSheet(fieldStyle().replace(QLatin1String("QComboBox"), //
            QLatin1String("QDateEdit")));
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
        openList(*field);
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
        stock->setDate(kFirstDate.addMonths(++*month % 24));
        QWidget *popup = openStock(*stock);
        const int height = popup->height();
        popup->close();
        process();
        return height;
    });
    c.ours([ours, month] { return reopened(*ours, ++*month); });
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
        const QDate shown = kFirstDate.addMonths(++*month % 24);
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

std::unique_ptr<QComboBox> stockBox(bool isStyled)
{
    auto box = std::make_unique<QComboBox>();
    if (isStyled)
        box->setStyleSheet(VemoComboBox().styleSheet());
    return timeBox(std::move(box));
}

void timeOpen(bench::Case &c)
{
    bench::useTheme();
    const QString sheet = VemoComboBox().styleSheet();
    const auto stock = [](const QString &sheet) -> std::unique_ptr<QWidget> {
        auto box = std::make_unique<QComboBox>();
        box->setStyleSheet(sheet);
        box = timeBox(std::move(box));
        openList(*box);
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
        openList(*box);
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
    c.reference(QStringLiteral("styled QComboBox"), [=] { return reopened(*stock); });
    c.ours([=] { return reopened(static_cast<QComboBox &>(*ours)); });
}

} // namespace

void bench::dateTimeCases(Cases &cases)
{
    cases.add(QStringLiteral("date.open"), dateOpen);
    cases.add(QStringLiteral("date.reopen"), dateReopen);
    cases.add(QStringLiteral("date.page"), datePage);
    cases.add(QStringLiteral("date.memory/100 cycles"), dateCycles);
    cases.add(QStringLiteral("time.open"), timeOpen);
    cases.add(QStringLiteral("time.reopen"), timeReopen);
}
