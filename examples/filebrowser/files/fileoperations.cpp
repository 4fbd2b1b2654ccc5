// SPDX-License-Identifier: MIT
#include "fileoperations.h"

#include "nativefiles.h"
#include "nativename.h"
#include "paths.h"
#include "safemove.h"
#include "trash.h"

#include <cerrno>

namespace {

QByteArray pathIn(const QString &folder, const QString &name)
{
    return toNativeName(childPath(folder, name));
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
    if (isNameReserved(name))
        return NameProblem::Reserved;
    if (isNameTooLong(folder, name))
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

NameProblem checkName(const QString &folder, const QString &name, const QString &oldName)
{
    const NameProblem problem = checkLetters(folder, name);
    const bool isFree = isOtherCase(oldName, name) || !pathExists(childPath(folder, name));
    return problem == NameProblem::None && !isFree ? NameProblem::Exists : problem;
}

FileResult renameEntry(const QString &folder, const QString &from, const QString &to)
{
    for (const QString &name : {from, to}) {
        if (const int error = errorOf(checkLetters(folder, name)))
            return resultOf(error, {});
    }
    const QByteArray path = pathIn(folder, to);
    if (from == to)
        return resultOf(pathExists(childPath(folder, to)) ? 0 : ENOENT, path);
    return resultOf(moveWithoutReplacing(pathIn(folder, from), path), path);
}

FileResult createFolder(const QString &folder, const QString &name)
{
    if (const int error = errorOf(checkLetters(folder, name)))
        return resultOf(error, {});
    const QByteArray path = pathIn(folder, name);
    return resultOf(makeFolder(path), path);
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
