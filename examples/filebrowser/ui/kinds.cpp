// SPDX-License-Identifier: MIT
#include "kinds.h"

#include <vemo/filetypemap.h>

namespace {

const QLatin1String kFolder("folder");
const QLatin1String kSuffix(".png");

QString withoutSuffix(QString fileName)
{
    fileName.chop(kSuffix.size());
    return fileName;
}

QString typeOf(const QString &name, bool isRemoved)
{
    const int dot = name.lastIndexOf('.');
    const QString extension = dot < 0 ? QString() : name.mid(dot + 1);
    return withoutSuffix(FileTypeMap::getInstance().getFiletypeMapping(extension, isRemoved));
}

} // namespace

QString kindOf(const FileEntry &entry)
{
    return entry.isFolder ? QString(kFolder) : typeOf(entry.name, false);
}

QStringList offeredKinds()
{
    return {"doc", "xls", "ppt", "pdf", "txt", "htm", "code", "image", "audio", "video", "zip",
        "iso", "ttf", "exe", "xxx"};
}

QString pictureOf(const FileEntry &entry, bool isRemoved)
{
    if (entry.isFolder)
        return isRemoved ? "folder_removed" : "folder";
    return typeOf(entry.name, isRemoved);
}
