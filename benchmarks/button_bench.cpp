// SPDX-License-Identifier: MIT
#include "benchmarks/families.h"
#include "benchmarks/fixture.h"
#include "benchmarks/harness.h"
#include "benchmarks/paintedgrid.h"

#include <vemo/dpiinfo.h>
#include <vemo/stylemanager.h>
#include <vemo/vemobutton.h>
#include <vemo/vemoiconbutton.h>

namespace {

constexpr int kButtons = 250;
constexpr int kColumns = 10;

struct Role
{
    int number;
    const char *key;
};

template <typename Make> std::unique_ptr<QWidget> paintedButtons(Make make)
{
    return bench::paintedGrid({1300, 1100}, kButtons, kColumns, make);
}

QString caption()
{
    return QStringLiteral("Apply");
}

QPushButton *plainButton()
{
    auto *button = new QPushButton(caption());
    button->setFlat(true);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    return button;
}

bench::Cases::Setup push(const Role &role)
{
    return [role](bench::Case &c) {
        bench::useTheme();
        const QString sheet = getStyleSheet(role.key);
        c.check([sheet] { return !sheet.isEmpty(); });
        c.goal(1.05, 1.0);
        c.once();
        c.items(kButtons);
        c.reference(QStringLiteral("QPushButton, same sheet each"), [sheet] {
            return paintedButtons([&] {
                QPushButton *button = plainButton();
                button->setStyleSheet(sheet);
                return button;
            });
        });
        c.limit(QStringLiteral("no sheet"), [] { return paintedButtons(plainButton); });
        c.ours([role] {
            return paintedButtons([&] { return new VemoButton(caption(), role.number); });
        });
    };
}

QToolButton *plainToolButton(const QPixmap &picture)
{
    auto *button = new QToolButton;
    button->setIcon(picture);
    button->setIconSize(picture.size() / DPIinfo::getInstance().getDPR());
    button->setToolButtonStyle(Qt::ToolButtonIconOnly);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    button->setPopupMode(QToolButton::InstantPopup);
    return button;
}

bench::Cases::Setup tool(const char *pictureName)
{
    return [name = QString::fromLatin1(pictureName)](bench::Case &c) {
        bench::useTheme();
        const QString sheet = getStyleSheet("component.icon_button");
        const QPixmap picture = getGlobalImage(name);
        c.check([sheet, picture] { return !sheet.isEmpty() && !picture.isNull(); });
        c.goal(1.25, 1.1);
        c.once();
        c.items(kButtons);
        c.reference(QStringLiteral("QToolButton, same sheet each"), [sheet, picture] {
            return paintedButtons([&] {
                QToolButton *button = plainToolButton(picture);
                button->setStyleSheet(sheet);
                return button;
            });
        });
        c.limit(QStringLiteral("no sheet"),
            [picture] { return paintedButtons([&] { return plainToolButton(picture); }); });
        c.ours([name] { return paintedButtons([&] { return new VemoIconButton(name); }); });
    };
}

} // namespace

void bench::buttonCases(Cases &cases)
{
    cases.add(QStringLiteral("button.push/apply"), push({0, "component.apply_button"}));
    cases.add(QStringLiteral("button.push/cancel"), push({1, "component.cancel_button"}));
    cases.add(
        QStringLiteral("button.push/paging selected"), push({2, "component.select_paging_button"}));
    cases.add(QStringLiteral("button.push/paging"), push({3, "component.nonselect_paging_button"}));
    cases.add(QStringLiteral("button.push/default"), push({4, "component.default_button"}));
    cases.add(QStringLiteral("button.push/red"), push({5, "component.red_button"}));
    cases.add(QStringLiteral("button.tool/next"), tool("bt_next"));
    cases.add(QStringLiteral("button.tool/refresh"), tool("bt_pagebar_refresh"));
}
