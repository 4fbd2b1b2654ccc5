// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QBasicTimer>
#include <QWidget>

/// A small turning ring: the window works on something, and nobody knows how long it takes. Where
/// the progress is known, use a QProgressBar; where the user has to wait, VemoProgressSheet.
///
/// It is stopped at first. A stopped spinner draws nothing and keeps its place in the layout. It
/// needs the processor only while it is seen: hidden, minimized or scrolled away, it doesn't turn.
/// If the style turns animations off (QStyle::SH_Widget_Animation_Duration is 0, which style sheets
/// set by "widget-animation-duration: 0"), the ring is still. It never takes the keyboard focus.
/// Assistive tools find a busy progress bar: give it a name with setAccessibleName() or by a label
/// whose buddy it is. It belongs to its parent.
///
/// Requires: style files; without the section "component.spinner" the ring has the colour of the
/// text, with a warning.
///
///     auto *spinner = new VemoSpinner(page);
///     spinner->setAccessibleName(tr("Loading"));
///     spinner->start();
///     connect(job, &CopyJob::finished, spinner, &VemoSpinner::stop);
///
/// \image html labels-spinners.png
class VEMO_EXPORT VemoSpinner : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(bool running READ isRunning WRITE setRunning NOTIFY runningChanged)
    Q_PROPERTY(int diameter READ diameter WRITE setDiameter)

public:
    explicit VemoSpinner(QWidget *parent = nullptr);

    bool isRunning() const { return m_is_running; }

    /// Design pixels; 16 at first.
    int diameter() const { return m_diameter; }
    /// Both size policies are fixed, so this is also its size in a layout. At least 4.
    void setDiameter(int designPixels);

    /// Screen pixels, of the diameter.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    void start();
    void stop();
    void setRunning(bool running);

Q_SIGNALS:
    void runningChanged(bool running);

protected:
    void paintEvent(QPaintEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    void updateTimer();

    int m_diameter; ///< design pixels
    int m_frame = 0;
    bool m_is_running = false;
    bool m_is_painted = false; ///< since the timer last fired
    QBasicTimer m_timer; ///< active while the ring turns
};
