// SPDX-License-Identifier: MIT
#include "help/picturehandler_p.h"

#include "help/pagedocument_p.h"

#include <QAbstractTextDocumentLayout>
#include <QGuiApplication>
#include <QPainter>
#include <QScreen>

namespace {

qreal pointsScale(const QTextDocument *document)
{
    const QPaintDevice *device = document->documentLayout()->paintDevice();
    const qreal screen = qRound(QGuiApplication::primaryScreen()->logicalDotsPerInchY());
    return device && screen > 0 ? device->logicalDpiY() / screen : 1;
}

} // namespace

PictureHandler::PictureHandler(PageDocument *page)
    : QObject(page),
      m_engines_own(page->documentLayout()->handlerForObject(QTextFormat::ImageObject)),
      m_page(page)
{
    page->documentLayout()->registerHandler(QTextFormat::ImageObject, this);
}

QSizeF PictureHandler::intrinsicSize(
    QTextDocument *document, int position, const QTextFormat &format)
{
    if (m_page->areLocalFilesAllowed())
        return m_engines_own->intrinsicSize(document, position, format);
    const QTextImageFormat image = format.toImageFormat();
    const bool hasWidth = image.hasProperty(QTextFormat::ImageWidth);
    const bool hasHeight = image.hasProperty(QTextFormat::ImageHeight);
    QSizeF size(qRound(image.width()), qRound(image.height()));
    if (!hasWidth || !hasHeight) {
        const QSizeF natural = m_page->shownSize(image.name());
        const qreal ratio = natural.width() / natural.height();
        if (!hasWidth)
            size.setWidth(hasHeight ? qRound(size.height() * ratio) : natural.width());
        if (!hasHeight)
            size.setHeight(hasWidth ? qRound(size.width() / ratio) : natural.height());
    }
    const qreal maxHeight = m_page->maxPictureHeight();
    if (size.height() > maxHeight)
        size =
            QSizeF(hasWidth ? size.width() : size.width() * maxHeight / size.height(), maxHeight);
    return size * pointsScale(document);
}

void PictureHandler::drawObject(QPainter *painter, const QRectF &rect, QTextDocument *document,
    int position, const QTextFormat &format)
{
    if (m_page->areLocalFilesAllowed()) {
        m_engines_own->drawObject(painter, rect, document, position, format);
        return;
    }
    const QPixmap pixmap = m_page->picture(format.toImageFormat().name());
    painter->drawPixmap(rect, pixmap, pixmap.rect());
}
