// SPDX-License-Identifier: MIT
#include <vemo/vemolabel.h>

#include "controls/spokentooltip_p.h"

#include <vemo/stylemanager.h>

namespace {

constexpr const char *kStyleKey = "component.label";

} // namespace

VemoLabel::VemoLabel(const QString &text, QWidget *parent, Qt::WindowFlags flags)
    : QLabel(text, parent, flags)
{
    speakToolTip(this);
    setStyleSheet(getStyleSheet(kStyleKey));
}

VemoLabel::VemoLabel(QWidget *parent, Qt::WindowFlags flags) : QLabel(parent, flags)
{
    speakToolTip(this);
    setStyleSheet(getStyleSheet(kStyleKey));
}

void VemoLabel::resizeEvent(QResizeEvent *event)
{
    QLabel::resizeEvent(event);
    if (!wordWrap() || sizePolicy().verticalPolicy() != QSizePolicy::Minimum)
        return;
    // heightForWidth() never returns less than the minimum height, so reset it first to allow the
    // label to shrink.
    setMinimumHeight(0);
    // heightForWidth() is negative for a label that shows a picture.
    setMinimumHeight(qMax(0, heightForWidth(width())));
}
