// SPDX-License-Identifier: MIT
#include <vemo/vemofootbar.h>

#include "core/scaling_p.h"

#include <QHBoxLayout>

namespace {

// Design pixels.
constexpr int kSideMargin = 20;
constexpr int kEdgeMargin = 8;
constexpr int kSpacing = 10;

} // namespace

VemoFootbar::VemoFootbar(QWidget *parent) : QWidget(parent), m_layout(new QHBoxLayout(this)) { }

void VemoFootbar::pushLeftWidget(QWidget *widget)
{
    m_left_widgets.emplace_back(widget);
}

void VemoFootbar::pushRightWidget(QWidget *widget)
{
    m_right_widgets.emplace_back(widget);
}

void VemoFootbar::init()
{
    setMargins(kSideMargin, kEdgeMargin, kSideMargin, kEdgeMargin);
    setSpacing(kSpacing);
    m_layout->setAlignment(Qt::AlignLeft);
    addGroup(m_left_widgets);
    m_layout->addStretch(1);
    addGroup(m_right_widgets);
}

void VemoFootbar::setMargins(int left, int top, int right, int bottom)
{
    m_layout->setContentsMargins(scaled(left), scaled(top), scaled(right), scaled(bottom));
}

void VemoFootbar::setSpacing(int spacing)
{
    m_layout->setSpacing(scaled(spacing));
}

void VemoFootbar::addGroup(const Group &group)
{
    for (QWidget *widget : group) {
        if (widget)
            m_layout->addWidget(widget, 0, Qt::AlignVCenter);
    }
}
