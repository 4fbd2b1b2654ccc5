// SPDX-License-Identifier: MIT
#include "entryfilter.h"

#include "entrysorter.h"

#include <vemo/FileTypeMap>

namespace {

/// The part of the name after its last dot; empty if there is none.
QString suffixOf(const QString &name)
{
    const int dot = name.lastIndexOf(QLatin1Char('.'));
    return dot < 0 ? QString() : name.mid(dot + 1);
}

bool isOfKind(const QString &name, const QString &kind)
{
    const QString icon = FileTypeMap::getInstance().getFiletypeMapping(suffixOf(name), false);
    return icon.size() == kind.size() + 4 && icon.startsWith(kind);
}

} // namespace

bool EntryFilter::isEmpty() const
{
    return text.isEmpty() && kind.isEmpty() && !from.isValid() && !to.isValid();
}

bool EntryFilter::accepts(const FileEntry &entry) const
{
    if (!text.isEmpty() && !entry.name.contains(text, Qt::CaseInsensitive))
        return false;
    if (!kind.isEmpty() && !entry.isFolder && !isOfKind(entry.name, kind))
        return false;
    if (!from.isValid() && !to.isValid())
        return true;
    return entry.modified.isValid() && !(from.isValid() && entry.modified < from)
        && !(to.isValid() && entry.modified > to);
}

void sortEntries(QVector<FileEntry> &entries)
{
    EntrySorter sorter;
    sorter.add(entries);
    entries = sorter.take();
}
