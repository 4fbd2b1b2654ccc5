// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QString>

/// Finds words that are so long that the text engine takes its time for them: it looks for the end
/// of a word again for each line.
///
/// A word counts as ended only where every reader of the line breaking rules of Unicode sees an
/// end: at blanks between letters or digits, and between ideographs.
class WordBreaks
{
public:
    /// Takes the next letter of the text; true if a break has to be put in front of it.
    bool isDueBefore(QChar c)
    {
        const ushort code = c.unicode();
        const bool isBlank = code == ' ' || code == '\n' || code == '\t' || code == '\r';
        const bool isIdeograph =
            (code >= 0x3400 && code <= 0x9FFF) || (code >= 0xAC00 && code <= 0xD7A3);
        if (isBlank) {
            m_last = m_last == LETTER || m_last == IDEOGRAPH ? BLANK
                : m_last == BLANK                            ? BLANK
                                                             : OTHER;
        } else if (isIdeograph || c.isLetterOrNumber()) {
            if (m_last == BLANK || (isIdeograph && m_last == IDEOGRAPH))
                m_length = 0;
            m_last = isIdeograph ? IDEOGRAPH : LETTER;
        } else {
            m_last = OTHER;
        }
        if (++m_length <= kMaxWordLength || c.isLowSurrogate() || isBlank)
            return false;
        m_length = 1;
        return true;
    }
    /// The next letter begins a line.
    void restart()
    {
        m_length = 0;
        m_last = OTHER;
    }

    static constexpr int kMaxWordLength = 500;
    static constexpr QChar kBreak = QChar(0x200B); ///< A blank of no width.

private:
    enum Last { OTHER, LETTER, IDEOGRAPH, BLANK };

    int m_length = 0;
    Last m_last = OTHER;
};
