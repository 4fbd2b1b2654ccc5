// SPDX-License-Identifier: MIT
#include <vemo/tooltiptext.h>

QString getHtmlEscapedStringForToolTip(const QString &text)
{
    QString html = text.toHtmlEscaped();
    html.replace(QLatin1Char('\n'), QLatin1String("<br>"));
    return QLatin1String("<p style='white-space:pre'>") + html + QLatin1String("</p>");
}
