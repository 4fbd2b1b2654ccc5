// SPDX-License-Identifier: MIT
#include "filetable.h"

#include "kinds.h"
#include "namedelegate.h"
#include "texts.h"

#include <vemo/dpiinfo.h>
#include <vemo/imagemanager.h>
#include <vemo/tooltiptext.h>

#include <QApplication>
#include <QFontMetrics>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QtMath>

#include <algorithm>
#include <utility>

namespace {

enum Column { NameColumn, SizeColumn, KindColumn, DateColumn };

constexpr int kIconSize = 16; // design pixels
constexpr int kCellPadding = 22; // design pixels, at both sides together

/// Shows a name that may hold anything, and gives the editor the name as it is.
class NameItem : public QTableWidgetItem
{
public:
    explicit NameItem(const QString &name) { QTableWidgetItem::setData(Qt::EditRole, name); }

    QVariant data(int role) const override
    {
        const QVariant value = QTableWidgetItem::data(role);
        return role == Qt::DisplayRole ? displayName(value.toString()) : value;
    }
};

/// As wide as the sample, in design pixels, and as the bold caption above it.
int widthOf(const QString &caption, const QString &sample)
{
    QFont bold = QApplication::font();
    bold.setBold(true);
    const int width = std::max(QFontMetrics(bold).horizontalAdvance(caption),
        QFontMetrics(QApplication::font()).horizontalAdvance(sample));
    return qCeil(width / DPIinfo::getInstance().getDPI()) + kCellPadding;
}

/// Captions and sizes are written differently in each language.
VemoTableColumnsInfo columns()
{
    const QString size = sizeText(1000 * 1024 + 900);
    const QString date = dateText(QDateTime(QDate(2028, 12, 28), QTime(22, 58)));
    VemoTableColumnsInfo info;
    info.addColumn(text("column_name"), 180, true, 0.66);
    info.addColumn(text("column_size"), widthOf(text("column_size"), size), false, 0.0);
    info.addColumn(text("column_kind"), 100, true, 0.34);
    info.addColumn(text("column_modified"), widthOf(text("column_modified"), date), true, 0.0);
    return info;
}

QTableWidgetItem *newCell(const QString &content, const QString &toolTip)
{
    auto *item = new QTableWidgetItem(content);
    item->setFlags(item->flags() & ~Qt::ItemIsEditable);
    item->setToolTip(toolTip);
    return item;
}

QString toolTipOf(const FileEntry &entry)
{
    QStringList lines {displayName(entry.name), kindText(kindOf(entry))};
    if (!entry.isFolder)
        lines << text("tip_size", sizeText(entry.size));
    if (entry.modified.isValid())
        lines << text("tip_modified", dateText(entry.modified));
    if (entry.isLink)
        lines << text("tip_link");
    if (!entry.isWritable)
        lines << text("tip_read_only");
    return getHtmlEscapedStringForToolTip(lines.join('\n'));
}

} // namespace

FileTable::FileTable(QWidget *parent) : VemoTableWidget(parent)
{
    setObjectName("fileList");
    setUpTable();
    connectParts();
}

void FileTable::setUpTable()
{
    QTableWidget *table = getTable();
    table->setObjectName("fileTable");
    table->setIconSize(QSize(DPIinfo::scaled(kIconSize), DPIinfo::scaled(kIconSize)));
    table->setTabKeyNavigation(false);
    table->setContextMenuPolicy(Qt::CustomContextMenu);
    table->setTextElideMode(Qt::ElideMiddle);
    table->setWordWrap(false);
    getHeader()->setObjectName("fileHeader");
    translate(this, [this] { showTexts(); });
    auto *delegate = new NameDelegate;
    delegate->setParent(table);
    table->setItemDelegateForColumn(NameColumn, delegate);
    // Queued: a slot may open a sheet while the editor is still open.
    connect(delegate, &NameDelegate::nameEntered, this, &FileTable::renameEntered,
        Qt::QueuedConnection);
}

void FileTable::showTexts()
{
    getTable()->setAccessibleName(text("accessible_files"));
    setColumns(columns());
    // Right-aligned, like the numbers below it.
    getHeader()->model()->setHeaderData(
        SizeColumn, Qt::Horizontal, int(Qt::AlignRight | Qt::AlignVCenter), Qt::TextAlignmentRole);
}

void FileTable::connectParts()
{
    QTableWidget *table = getTable();
    connect(table, &QTableWidget::itemActivated, this, [this](QTableWidgetItem *item) {
        if (item->row() < m_entries.size())
            Q_EMIT opened(m_entries.at(item->row()).name);
    });
    connect(table, &QTableWidget::itemSelectionChanged, this, &FileTable::selectionChanged);
    connect(table, &QTableWidget::customContextMenuRequested, this, &FileTable::requestMenu);
}

void FileTable::showEntries(const QVector<FileEntry> &entries)
{
    const QStringList names = selectedNames();
    {
        const QSignalBlocker quiet(getTable());
        m_entries = entries;
        getTable()->clearSelection();
        getTable()->setRowCount(entries.size());
        for (int row = 0; row < entries.size(); ++row)
            fillRow(row, entries.at(row));
        select(names);
    }
    Q_EMIT selectionChanged();
}

void FileTable::fillRow(int row, const FileEntry &entry)
{
    QTableWidget *table = getTable();
    const QString toolTip = toolTipOf(entry);
    auto *name = new NameItem(entry.name);
    name->setIcon(getGlobalIcon(pictureOf(entry)));
    name->setToolTip(toolTip);
    table->setItem(row, NameColumn, name);
    auto *size = newCell(entry.isFolder ? QString() : sizeText(entry.size), toolTip);
    size->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
    table->setItem(row, SizeColumn, size);
    table->setItem(row, KindColumn, newCell(kindText(kindOf(entry)), toolTip));
    table->setItem(row, DateColumn, newCell(dateText(entry.modified), toolTip));
}

QStringList FileTable::selectedNames() const
{
    QStringList names;
    const QModelIndexList rows = getTable()->selectionModel()->selectedRows();
    for (const QModelIndex &index : rows) {
        if (index.row() < m_entries.size())
            names << m_entries.at(index.row()).name;
    }
    return names;
}

const FileEntry *FileTable::currentEntry() const
{
    const QTableWidget *table = getTable();
    const QModelIndex current = table->currentIndex();
    const bool isThere = current.isValid() && current.row() < m_entries.size()
        && table->selectionModel()->isRowSelected(current.row(), {});
    return isThere ? &m_entries.at(current.row()) : nullptr;
}

void FileTable::select(const QStringList &names)
{
    QTableWidget *table = getTable();
    table->clearSelection();
    bool isFirst = true;
    for (int row = 0; row < m_entries.size(); ++row) {
        if (!names.contains(m_entries.at(row).name))
            continue;
        if (std::exchange(isFirst, false)) {
            table->setCurrentCell(row, NameColumn, QItemSelectionModel::NoUpdate);
            table->scrollTo(table->model()->index(row, NameColumn));
        }
        table->selectionModel()->select(table->model()->index(row, NameColumn),
            QItemSelectionModel::Select | QItemSelectionModel::Rows);
    }
}

void FileTable::editName()
{
    QTableWidget *table = getTable();
    if (QTableWidgetItem *item = table->item(table->currentRow(), NameColumn)) {
        table->setCurrentItem(item, QItemSelectionModel::NoUpdate);
        table->editItem(item);
    }
}

void FileTable::cancelEditing()
{
    QKeyEvent escape(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier);
    if (auto *editor = getTable()->viewport()->findChild<QLineEdit *>())
        QCoreApplication::sendEvent(editor, &escape);
}

void FileTable::showVanished(const QString &name)
{
    for (int row = 0; row < m_entries.size(); ++row) {
        if (m_entries.at(row).name == name)
            getTable()
                ->item(row, NameColumn)
                ->setIcon(getGlobalIcon(pictureOf(m_entries.at(row), true)));
    }
}

void FileTable::requestMenu(const QPoint &position)
{
    Q_EMIT menuRequested(getTable()->viewport()->mapToGlobal(position));
}
