// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "help/pagework_p.h"

#include <QChar>

/// Counts the letters of a text by what they cost.
class TextWork
{
public:
    void take(QChar c)
    {
        const ushort code = c.unicode();
        const bool isLatin = (code >= 'a' && code <= 'z') || (code >= 'A' && code <= 'Z');
        const QChar::Script script = isLatin ? QChar::Script_Latin
            : code < 0x80                    ? QChar::Script_Common
                                             : c.script();
        const bool isOther = script != m_script && script > QChar::Script_Common;
        if (isOther)
            m_script = script;
        if (isOther || isComplex(code))
            ++m_signs;
        else
            ++m_letters;
        m_lines += code == '\n';
        m_signs += code == 0x2029 ? kSignsOfParagraph : 0;
    }
    /// Charges what has been taken since the last time.
    void chargeTo(PageWork *work, bool linesCount)
    {
        work->addText(m_letters, m_signs);
        if (linesCount)
            work->addLines(m_lines);
        m_letters = m_signs = m_lines = 0;
    }

private:
    static bool isComplex(ushort code)
    {
        return (code >= 0x0300 && code < 0x0370) || (code >= 0x0590 && code < 0x1E00)
            || (code >= 0x2000 && code < 0x2010) || (code >= 0x2028 && code < 0x2030)
            || (code >= 0x2060 && code < 0x2070) || code < 0x09 || code >= 0xD800;
    }

    static constexpr int kSignsOfParagraph = 3;

    QChar::Script m_script = QChar::Script_Latin;
    int m_letters = 0;
    int m_signs = 0;
    int m_lines = 0;
};
