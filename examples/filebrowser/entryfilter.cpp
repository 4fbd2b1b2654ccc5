// SPDX-License-Identifier: MIT
#include "entryfilter.h"

#include <vemo/FileTypeMap>

#include <QCollator>

#include <algorithm>
#include <vector>

namespace {

/// The name's letters behind its last dot; empty where there is none.
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

bool EntryFilter::accepts(const FileEntry &entry) const
{
    if (!text.isEmpty() && !entry.name.contains(text, Qt::CaseInsensitive))
        return false;
    if (!kind.isEmpty() && !entry.isFolder && !isOfKind(entry.name, kind))
        return false;
    if (!from.isValid() && !to.isValid())
        return true;
    const QDate day = entry.modified.toLocalTime().date();
    return day.isValid() && !(from.isValid() && day < from) && !(to.isValid() && day > to);
}

void sortEntries(QVector<FileEntry> &entries)
{
    struct Keyed
    {
        QCollatorSortKey key;
        int index;
    };
    QCollator collator;
    collator.setNumericMode(true);
    // A key is made once a name; comparing the names themselves would make it at every comparison.
    std::vector<Keyed> order;
    order.reserve(size_t(entries.size()));
    for (int i = 0; i < entries.size(); ++i)
        order.push_back({collator.sortKey(entries.at(i).name), i});
    std::stable_sort(order.begin(), order.end(), [&entries](const Keyed &a, const Keyed &b) {
        const bool isFolder = entries.at(a.index).isFolder;
        if (isFolder != entries.at(b.index).isFolder)
            return isFolder;
        return a.key.compare(b.key) < 0;
    });
    QVector<FileEntry> sorted;
    sorted.reserve(entries.size());
    for (const Keyed &keyed : order)
        sorted += entries.at(keyed.index);
    entries = sorted;
}
