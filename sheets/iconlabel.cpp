// SPDX-License-Identifier: MIT
#include "sheets/iconlabel_p.h"

#include "core/resourcefile_p.h"

#include <QMovie>
#include <QPainter>
#include <QStyle>

IconLabel::IconLabel(QWidget *parent) : QLabel(parent) { }

IconLabel::~IconLabel() = default;

void IconLabel::paintEvent(QPaintEvent *event)
{
    const QPixmap frame = detailedFrame();
    if (frame.isNull()) {
        QLabel::paintEvent(event);
        return;
    }
    QPainter painter(this);
    drawFrame(&painter);
    const int side = QStyle::visualAlignment(layoutDirection(), alignment());
    style()->drawItemPixmap(&painter, contentsRect(), side, frame);
}

/// The current frame of the movie in the pixels of the screen; null if its own pixels are enough.
QPixmap IconLabel::detailedFrame()
{
    const qreal ratio = devicePixelRatioF();
    const QMovie *shown = movie();
    if (!shown || ratio <= 1)
        return {};
    const QSize size = shown->currentPixmap().size() * ratio;
    if (!m_detailed || m_detailed->fileName() != shown->fileName()
        || m_detailed->scaledSize() != size) {
        // The file may have been replaced since the movie began.
        if (!isResourceFile(QFileInfo(shown->fileName()), kMaxPictureBytes))
            return {};
        m_detailed.reset(new QMovie(shown->fileName()));
        m_detailed->setScaledSize(size);
        // Otherwise only the frame after the current one could be reached.
        m_detailed->setCacheMode(QMovie::CacheAll);
    }
    if (!m_detailed->jumpToFrame(shown->currentFrameNumber()))
        return {};
    QPixmap frame = m_detailed->currentPixmap();
    frame.setDevicePixelRatio(ratio);
    return frame;
}
