// SPDX-License-Identifier: MIT
// What the code of the documentation is compiled in: a member function of a host's main window.
#pragma once

#include <vemo/AccessibleFilter>
#include <vemo/BrowserWindow>
#include <vemo/ComponentStrings>
#include <vemo/DPIinfo>
#include <vemo/DefaultTheme>
#include <vemo/FileSystemTreeWidgetItem>
#include <vemo/FileTypeMap>
#include <vemo/HelpWindow>
#include <vemo/ImageManager>
#include <vemo/ItemDelegate>
#include <vemo/LinkLabel>
#include <vemo/MessageShortcuts>
#include <vemo/MouseButtonFilter>
#include <vemo/QtSingleApplication>
#include <vemo/StyleManager>
#include <vemo/ToolTipText>
#include <vemo/UIPathManager>
#include <vemo/VemoButton>
#include <vemo/VemoButtonPath>
#include <vemo/VemoCalanderView>
#include <vemo/VemoCheckBox>
#include <vemo/VemoComboBox>
#include <vemo/VemoCountdownMessageBox>
#include <vemo/VemoDateSelector>
#include <vemo/VemoFilterBar>
#include <vemo/VemoFootbar>
#include <vemo/VemoIconButton>
#include <vemo/VemoInputSheet>
#include <vemo/VemoLabel>
#include <vemo/VemoLineEdit>
#include <vemo/VemoLocale>
#include <vemo/VemoMask>
#include <vemo/VemoMenu>
#include <vemo/VemoMessageSheet>
#include <vemo/VemoPagingBar>
#include <vemo/VemoPagingModel>
#include <vemo/VemoRadioButton>
#include <vemo/VemoSheet>
#include <vemo/VemoTableWidget>
#include <vemo/VemoTimeComboBox>
#include <vemo/VemoTreeWidget>

#include <QtWidgets>

#include <vector>

class CopyJob : public QObject
{
    Q_OBJECT

Q_SIGNALS:
    void finished();
};

/// Each block is a member function of a class derived from this one.
class MainWindow : public QWidget
{
    Q_OBJECT

public:
    QWidget *window = this;
    QWidget *page = new QWidget(this);
    QBoxLayout *layout = new QVBoxLayout(page);
    CopyJob copying;
    CopyJob *job = &copying;
    QtSingleApplication *singleApplication = nullptr;
    QString fileName = QStringLiteral("report.doc");
    QString resources;
    QString cache;
    QStringList items;
    QMap<QString, QString> strings;

    void deleteIt() { }
    void makeFolder(const QString &) { }

    void save() { }
    void renameFile() { }
    void fillTable() { }
    void readItems() { }
    void setKeepCopy(bool) { }
    void setUnit(int) { }
    void openFolder(const QString &) { }
    void filterList(const QString &) { }
    void filterFrom(const QDate &) { }
    void selectDate(const QDate &) { }
    void showFolderMenu(QMouseEvent *) { }
    void showMenuOf(QTreeWidgetItem *, const QPoint &) { }
};

/// A block of the documentation's code, named by its page and line.
struct DocSnippet
{
    const char *name;
    void (*run)();
};
extern const std::vector<DocSnippet> docSnippets;
