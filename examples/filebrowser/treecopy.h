// SPDX-License-Identifier: MIT
#pragma once

#include "copyplan.h"
#include "filecopy.h"

/// Copies one source, a step at a time, under a temporary name in the target folder, and gives it
/// its final name at the end. Until then undoStep() takes back all that was made, and only that.
class TreeCopy
{
public:
    enum State { Working, Done, Failed };

    TreeCopy(const CopyPlan &plan, const QByteArray &targetFolder);
    /// Takes back at once what is not done.
    ~TreeCopy();
    Q_DISABLE_COPY(TreeCopy)

    State step();
    /// False when nothing is left to take back.
    bool undoStep();

    const QByteArray &path() const { return m_path; } ///< Where the copy is once done.
    const QStringList &problems() const { return m_problems; }
    qint64 doneBytes() const; ///< Of the plan's total.
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
    void finishFolder(const CopyItem &item) const;

    const QVector<CopyItem> m_items;
    QByteArray m_target;
    QByteArray m_temporary;
    QByteArray m_path;
    QStringList m_problems;
    QVector<Created> m_created;
    FileCopy m_file;
    qint64 m_done = 0;
    int m_next = 0; ///< The item to begin next.
    int m_unfinished; ///< Folders before this item get their permissions and times last.
};

/// The n-th name to try for a copy: "a.txt", "a (2).txt"; a folder's has no ending. It is never
/// longer than a name may be.
QByteArray nameOfCopy(const QByteArray &name, int n, bool isFolder);
