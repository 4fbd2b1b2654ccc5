// SPDX-License-Identifier: MIT
#include "core/filereplacement_p.h"

#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>

bool renameOver(const QString &from, const QString &to)
{
    std::error_code error;
    std::filesystem::rename(nativePath(from), nativePath(to), error);
    return !error;
}

bool writeBeside(const QString &path, const QByteArray &bytes)
{
    const QString name =
        QStringLiteral("/.part-%1").arg(QRandomGenerator::system()->generate(), 8, 16);
    QFile part(QFileInfo(path).path() + name);
    if (!part.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        return false;
    const bool isWritten = part.write(bytes) == bytes.size();
    part.close();
    if (isWritten && renameOver(part.fileName(), path))
        return true;
    part.remove();
    return false;
}

void replaceFile(const QString &path, const QByteArray &bytes)
{
    const QFileInfo target(path);
    QFile file(path);
    // The only way to find out whether it is writable is to open it; appending keeps its content.
    const bool isProtected = target.isFile() && !file.open(QIODevice::Append);
    file.close();
    if (isProtected || writeBeside(path, bytes))
        return;
    const bool isOrdinary = target.isFile() || !target.exists();
    if (!isOrdinary || target.isSymLink()
        || !file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        return;
    if (file.write(bytes) != bytes.size())
        file.resize(0);
}
