// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QFrame>
#include <QPixmap>

#include <array>

class QPainter;

/// The frame of every sheet: a white panel with a soft shadow, inside its parent's window instead
/// of in a separate window.
///
/// The shadow is 22 design pixels wide on each side, in the contents margins of the frame, and
/// consists of the eight catalogue pictures "bg_tutorial_l", "_r", "_t", "_b", "_lt", "_rt", "_lb"
/// and "_rb". They are looked up at each paint; a missing one is left out, with a warning.
/// Requires: pictures, before the first paint.
///
/// A frame has no position of its own and is not modal: put it over a window with VemoMask, or use
/// VemoMessageSheet or VemoInputSheet. To screen readers it is a dialog, and those two are modal
/// while they run.
///
/// A mask makes the frame as large as its size policy allows. That is the whole window unless the
/// policy is Fixed, as here:
///
///     auto *sheet = new VemoSheet(window);
///     sheet->setWidget(new QCalendarWidget);
///     sheet->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
///     VemoMask::createMask(sheet, window, QColor(0, 0, 0, 20));
///     sheet->show();
///
/// \image html sheets-frame-and-mask.png
class VEMO_EXPORT VemoSheet : public QFrame
{
    Q_OBJECT

public:
    /// Creates an empty frame as a child of parent.
    explicit VemoSheet(QWidget *parent = nullptr);
    ~VemoSheet() override;

    /// Takes ownership of widget, centres it in the body and adopts its size hint. widget must not
    /// be null. A previous widget remains an unmanaged child of the frame.
    void setWidget(QWidget *widget);

Q_SIGNALS:
    /// Emitted by derived sheets when the user or the program ends them, with the result that
    /// exec() returns, but not when they are deleted. The frame itself never emits it.
    void finished(int ret);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    /// A picture as stretched for the last paint event.
    struct StretchedEdge
    {
        qint64 sourceKey = 0;
        QSize size;
        QPixmap picture;
    };

    void reserveBand();
    void drawShadow(QPainter &painter);
    void drawEdge(QPainter &painter, const QRect &strip, const QPixmap &picture,
        StretchedEdge &stretched) const;

    const int m_shadow_width; ///< in device-independent pixels
    std::array<StretchedEdge, 4> m_edges;
};
