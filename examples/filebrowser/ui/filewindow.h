// SPDX-License-Identifier: MIT
#pragma once

#include "actions.h"

#include <vemo/vemopagingmodel.h>

#include <QPointer>
#include <QWidget>

class DetailsPanel;
class FileTable;
class FileWork;
class FolderListing;
class FolderTree;
class HelpWindow;
class TopBar;
class VemoPagingBar;

/// The window: the bar at the top, the tree of folders, the list with its pages, the details.
///
/// Its parts have object names for tests and tools: "topBar" with "upButton", "pathBar",
/// "filterBar", "kindMenu", "newFolderButton", "renameButton", "trashButton", "detailsButton",
/// "viewButton" with "viewMenu", and "helpButton"; "folderTree"; "fileList" with "fileTable" and
/// "fileHeader"; "pagingBar"; "emptyText"; the "detailsPanel" with "detailsName", "detailsKind",
/// "detailsSize", "detailsModified", "detailsCreated", "detailsPlace", "detailsAccess", "fromDate",
/// "fromTime", "toDate", "toTime", "fromCalendar", "toCalendar" and "clearDates"; the actions
/// "upAction" and so on; "contextMenu"; the sheets "messageSheet", "nameSheet" with "nameField",
/// "trashSheet", "leftoverSheet", "copySheet" with "copyCancel"; "helpWindow".
///
/// startLook() must have been called.
class FileWindow : public QWidget
{
    Q_OBJECT

public:
    explicit FileWindow(const QString &folder);

    QString folder() const;
    bool isReading() const;
    FileTable *table() const { return m_table; }

public Q_SLOTS:
    /// If the folder cannot be read, shows a message and returns to the previous one.
    void openFolder(const QString &folder);

protected:
    void changeEvent(QEvent *event) override;

private:
    void makeParts();
    void layOutParts();
    QWidget *newListColumn();
    void connectParts();
    void connectActions();
    void connectWork();
    void onTrigger(QAction *action, void (FileWindow::*slot)());

    void showFolder();
    void translateContent();
    void applyFilter();
    void showListing();
    void showPage();
    void showProgress(int count);
    void updateSelection();
    void updateFooter();
    void recover(const QString &folder, const QString &reason);
    void showChanges(const QString &folder, const QStringList &names);
    void showMenu(const QPoint &position);

    void goUp();
    void refresh();
    void openCurrent();
    void open(const QString &name);
    void renameCurrent();
    void makeFolder();
    void trashSelected();
    void copySelected();
    void paste();
    void search();
    void showHelp();

    VemoPagingModel m_pages;
    FolderListing *m_listing;
    FileWork *m_work;
    TopBar *m_top = nullptr;
    FolderTree *m_tree = nullptr;
    FileTable *m_table = nullptr;
    QWidget *m_empty = nullptr;
    VemoPagingBar *m_paging = nullptr;
    DetailsPanel *m_details = nullptr;
    Actions m_actions;
    QPointer<HelpWindow> m_help;
    QString m_last_good; ///< the last folder that could be read
    QStringList m_to_select; ///< when the folder has been read
};
