// SPDX-License-Identifier: MIT
#include "benchmarks/datetimefields.h"
#include "benchmarks/families.h"
#include "benchmarks/fixture.h"
#include "benchmarks/harness.h"

#include <KDateComboBox>
#include <KTimeComboBox>
#include <QMenu>

using namespace bench;

// KDE's fields do the same in their own way, and are drawn by the platform's style.
namespace {

std::unique_ptr<KDateComboBox> peerField()
{
    auto field = std::make_unique<KDateComboBox>();
    field->setDate(kFirstDate);
    field->show();
    waitUntilExposed(*field);
    return field;
}

QMenu *openPeer(QComboBox &field)
{
    field.showPopup();
    auto *popup = field.findChild<QMenu *>();
    waitUntilExposed(*popup);
    return popup;
}

std::unique_ptr<QComboBox> peerBox()
{
    auto box = std::make_unique<KTimeComboBox>();
    box->setTimeListInterval(kMinutesApart);
    box->show();
    waitUntilExposed(*box);
    return box;
}

void dateOpen(Case &c)
{
    useTheme();
    c.goal(1.0);
    c.once();
    c.resultsDiffer(); // Another calendar.
    c.reference(QStringLiteral("KDateComboBox"), []() -> std::unique_ptr<QWidget> {
        auto field = peerField();
        openPeer(*field);
        return field;
    });
    c.ours([]() -> std::unique_ptr<QWidget> {
        auto field = ourField();
        openList(*field);
        return field;
    });
}

void dateReopen(Case &c)
{
    useTheme();
    c.withoutGoal();
    c.resultsDiffer(); // Another calendar.
    const std::shared_ptr<KDateComboBox> peer = peerField();
    const std::shared_ptr<VemoDateSelector> ours = ourField();
    const auto month = std::make_shared<int>(0);
    c.reference(QStringLiteral("KDateComboBox"), [peer, month] {
        peer->setDate(kFirstDate.addMonths(++*month % 24));
        QWidget *popup = openPeer(*peer);
        const int height = popup->height();
        popup->close();
        process();
        return height;
    });
    c.ours([ours, month] { return reopened(*ours, ++*month); });
}

void timeOpen(Case &c)
{
    useTheme();
    c.withoutGoal();
    c.once();
    c.resultsDiffer(); // Another look.
    c.reference(QStringLiteral("KTimeComboBox"), []() -> std::unique_ptr<QWidget> {
        auto box = peerBox();
        openList(*box);
        return box;
    });
    c.ours([]() -> std::unique_ptr<QWidget> {
        auto box = ourBox();
        openList(*box);
        return box;
    });
}

void timeReopen(Case &c)
{
    useTheme();
    c.withoutGoal();
    c.resultsDiffer(); // Another look.
    const std::shared_ptr<QComboBox> peer = peerBox();
    const std::shared_ptr<QComboBox> ours = ourBox();
    c.reference(QStringLiteral("KTimeComboBox"), [peer] { return reopened(*peer); });
    c.ours([ours] { return reopened(*ours); });
}

} // namespace

void bench::dateTimePeersCases(Cases &cases)
{
    cases.add(QStringLiteral("date.open/KDateComboBox"), dateOpen);
    cases.add(QStringLiteral("date.reopen/KDateComboBox"), dateReopen);
    cases.add(QStringLiteral("time.open/KTimeComboBox"), timeOpen);
    cases.add(QStringLiteral("time.reopen/KTimeComboBox"), timeReopen);
}
