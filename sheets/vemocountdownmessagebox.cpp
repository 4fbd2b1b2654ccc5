// SPDX-License-Identifier: MIT
#include <vemo/vemocountdownmessagebox.h>

#include "core/stringof_p.h"

#include <QHideEvent>
#include <QPushButton>

#include <algorithm>

namespace {

constexpr int kStartValue = 10;
constexpr int kPeriod = 1000; // Milliseconds.

} // namespace

VemoCountdownMessageBox::VemoCountdownMessageBox(QWidget *parent)
    : QMessageBox(parent), m_start_value(kStartValue), m_counter(kStartValue)
{
    setStandardButtons(QMessageBox::Ok);
    setDefaultButton(QMessageBox::Ok);
    // Some desktops add a stock icon.
    button(QMessageBox::Ok)->setIcon(QIcon());
    m_timer.setInterval(kPeriod);
    connect(&m_timer, SIGNAL(timeout()), this, SLOT(slotTick()));
}

VemoCountdownMessageBox::~VemoCountdownMessageBox() = default;

void VemoCountdownMessageBox::setStartValue(int value)
{
    m_start_value = std::max(0, value);
    if (!isVisible())
        m_counter = m_start_value;
}

void VemoCountdownMessageBox::setPeriod(int msecs)
{
    m_timer.setInterval(std::max(0, msecs));
}

void VemoCountdownMessageBox::showEvent(QShowEvent *event)
{
    // Minimising and restoring the box sends spontaneous events, which do not restart the
    // countdown.
    if (!event->spontaneous()) {
        m_counter = m_start_value;
        showCounter();
        m_timer.start();
    }
    QMessageBox::showEvent(event);
}

void VemoCountdownMessageBox::hideEvent(QHideEvent *event)
{
    if (!event->spontaneous())
        m_timer.stop();
    QMessageBox::hideEvent(event);
}

void VemoCountdownMessageBox::slotTick()
{
    if (--m_counter >= 0) {
        showCounter();
        return;
    }
    m_timer.stop();
    if (QPushButton *button = defaultButton())
        button->animateClick();
}

void VemoCountdownMessageBox::showCounter()
{
    if (QAbstractButton *ok = button(QMessageBox::Ok)) {
        ok->setText(QStringLiteral("%1(%2)").arg(stringOf("ok"), QString::number(m_counter)));
    }
}
