// SPDX-License-Identifier: MIT
#include "gridfit_p.h"

#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QSvgRenderer>

#include <cmath>

namespace {

constexpr double kShift = 0.125; // design pixels: half of what the pen is wider than a pixel

/// From k + 1/2 towards the even coordinate beside it; whole coordinates stay.
double fitted(double coordinate)
{
    const double whole = std::floor(coordinate);
    const double toHalf = 1 - std::abs(2 * (coordinate - whole) - 1);
    return coordinate + (std::fmod(whole, 2) == 0 ? kShift : -kShift) * toHalf;
}

/// Hands each path on to a painter of the image, its strokes on the grid.
class GridEngine : public QPaintEngine
{
public:
    GridEngine(QImage &image, double unit)
        : QPaintEngine(AllFeatures), m_painter(&image), m_unit(unit)
    {
        m_painter.setRenderHint(QPainter::Antialiasing);
    }

    bool begin(QPaintDevice * /*device*/) override { return true; }
    bool end() override { return true; }
    Type type() const override { return User; }
    void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override { }

    void updateState(const QPaintEngineState &state) override
    {
        m_pen = state.pen();
        m_transform = state.transform();
        m_painter.setBrush(state.brush());
        m_painter.setOpacity(state.opacity());
    }

    void drawPath(const QPainterPath &path) override
    {
        if (m_pen.style() == Qt::NoPen) {
            m_painter.setTransform(m_transform);
            m_painter.setPen(Qt::NoPen);
            m_painter.drawPath(path);
            return;
        }
        QPainterPath shape = m_transform.map(path);
        for (int i = 0; i < shape.elementCount(); ++i) {
            const QPainterPath::Element point = shape.elementAt(i);
            shape.setElementPositionAt(
                i, fitted(point.x / m_unit) * m_unit, fitted(point.y / m_unit) * m_unit);
        }
        QPen pen = m_pen;
        pen.setWidthF(m_pen.widthF() * m_transform.m11());
        m_painter.resetTransform();
        m_painter.setPen(pen);
        m_painter.drawPath(shape);
    }

private:
    QPainter m_painter;
    double m_unit;
    QPen m_pen;
    QTransform m_transform;
};

class GridDevice : public QPaintDevice
{
public:
    GridDevice(QImage &image, double unit) : m_engine(image, unit), m_size(image.size()) { }
    QPaintEngine *paintEngine() const override { return &m_engine; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
            return m_size.width();
        case PdmHeight:
            return m_size.height();
        case PdmDepth:
            return 32;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return int(devicePixelRatioFScale());
        default:
            return 96; // dots per inch
        }
    }

private:
    mutable GridEngine m_engine;
    QSize m_size;
};

} // namespace

void drawOnGrid(QSvgRenderer &renderer, QImage &image, double unit)
{
    GridDevice device(image, unit);
    QPainter painter(&device);
    painter.setRenderHint(QPainter::Antialiasing);
    renderer.render(&painter, QRectF(QPointF(0, 0), image.size()));
}
