// SPDX-License-Identifier: MIT
// What the code of the documentation is compiled in: a member function of a host's main window.
#pragma once

#include "publicheaders.h"

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

    void setShared(bool) { }
    void save() { }
    void renameFile() { }
    void fillTable() { }
    void readItems() { }
    void setKeepCopy(bool) { }
    void setUnit(int) { }
    void openFolder(const QString &) { }
    void filterList(const QString &) { }
    void printPage(QTextDocument *) { }
    void filterFrom(const QDate &) { }
    void filterByDates(const QDate &, const QDate &) { }
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
