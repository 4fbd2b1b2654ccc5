// SPDX-License-Identifier: MIT
#include "diskfolder.h"

QString linesOf(const DiskFolder::Contents &contents)
{
    QString lines;
    for (auto i = contents.cbegin(); i != contents.cend(); ++i)
        lines += QString::fromLatin1(i.key().toPercentEncoding("/ ().,'"))
            + (i.value().isEmpty() ? "" : ": " + QString::fromLatin1(i.value().left(40))) + '\n';
    return lines;
}
