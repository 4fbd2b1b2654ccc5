// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QString>

/// What the text engine has to do for a style sheet.
struct CssEffort
{
    int selectors = 0;
    int declarations = 0;
    int ancestors = 0; ///< Steps from an element to those around it.
    int siblings = 0; ///< Steps to the one before it.
    int maxLength = 0; ///< Pixels of the largest margin, padding, border, indent or height.
    int maxLine = 0; ///< Pixels that a line of the largest font or line height takes.
    int maxHeadingLine = 0; ///< The same for headings alone.
    bool hasFonts = false;
    bool hasFloats = false;
    bool hasWhiteSpace = false;
    bool hasDisplay = false; ///< Whether blocks may become parts of a line.
};

/// css, of a style attribute, rewritten: plain declarations with one spelling. Whatever is not
/// plain, such as escapes, is left out. Adds to effort.
QString plainDeclarations(const QString &css, CssEffort *effort);

/// css, of a style sheet, rewritten in the same way. Rules but those for media are left out,
/// imports in particular.
QString plainStyleSheet(const QString &css, CssEffort *effort);

/// css, a style sheet or a style attribute of a local page, without the declarations whose lengths
/// are too large for the text engine; letter for letter the same if there are none.
QString withoutLargeNumbers(const QString &css);
