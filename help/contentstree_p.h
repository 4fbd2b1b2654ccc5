// SPDX-License-Identifier: MIT
// Internal header, not part of the interface: it may change without notice.
#pragma once

#include <vemo/browserwindow.h>

#include <QTreeWidget>
#include <QVector>

/// The table of contents beside a page. A click, Return or Enter opens an entry; moving to it does
/// not.
class ContentsTree : public QTreeWidget
{
    Q_OBJECT

public:
    explicit ContentsTree(QWidget *parent = nullptr);

    /// Shows entries, with none of them current and all levels closed.
    void setEntries(const QVector<ContentsEntry> &entries);
    const QVector<ContentsEntry> &entries() const { return m_entries; }

    int currentEntry() const { return int(m_items.indexOf(currentItem())); } ///< -1 if none
    /// Makes an entry current and opens the levels above it; none if index is -1.
    void setCurrentEntry(int index);

Q_SIGNALS:
    /// Emitted if the user wants to see the page of an entry. Not for headings without a page.
    void sigOpen(const QUrl &target);

private:
    void open(QTreeWidgetItem *item);

    QVector<ContentsEntry> m_entries;
    QVector<QTreeWidgetItem *> m_items; ///< of the entries; owned by the tree
};
