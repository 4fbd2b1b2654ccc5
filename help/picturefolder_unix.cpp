// SPDX-License-Identifier: MIT
#include "help/picturefolder_p.h"

#include <QDir>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdio>

namespace {

/// A file descriptor that is closed by its destructor.
class Handle
{
public:
    explicit Handle(int handle) : m_handle(handle) { }
    ~Handle()
    {
        if (m_handle >= 0)
            ::close(m_handle);
    }
    Q_DISABLE_COPY(Handle)

    bool isValid() const { return m_handle >= 0; }
    operator int() const { return m_handle; }
    int take()
    {
        const int handle = m_handle;
        m_handle = -1;
        return handle;
    }

private:
    int m_handle;
};

/// Opens the folder name below parent; -1 if it is a link or belongs to another user. The opened
/// folder itself is inspected, so that it cannot be exchanged in between.
int openOwnFolder(int parent, const char *name)
{
    Handle folder(::openat(parent, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat info = {};
    const bool isOwn =
        folder.isValid() && ::fstat(folder, &info) == 0 && info.st_uid == ::geteuid();
    return isOwn ? folder.take() : -1;
}

int makeOwnFolder(int parent, const char *name)
{
    ::mkdirat(parent, name, S_IRWXU);
    Handle folder(openOwnFolder(parent, name));
    return folder.isValid() && ::fchmod(folder, S_IRWXU) == 0 ? folder.take() : -1;
}

int openTempFolder()
{
    return ::open(
        QFile::encodeName(QDir::tempPath()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
}

/// Opens the picture folder and inspects each level; -1 if one does not belong to the user.
int openPictureFolder()
{
    const Handle temp(openTempFolder());
    const Handle outer(temp.isValid() ? openOwnFolder(temp, "kestrava_help") : -1);
    return outer.isValid() ? openOwnFolder(outer, "image") : -1;
}

bool writeAll(int file, const QByteArray &bytes)
{
    for (int written = 0; written < bytes.size();) {
        const ssize_t count =
            ::write(file, bytes.constData() + written, size_t(bytes.size() - written));
        if (count <= 0)
            return false;
        written += int(count);
    }
    return true;
}

} // namespace

bool isPictureFolderOwn()
{
    return Handle(openPictureFolder()).isValid();
}

bool makePictureFolder()
{
    const Handle temp(openTempFolder());
    const Handle outer(temp.isValid() ? makeOwnFolder(temp, "kestrava_help") : -1);
    const Handle image(outer.isValid() ? makeOwnFolder(outer, "image") : -1);
    return image.isValid();
}

void writePicture(const QString &path, const QByteArray &bytes)
{
    const QString fileName = QFileInfo(path).fileName();
    const Handle folder(openPictureFolder());
    if (!folder.isValid() || !isSafePictureName(fileName))
        return;
    const QByteArray name = QFile::encodeName(fileName);
    // A write-protected file is kept, although it could be replaced.
    if (::faccessat(folder, name, F_OK, 0) == 0 && ::faccessat(folder, name, W_OK, 0) != 0)
        return;
    static int number = 0;
    const QByteArray part =
        ".part-" + QByteArray::number(::getpid()) + '-' + QByteArray::number(++number);
    const Handle file(::openat(
        folder, part, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (!file.isValid())
        return;
    // A link with that name is replaced, not followed.
    if (!writeAll(file, bytes) || ::renameat(folder, part, folder, name) != 0)
        ::unlinkat(folder, part, 0);
}

bool openPicture(const QString &name, QFile *file)
{
    if (!isSafePictureName(name))
        return false;
    const Handle folder(openPictureFolder());
    // O_NONBLOCK: do not wait for a writer if it is a pipe.
    Handle picture(folder.isValid() ? ::openat(folder, QFile::encodeName(name),
                       O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC)
                                    : -1);
    struct stat info = {};
    if (!picture.isValid() || ::fstat(picture, &info) != 0 || !S_ISREG(info.st_mode))
        return false;
    return file->open(picture.take(), QIODevice::ReadOnly, QFileDevice::AutoCloseHandle);
}
