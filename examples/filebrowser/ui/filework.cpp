// SPDX-License-Identifier: MIT
#include "filework.h"

#include "copyleftovers.h"
#include "fileoperations.h"
#include "nativename.h"
#include "paths.h"
#include "questions.h"
#include "texts.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QMimeData>
#include <QPointer>
#include <QWidget>

namespace {

constexpr int kProblemsShown = 5;

QString problemText(NameProblem problem)
{
    switch (problem) {
    case NameProblem::None:
        return {};
    case NameProblem::Empty:
        return text("problem_empty");
    case NameProblem::Reserved:
        return text("problem_reserved");
    case NameProblem::Slash:
        return text("problem_slash");
    case NameProblem::TooLong:
        return text("problem_too_long");
    case NameProblem::Exists:
        return text("problem_exists");
    }
    return {};
}

/// Where the entry that is named lies.
QString placeHint(const QString &folder)
{
    return text("fact_place") + ": " + nameInText(nameOf(folder));
}

/// A plain sentence as the informative text of a sheet.
QString escaped(const QString &sentence)
{
    return "<qt>" + sentence.toHtmlEscaped() + "</qt>";
}

} // namespace

FileWork::FileWork(QWidget *window) : QObject(window), m_window(window) { }

void FileWork::openFile(const QString &folder, const QString &name)
{
    const QString path = childPath(folder, name);
    if (!pathExists(path))
        tellVanished(name);
    else if (!QDesktopServices::openUrl(urlOf(path)))
        tell(m_window, richText("cannot_open", {name}));
}

void FileWork::rename(const QString &folder, const QString &from, const QString &to)
{
    if (!pathExists(childPath(folder, from))) {
        tellVanished(from);
        return;
    }
    const NameProblem problem = checkName(folder, to, from);
    if (problem != NameProblem::None) {
        tell(m_window, richText("cannot_rename_to", {from, to}), escaped(problemText(problem)));
        return;
    }
    const FileResult result = renameEntry(folder, from, to);
    Q_EMIT changed(folder, {result.done ? nameOf(result.path) : from});
    if (!result.done)
        tell(m_window, richText("cannot_rename_to", {from, to}), escaped(result.reason));
}

void FileWork::askRename(const QString &folder, const QString &name)
{
    const QPointer<FileWork> self(this);
    const QString to = askName(m_window, text("new_name"), placeHint(folder), name,
        [folder, name](
            const QString &entered) { return problemText(checkName(folder, entered, name)); });
    if (self && !to.isEmpty() && to != name)
        rename(folder, name, to);
}

void FileWork::askNewFolder(const QString &folder)
{
    const QPointer<FileWork> self(this);
    const QString name = askName(m_window, text("new_folder_name"), placeHint(folder), {},
        [folder](const QString &entered) { return problemText(checkName(folder, entered)); });
    if (!self || name.isEmpty())
        return;
    const FileResult result = createFolder(folder, name);
    if (result.done)
        Q_EMIT changed(folder, {nameOf(result.path)});
    else
        tell(m_window, richText("cannot_create", {name}), escaped(result.reason));
}

void FileWork::askTrash(const QString &folder, const QStringList &names)
{
    const QPointer<FileWork> self(this);
    if (!names.isEmpty() && ::askTrash(m_window, names) && self)
        trash(folder, names);
}

void FileWork::trash(const QString &folder, const QStringList &names)
{
    QStringList problems;
    for (const QString &name : names) {
        const FileResult result = moveToTrash(childPath(folder, name));
        if (!result.done)
            problems << QString("%1: %2").arg(displayName(name), result.reason);
    }
    Q_EMIT changed(folder, {});
    tellProblems("cannot_trash", problems);
}

void FileWork::copy(const QString &folder, const QStringList &names)
{
    if (names.isEmpty())
        return;
    QList<QUrl> urls;
    for (const QString &name : names)
        urls << urlOf(childPath(folder, name));
    auto *data = new QMimeData;
    data->setUrls(urls);
    QGuiApplication::clipboard()->setMimeData(data);
}

bool FileWork::canPaste() const
{
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    return data && data->hasUrls();
}

void FileWork::offerLeftovers(const QString &folder, const QStringList &unfinished)
{
    const QPointer<FileWork> self(this);
    const auto leftovers = [&folder](const QStringList &names) {
        QStringList found;
        for (const QString &name : names) {
            if (isLeftoverCopy(toNativeName(childPath(folder, name))))
                found << name;
        }
        return found;
    };
    const QStringList names = leftovers(unfinished);
    if (!names.isEmpty() && askTrashLeftovers(m_window, names) && self)
        trash(folder, leftovers(names)); // The question took its time.
}

void FileWork::paste(const QString &folder, const QStringList &unfinished)
{
    QStringList sources;
    if (const QMimeData *data = QGuiApplication::clipboard()->mimeData()) {
        const QList<QUrl> urls = data->urls();
        for (const QUrl &url : urls) {
            if (const QString path = pathOf(url); !path.isEmpty())
                sources << path;
        }
    }
    if (sources.isEmpty())
        return;
    const QPointer<FileWork> self(this);
    offerLeftovers(folder, unfinished);
    if (!self)
        return;
    const CopyOutcome outcome = copyUnderSheet(m_window, sources, folder);
    if (!self)
        return;
    QStringList names;
    for (const QString &path : outcome.copied)
        names << nameOf(path);
    Q_EMIT changed(folder, names);
    tellProblems("cannot_copy", outcome.problems);
}

void FileWork::tellVanished(const QString &name)
{
    Q_EMIT vanished(name);
    tell(m_window, richText("vanished", {name}));
}

void FileWork::tellProblems(const char *key, const QStringList &problems)
{
    if (problems.isEmpty())
        return;
    QStringList lines;
    const QStringList shown = problems.mid(0, kProblemsShown);
    for (const QString &problem : shown)
        lines << displayName(problem).toHtmlEscaped();
    if (problems.size() > kProblemsShown)
        lines << markedText("and_more", {numberText(problems.size() - kProblemsShown)});
    tell(m_window, richText(key), "<qt>" + lines.join("<br>") + "</qt>");
}
