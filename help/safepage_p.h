// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QString>

/// A page as the text engine may see it.
struct SafePage
{
    enum Verdict { FINE, TOO_DEEP, TOO_SLOW };

    Verdict verdict = FINE;
    QString html; ///< Empty unless FINE.
    qint64 work = 0; ///< What the text engine will take by estimate, in nanoseconds.
    int pictures = 0; ///< How many it has.
};

/// Writes the page html again so that nothing in it has two readings, and judges what it costs to
/// show.
///
/// The text engine's own parser is lenient: to tell from a page what it will make of it would mean
/// to repeat each of its leniencies. So the page is read here, just as leniently, and what was read
/// is written out in one strict spelling: a name of plain letters, attributes in double quotes,
/// every element but the empty ones ended by a tag of its own before the one around it, no
/// comments. What the text engine sees nests exactly as deep as counted here, whatever the page
/// looked like. Spans are cut to kMaxSpan, words broken after WordBreaks::kMaxWordLength letters,
/// the title after kMaxTitleLength.
///
/// On a page from the network, style sheets are written again, too, and files with style sheets are
/// left out. On another page they stay as they are, but for lengths that are too large.
SafePage safePage(const QString &html, bool isFromNetwork);

/// The same for plain text: html is the text with its endless words broken.
SafePage safePlainText(const QString &text);
