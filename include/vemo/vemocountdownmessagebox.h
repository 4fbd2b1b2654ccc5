// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QMessageBox>
#include <QTimer>

/// A message box that answers itself: the OK button counts down, and one period after 0 the default
/// button is clicked.
///
/// It counts down from the start value (by default 10) once per period (by default a second), and
/// starts again each time it is shown. It therefore stays open for one period more than the start
/// value. It continues to count while it is minimised. Initially it has an OK button, which is the
/// default button; without a default button it stays open. It belongs to its parent. Requires: the
/// string "ok"; without it the button shows the key.
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
    /// Creates a message box with an OK button. It counts when it is shown.
    explicit VemoCountdownMessageBox(QWidget *parent = nullptr);
    ~VemoCountdownMessageBox() override;

    /// Sets the start value, which takes effect the next time the box is shown. Negative values
    /// count as 0.
    void setStartValue(int value);
    /// The start value the next time the box is shown.
    int startValue() const { return m_start_value; }

    /// Sets the period in milliseconds; negative values count as 0. If the box is counting, the
    /// next tick is one period after the call.
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
