// SPDX-License-Identifier: MIT
#include "help/picturefolder_p.h"

#include "core/filereplacement_p.h"

#include <QDir>
#include <QFileInfo>

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
    // Not by QFileInfo: a name with backslashes is an unsafe name, and no path.
    const QString name = path.mid(path.lastIndexOf(QLatin1Char('/')) + 1);
    if (!isSafePictureName(name) || !isPictureFolderOwn())
        return;
    const QFileInfo target(pictureFolder() + QLatin1Char('/') + name);
    if (target.exists() && !target.isWritable())
        return;
    // Not by QTemporaryFile, which stays open when it is closed, so that it could not be renamed.
    writeBeside(target.filePath(), bytes);
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
