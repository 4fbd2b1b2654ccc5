// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QFrame>
#include <QPixmap>

#include <array>

class QPainter;

/// The frame of every sheet: a white panel with a soft shadow around it, drawn inside its parent's
/// window instead of opening a window of its own.
///
/// The shadow lies in a band of 22 design pixels on each side, the frame's contents margins, and is
/// made of the eight catalogue pictures "bg_tutorial_l", "_r", "_t", "_b", "_lt", "_rt", "_lb"
/// and "_rb". They are looked up at each paint; a missing one leaves its place empty and warns.
/// Initialise the catalogue before the first paint.
///
/// A frame neither places itself nor is it modal: lay it over a window with VemoMask, or take
/// VemoMessageSheet or VemoInputSheet, which do the rest. To screen readers it is a dialog, and
/// those two are modal while they run.
///
/// A mask makes the frame as large as its size policy allows. That is the whole window, unless the
/// policy is Fixed as here:
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
    /// An empty frame, a child of parent.
    explicit VemoSheet(QWidget *parent = nullptr);
    ~VemoSheet() override;

    /// Shows widget, which the frame takes over, in the middle of the body, and takes on the size
    /// that it asks for. Not null. A widget set before stays a child of the frame, unmanaged.
    void setWidget(QWidget *widget);

Q_SIGNALS:
    /// For derived sheets, which emit it at their end, whether the user or the program ended them,
    /// with the result that exec() returns; not when they are deleted. The frame itself never emits
    /// it.
    void finished(int ret);

protected:
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    /// A picture as it was stretched for the last paint.
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
