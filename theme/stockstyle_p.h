// SPDX-License-Identifier: MIT
#pragma once

// Not part of the public interface.

#include <QProxyStyle>

/// Fusion, extended for Qt's own widgets by what a style sheet cannot express: sliders with ticks,
/// dials, rows, lines between areas, text, and the theme's pictures. Subclasses look as they do in
/// Fusion.
class StockStyle : public QProxyStyle
{
    Q_OBJECT

public:
    StockStyle();

    bool eventFilter(QObject *watched, QEvent *event) override;

    using QProxyStyle::polish;
    void polish(QApplication *application) override;
    void polish(QWidget *widget) override;
    using QProxyStyle::unpolish;
    void unpolish(QWidget *widget) override;
    void unpolish(QApplication *application) override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option = nullptr,
        const QWidget *widget = nullptr) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
        const QWidget *widget = nullptr) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
        const QWidget *widget = nullptr) const override;
    void drawItemText(QPainter *painter, const QRect &rect, int flags, const QPalette &palette,
        bool enabled, const QString &text,
        QPalette::ColorRole role = QPalette::NoRole) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
        QPainter *painter, const QWidget *widget = nullptr) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl part,
        const QWidget *widget = nullptr) const override;
    QIcon standardIcon(StandardPixmap standardIcon, const QStyleOption *option = nullptr,
        const QWidget *widget = nullptr) const override;

private:
    QObject *m_mirroredParts;
};
