// SPDX-License-Identifier: MIT
#pragma once

#include <QDir>
#include <QTemporaryDir>

#include <memory>

/// A folder on another drive than the temporary folder; null if there is none that can be written.
inline std::unique_ptr<QTemporaryDir> folderOnAnotherDrive()
{
    for (const QFileInfo &drive : QDir::drives()) {
        for (const char *name : {"vemo-XXXXXX", "tmp/vemo-XXXXXX"}) {
            if (QDir::tempPath().startsWith(drive.path(), Qt::CaseInsensitive))
                continue;
            auto folder = std::make_unique<QTemporaryDir>(drive.path() + QLatin1String(name));
            if (folder->isValid())
                return folder;
        }
    }
    return nullptr;
}
