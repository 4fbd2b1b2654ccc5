// SPDX-License-Identifier: MIT
#include "theme/rangepainter_p.h"

#include "core/scaling_p.h"

#include <vemo/defaulttheme.h>

#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QtMath>

namespace {

// In design pixels.
constexpr int kGroove = 4;
constexpr int kGap = 2;
constexpr int kNotch = 3;
constexpr int kMinTickDistance = 3;
constexpr int kFocusRing = 4; // a thinner one hardly differs from the frame at rest

// Screen pixels: Qt reserves five for ticks at every factor.
constexpr int kTick = 4;
constexpr int kTickGap = 1;

// Degrees, counterclockwise from three o'clock.
constexpr double kFirstAngle = 240;
constexpr double kSweep = 300; // of a dial that does not wrap
constexpr double kWrappingFirstAngle = 270;

QColor colour(const char *name)
{
    return defaultThemeColor(QLatin1String(name));
}

/// A dial does not report a subcontrol under the pointer, so all of it counts as the handle.
bool isOver(const QStyleOptionSlider &option, QStyle::SubControl part)
{
    return part == QStyle::SC_DialHandle || (option.activeSubControls & part);
}

struct HandleLook
{
    QColor frame;
    QColor ground;
    int frameWidth;
};

HandleLook handleLook(const QStyleOptionSlider &option, QStyle::SubControl part)
{
    const int fine = qMax(1, scaled(1));
    if (!(option.state & QStyle::State_Enabled))
        return {colour("line"), colour("hover"), fine};
    const int width = option.state & QStyle::State_HasFocus ? scaled(kFocusRing) : fine;
    if ((option.state & QStyle::State_Sunken) && isOver(option, part))
        return {colour("accent-pressed"), colour("selection"), width};
    if ((option.state & QStyle::State_MouseOver) && isOver(option, part))
        return {colour("accent"), colour("hover"), width};
    const bool hasFocus = option.state & QStyle::State_HasFocus;
    return {colour(hasFocus ? "accent" : "soft-ink"), colour("surface"), width};
}

void drawRing(QPainter *painter, const QRectF &rect, const HandleLook &look)
{
    const double inset = look.frameWidth / 2.0;
    painter->setPen(QPen(look.frame, look.frameWidth));
    painter->setBrush(look.ground);
    painter->drawEllipse(rect.adjusted(inset, inset, -inset, -inset));
}

QColor filledColour(const QStyleOptionSlider &option)
{
    return colour(option.state & QStyle::State_Enabled ? "accent" : "faint-ink");
}

/// The interval between two ticks: as requested, otherwise a step or a page, whichever fits.
int tickInterval(const QStyleOptionSlider &option, int span)
{
    const auto distance = [&](int steps) {
        return QStyle::sliderPositionFromValue(0, option.maximum - option.minimum, steps, span);
    };
    int interval = option.tickInterval;
    if (interval <= 0)
        interval =
            distance(option.singleStep) < kMinTickDistance ? option.pageStep : option.singleStep;
    return qMax(1, interval);
}

/// The values at which there are ticks or notches.
QVector<int> tickValues(const QStyleOptionSlider &option, int span)
{
    QVector<int> values;
    const int interval = tickInterval(option, span);
    for (qint64 value = option.minimum; value <= option.maximum; value += interval)
        values.append(int(value));
    return values;
}

void drawTicks(QPainter *painter, const QStyleOptionSlider &option, const QRect &handle)
{
    const bool isHorizontal = option.orientation == Qt::Horizontal;
    const int length = isHorizontal ? handle.width() : handle.height();
    const int span = (isHorizontal ? option.rect.width() : option.rect.height()) - length;
    const int start = (isHorizontal ? option.rect.left() : option.rect.top()) + length / 2;
    const int above = (isHorizontal ? handle.top() : handle.left()) - (kTickGap + kTick);
    const int below = (isHorizontal ? handle.bottom() : handle.right()) + 1 + kTickGap;
    const int width = qMax(1, scaled(1));
    const QVector<int> values = tickValues(option, span);
    for (int value : values) {
        const int at = start
            + QStyle::sliderPositionFromValue(
                option.minimum, option.maximum, value, span, option.upsideDown);
        for (const auto &[side, edge] : {std::make_pair(QSlider::TicksAbove, above),
                 std::make_pair(QSlider::TicksBelow, below)}) {
            if (!(option.tickPosition & side))
                continue;
            const QRect tick =
                isHorizontal ? QRect(at, edge, width, kTick) : QRect(edge, at, kTick, width);
            painter->fillRect(tick, colour("faint-ink"));
        }
    }
}

double angleOf(const QStyleOptionSlider &option, int value)
{
    const double range = qMax(1.0, double(option.maximum) - option.minimum);
    const double part = (double(value) - option.minimum) / range;
    const double first = option.dialWrapping ? kWrappingFirstAngle : kFirstAngle;
    return first - (option.upsideDown ? part : 1 - part) * (option.dialWrapping ? 360 : kSweep);
}

QPointF onCircle(const QPointF &centre, double radius, double degrees)
{
    const double angle = qDegreesToRadians(degrees);
    return centre + QPointF(radius * qCos(angle), -radius * qSin(angle));
}

void drawArc(QPainter *painter, const QRectF &rect, double first, double sweep, const QPen &pen)
{
    constexpr int kPart = 16; // of a degree
    painter->setPen(pen);
    painter->setBrush(Qt::NoBrush);
    painter->drawArc(rect, qRound(first * kPart), qRound(-sweep * kPart));
}

void drawNotches(
    QPainter *painter, const QStyleOptionSlider &option, const QPointF &centre, double radius)
{
    painter->setPen(QPen(colour("faint-ink"), qMax(1, scaled(1))));
    const int span = qRound(radius * 2 * M_PI * kSweep / 360);
    const QVector<int> values = tickValues(option, span);
    for (int value : values) {
        const double angle = angleOf(option, value);
        painter->drawLine(
            onCircle(centre, radius, angle), onCircle(centre, radius - scaled(kNotch), angle));
    }
}

} // namespace

void drawSlider(QPainter *painter, const QStyleOptionSlider &option, const QRect &handle)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(Qt::NoPen);
    const bool isHorizontal = option.orientation == Qt::Horizontal;
    const int thickness = scaled(kGroove);
    const QPoint middle = handle.center();
    const QRect groove = isHorizontal
        ? QRect(option.rect.left(), middle.y() - thickness / 2 + 1, option.rect.width(), thickness)
        : QRect(middle.x() - thickness / 2 + 1, option.rect.top(), thickness, option.rect.height());
    QRect filled = groove;
    if (isHorizontal && option.upsideDown)
        filled.setLeft(middle.x());
    else if (isHorizontal)
        filled.setRight(middle.x());
    else if (option.upsideDown)
        filled.setTop(middle.y());
    else
        filled.setBottom(middle.y());
    const double radius = thickness / 2.0;
    painter->setBrush(colour("line"));
    painter->drawRoundedRect(groove, radius, radius);
    painter->setBrush(filledColour(option));
    painter->drawRoundedRect(filled, radius, radius);
    drawTicks(painter, option, handle);
    drawRing(painter, handle, handleLook(option, QStyle::SC_SliderHandle));
    painter->restore();
}

void drawDial(QPainter *painter, const QStyleOptionSlider &option)
{
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const double pen = scaled(kGroove);
    const QPointF centre = QRectF(option.rect).center();
    double radius = qMin(option.rect.width(), option.rect.height()) / 2.0 - 1;
    if (option.subControls & QStyle::SC_DialTickmarks) {
        drawNotches(painter, option, centre, radius);
        radius -= scaled(kNotch + kGap);
    }
    radius = qMax(pen, radius - pen / 2);
    const QRectF ring(centre - QPointF(radius, radius), QSizeF(2 * radius, 2 * radius));
    const double first = angleOf(option, option.upsideDown ? option.minimum : option.maximum);
    const double value = angleOf(option, option.sliderPosition);
    const double sweep = option.dialWrapping ? 360 : kSweep;
    drawArc(painter, ring, first, sweep, QPen(colour("line"), pen, Qt::SolidLine, Qt::RoundCap));
    const double filled = option.upsideDown ? first - value : 0;
    if (filled > 0)
        drawArc(painter, ring, first, filled,
            QPen(filledColour(option), pen, Qt::SolidLine, Qt::RoundCap));
    const double gap = pen / 2 + scaled(kGap);
    const QRectF knob = ring.adjusted(gap, gap, -gap, -gap);
    const HandleLook look = handleLook(option, QStyle::SC_DialHandle);
    drawRing(painter, knob, look);
    painter->setPen(
        QPen(option.state & QStyle::State_Enabled ? colour("accent") : colour("faint-ink"),
            scaled(2), Qt::SolidLine, Qt::RoundCap));
    const double outer = knob.width() / 2 - scaled(3);
    painter->drawLine(onCircle(centre, outer * 0.5, value), onCircle(centre, outer, value));
    painter->restore();
}
