// SPDX-License-Identifier: MIT
#include "gallery/controlsnapshots.h"

#include "gallery/specimens.h"

#include <QEvent>
#include <QLineEdit>
#include <QStyleOptionFrame>
#include <QStylePainter>

namespace {

void freeze(QWidget *widget)
{
    widget->setFocusPolicy(Qt::NoFocus);
    widget->setAttribute(Qt::WA_TransparentForMouseEvents);
}

} // namespace

CheckBoxSnapshot::CheckBoxSnapshot(Qt::CheckState checkState, QStyle::State state) : m_state(state)
{
    freeze(this);
    setTristate(checkState == Qt::PartiallyChecked);
    setCheckState(checkState);
}

void CheckBoxSnapshot::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.state |= m_state;
    painter.drawControl(QStyle::CE_CheckBox, option);
}

RadioButtonSnapshot::RadioButtonSnapshot(bool isChecked, QStyle::State state) : m_state(state)
{
    freeze(this);
    alone(this);
    setChecked(isChecked);
}

void RadioButtonSnapshot::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionButton option;
    initStyleOption(&option);
    option.state |= m_state;
    painter.drawControl(QStyle::CE_RadioButton, option);
}

SwitchSnapshot::SwitchSnapshot(bool isOn, QStyle::State state) : m_state(state)
{
    freeze(this);
    setChecked(isOn);
}

void SwitchSnapshot::initStyleOption(QStyleOptionButton *option) const
{
    VemoSwitch::initStyleOption(option);
    option->state |= m_state;
}

ComboBoxSnapshot::ComboBoxSnapshot(const QString &text, QStyle::State state) : m_state(state)
{
    freeze(this);
    addItem(text);
}

void ComboBoxSnapshot::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.state |= m_state;
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    painter.drawControl(QStyle::CE_ComboBoxLabel, option);
}

LineEditSnapshot::LineEditSnapshot(const QString &text, QStyle::State state) : m_state(state)
{
    QLineEdit *field = getLineEdit();
    freeze(field);
    setFocusPolicy(Qt::NoFocus);
    field->setText(text);
    field->installEventFilter(this);
}

bool LineEditSnapshot::eventFilter(QObject *object, QEvent *event)
{
    if (event->type() != QEvent::Paint)
        return VemoLineEdit::eventFilter(object, event);
    const QLineEdit *field = getLineEdit();
    QStylePainter painter(getLineEdit());
    QStyleOptionFrame option;
    option.initFrom(field);
    option.lineWidth = 1;
    option.state |= QStyle::State_Sunken | m_state;
    painter.drawPrimitive(QStyle::PE_PanelLineEdit, option);
    const QRect contents =
        style()->subElementRect(QStyle::SE_LineEditContents, &option, field).adjusted(2, 0, -2, 0);
    painter.setPen(field->palette().color(QPalette::Text));
    painter.drawText(contents, Qt::AlignVCenter, field->text());
    return true;
}
