// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QTextDocument>
#include <QTextDocumentFragment>

/// What a screen reader should say of a text: the text without its mark-up. Without a format it is
/// taken for mark-up where a label would take it so.
inline QString spoken(const QString &text, Qt::TextFormat format = Qt::AutoText)
{
    const bool isRich =
        format == Qt::RichText || (format == Qt::AutoText && Qt::mightBeRichText(text));
    return isRich ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
}
