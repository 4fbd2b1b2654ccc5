// SPDX-License-Identifier: MIT
#include "help/picturefolder_p.h"

#include "core/filereplacement_p.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryFile>

namespace {

QString outerFolder()
{
    return QFileInfo(pictureFolder()).path();
}

/// Only checks for links: on Windows the temporary folder belongs to the user.
bool isOwnFolder(const QString &path)
{
    const QFileInfo info(path);
    return !info.isSymLink() && !info.isJunction() && info.isDir();
}

} // namespace

bool isPictureFolderOwn()
{
    return isOwnFolder(outerFolder()) && isOwnFolder(pictureFolder());
}

bool makePictureFolder()
{
    QDir().mkdir(outerFolder());
    if (isOwnFolder(outerFolder()))
        QDir().mkdir(pictureFolder());
    return isPictureFolderOwn();
}

void writePicture(const QString &path, const QByteArray &bytes)
{
    const QFileInfo target(path);
    if (!isSafePictureName(target.fileName()) || !isPictureFolderOwn())
        return;
    if (target.exists() && !target.isWritable())
        return;
    QTemporaryFile part(pictureFolder() + QLatin1String("/.part-XXXXXX"));
    if (!part.open() || part.write(bytes) != bytes.size() || !part.flush())
        return;
    part.close();
    if (renameOver(part.fileName(), path))
        part.setAutoRemove(false);
}

bool openPicture(const QString &name, QFile *file)
{
    const QFileInfo picture(pictureFolder() + QLatin1Char('/') + name);
    if (!isSafePictureName(name) || !isPictureFolderOwn() || picture.isSymLink()
        || !picture.isFile())
        return false;
    file->setFileName(picture.filePath());
    return file->open(QIODevice::ReadOnly);
}
