// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QHash>
#include <QString>

/// The rules that may apply to an element.
struct CssMatches
{
    int selectors = 0;
    int descendants = 0; ///< Those of them that look for an element around it.
    int inherited = 0; ///< The declarations of properties that elements inherit.

    void add(const CssMatches &other)
    {
        selectors += other.selectors;
        descendants += other.descendants;
        inherited += other.inherited;
    }
};

/// The cost of a style sheet for the text engine.
struct CssEffort
{
    int selectors = 0;
    /// Rules by what the element that they are for must have: its name, ".class" or "#id"; the name
    /// of any element is "*".
    QHash<QString, CssMatches> matchesFor;
    int declarations = 0;
    int inherited = 0; ///< Those of them whose properties elements inherit.
    int ancestors = 0; ///< Steps from an element to its ancestors.
    int siblings = 0; ///< Steps to the previous siblings.
    int maxLength = 0; ///< Pixels of the largest margin, padding, border, indent or height.
    int maxLine = 0; ///< Height in pixels of a line with the largest font or line height.
    int maxHeadingLine = 0; ///< The same for headings only.
    bool hasFonts = false;
    bool hasFloats = false;
    bool hasWhiteSpace = false;
    bool hasDisplay = false; ///< Whether blocks may become parts of a line.
};

/// Rewrites the declarations of a style attribute in a plain, unambiguous form. Anything that is
/// not plain, such as escapes, is left out. Adds to effort.
QString plainDeclarations(const QString &css, CssEffort *effort);

/// Rewrites a style sheet in the same way. At-rules other than media rules are left out, imports in
/// particular.
QString plainStyleSheet(const QString &css, CssEffort *effort);

/// Removes declarations whose lengths are too large for the text engine from a style sheet or a
/// style attribute of a local page. If there are none, css is returned unchanged.
QString withoutLargeNumbers(const QString &css);
