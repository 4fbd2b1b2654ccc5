// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QStringView>
#include <QVector>

/// Where the base address of a page stands in its text; start is -1 where there is none.
struct BaseAddress
{
    int start = -1;
    int end = -1; ///< At the closing quote.
};

BaseAddress findBaseAddress(const QString &html);

/// The sources of all pictures in html from position on, each once, in their order; they last as
/// long as html.
QVector<QStringView> pictureSources(const QString &html, int from);
