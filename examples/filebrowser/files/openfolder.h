// SPDX-License-Identifier: MIT
#pragma once

#include "fileentry.h"

#include <QByteArray>

#include <memory>

/// A folder whose entries are read one by one.
class OpenFolder
{
public:
    /// A path as toNativeName() returns it.
    explicit OpenFolder(const QByteArray &path);
    ~OpenFolder();
    Q_DISABLE_COPY(OpenFolder)

    /// Reads the next entry, with as much data as can be read; its name is empty if it has been
    /// deleted. Returns false at the end, or if there is an error.
    bool next(FileEntry *entry);

    /// An error number: of the folder that cannot be opened, or of what ended the reading; 0 if
    /// there is none. A folder that was deleted in the meantime has one.
    int error() const { return m_error; }

private:
    struct Handle;

    const QByteArray m_path;
    std::unique_ptr<Handle> m_handle;
    int m_error = 0;
};
