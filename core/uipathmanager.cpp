// SPDX-License-Identifier: MIT
#include <vemo/uipathmanager.h>

#include "core/logging_p.h"

UIPathManager &UIPathManager::getInstance()
{
    static UIPathManager instance;
    return instance;
}

void UIPathManager::setPath(const QString &key, const QString &path)
{
    // Deliberate: the warning contains the new path, not the one that it replaces.
    if (m_paths.count(key) != 0)
        qCWarning(vemoLog) << "Existing path is" << path << "with key" << key
                           << "but overwrite it now";
    m_paths[key] = path;
}

void UIPathManager::replacePath(const QString &key, const QString &path)
{
    m_paths[key] = path;
}

QString UIPathManager::getPath(const QString &key) const
{
    const auto found = m_paths.find(key);
    if (found != m_paths.end())
        return found->second;
    qCWarning(vemoLog) << "Cannot find path by key" << key;
    return QLatin1String("");
}
