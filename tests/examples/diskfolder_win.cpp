// SPDX-License-Identifier: MIT
#include "diskfolder.h"

#include "examples/filebrowser/files/nativename.h"
#include "examples/filebrowser/files/paths.h"

#include <QDir>
#include <QDirIterator>
#include <QTemporaryDir>
#include <QtTest>

namespace {

/// The path for Qt, which knows no root above the drives.
QString qtPath(const QByteArray &path)
{
    return fromNativeName(path).mid(1);
}

QByteArray readFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

DiskFolder::Contents contentsOf(const QString &folder)
{
    DiskFolder::Contents contents;
    const QDir::Filters all = QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System;
    QDirIterator entries(folder, all, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        const QByteArray name = toNativeName(path.mid(folder.size() + 1));
        if (entries.fileInfo().isSymLink())
            contents.insert(name, "-> " + toNativeName(entries.fileInfo().symLinkTarget()));
        else if (entries.fileInfo().isDir())
            contents.insert(name + '/', {});
        else
            contents.insert(name, readFile(path));
    }
    return contents;
}

} // namespace

DiskFolder::DiskFolder(const QByteArray &parent)
{
    const QString outer = parent.isEmpty() ? QDir::tempPath() : qtPath(parent);
    QTemporaryDir folder(outer + QLatin1String("/vemo-disk-XXXXXX"));
    if (!folder.isValid())
        qFatal("Cannot make a temporary folder");
    folder.setAutoRemove(false);
    m_path = toNativeName(pathFromQt(folder.path()));
}

DiskFolder::~DiskFolder()
{
    QDir(qtPath(m_path)).removeRecursively();
}

void DiskFolder::write(const QByteArray &name, const QByteArray &content) const
{
    QFile file(qtPath(native(name)));
    QVERIFY2(file.open(QIODevice::WriteOnly), name.constData());
    QCOMPARE(file.write(content), qint64(content.size()));
}

void DiskFolder::makeFolder(const QByteArray &name) const
{
    QVERIFY(QDir().mkdir(qtPath(native(name))));
}

void DiskFolder::link(const QByteArray &name, const QByteArray &target) const
{
    QVERIFY(QFile::link(fromNativeName(target), qtPath(native(name))));
}

void DiskFolder::remove(const QByteArray &name) const
{
    const QFileInfo entry(qtPath(native(name)));
    if (entry.isDir())
        QVERIFY(QDir(entry.filePath()).removeRecursively());
    else
        QVERIFY(QFile::remove(entry.filePath()));
}

void DiskFolder::fill(int count) const
{
    for (int i = 1; i <= count; ++i)
        write(QByteArray::number(i), {});
}

DiskFolder::Contents DiskFolder::contents() const
{
    return contentsOf(qtPath(m_path));
}

DiskFolder::Contents DiskFolder::contentsOfTrash() const
{
    return {}; // The recycle bin is not in the folder.
}

void DiskFolder::giveTo(unsigned) const { }
