// SPDX-License-Identifier: MIT
#include <vemo/vemocheckbox.h>

#include "controls/choicepainting_p.h"
#include "controls/spokentooltip_p.h"

#include <vemo/stylemanager.h>

VemoCheckBox::VemoCheckBox(const QString &text, QWidget *parent) : QCheckBox(text, parent)
{
    speakToolTip(this);
    setStyleSheet(getStyleSheet("component.checkbox"));
}

VemoCheckBox::VemoCheckBox(QWidget *parent) : VemoCheckBox(QString(), parent) { }

void VemoCheckBox::paintEvent(QPaintEvent *event)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    if (!paintLowered(option, this,
            {QStyle::CE_CheckBox, QStyle::CE_CheckBoxLabel, QStyle::SE_CheckBoxContents}))
        QCheckBox::paintEvent(event);
}
