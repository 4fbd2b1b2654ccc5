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
    // A label's height for a width is never below its minimum height: unset, it can shrink again.
    setMinimumHeight(0);
    // Negative for a label that shows a picture.
    setMinimumHeight(qMax(0, heightForWidth(width())));
}
