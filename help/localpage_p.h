// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include "core/qtcompat_p.h"
#include "core/resourcefile_p.h"
#include "help/helplimits_p.h"

#include <QTextStream>

/// Reads a page from a file as UTF-8. Returns false if the file cannot be read or has more than
/// kMaxPageBytes. A pipe or a device counts as missing, because it might be endless.
inline bool readLocalPage(const QString &path, QString *html)
{
    if (path.contains(QChar::Null))
        return false; // Qt would warn.
    QFile file(path);
    if (!isResourceFile(QFileInfo(file), kMaxPageBytes) || !file.open(QIODevice::ReadOnly))
        return false;
    QTextStream stream(&file);
    setUtf8(&stream);
    *html = stream.readAll();
    return true;
}
