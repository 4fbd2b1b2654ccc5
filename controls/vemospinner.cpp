// SPDX-License-Identifier: MIT
#include <vemo/vemospinner.h>

#include "controls/spokentooltip_p.h"
#include "core/scaling_p.h"

#include <vemo/stylemanager.h>

#include <QAccessibleWidget>
#include <QPainter>
#include <QStyle>
#include <QTimerEvent>

#include <utility>

namespace {

constexpr int kDiameter = 16; // design pixels
constexpr int kMinDiameter = 4; // design pixels: below, the ring would be a dot
constexpr int kStrokesPerDiameter = 8;
constexpr qreal kTrackOpacity = 0.2;
constexpr int kFrames = 24; // of a turn
constexpr int kFrameTime = 40; // milliseconds
constexpr int kDegree = 16; // QPainter's unit of angles
constexpr int kTop = 90 * kDegree;
constexpr int kArc = 90 * kDegree;

class AccessibleSpinner : public QAccessibleWidget
{
public:
    explicit AccessibleSpinner(VemoSpinner *spinner)
        : QAccessibleWidget(spinner, QAccessible::ProgressBar)
    {
    }

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.busy = static_cast<VemoSpinner *>(widget())->isRunning();
        return state;
    }
};

QAccessibleInterface *newAccessibleSpinner(const QString & /*className*/, QObject *object)
{
    auto *spinner = qobject_cast<VemoSpinner *>(object);
    return spinner ? new AccessibleSpinner(spinner) : nullptr;
}

void announceBusyChange(QWidget *widget)
{
    QAccessible::State changed;
    changed.busy = true;
    QAccessibleStateChangeEvent event(widget, changed);
    QAccessible::updateAccessibility(&event);
}

} // namespace

VemoSpinner::VemoSpinner(QWidget *parent) : QWidget(parent), m_diameter(kDiameter)
{
    // Installing the factory again is a no-op.
    QAccessible::installFactory(newAccessibleSpinner);
    speakToolTip(this);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setStyleSheet(getStyleSheet("component.spinner"));
}

void VemoSpinner::setDiameter(int designPixels)
{
    const int diameter = qMax(designPixels, kMinDiameter);
    if (diameter == m_diameter)
        return;
    m_diameter = diameter;
    updateGeometry();
    update();
}

QSize VemoSpinner::sizeHint() const
{
    return {scaled(m_diameter), scaled(m_diameter)};
}

QSize VemoSpinner::minimumSizeHint() const
{
    return sizeHint();
}

void VemoSpinner::start()
{
    setRunning(true);
}

void VemoSpinner::stop()
{
    setRunning(false);
}

void VemoSpinner::setRunning(bool running)
{
    if (running == m_is_running)
        return;
    m_is_running = running;
    m_frame = 0;
    m_timer.stop(); // The next paint event starts it.
    update();
    announceBusyChange(this);
    Q_EMIT runningChanged(running);
}

void VemoSpinner::paintEvent(QPaintEvent * /*event*/)
{
    if (!m_is_running)
        return;
    m_is_painted = true;
    updateTimer();

    const int stroke = qMax(1, scaled(m_diameter) / kStrokesPerDiameter);
    const int side = scaled(m_diameter) - stroke;
    QRectF ring(0, 0, side, side);
    ring.moveCenter(QRectF(rect()).center());
    const QPen pen(palette().color(foregroundRole()), stroke, Qt::SolidLine, Qt::RoundCap);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(pen);
    painter.setOpacity(kTrackOpacity);
    painter.drawEllipse(ring);
    painter.setOpacity(1);
    // Clockwise, from an arc whose middle is at the top.
    painter.drawArc(ring, kTop - kArc / 2 - m_frame * 360 * kDegree / kFrames, kArc);
}

void VemoSpinner::timerEvent(QTimerEvent *event)
{
    if (event->timerId() != m_timer.timerId()) {
        QWidget::timerEvent(event);
        return;
    }
    // Qt paints only what can be seen. Without a paint event since the last time the spinner is
    // hidden, minimized or scrolled away; the paint event that shows it again starts the timer.
    if (!std::exchange(m_is_painted, false)) {
        m_timer.stop();
        return;
    }
    m_frame = (m_frame + 1) % kFrames;
    update();
}

void VemoSpinner::updateTimer()
{
    const bool isAnimated = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this);
    if (!isAnimated)
        m_timer.stop();
    else if (!m_timer.isActive())
        m_timer.start(kFrameTime, this);
}
