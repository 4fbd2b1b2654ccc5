// SPDX-License-Identifier: MIT
#include "gallery/page.h"
#include "gallery/pages/pages.h"
#include "gallery/specimens.h"

#include <vemo/dpiinfo.h>
#include <vemo/imagemanager.h>

#include <QComboBox>
#include <QDockWidget>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QProgressDialog>
#include <QPushButton>
#include <QSplitter>
#include <QStatusBar>
#include <QToolBar>
#include <QVBoxLayout>
#include <QWizard>

namespace {

constexpr int kWindowHeight = 256; // design pixels

QToolBar *newToolBar()
{
    auto *bar = new QToolBar;
    for (const char *name : {"bt_add", "bt_edit", "bt_delete"})
        bar->addAction(getGlobalIcon(name), QString(name).mid(3));
    bar->addSeparator();
    QAction *choice = bar->addAction("Preview");
    choice->setCheckable(true);
    choice->setChecked(true);
    bar->addAction("Disabled")->setEnabled(false);
    return bar;
}

QDockWidget *newDock()
{
    auto *dock = new QDockWidget("Folders");
    auto *list = named(new QListWidget, "Folders");
    list->addItems({"Documents", "Music", "Pictures"});
    dock->setWidget(list);
    return dock;
}

QMainWindow *newWindow()
{
    auto *window = new QMainWindow;
    window->setWindowFlags(Qt::Widget);
    QMenu *file = window->menuBar()->addMenu("File");
    file->addAction(getGlobalIcon("bt_add"), "New")->setShortcut(QKeySequence::New);
    file->addAction("Quit");
    window->menuBar()->addMenu("View")->addAction("Zoom");
    window->addToolBar(newToolBar());
    window->addDockWidget(Qt::LeftDockWidgetArea, newDock());
    auto *splitter = new QSplitter;
    for (const char *name : {"Old text", "New text"}) {
        auto *edit = named(new QPlainTextEdit(name), name);
        edit->setFrameShape(QFrame::NoFrame); // The bars and the splitter draw the lines.
        splitter->addWidget(edit);
    }
    window->setCentralWidget(splitter);
    window->statusBar()->showMessage("Ready");
    window->statusBar()->addPermanentWidget(new QLabel("12 MB"));
    window->setFixedHeight(DPIinfo::scaled(kWindowHeight));
    return window;
}

/// A button that opens a dialog of Qt's own.
template <typename Dialog> QPushButton *opener(const QString &text, void (*setUp)(Dialog &))
{
    auto *button = new QPushButton(text);
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    button->setToolTip("A tip: opens a dialog of Qt's own.");
    QObject::connect(button, &QPushButton::clicked, button, [button, setUp] {
        auto *dialog = new Dialog(button->window());
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        setUp(*dialog);
        dialog->open();
    });
    return button;
}

void setUpMessage(QMessageBox &box)
{
    box.setIcon(QMessageBox::Warning);
    box.setText("Replace the file?");
    box.setInformativeText("Its content is lost.");
    box.setStandardButtons(QMessageBox::Yes | QMessageBox::No | QMessageBox::Help);
}

void setUpInput(QInputDialog &dialog)
{
    dialog.setLabelText("Name of the folder");
    dialog.setTextValue("Music");
}

void setUpProgress(QProgressDialog &dialog)
{
    dialog.setLabelText("Copying");
    dialog.setValue(40);
}

void setUpFile(QFileDialog &dialog)
{
    dialog.setOption(QFileDialog::DontUseNativeDialog);
}

void setUpWizard(QWizard &wizard)
{
    auto *first = new QWizardPage;
    first->setTitle("Where to");
    first->setSubTitle("Choose a folder for the copy.");
    (new QVBoxLayout(first))->addWidget(new QLineEdit("Backup"));
    wizard.addPage(first);
    wizard.addPage(new QWizardPage);
}

} // namespace

void buildStockWindowsPage(Page &page)
{
    page.addSummary("Windows with bars and docks, dialogs, and what pops up.");
    page.addSection("A window", "Menu bar, tool bar, dock, splitter and status bar.");
    page.add(newWindow());
    page.addSection("Dialogs", "Each button opens one.");
    page.addRow(
        {opener<QMessageBox>("Message", setUpMessage), opener<QInputDialog>("Input", setUpInput),
            opener<QProgressDialog>("Progress", setUpProgress),
            opener<QFileDialog>("File", setUpFile), opener<QWizard>("Wizard", setUpWizard)});
}
