// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QString>

#include <map>

/// Folders by key, which a host registers once at start-up.
///
/// The library reads "resource_path" (style pictures and the picture catalogue) and
/// "user_data_path" (a writable folder for generated pictures); hosts may also add their own keys.
/// Register paths without a trailing slash, since "//" begins a comment in style files.
///
///     const QString cache = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
///     UIPathManager::getInstance().setPath("resource_path", ":/vemo/theme");
///     UIPathManager::getInstance().setPath("user_data_path", cache);
///
/// \image html resources-folders.png
class VEMO_EXPORT UIPathManager
{
public:
    /// The only instance, created on first use; it exists until the process ends.
    static UIPathManager &getInstance();

    /// Stores path under key. Overwriting an existing key logs a warning with the new path. The
    /// path is not checked for existence.
    void setPath(const QString &key, const QString &path);

    /// Stores path under key without a warning, even if the key exists.
    void replacePath(const QString &key, const QString &path);

    /// The path stored under key; if there is none, an empty string and a warning.
    QString getPath(const QString &key) const;

private:
    UIPathManager() = default;

    std::map<QString, QString> m_paths;
};
