// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QObject>
#include <QPointer>
#include <QTextObjectInterface>

class PageDocument;

/// Draws the pictures of a page, in place of the text engine's own handler: that one asks the disk
/// for a picture of twice the size, and opens what it can't load as a file.
class PictureHandler : public QObject, public QTextObjectInterface
{
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    /// Belongs to page, whose layout has to have its own handler still.
    explicit PictureHandler(PageDocument *page);

    QSizeF intrinsicSize(QTextDocument *document, int position, const QTextFormat &format) override;
    void drawObject(QPainter *painter, const QRectF &rect, QTextDocument *document, int position,
        const QTextFormat &format) override;

private:
    QTextObjectInterface *m_engines_own = nullptr;
    PageDocument *m_page;
};
