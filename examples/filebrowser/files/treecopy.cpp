// SPDX-License-Identifier: MIT
#include "treecopy.h"

#include "copyleftovers.h"
#include "nativefiles.h"
#include "nativename.h"
#include "safemove.h"

#include <cerrno>
#include <climits>
#include <utility>

namespace {

QByteArray lastName(const QByteArray &path)
{
    return path.mid(path.lastIndexOf('/') + 1);
}

} // namespace

QByteArray nameOfCopy(const QByteArray &name, int n, bool isFolder)
{
    if (n == 1)
        return name;
    const QByteArray number = " (" + QByteArray::number(n) + ')';
    const int dot = isFolder ? -1 : name.lastIndexOf('.');
    // The leading dot of a hidden file does not start an extension, nor does one followed by a long
    // text.
    const bool hasEnding = dot > 0 && name.size() - dot < kLongestName / 2;
    const QByteArray ending = number + (hasEnding ? name.mid(dot) : QByteArray());
    return cutName(hasEnding ? name.left(dot) : name, kLongestName - ending.size()) + ending;
}

TreeCopy::TreeCopy(const CopyPlan &plan, const QByteArray &targetFolder)
    : m_items(plan.items()), m_target(targetFolder == "/" ? QByteArray() : targetFolder),
      m_temporary(m_target + '/' + unfinishedCopyName()), m_unfinished(m_items.size())
{
}

TreeCopy::~TreeCopy()
{
    while (undoStep()) { }
    closeMark();
}

void TreeCopy::closeMark()
{
    closeCopyMark(std::exchange(m_mark, kNoCopyMark));
}

/// What is there of item can be taken back from now on.
void TreeCopy::note(const CopyItem &item, const QByteArray &to)
{
    m_created += {to, item.kind == CopyItem::Folder};
    if (item.below.isEmpty())
        m_mark = markUnfinishedCopy(to);
}

qint64 TreeCopy::doneBytes() const
{
    if (!m_file.isOpen())
        return m_done;
    // A file that has grown in the meantime only counts with its planned size.
    return m_done + qMin(m_file.copiedBytes(), m_items.at(m_next - 1).size);
}

QByteArray TreeCopy::currentName() const
{
    return m_items.isEmpty() ? QByteArray() : lastName(m_items.at(qMax(m_next - 1, 0)).from);
}

TreeCopy::State TreeCopy::step()
{
    if (m_file.isOpen())
        return copyOn();
    if (m_next < m_items.size())
        return begin(m_items.at(m_next++));
    if (m_unfinished == 0)
        return place();
    finishFolder(m_items.at(--m_unfinished));
    return Working;
}

/// Entries that cannot be read are skipped unless it is the source itself; writing errors end the
/// copy.
TreeCopy::State TreeCopy::report(const CopyItem &item, FileCopy::Side side, int error)
{
    m_problems += problemLine(item.from, error);
    m_done += item.size + 1;
    return side == FileCopy::Side::Reading && !item.below.isEmpty() ? Working : Failed;
}

TreeCopy::State TreeCopy::begin(const CopyItem &item)
{
    const QByteArray to = m_temporary + item.below;
    switch (item.kind) {
    case CopyItem::Folder:
        return makeFolder(item, to);
    case CopyItem::Link:
        return makeLink(item, to);
    case CopyItem::Other:
        return report(item, FileCopy::Side::Reading, EOPNOTSUPP);
    case CopyItem::File:
        break;
    }
    const FileCopy::Side side = m_file.open(item.from, to);
    if (side != FileCopy::Side::None)
        return report(item, side, m_file.error());
    note(item, to);
    return Working;
}

TreeCopy::State TreeCopy::makeFolder(const CopyItem &item, const QByteArray &to)
{
    if (const int error = makeOwnFolder(to))
        return report(item, FileCopy::Side::Writing, error);
    note(item, to);
    m_done += 1;
    return Working;
}

TreeCopy::State TreeCopy::makeLink(const CopyItem &item, const QByteArray &to)
{
    QByteArray target;
    if (const int error = readLink(item.from, &target))
        return report(item, FileCopy::Side::Reading, error);
    if (const int error = ::makeLink(target, to))
        return report(item, FileCopy::Side::Writing, error);
    note(item, to);
    copyTimesOfLink(item.from, to);
    m_done += 1;
    return Working;
}

TreeCopy::State TreeCopy::copyOn()
{
    const CopyItem &item = m_items.at(m_next - 1);
    const FileCopy::Side side = m_file.copySome();
    if (side == FileCopy::Side::None) {
        if (!m_file.isOpen())
            m_done += item.size + 1;
        return Working;
    }
    const State state = report(item, side, m_file.error());
    // An incomplete file would look like a complete one.
    if (state == Working && removeEntry(m_created.last().path, false) == 0)
        m_created.removeLast();
    return state;
}

/// Last, because a read-only folder cannot be filled, and filling changes the folder's time.
void TreeCopy::finishFolder(const CopyItem &item) const
{
    if (item.kind == CopyItem::Folder)
        copyAttributes(item.from, m_temporary + item.below);
}

TreeCopy::State TreeCopy::place()
{
    if (m_items.isEmpty())
        return Failed;
    const CopyItem &source = m_items.first();
    for (int n = 1; n < INT_MAX; ++n) {
        const QByteArray path =
            m_target + '/' + nameOfCopy(lastName(source.from), n, source.kind == CopyItem::Folder);
        const int error = moveWithoutReplacing(m_temporary, path);
        if (error == 0) {
            m_path = path;
            m_created.clear();
            closeMark();
            return Done;
        }
        if (error != EEXIST)
            return report(source, FileCopy::Side::Writing, error);
    }
    return Failed;
}

bool TreeCopy::undoStep()
{
    m_file.close();
    if (m_created.isEmpty())
        return false;
    const Created last = m_created.takeLast();
    if (removeEntry(last.path, last.isFolder) != EACCES)
        return true;
    // Its folder already has the permissions of the source folder.
    const QByteArray folder = last.path.left(last.path.lastIndexOf('/'));
    if (folder.startsWith(m_temporary) && allowChanges(folder))
        removeEntry(last.path, last.isFolder);
    return true;
}
