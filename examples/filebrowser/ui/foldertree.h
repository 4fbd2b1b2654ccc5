// SPDX-License-Identifier: MIT
#pragma once

#include "fileentry.h"

#include <vemo/filesystemtreewidgetitem.h>
#include <vemo/vemotreewidget.h>

#include <QVector>

/// The folders below the home folder and the root. A folder is read from the event loop when it is
/// first opened; until then it contains a placeholder.
class FolderTree : public VemoTreeWidget
{
    Q_OBJECT

public:
    explicit FolderTree(QWidget *parent);

    /// Makes the folder current as soon as all its parents have been read. Emits nothing.
    void showFolder(const QString &path);
    /// Reads the folder again if it has been read before.
    void refresh(const QString &path);

Q_SIGNALS:
    /// Emitted on a click or Enter.
    void folderChosen(const QString &path);

private:
    using Item = FileSystemTreeWidgetItem;

    void setUpLook();
    void showTexts();
    Item *addRoot(const QString &caption, const QString &path);
    Item *newFolderItem(const QString &path, const QString &caption) const;
    void addPlaceholder(Item *item, int moreFolders = 0) const;
    void dropPlaceholder(Item *item) const;

    void choose(QTreeWidgetItem *item);
    void load(Item *item);
    void fill(const QString &path, QVector<FileEntry> folders);
    void giveUp(const QString &path);
    void updateChildren(Item *item, const QVector<FileEntry> &folders);
    void dropVanished(Item *item, const QVector<FileEntry> &folders) const;

    Item *rootFor(const QString &path) const;
    Item *childFor(Item *item, const QString &path) const;
    Item *find(const QString &path) const;
    void walkToTarget();
    void makeCurrent(Item *item);

    Item *m_home = nullptr;
    Item *m_computer = nullptr;
    QString m_target; ///< the folder to show
};
