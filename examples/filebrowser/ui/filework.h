// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QStringList>

class QWidget;

/// Operations that change the disk or leave the window. They ask for confirmation where necessary
/// and report failures. Nothing is ever replaced or lost.
class FileWork : public QObject
{
    Q_OBJECT

public:
    /// window is the parent, over which the sheets are shown.
    explicit FileWork(QWidget *window);

    /// Opens a file with the desktop's program for it.
    void openFile(const QString &folder, const QString &name);
    void rename(const QString &folder, const QString &from, const QString &to);
    /// Renames with a sheet, which accepts names that the editor in the list rejects.
    void askRename(const QString &folder, const QString &name);
    void askNewFolder(const QString &folder);
    void askTrash(const QString &folder, const QStringList &names);
    void copy(const QString &folder, const QStringList &names);
    /// unfinished are names in folder under which copies may have been broken off: those that were
    /// are offered for the trash first.
    void paste(const QString &folder, const QStringList &unfinished);
    bool canPaste() const;

Q_SIGNALS:
    /// The contents of the folder have changed; names are the entries to select.
    void changed(const QString &folder, const QStringList &names);
    void vanished(const QString &name);

private:
    void trash(const QString &folder, const QStringList &names);
    void offerLeftovers(const QString &folder, const QStringList &unfinished);
    void tellVanished(const QString &name);
    void tellProblems(const char *key, const QStringList &problems);

    QWidget *m_window;
};
