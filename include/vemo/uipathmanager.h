// SPDX-License-Identifier: MIT
#pragma once

#include <vemo/export.h>

#include <QString>

#include <map>

/// The folders that a host application registers under a key, once, at start-up.
///
/// The library reads "resource_path" (style pictures and the picture catalogue) and
/// "user_data_path" (a writable folder for generated pictures); a host may keep its own keys here
/// too. Register paths without a trailing slash: style files must not see "//".
///
///     const QString cache = QStandardPaths::writableLocation(QStandardPaths::CacheLocation);
///     UIPathManager::getInstance().setPath("resource_path", ":/vemo/theme");
///     UIPathManager::getInstance().setPath("user_data_path", cache);
///
/// \image html resources-folders.png
class VEMO_EXPORT UIPathManager
{
public:
    /// The one instance, made on first use; it lives until the process ends.
    static UIPathManager &getInstance();

    /// Stores path under key. An existing key is overwritten, with a warning that names the new
    /// path. Whether the path exists is not looked at.
    void setPath(const QString &key, const QString &path);

    /// Stores path under key, whether or not there is one already, without a warning.
    void replacePath(const QString &key, const QString &path);

    /// The path stored under key; an empty string and a warning where there is none.
    QString getPath(const QString &key) const;

private:
    UIPathManager() = default;

    std::map<QString, QString> m_paths;
};
