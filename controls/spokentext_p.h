// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QTextDocument>
#include <QTextDocumentFragment>

/// A text as a screen reader should announce it: without mark-up. By default the text is treated as
/// rich text if QLabel would do so.
inline QString spoken(const QString &text, Qt::TextFormat format = Qt::AutoText)
{
    const bool isRich =
        format == Qt::RichText || (format == Qt::AutoText && Qt::mightBeRichText(text));
    return isRich ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
}
