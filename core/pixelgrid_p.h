// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
// At a fractional pixel ratio Qt rounds what it draws to device pixels part by part. Parts that
// have to meet, or to be of one width, are therefore rounded here.
#pragma once

#include <QPainter>
#include <QRect>
#include <QTransform>

/// The device pixels of rect. Rectangles that share an edge still share it.
inline QRect toDevicePixels(const QPainter &painter, const QRect &rect)
{
    // Not toRect(), which in Qt 6 keeps the size rather than the edges.
    const QRectF exact = painter.deviceTransform().mapRect(QRectF(rect));
    return {QPoint(qRound(exact.left()), qRound(exact.top())),
        QPoint(qRound(exact.right()) - 1, qRound(exact.bottom()) - 1)};
}

inline QRectF fromDevicePixels(const QPainter &painter, const QRect &devicePixels)
{
    return painter.deviceTransform().inverted().mapRect(QRectF(devicePixels));
}

/// rect with its edges moved to the nearest device pixels.
inline QRectF onPixelGrid(const QPainter &painter, const QRect &rect)
{
    return fromDevicePixels(painter, toDevicePixels(painter, rect));
}
