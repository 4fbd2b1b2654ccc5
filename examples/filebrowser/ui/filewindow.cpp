// SPDX-License-Identifier: MIT
#include "filewindow.h"

#include "datefilter.h"
#include "detailspanel.h"
#include "filetable.h"
#include "filework.h"
#include "folderlisting.h"
#include "foldertree.h"
#include "look.h"
#include "paths.h"
#include "questions.h"
#include "texts.h"
#include "topbar.h"

#include <vemo/accessiblefilter.h>
#include <vemo/dpiinfo.h>
#include <vemo/helpwindow.h>
#include <vemo/imagemanager.h>
#include <vemo/stylemanager.h>
#include <vemo/vemomenu.h>
#include <vemo/vemopagingbar.h>

#include <QEvent>
#include <QLabel>
#include <QScrollBar>
#include <QSplitter>
#include <QVBoxLayout>
#include <QtMath>

#include <algorithm>
#include <utility>

namespace {

// In design pixels.
constexpr QSize kWindowSize(1100, 720);
constexpr int kMinHeight = 480;
constexpr int kTreeWidth = 216;
constexpr int kMinTreeWidth = 144;
constexpr int kMinListWidth = 320;

constexpr int kRowsPerPage = 100;
constexpr int kManyEntries = 2000; // from this number on the list shows that it is still reading

constexpr int kFooterPadding = 26; // design pixels, at both sides together

/// Of the footer that counts what is selected, in design pixels: the same for every number, so that
/// a selection moves nothing.
int selectionWidth(const QFontMetrics &metrics)
{
    const int width = metrics.horizontalAdvance(text("footer_selected", numberText(kRowsPerPage)));
    return qCeil(width / DPIinfo::getInstance().getDPI()) + kFooterPadding;
}

} // namespace

FileWindow::FileWindow(const QString &folder)
    : m_pages(kRowsPerPage, nullptr), m_listing(new FolderListing(this)), m_work(new FileWork(this))
{
    makeWindowsAccessible();
    setObjectName("fileWindow");
    setWindowIcon(getGlobalImage("app_img"));
    setStyleSheet(windowStyle());
    makeParts();
    layOutParts();
    connectParts();
    connectActions();
    connectWork();
    // The width follows from the parts, which need more in some languages than in others.
    setMinimumHeight(DPIinfo::scaled(kMinHeight));
    resize(DPIinfo::scaled(kWindowSize.width()), DPIinfo::scaled(kWindowSize.height()));
    m_table->getTable()->setFocus();
    openFolder(folder);
}

void FileWindow::makeParts()
{
    m_table = new FileTable(this);
    m_table->setMinimumWidth(DPIinfo::scaled(kMinListWidth));
    m_actions = Actions::make(this, m_table);
    m_actions.details->setChecked(true);
    m_top = new TopBar(m_actions, this);
    m_tree = new FolderTree(this);
    m_tree->setMinimumWidth(DPIinfo::scaled(kMinTreeWidth));
    m_paging = new VemoPagingBar(&m_pages, this);
    m_paging->setObjectName("pagingBar");
    // Without a parent yet: the widget that joins the window last is the last in the tab order.
    m_details = new DetailsPanel(nullptr);
    m_empty = new QLabel(m_table->getTable()->viewport());
    m_empty->setObjectName("emptyText");
}

void FileWindow::layOutParts()
{
    auto *splitter = new QSplitter;
    splitter->setObjectName("splitter");
    splitter->setChildrenCollapsible(false);
    splitter->setHandleWidth(1);
    splitter->addWidget(m_tree);
    splitter->addWidget(newListColumn());
    splitter->setStretchFactor(1, 1);
    splitter->setSizes(
        {DPIinfo::scaled(kTreeWidth), DPIinfo::scaled(kWindowSize.width() - kTreeWidth)});
    auto *row = new QHBoxLayout;
    row->setSpacing(0);
    row->addWidget(splitter, 1);
    row->addWidget(m_details);
    auto *column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_top);
    column->addLayout(row, 1);
}

QWidget *FileWindow::newListColumn()
{
    auto *list = new QWidget;
    list->setObjectName("listColumn");
    auto *column = new QVBoxLayout(list);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_table, 1);
    column->addWidget(m_paging);
    auto *centre = new QVBoxLayout(m_table->getTable()->viewport());
    centre->addWidget(m_empty, 0, Qt::AlignCenter);
    return list;
}

void FileWindow::connectParts()
{
    connect(m_listing, &FolderListing::changed, this, &FileWindow::showListing);
    connect(m_listing, &FolderListing::progressed, this, &FileWindow::showProgress);
    connect(m_listing, &FolderListing::failed, this, &FileWindow::recover);
    connect(m_top, &TopBar::folderChosen, this, &FileWindow::openFolder);
    connect(m_top, &TopBar::filterChanged, this, &FileWindow::applyFilter);
    connect(m_tree, &FolderTree::folderChosen, this, &FileWindow::openFolder);
    connect(m_table, &FileTable::opened, this, &FileWindow::open);
    connect(m_table, &FileTable::selectionChanged, this, &FileWindow::updateSelection);
    connect(m_table, &FileTable::menuRequested, this, &FileWindow::showMenu);
    connect(m_paging, &VemoPagingBar::sigPageChanged, this, &FileWindow::showPage);
    connect(m_paging, &VemoPagingBar::sigRefresh, this, &FileWindow::refresh);
    connect(m_details->dateFilter(), &DateFilter::changed, this, &FileWindow::applyFilter);
    connect(m_actions.details, &QAction::toggled, m_details, &QWidget::setVisible);
}

void FileWindow::connectWork()
{
    connect(m_table, &FileTable::renameEntered, this,
        [this](const QString &from, const QString &to) { m_work->rename(folder(), from, to); });
    connect(m_work, &FileWork::changed, this, &FileWindow::showChanges);
    connect(m_work, &FileWork::vanished, m_table, &FileTable::showVanished);
}

void FileWindow::connectActions()
{
    onTrigger(m_actions.up, &FileWindow::goUp);
    onTrigger(m_actions.refresh, &FileWindow::refresh);
    onTrigger(m_actions.open, &FileWindow::openCurrent);
    onTrigger(m_actions.rename, &FileWindow::renameCurrent);
    onTrigger(m_actions.newFolder, &FileWindow::makeFolder);
    onTrigger(m_actions.trash, &FileWindow::trashSelected);
    onTrigger(m_actions.copy, &FileWindow::copySelected);
    onTrigger(m_actions.paste, &FileWindow::paste);
    onTrigger(m_actions.search, &FileWindow::search);
    onTrigger(m_actions.help, &FileWindow::showHelp);
}

/// Shortcuts reach the window although a sheet has taken its other keys.
void FileWindow::onTrigger(QAction *action, void (FileWindow::*slot)())
{
    connect(action, &QAction::triggered, this, [this, slot] {
        if (isSheetOpen(this))
            return;
        m_table->cancelEditing();
        (this->*slot)();
    });
}

QString FileWindow::folder() const
{
    return m_listing->folder();
}

bool FileWindow::isReading() const
{
    return m_listing->isReading();
}

void FileWindow::openFolder(const QString &path)
{
    // On the way up the folder that the user comes from is the one to go on with.
    m_to_select = parentPath(folder()) == path ? QStringList(nameOf(folder())) : QStringList();
    m_pages.setNowPage(1);
    m_listing->read(path);
    showFolder();
}

void FileWindow::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LanguageChange)
        translateContent();
}

/// What the window itself has put into its parts.
void FileWindow::translateContent()
{
    setLocale(QLocale());
    m_table->cancelEditing();
    const int scrolled = m_table->getTable()->verticalScrollBar()->value();
    showFolder();
    showPage();
    m_table->getTable()->verticalScrollBar()->setValue(scrolled);
}

void FileWindow::showFolder()
{
    setWindowTitle(text("title", displayName(nameOf(folder()))));
    m_top->showFolder(folder());
    m_tree->showFolder(folder());
    m_actions.up->setEnabled(!parentPath(folder()).isEmpty());
    updateSelection();
}

void FileWindow::applyFilter()
{
    const DateFilter *dates = m_details->dateFilter();
    m_pages.setNowPage(1);
    m_listing->setFilter({m_top->filterText(), m_top->filterKind(), dates->from(), dates->to()});
}

void FileWindow::showListing()
{
    m_pages.setItemCount(m_listing->count());
    if (!isReading()) {
        m_last_good = folder();
        const int wanted = m_listing->indexOf(m_to_select.value(0));
        if (wanted >= 0)
            m_pages.setNowPage(wanted / kRowsPerPage + 1);
        m_pages.setNowPage(std::min(m_pages.nowPage(), m_pages.pageCount()));
    }
    m_paging->setItemCount(m_listing->count());
    showPage();
    if (!isReading() && !m_to_select.isEmpty())
        m_table->select(std::exchange(m_to_select, {}));
}

void FileWindow::showPage()
{
    m_table->showEntries(m_listing->page(m_pages.startItem(), m_pages.rowLimit()));
    m_table->getTable()->scrollToTop();
    auto *empty = static_cast<QLabel *>(m_empty);
    empty->setText(text(m_listing->total() == 0 ? "folder_empty" : "nothing_found"));
    empty->setVisible(!isReading() && m_listing->count() == 0);
    updateFooter();
}

void FileWindow::showProgress(int count)
{
    if (count < kManyEntries || m_listing->count() > 0)
        return;
    static_cast<QLabel *>(m_empty)->setText(text("reading_many", numberText(count)));
    m_empty->show();
}

void FileWindow::updateSelection()
{
    const QStringList names = m_table->selectedNames();
    m_actions.open->setEnabled(names.size() == 1);
    m_actions.rename->setEnabled(names.size() == 1);
    m_actions.trash->setEnabled(!names.isEmpty());
    m_actions.copy->setEnabled(!names.isEmpty());
    const FileEntry *entry = m_table->currentEntry();
    if (names.size() > 1)
        m_details->showSelection(names.size());
    else if (names.size() == 1 && entry)
        m_details->showEntry(folder(), *entry);
    else
        m_details->showFolder(folder());
    updateFooter();
}

void FileWindow::updateFooter()
{
    const QString total = numberText(m_listing->total());
    const QString entries = m_listing->filter().isEmpty()
        ? text("footer_all", total)
        : text("footer_filtered", numberText(m_listing->count()), total);
    const int selected = m_table->selectedNames().size();
    m_paging->setFooterInfos({{entries},
        {selected > 0 ? text("footer_selected", numberText(selected)) : QString(),
            selectionWidth(fontMetrics())}});
}

void FileWindow::recover(const QString &unreadable, const QString &reason)
{
    const bool canGoBack = m_last_good != unreadable && isFolderAt(m_last_good);
    const QString back = canGoBack ? m_last_good : nearestFolder(parentPath(unreadable));
    const bool isFirst = !isSheetOpen(this);
    if (back != unreadable)
        openFolder(back);
    if (isFirst)
        tell(this, richText("cannot_read", {pathForUsers(unreadable)}),
            "<qt>" + reason.toHtmlEscaped() + "</qt>");
}

void FileWindow::showChanges(const QString &changedFolder, const QStringList &names)
{
    m_tree->refresh(changedFolder);
    if (changedFolder != folder())
        return;
    m_to_select = names;
    m_listing->read(changedFolder);
}
