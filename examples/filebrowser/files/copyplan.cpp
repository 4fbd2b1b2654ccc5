// SPDX-License-Identifier: MIT
#include "copyplan.h"

#include "nativename.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

CopyItem::Kind kindOf(mode_t mode)
{
    if (S_ISREG(mode))
        return CopyItem::File;
    if (S_ISDIR(mode))
        return CopyItem::Folder;
    return S_ISLNK(mode) ? CopyItem::Link : CopyItem::Other;
}

DIR *openFolder(const QByteArray &path)
{
    const int file = open(path.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    return file < 0 ? nullptr : fdopendir(file);
}

bool isSame(const struct stat &a, const struct stat &b)
{
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino;
}

} // namespace

QString problemLine(const QByteArray &path, int error)
{
    const QByteArray name = path.mid(path.lastIndexOf('/') + 1);
    return fromNativeName(name) + QLatin1String(": ") + systemReason(error);
}

bool isInside(const QByteArray &folder, const QByteArray &path)
{
    struct stat outer = {};
    char *resolved = realpath(folder.constData(), nullptr);
    if (!resolved)
        return false;
    QByteArray inner(resolved);
    free(resolved);
    if (lstat(path.constData(), &outer) != 0)
        return false;
    // Compared by identity, because a folder can be mounted in two places.
    while (!inner.isEmpty()) {
        struct stat status = {};
        if (stat(inner.constData(), &status) == 0 && isSame(status, outer))
            return true;
        inner.truncate(inner.lastIndexOf('/'));
    }
    struct stat root = {};
    return stat("/", &root) == 0 && isSame(root, outer);
}

CopyPlan::CopyPlan(const QByteArray &source) : m_source(source)
{
    add(source);
}

void CopyPlan::add(const QByteArray &path)
{
    struct stat status = {};
    if (lstat(path.constData(), &status) != 0) {
        m_problems += problemLine(path, errno);
        return;
    }
    CopyItem item {path, path.mid(m_source.size()), kindOf(status.st_mode), 0};
    if (item.kind == CopyItem::File)
        item.size = status.st_size;
    m_total += item.size + 1;
    m_items += item;
}

bool CopyPlan::openNextFolder()
{
    while (m_next < m_items.size() && m_items.at(m_next).kind != CopyItem::Folder)
        ++m_next;
    if (m_next == m_items.size())
        return false;
    m_folder = m_items.at(m_next++).from;
    m_stream.reset(openFolder(m_folder));
    if (!m_stream)
        m_problems += problemLine(m_folder, errno);
    return true;
}

bool CopyPlan::step()
{
    if (!m_stream)
        return openNextFolder();
    errno = 0;
    const dirent *found = readdir(m_stream.get());
    if (!found) {
        if (errno != 0)
            m_problems += problemLine(m_folder, errno);
        m_stream.reset();
        return true;
    }
    const QByteArray name(found->d_name);
    if (name != "." && name != "..")
        add(m_folder + '/' + name);
    return true;
}
