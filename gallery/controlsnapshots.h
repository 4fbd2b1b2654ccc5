// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/vemocheckbox.h>
#include <vemo/vemocombobox.h>
#include <vemo/vemolineedit.h>
#include <vemo/vemoradiobutton.h>
#include <vemo/vemoswitch.h>

#include <QStyle>

/// Controls that are always drawn in a given state, like ButtonSnapshot.
class CheckBoxSnapshot : public VemoCheckBox
{
    Q_OBJECT

public:
    CheckBoxSnapshot(Qt::CheckState checkState, QStyle::State state);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QStyle::State m_state;
};

class RadioButtonSnapshot : public VemoRadioButton
{
    Q_OBJECT

public:
    RadioButtonSnapshot(bool isChecked, QStyle::State state);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QStyle::State m_state;
};

class SwitchSnapshot : public VemoSwitch
{
    Q_OBJECT

public:
    SwitchSnapshot(bool isOn, QStyle::State state);

protected:
    void initStyleOption(QStyleOptionButton *option) const override;

private:
    QStyle::State m_state;
};

class ComboBoxSnapshot : public VemoComboBox
{
    Q_OBJECT

public:
    ComboBoxSnapshot(const QString &text, QStyle::State state);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QStyle::State m_state;
};

/// A field of a VemoLineEdit in a state, drawn over the real one.
class LineEditSnapshot : public VemoLineEdit
{
    Q_OBJECT

public:
    LineEditSnapshot(const QString &text, QStyle::State state);

    bool eventFilter(QObject *object, QEvent *event) override;

private:
    QStyle::State m_state;
};
