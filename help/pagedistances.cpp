// SPDX-License-Identifier: MIT
#include "help/pagedistances_p.h"

#include <vemo/dpiinfo.h>

QString scaledDistances()
{
    const DPIinfo &screen = DPIinfo::getInstance();
    if (screen.getDPI() == 1)
        return {};
    return screen.getScaledStyleSheet(
        QStringLiteral("p, pre, h4, ul, ol { margin-top: 12px; margin-bottom: 12px }"
                       "ul ul, ul ol, ol ul, ol ol { margin-top: 0px; margin-bottom: 0px }"
                       "h1 { margin-top: 18px; margin-bottom: 12px }"
                       "h2 { margin-top: 16px; margin-bottom: 12px }"
                       "h3 { margin-top: 14px; margin-bottom: 12px }"
                       "h5 { margin-top: 12px; margin-bottom: 4px }"
                       "dl { margin-top: 8px; margin-bottom: 8px }"
                       "dd { margin-left: 30px }"
                       "blockquote { margin-top: 12px; margin-right: 40px; margin-bottom: 12px; "
                       "margin-left: 40px }"));
}
