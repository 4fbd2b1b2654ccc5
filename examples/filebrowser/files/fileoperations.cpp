// SPDX-License-Identifier: MIT
#include "fileoperations.h"

#include "nativename.h"
#include "safemove.h"
#include "trash.h"

#include <cerrno>
#include <climits>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool exists(const QByteArray &path)
{
    struct stat status = {};
    return lstat(path.constData(), &status) == 0;
}

QByteArray pathIn(const QString &folder, const QString &name)
{
    return toNativeName(folder) + '/' + toNativeName(name);
}

long longestNameIn(const QString &folder)
{
    const long limit = pathconf(toNativeName(folder).constData(), _PC_NAME_MAX);
    return limit > 0 ? limit : NAME_MAX;
}

int errorOf(NameProblem problem)
{
    switch (problem) {
    case NameProblem::None:
        return 0;
    case NameProblem::TooLong:
        return ENAMETOOLONG;
    case NameProblem::Exists:
        return EEXIST;
    case NameProblem::Empty:
    case NameProblem::Reserved:
    case NameProblem::Slash:
        break;
    }
    return EINVAL;
}

/// Does not check whether the name exists: only the operation itself can do that atomically.
NameProblem checkLetters(const QString &folder, const QString &name)
{
    if (name.isEmpty())
        return NameProblem::Empty;
    if (name == QLatin1String(".") || name == QLatin1String(".."))
        return NameProblem::Reserved;
    if (name.contains(QLatin1Char('/')) || name.contains(QChar(0)))
        return NameProblem::Slash;
    if (toNativeName(name).size() > longestNameIn(folder))
        return NameProblem::TooLong;
    return NameProblem::None;
}

FileResult resultOf(int error, const QByteArray &path)
{
    if (error != 0)
        return {false, QString(), systemReason(error)};
    return {true, fromNativeName(path), QString()};
}

} // namespace

NameProblem checkName(const QString &folder, const QString &name)
{
    const NameProblem problem = checkLetters(folder, name);
    if (problem == NameProblem::None && exists(pathIn(folder, name)))
        return NameProblem::Exists;
    return problem;
}

FileResult renameEntry(const QString &folder, const QString &from, const QString &to)
{
    for (const QString &name : {from, to}) {
        if (const int error = errorOf(checkLetters(folder, name)))
            return resultOf(error, {});
    }
    const QByteArray path = pathIn(folder, to);
    if (from == to)
        return resultOf(exists(path) ? 0 : ENOENT, path);
    return resultOf(moveWithoutReplacing(pathIn(folder, from), path), path);
}

FileResult createFolder(const QString &folder, const QString &name)
{
    if (const int error = errorOf(checkLetters(folder, name)))
        return resultOf(error, {});
    const QByteArray path = pathIn(folder, name);
    return resultOf(mkdir(path.constData(), S_IRWXU | S_IRWXG | S_IRWXO) == 0 ? 0 : errno, path);
}

FileResult moveToTrash(const QString &path)
{
    QByteArray native = toNativeName(path);
    while (native.size() > 1 && native.endsWith('/'))
        native.chop(1);
    QByteArray trashed;
    const int error = moveToSharedTrash(native, &trashed);
    return resultOf(error, trashed);
}
