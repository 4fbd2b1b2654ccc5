// SPDX-License-Identifier: MIT
#include <vemo/vemobutton.h>

#include "controls/growntofont_p.h"
#include "controls/spokentooltip_p.h"

#include <vemo/stylemanager.h>

#include <QStyle>
#include <QStyleOptionButton>

#include <iterator>

namespace {

constexpr const char *kRoleKeys[] = {
    "component.apply_button",
    "component.cancel_button",
    "component.select_paging_button",
    "component.nonselect_paging_button",
    "component.default_button",
    "component.red_button",
};

bool isRole(int role)
{
    return role >= 0 && role < static_cast<int>(std::size(kRoleKeys));
}

} // namespace

VemoButton::VemoButton(const QString &text, int role) : VemoButton(text, role, nullptr) { }

VemoButton::VemoButton(const QString &text, int role, QWidget *parent) : QPushButton(text, parent)
{
    speakToolTip(this);
    setFlat(true);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    if (isRole(role))
        setStyleSheet(getStyleSheet(kRoleKeys[role]));
}

VemoButton::VemoButton(const QString &text, QWidget *parent) : VemoButton(text, DEFAULT, parent) { }

VemoButton::VemoButton(QWidget *parent) : VemoButton(QString(), DEFAULT, parent) { }

void VemoButton::setRole(int role)
{
    setStyleSheet(isRole(role) ? getStyleSheet(kRoleKeys[role]) : QString());
}

QSize VemoButton::sizeHint() const
{
    QStyleOptionButton option;
    initStyleOption(&option);
    return grownToFont(QPushButton::sizeHint(), *this, &option, [this, &option] {
        return style()->subElementRect(QStyle::SE_PushButtonContents, &option, this);
    });
}
