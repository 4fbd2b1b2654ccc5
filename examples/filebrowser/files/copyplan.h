// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QStringList>
#include <QVector>

#include <memory>

/// A file, link or folder to copy.
struct CopyItem
{
    enum Kind { File, Folder, Link, Other };

    QByteArray from; ///< Its full path.
    QByteArray below; ///< The path relative to the source; empty for the source itself.
    Kind kind = Other;
    qint64 size = 0; ///< In bytes; 0 unless it is a file.
};

/// The names in a folder, in the order of the file system.
struct NameStream;
struct CloseNames
{
    void operator()(NameStream *names) const;
};
using FolderNames = std::unique_ptr<NameStream, CloseNames>;

/// Opens a folder, not one that path links to. Returns 0 or an error number.
int openNames(const QByteArray &folder, FolderNames *names);

/// An empty name at the end. Returns 0 or an error number.
int nextName(NameStream *names, QByteArray *name);

/// Lists the entries of a source one by one, folders before their contents.
class CopyPlan
{
public:
    /// Creates an empty plan.
    CopyPlan() = default;
    explicit CopyPlan(const QByteArray &source);

    /// Lists the next entry. Returns false if there is none left.
    bool step();

    const QVector<CopyItem> &items() const { return m_items; }
    /// The entries that cannot be listed, as "name: reason".
    const QStringList &problems() const { return m_problems; }
    /// The number of bytes plus one for each entry.
    qint64 total() const { return m_total; }

private:
    void add(const QByteArray &path);
    bool openNextFolder();

    QByteArray m_source;
    QVector<CopyItem> m_items;
    QStringList m_problems;
    qint64 m_total = 0;
    int m_next = 0; ///< All folders before this item have been listed.
    QByteArray m_folder; ///< The folder that is being listed.
    FolderNames m_names;
};

/// The line for a problem: the name of the entry and the system's error message.
QString problemLine(const QByteArray &path, int error);

/// Whether folder is the folder at path or inside it, even through links or mounts.
bool isInside(const QByteArray &folder, const QByteArray &path);
