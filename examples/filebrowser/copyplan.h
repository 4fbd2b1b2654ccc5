// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QStringList>
#include <QVector>

#include <dirent.h>
#include <memory>

/// One file, link or folder that is to be copied.
struct CopyItem
{
    enum Kind { File, Folder, Link, Other };

    QByteArray from; ///< Its full path.
    QByteArray below; ///< The part of it behind the source's own path; empty for the source itself.
    Kind kind = Other;
    qint64 size = 0; ///< In bytes; only a file has any.
};

/// Lists what belongs to one source, folders before what is in them, an entry at a time.
class CopyPlan
{
public:
    /// A plan of nothing.
    CopyPlan() = default;
    explicit CopyPlan(const QByteArray &source);

    /// Lists one more entry; false when there was none left.
    bool step();

    const QVector<CopyItem> &items() const { return m_items; }
    /// What can't be listed: "name: reason".
    const QStringList &problems() const { return m_problems; }
    /// All bytes, and one for each entry.
    qint64 total() const { return m_total; }

private:
    struct CloseFolder
    {
        void operator()(DIR *stream) const { closedir(stream); }
    };

    void add(const QByteArray &path);
    bool openNextFolder();

    QByteArray m_source;
    QVector<CopyItem> m_items;
    QStringList m_problems;
    qint64 m_total = 0;
    int m_next = 0; ///< Up to this item all folders have been listed.
    QByteArray m_folder; ///< The one that is being listed.
    std::unique_ptr<DIR, CloseFolder> m_stream;
};

/// A problem's line: the entry's name and the system's words for an error number.
QString problemLine(const QByteArray &path, int error);

/// Whether folder is inside, or the same as, the folder at path, by whatever way.
bool isInside(const QByteArray &folder, const QByteArray &path);
