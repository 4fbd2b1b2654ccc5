// SPDX-License-Identifier: MIT
#pragma once

#include "fileentry.h"

#include <vemo/vemotablewidget.h>

/// One page of a folder: name, size, kind and last change of each entry.
class FileTable : public VemoTableWidget
{
    Q_OBJECT

public:
    explicit FileTable(QWidget *parent);

    /// Replaces the rows; those of the selected names that are among them stay selected.
    void showEntries(const QVector<FileEntry> &entries);
    const QVector<FileEntry> &entries() const { return m_entries; }

    QStringList selectedNames() const;
    /// The entry of the current row, if it is selected; null if there is none.
    const FileEntry *currentEntry() const;
    void select(const QStringList &names);

    /// Opens the editor of the current row.
    void editName();
    /// Closes the editor without changing the name.
    void cancelEditing();
    /// Shows an entry with the picture for removed files.
    void showVanished(const QString &name);

Q_SIGNALS:
    /// Enter or a double click.
    void opened(const QString &name);
    void selectionChanged();
    void renameEntered(const QString &from, const QString &to);
    /// At a point of the screen.
    void menuRequested(const QPoint &position);

private:
    void setUpTable();
    void showTexts();
    void connectParts();
    void fillRow(int row, const FileEntry &entry);
    void requestMenu(const QPoint &position);

    QVector<FileEntry> m_entries;
};
