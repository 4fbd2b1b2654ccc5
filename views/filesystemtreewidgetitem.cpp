// SPDX-License-Identifier: MIT
#include <vemo/filesystemtreewidgetitem.h>

#include <typeinfo>

namespace {

const QLatin1String kHome("home");

/// The path of other; null if it is an item of another class.
const QString *pathOf(const QTreeWidgetItem &other)
{
    // Called very often while sorting, and almost always for this class.
    const auto *item = typeid(other) == typeid(FileSystemTreeWidgetItem)
        ? static_cast<const FileSystemTreeWidgetItem *>(&other)
        : dynamic_cast<const FileSystemTreeWidgetItem *>(&other);
    return item ? &item->getPath() : nullptr;
}

} // namespace

FileSystemTreeWidgetItem::FileSystemTreeWidgetItem() = default;
FileSystemTreeWidgetItem::FileSystemTreeWidgetItem(QTreeWidget *parent)
    : QTreeWidgetItem(parent) { }
FileSystemTreeWidgetItem::FileSystemTreeWidgetItem(QTreeWidgetItem *parent)
    : QTreeWidgetItem(parent)
{
}
FileSystemTreeWidgetItem::FileSystemTreeWidgetItem(const FileSystemTreeWidgetItem &) = default;
FileSystemTreeWidgetItem &FileSystemTreeWidgetItem::operator=(
    const FileSystemTreeWidgetItem &) = default;
FileSystemTreeWidgetItem::~FileSystemTreeWidgetItem() = default;

// A moved-from item may be in a tree and stays there, so it keeps its path as well.
FileSystemTreeWidgetItem::FileSystemTreeWidgetItem(FileSystemTreeWidgetItem &&other) noexcept
    // NOLINTNEXTLINE(performance-move-constructor-init)
    : FileSystemTreeWidgetItem(static_cast<const FileSystemTreeWidgetItem &>(other))
{
}

FileSystemTreeWidgetItem &FileSystemTreeWidgetItem::operator=(
    FileSystemTreeWidgetItem &&other) noexcept
{
    return *this = static_cast<const FileSystemTreeWidgetItem &>(other);
}

bool FileSystemTreeWidgetItem::operator<(const QTreeWidgetItem &other) const
{
    // Deliberate: only the path of the other item is compared, not that of this item.
    const QString *path = pathOf(other);
    return (!path || *path != kHome) && QTreeWidgetItem::operator<(other);
}

const QString &FileSystemTreeWidgetItem::getPath() const
{
    return m_path;
}

void FileSystemTreeWidgetItem::setPath(const QString &path)
{
    m_path = path;
}

unsigned long long FileSystemTreeWidgetItem::getBelongViewId() const
{
    return m_belong_view_id;
}

void FileSystemTreeWidgetItem::setBelongViewId(unsigned long long id)
{
    m_belong_view_id = id;
}

unsigned long long FileSystemTreeWidgetItem::getNodeId() const
{
    return m_node_id;
}

void FileSystemTreeWidgetItem::setNodeId(unsigned long long id)
{
    m_node_id = id;
}

bool FileSystemTreeWidgetItem::isFake() const
{
    return m_fake;
}

void FileSystemTreeWidgetItem::setFake(bool fake)
{
    m_fake = fake;
}

bool FileSystemTreeWidgetItem::isRemoved() const
{
    return m_removed;
}

void FileSystemTreeWidgetItem::setRemoved(bool removed)
{
    m_removed = removed;
}

bool FileSystemTreeWidgetItem::getRO() const
{
    return m_ro;
}

void FileSystemTreeWidgetItem::setRO(bool readOnly)
{
    m_ro = readOnly;
}

bool FileSystemTreeWidgetItem::isFakeChildExist() const
{
    return m_fake_child_exist;
}

void FileSystemTreeWidgetItem::setFakeChildExist(bool exists)
{
    m_fake_child_exist = exists;
}

FileSystemTreeWidgetItem::ItemStatus FileSystemTreeWidgetItem::getTreeWidgetItemStatus() const
{
    return m_status;
}

void FileSystemTreeWidgetItem::setTreeWidgetItemStatus(ItemStatus status)
{
    m_status = status;
}
