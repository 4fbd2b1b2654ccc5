// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QString>

/// Converts plain text to HTML for a tool tip that shows it unchanged, including line breaks and
/// runs of blanks. A plain tool tip would interpret "<b>" as mark-up and join the lines. Even an
/// empty text is converted to HTML, so do not set a tool tip for it. Requires: nothing.
///
///     fileLabel->setToolTip(getHtmlEscapedStringForToolTip(fileName));
VEMO_EXPORT QString getHtmlEscapedStringForToolTip(const QString &text);
