// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QString>

/// A page that may be passed to the text engine.
struct SafePage
{
    enum Verdict { FINE, TOO_DEEP, TOO_SLOW };

    Verdict verdict = FINE;
    QString html; ///< Empty unless FINE.
    qint64 work = 0; ///< The estimated time for the text engine, in nanoseconds.
    int pictures = 0; ///< The number of pictures.
    int letters = 0; ///< The length of its texts.
    int lines = 0; ///< The number of lines that it has at least, in a window of any width.
};

/// Rewrites the page html in an unambiguous form, and estimates the cost of showing it.
///
/// The text engine's own parser is so lenient that its result can only be predicted by imitating
/// all of its rules. So the page is parsed here just as leniently, and the result is written in one
/// strict form: names of plain letters, attributes in double quotes, an end tag for every element
/// except the empty ones, inside its parent, and no comments. The text engine then sees exactly the
/// nesting that was counted here, whatever the page looked like. Spans are limited to kMaxSpan,
/// words are broken after WordBreaks::kMaxWordLength letters, and the title is truncated after
/// kMaxTitleLength.
///
/// On pages from the network, style sheets are also rewritten, and files with style sheets are left
/// out. On other pages they are unchanged except for lengths that are too large.
SafePage safePage(const QString &html, bool isFromNetwork);

/// The same for plain text: html is the text with breaks in long words.
SafePage safePlainText(const QString &text);
