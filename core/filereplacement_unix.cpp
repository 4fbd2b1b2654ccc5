// SPDX-License-Identifier: MIT
#include "core/filereplacement_p.h"

#include <QFile>

std::filesystem::path nativePath(const QString &path)
{
    return QFile::encodeName(path).toStdString();
}
