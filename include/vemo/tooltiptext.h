// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QString>

/// Plain text as the HTML of a tool tip that shows it letter for letter, with its line breaks and
/// runs of blanks. Left to itself a tool tip would take "<b>" for mark-up and join the lines. Also
/// an empty text yields HTML: set no tool tip for it. Needs no resources.
///
///     fileLabel->setToolTip(getHtmlEscapedStringForToolTip(fileName));
VEMO_EXPORT QString getHtmlEscapedStringForToolTip(const QString &text);
