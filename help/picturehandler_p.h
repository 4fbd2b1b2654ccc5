// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QObject>
#include <QPointer>
#include <QTextObjectInterface>

class PageDocument;

/// Draws the pictures of a page instead of the text engine's own handler, which searches the disk
/// for a picture of twice the size and tries to open unknown addresses as files.
class PictureHandler : public QObject, public QTextObjectInterface
{
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)

public:
    /// A child of page, whose layout must still have its own handler.
    explicit PictureHandler(PageDocument *page);

    QSizeF intrinsicSize(QTextDocument *document, int position, const QTextFormat &format) override;
    void drawObject(QPainter *painter, const QRectF &rect, QTextDocument *document, int position,
        const QTextFormat &format) override;

private:
    QTextObjectInterface *m_engines_own = nullptr;
    PageDocument *m_page;
};
