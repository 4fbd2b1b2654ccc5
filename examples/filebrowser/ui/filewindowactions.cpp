// SPDX-License-Identifier: MIT
// The second half of the window: what its actions do.
#include "copyleftovers.h"
#include "filetable.h"
#include "filewindow.h"
#include "filework.h"
#include "folderlisting.h"
#include "foldertree.h"
#include "namedelegate.h"
#include "paths.h"
#include "topbar.h"

#include <vemo/dpiinfo.h>
#include <vemo/helpwindow.h>
#include <vemo/stylemanager.h>
#include <vemo/vemomenu.h>

namespace {

constexpr QSize kMinHelpSize(560, 440); // design pixels

} // namespace

void FileWindow::goUp()
{
    if (const QString parent = parentPath(folder()); !parent.isEmpty())
        openFolder(parent);
}

void FileWindow::refresh()
{
    m_tree->refresh(folder());
    m_listing->read(folder());
}

void FileWindow::openCurrent()
{
    if (const FileEntry *entry = m_table->currentEntry())
        open(QString(entry->name));
}

void FileWindow::open(const QString &name)
{
    const QString path = childPath(folder(), name);
    if (isFolderAt(path))
        openFolder(path);
    else
        m_work->openFile(folder(), name);
}

void FileWindow::renameCurrent()
{
    const QStringList names = m_table->selectedNames();
    if (names.size() != 1)
        return;
    if (NameDelegate::canEdit(names.first()))
        m_table->editName();
    else
        m_work->askRename(folder(), names.first());
}

void FileWindow::makeFolder()
{
    m_work->askNewFolder(folder());
}

void FileWindow::trashSelected()
{
    m_work->askTrash(folder(), m_table->selectedNames());
}

void FileWindow::copySelected()
{
    m_work->copy(folder(), m_table->selectedNames());
}

void FileWindow::paste()
{
    m_work->paste(folder(), m_listing->namesStartingWith(kUnfinishedCopyPrefix));
}

void FileWindow::search()
{
    m_top->focusFilter();
}

void FileWindow::showHelp()
{
    if (m_help) {
        m_help->raise();
        return;
    }
    HelpContext context;
    context.lang = "enu"; // The pages are in English only.
    context.helpPath = ":/filebrowser/help";
    context.link = "index.html";
    context.section = "filebrowser";
    m_help = new HelpWindow(context, this);
    m_help->setObjectName("helpWindow");
    m_help->setAttribute(Qt::WA_DeleteOnClose);
    m_help->setMinimumSize(
        DPIinfo::scaled(kMinHelpSize.width()), DPIinfo::scaled(kMinHelpSize.height()));
    m_help->show();
}

void FileWindow::showMenu(const QPoint &position)
{
    auto *menu = new VemoMenu(this);
    menu->setObjectName("contextMenu");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setStyleSheet(getStyleSheet("component.menu"));
    if (!m_table->selectedNames().isEmpty()) {
        menu->addActions({m_actions.open, m_actions.rename, m_actions.copy, m_actions.trash});
        menu->addSeparator();
    }
    m_actions.paste->setEnabled(m_work->canPaste());
    // Outside the menu, the key always checks the clipboard again.
    connect(
        menu, &QMenu::aboutToHide, m_actions.paste, [this] { m_actions.paste->setEnabled(true); },
        Qt::QueuedConnection);
    menu->addActions({m_actions.newFolder, m_actions.paste, m_actions.refresh});
    menu->popup(position);
}
