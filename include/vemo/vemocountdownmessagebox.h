// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QMessageBox>
#include <QTimer>

/// A message box that answers itself: the OK button counts down, and below 0 the default button is
/// clicked.
///
/// It counts from the start value, 10 unless set otherwise, in steps of one second unless set
/// otherwise, and starts again each time it is shown; so it stays for one period more than the
/// start value. While minimised it goes on counting. It begins with an OK button, which is the
/// default one. Without a default button it stays open. The box belongs to its parent. Install the
/// string "ok" before; the button shows the key without it.
///
///     VemoCountdownMessageBox box(window);
///     box.setText(tr("The computer is about to restart."));
///     box.setStartValue(30);
///     box.exec();
///
/// \image html messages-countdown.png
class VEMO_EXPORT VemoCountdownMessageBox : public QMessageBox
{
    Q_OBJECT

public:
    /// A message box with an OK button, not yet counting.
    explicit VemoCountdownMessageBox(QWidget *parent = nullptr);
    ~VemoCountdownMessageBox() override;

    /// Counts from the next show on; a negative value counts as 0.
    void setStartValue(int value);
    /// What the next show begins with.
    int startValue() const { return m_start_value; }

    /// In milliseconds; a negative value counts as 0. While it counts, the next tick comes that
    /// long after the call.
    void setPeriod(int msecs);
    /// Milliseconds between two ticks.
    int period() const { return m_timer.interval(); }

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private Q_SLOTS:
    void slotTick();

private:
    void showCounter();

    QTimer m_timer;
    int m_start_value;
    int m_counter;
};
