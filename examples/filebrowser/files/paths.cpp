// SPDX-License-Identifier: MIT
#include "paths.h"

#include "nativename.h"

QString childPath(const QString &folder, const QString &name)
{
    return folder.endsWith('/') ? folder + name : folder + '/' + name;
}

QString parentPath(const QString &path)
{
    const int slash = path.lastIndexOf('/');
    if (slash < 0 || path.size() == 1)
        return {};
    return slash == 0 ? QString("/") : path.left(slash);
}

QString nameOf(const QString &path)
{
    const QString name = path.mid(path.lastIndexOf('/') + 1);
    return name.isEmpty() ? path : name;
}

QString nearestFolder(const QString &path)
{
    QString folder = path;
    while (!folder.isEmpty() && !isFolderAt(folder))
        folder = parentPath(folder);
    return folder.isEmpty() ? QString("/") : folder;
}

QUrl urlOf(const QString &path)
{
    return QUrl::fromEncoded("file://" + toNativeName(path).toPercentEncoding("/:"));
}

QString pathOf(const QUrl &url)
{
    if (!url.isLocalFile())
        return {};
    return fromNativeName(QByteArray::fromPercentEncoding(url.path(QUrl::FullyEncoded).toLatin1()));
}
