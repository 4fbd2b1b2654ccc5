// SPDX-License-Identifier: MIT
#include <vemo/vemocheckbox.h>

#include "controls/spokentooltip_p.h"

#include <vemo/stylemanager.h>

VemoCheckBox::VemoCheckBox(const QString &text, QWidget *parent) : QCheckBox(text, parent)
{
    speakToolTip(this);
    setStyleSheet(getStyleSheet("component.checkbox"));
}

VemoCheckBox::VemoCheckBox(QWidget *parent) : VemoCheckBox(QString(), parent) { }
