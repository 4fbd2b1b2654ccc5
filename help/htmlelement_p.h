// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QString>

/// What the text engine knows about an element, looked up once for each of its tags.
struct HtmlElement
{
    /// The elements for which there are rules of their own. Each is a bit, so that a set of them is
    /// the sum of its elements.
    enum Name {
        OTHER = 0,
        BODY = 1 << 0,
        BR = 1 << 1,
        CAPTION = 1 << 2,
        DD = 1 << 3,
        DL = 1 << 4,
        DT = 1 << 5,
        HEAD = 1 << 6,
        IMG = 1 << 7,
        LI = 1 << 8,
        LINK = 1 << 9,
        LIST = 1 << 10, ///< <ul> and <ol>.
        META = 1 << 11,
        OPTION = 1 << 12,
        P = 1 << 13,
        PRE = 1 << 14,
        SECTION = 1 << 15, ///< Of a table.
        STYLE = 1 << 16,
        TABLE = 1 << 17,
        TD = 1 << 18,
        TH = 1 << 19,
        TITLE = 1 << 20,
        TR = 1 << 21,
    };

    enum Trait {
        EMPTY = 1, ///< Has no content and no end tag.
        BLOCK = 2,
        LINES = 4, ///< Always starts a new line, and ends it.
        BOLD = 8,
        ITALIC = 16,
        MONOSPACED = 32,
        SIZED = 64, ///< Has its own font size.
        MARGINS = 128, ///< Above and below it.
        INDENTED = 256,
    };

    int name = OTHER;
    int traits = 0;
    QString start; ///< Of its tag, such as "<p"; null for an unknown one, as the next.
    QString end; ///< Its end tag.

    bool is(int names) const { return name & names; }
    bool has(int anyTrait) const { return traits & anyTrait; }
    bool isHeading() const { return has(SIZED) && has(BLOCK); }

    /// The element of that name in lower case. One that is unknown has no traits.
    static const HtmlElement &of(const QString &name);
};
