// SPDX-License-Identifier: MIT
#pragma once

#include <QWidget>

class QComboBox;
class QListWidget;
class QTabWidget;

/// What is backed up, where to and when.
class SettingsWindow : public QWidget
{
    Q_OBJECT

public:
    SettingsWindow();

    /// Shows the second page; initially the first one is shown.
    void showSchedule();

private Q_SLOTS:
    void slotAddPattern();
    void slotRemoveFolder();
    void slotSave();

private:
    QWidget *newFoldersPage();
    QWidget *newSchedulePage();
    QWidget *newFolderGroup();
    QWidget *newDestinationGroup();
    QWidget *newFoot();

    QTabWidget *m_pages = nullptr;
    QListWidget *m_folders = nullptr;
    QComboBox *m_patterns = nullptr;
};
