// SPDX-License-Identifier: MIT
#include <vemo/vemoradiobutton.h>

#include "controls/choicepainting_p.h"
#include "controls/spokentooltip_p.h"

#include <vemo/stylemanager.h>

VemoRadioButton::VemoRadioButton(const QString &text, QWidget *parent) : QRadioButton(text, parent)
{
    speakToolTip(this);
    setStyleSheet(getStyleSheet("component.radio_button"));
}

VemoRadioButton::VemoRadioButton(QWidget *parent) : VemoRadioButton(QString(), parent) { }

void VemoRadioButton::paintEvent(QPaintEvent *event)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    if (!paintLowered(option, this,
            {QStyle::CE_RadioButton, QStyle::CE_RadioButtonLabel, QStyle::SE_RadioButtonContents}))
        QRadioButton::paintEvent(event);
}
