// SPDX-License-Identifier: MIT
#pragma once

#include "copyleftovers.h"
#include "copyplan.h"
#include "filecopy.h"

/// Copies a source step by step under a temporary name in the target folder, and finally renames
/// it. Until then undoStep() removes everything that was created, and nothing else.
class TreeCopy
{
public:
    enum State { Working, Done, Failed };

    TreeCopy(const CopyPlan &plan, const QByteArray &targetFolder);
    /// Removes an incomplete copy immediately.
    ~TreeCopy();
    Q_DISABLE_COPY(TreeCopy)

    State step();
    /// Returns false if nothing is left to remove.
    bool undoStep();

    const QByteArray &path() const { return m_path; } ///< The path of the complete copy.
    const QStringList &problems() const { return m_problems; }
    qint64 doneBytes() const; ///< Part of the plan's total.
    QByteArray currentName() const;

private:
    struct Created
    {
        QByteArray path;
        bool isFolder;
    };

    State begin(const CopyItem &item);
    State makeFolder(const CopyItem &item, const QByteArray &to);
    State makeLink(const CopyItem &item, const QByteArray &to);
    State copyOn();
    State place();
    State report(const CopyItem &item, FileCopy::Side side, int error);
    void note(const CopyItem &item, const QByteArray &to);
    void closeMark();
    void finishFolder(const CopyItem &item) const;

    const QVector<CopyItem> m_items;
    QByteArray m_target;
    QByteArray m_temporary;
    QByteArray m_path;
    QStringList m_problems;
    QVector<Created> m_created;
    FileCopy m_file;
    CopyMark m_mark = kNoCopyMark; ///< of the copy itself
    qint64 m_done = 0;
    int m_next = 0; ///< The next item to copy.
    int m_unfinished; ///< Folders before this item get their permissions and times last.
};

/// The n-th name to try for a copy: "a.txt", "a (2).txt"; the names of folders have no extension.
/// Never exceeds the maximum length of a name.
QByteArray nameOfCopy(const QByteArray &name, int n, bool isFolder);
