// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <vemo/stylemanager.h>

#include <QPushButton>
#include <QTextDocument>
#include <QTextDocumentFragment>

/// Gives a button of a sheet its caption and the style of its role.
inline void dressButton(QPushButton *button, const QString &caption, const char *styleKey)
{
    button->setText(caption);
    button->setStyleSheet(getStyleSheet(styleKey));
}

/// What a screen reader should say of a text: the text without its markup.
inline QString spoken(const QString &text)
{
    return Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text;
}
