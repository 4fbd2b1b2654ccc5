// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QBasicTimer>
#include <QWidget>

/// A small turning ring that shows that work of unknown length is going on. If the progress is
/// known, use a QProgressBar; if the user has to wait for the end, use VemoProgressSheet.
///
/// It is initially stopped. A stopped spinner draws nothing but keeps its place in the layout. It
/// uses the processor only while it is seen: hidden, minimized or scrolled away, it does not turn.
/// If the style disables animations (QStyle::SH_Widget_Animation_Duration is 0, which style sheets
/// set by "widget-animation-duration: 0"), the ring is still. It never takes the keyboard focus.
/// Assistive tools find a busy progress bar: name it with setAccessibleName() or by a label whose
/// buddy it is. It belongs to its parent.
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
    /// Whether the ring turns.
    Q_PROPERTY(bool running READ isRunning WRITE setRunning NOTIFY runningChanged)
    /// The diameter of the ring in design pixels.
    Q_PROPERTY(int diameter READ diameter WRITE setDiameter)

public:
    /// Creates a stopped spinner and looks up its style.
    explicit VemoSpinner(QWidget *parent = nullptr);

    bool isRunning() const { return m_is_running; } ///< initially false

    /// The diameter of the ring in design pixels, initially 16.
    int diameter() const { return m_diameter; }
    /// Sets the diameter in design pixels, at least 4. Both size policies are fixed, so this is
    /// also the size in a layout.
    void setDiameter(int designPixels);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

public Q_SLOTS:
    void start(); ///< same as setRunning(true)
    void stop(); ///< same as setRunning(false)
    void setRunning(bool running); ///< starts or stops the ring

Q_SIGNALS:
    /// Emitted when the spinner has been started or stopped.
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
