// SPDX-License-Identifier: MIT
#include <vemo/vemocheckbox.h>

#include <vemo/stylemanager.h>

VemoCheckBox::VemoCheckBox(const QString &text, QWidget *parent) : QCheckBox(text, parent)
{
    setStyleSheet(getStyleSheet("component.checkbox"));
}

VemoCheckBox::VemoCheckBox(QWidget *parent) : VemoCheckBox(QString(), parent) { }
