// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <QString>

/// Finds words that are so long that they slow down the text engine, which searches for the end of
/// a word again for each line.
///
/// A word only ends where every interpretation of Unicode's line breaking rules agrees: at blanks
/// between letters or digits, and between ideographs.
class WordBreaks
{
public:
    /// Adds the next letter of the text. Returns true if a break must be inserted before it.
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
    /// How many more letters the word may have. Only to be changed after a letter.
    int lettersLeft() const { return kMaxWordLength - m_length; }
    void setLettersLeft(int count) { m_length = kMaxWordLength - count; }
    /// To be called at the start of a line.
    void restart()
    {
        m_length = 0;
        m_last = OTHER;
    }

    static constexpr int kMaxWordLength = 500;
    static constexpr QChar kBreak = QChar(0x200B); ///< Zero width space.

private:
    enum Last { OTHER, LETTER, IDEOGRAPH, BLANK };

    int m_length = 0;
    Last m_last = OTHER;
};
