// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QStringList>

class QWidget;

/// What changes the disk, or leaves the window: each asks first where that is due, and says so when
/// it could not be done. Nothing is ever replaced or lost.
class FileWork : public QObject
{
    Q_OBJECT

public:
    /// window gets the sheets, and owns it.
    explicit FileWork(QWidget *window);

    /// Hands a file to the program that the desktop has for it.
    void openFile(const QString &folder, const QString &name);
    void rename(const QString &folder, const QString &from, const QString &to);
    /// By a sheet, which takes names that the editor in the list does not.
    void askRename(const QString &folder, const QString &name);
    void askNewFolder(const QString &folder);
    void askTrash(const QString &folder, const QStringList &names);
    void copy(const QString &folder, const QStringList &names);
    void paste(const QString &folder);
    bool canPaste() const;

Q_SIGNALS:
    /// The folder holds something else now; the names are those to select.
    void changed(const QString &folder, const QStringList &names);
    void vanished(const QString &name);

private:
    void tellVanished(const QString &name);
    void tellProblems(const char *key, const QStringList &problems);

    QWidget *m_window;
};
