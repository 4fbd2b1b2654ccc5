// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QStringView>
#include <QVector>

/// The position of the base address in the text of a page; start is -1 if there is none.
struct BaseAddress
{
    int start = -1;
    int end = -1; ///< At the closing quote.
};

BaseAddress findBaseAddress(const QString &html);

/// The distinct sources of all pictures in html at or after from, in order. They refer to html,
/// which must outlive them.
QVector<QStringView> pictureSources(const QString &html, int from);
