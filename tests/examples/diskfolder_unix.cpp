// SPDX-License-Identifier: MIT
#include "diskfolder.h"

#include <QDir>
#include <QtTest>

#include <dirent.h>
#include <fcntl.h>
#include <ftw.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

constexpr int kOpenFiles = 16;

int removeOne(const char *path, const struct stat *, int, struct FTW *)
{
    return remove(path);
}

unsigned newOwner = 0;

int giveOne(const char *path, const struct stat *, int, struct FTW *)
{
    return lchown(path, newOwner, newOwner);
}

/// In memory where there is such a place: a hundred thousand files take a disk a minute.
QByteArray quickFolder()
{
    return access("/dev/shm", W_OK) == 0 ? QByteArray("/dev/shm") : QDir::tempPath().toUtf8();
}

QByteArray readFile(const QByteArray &path)
{
    QByteArray content;
    const int file = open(path.constData(), O_RDONLY | O_NONBLOCK);
    char piece[65536];
    for (ssize_t size; (size = read(file, piece, sizeof piece)) > 0;)
        content.append(piece, int(size));
    close(file);
    return content;
}

QByteArray readLink(const QByteArray &path)
{
    char target[4096];
    return {target, int(qMax<ssize_t>(readlink(path.constData(), target, sizeof target), 0))};
}

void collect(const QByteArray &folder, const QByteArray &below, DiskFolder::Contents *contents)
{
    DIR *stream = opendir(folder.constData());
    if (!stream)
        return;
    while (const dirent *found = readdir(stream)) {
        const QByteArray name(found->d_name);
        if (name == "." || name == "..")
            continue;
        const QByteArray path = folder + '/' + name;
        if (found->d_type == DT_DIR) {
            contents->insert(below + name + '/', {});
            collect(path, below + name + '/', contents);
        } else {
            const bool isLink = found->d_type == DT_LNK;
            contents->insert(below + name, isLink ? "-> " + readLink(path) : readFile(path));
        }
    }
    closedir(stream);
}

} // namespace

DiskFolder::DiskFolder(const QByteArray &parent)
    : m_path((parent.isEmpty() ? quickFolder() : parent) + "/vemo-disk-XXXXXX")
{
    if (!mkdtemp(m_path.data()))
        qFatal("Cannot make a temporary folder");
}

DiskFolder::~DiskFolder()
{
    nftw(m_path.constData(), removeOne, kOpenFiles, FTW_DEPTH | FTW_PHYS);
}

void DiskFolder::write(const QByteArray &name, const QByteArray &content) const
{
    const int file = open(native(name).constData(), O_WRONLY | O_CREAT | O_TRUNC, 0644);
    QVERIFY2(file >= 0, name.constData());
    QCOMPARE(::write(file, content.constData(), size_t(content.size())), ssize_t(content.size()));
    close(file);
}

void DiskFolder::makeFolder(const QByteArray &name) const
{
    QCOMPARE(mkdir(native(name).constData(), 0755), 0);
}

void DiskFolder::link(const QByteArray &name, const QByteArray &target) const
{
    QCOMPARE(symlink(target.constData(), native(name).constData()), 0);
}

void DiskFolder::remove(const QByteArray &name) const
{
    QCOMPARE(nftw(native(name).constData(), removeOne, kOpenFiles, FTW_DEPTH | FTW_PHYS), 0);
}

void DiskFolder::fill(int count) const
{
    const int folder = open(m_path.constData(), O_RDONLY | O_DIRECTORY);
    for (int i = 1; i <= count; ++i)
        QCOMPARE(mknodat(folder, QByteArray::number(i).constData(), S_IFREG | 0644, 0), 0);
    close(folder);
}

DiskFolder::Contents DiskFolder::contents() const
{
    Contents contents;
    collect(m_path, {}, &contents);
    return contents;
}

DiskFolder::Contents DiskFolder::contentsOfTrash() const
{
    Contents contents;
    collect(native("Trash/files"), {}, &contents);
    return contents;
}

void DiskFolder::giveTo(unsigned user) const
{
    newOwner = user;
    QCOMPARE(nftw(m_path.constData(), giveOne, kOpenFiles, FTW_PHYS), 0);
}
