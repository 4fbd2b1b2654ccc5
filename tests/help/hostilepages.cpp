// SPDX-License-Identifier: MIT
#include "help/hostilepages.h"

QVector<HostilePage> pagesThatRefer(const QString &address)
{
    const QByteArray svg =
        QStringLiteral("<svg xmlns=\"http://www.w3.org/2000/svg\" "
                       "xmlns:xlink=\"http://www.w3.org/1999/xlink\" width=\"9\" height=\"9\">"
                       "<image width=\"9\" height=\"9\" xlink:href=\"%1\"/></svg>")
            .arg(address)
            .toUtf8()
            .toBase64();
    const QVector<QPair<const char *, QString>> ways {
        {"a picture", QStringLiteral("<img src=\"%1\">")},
        {"a picture in other letters", QStringLiteral("<IMG SRC='%1'>")},
        {"a picture without quotes", QStringLiteral("<img src=%1>")},
        {"a picture with a size", QStringLiteral("<img width=\"9\" height=\"9\" src=\"%1\">")},
        {"a picture by source", QStringLiteral("<img source=\"%1\">")},
        {"a floating picture", QStringLiteral("<img align=\"left\" src=\"%1\">")},
        {"a background", QStringLiteral("<body background=\"%1\">")},
        {"a table's background", QStringLiteral("<table background=\"%1\"><tr><td>x</table>")},
        {"a style's background", QStringLiteral("<p style=\"background-image:url(%1)\">x")},
        {"a short style's background", QStringLiteral("<p style=\"background:url('%1')\">x")},
        {"a list's sign", QStringLiteral("<ul style=\"list-style-image:url(%1)\"><li>x</ul>")},
        {"a rule's background", QStringLiteral("<style>p{background:url(%1)}</style><p>x")},
        {"an import", QStringLiteral("<style>@import url(%1);</style><p>x")},
        {"an import in quotes", QStringLiteral("<style>@import '%1';</style><p>x")},
        {"a style sheet",
            QStringLiteral("<link rel=\"stylesheet\" type=\"text/css\" href=\"%1\"><p>x")},
        {"an icon", QStringLiteral("<link rel=\"icon\" href=\"%1\">x")},
        {"a frame", QStringLiteral("<iframe src=\"%1\"></iframe>")},
        {"an object", QStringLiteral("<object data=\"%1\"></object>")},
        {"a base", QStringLiteral("<base href=\"%1\"><img src=\"x.png\">")},
        {"a data address", QStringLiteral("<img src=\"data:%1\">")},
        {"a data address with a comma", QStringLiteral("<img src=\"data:,%1\">")},
        {"a data address that holds an SVG",
            QStringLiteral("<img src=\"data:image/svg+xml;base64,") + QString::fromLatin1(svg)
                + QLatin1String("\">")},
    };
    QVector<HostilePage> pages;
    for (const auto &[name, way] : ways)
        pages += {name, way.contains(QLatin1String("%1")) ? way.arg(address) : way};
    return pages;
}
