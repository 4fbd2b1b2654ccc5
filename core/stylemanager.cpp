// SPDX-License-Identifier: MIT
#include <vemo/stylemanager.h>

#include "core/logging_p.h"
#include "core/resourcefile_p.h"
#include "core/stylefile_p.h"

#include <vemo/dpiinfo.h>
#include <vemo/imagemanager.h>

#include <QFileInfo>

StyleManager &StyleManager::getInstance()
{
    static StyleManager instance;
    return instance;
}

void StyleManager::initialize(const std::vector<QString> &paths)
{
    QString text;
    for (const QString &path : paths) {
        // Deliberate: a file that cannot be opened adds only its line break and logs no warning.
        const QFileInfo file(path);
        // A folder exists, so it counts as an empty file, like a file without read permission.
        if (file.exists() && (isResourceFile(file, kMaxTextBytes) || file.isDir()))
            text.append(textOfResource(path)).append(QLatin1Char('\n'));
        else
            qCWarning(vemoLog) << "file" << path << "not exist";
    }
    // "TMPIMG_LOC" contains "IMG_LOC", so it is replaced first.
    const ImageManager &images = ImageManager::getInstance();
    text = withFolder(text, QLatin1String("TMPIMG_LOC"), images.getTempImageFolder());
    text = withFolder(text, QLatin1String("IMG_LOC"), images.getImageFolder());
    storeSections(withoutComments(std::move(text)), m_style_sheets);
}

bool StyleManager::contains(const QString &key) const
{
    return m_style_sheets.find(key) != m_style_sheets.end();
}

QString StyleManager::getStyleSheet(const QString &key, bool unscaled) const
{
    const auto found = m_style_sheets.find(key);
    if (found == m_style_sheets.end()) {
        qCWarning(vemoLog) << "Cannot find stylesheet" << key;
        return QLatin1String("");
    }
    return unscaled ? found->second : DPIinfo::getInstance().getScaledStyleSheet(found->second);
}

QString getStyleSheet(const QString &key, bool unscaled)
{
    return StyleManager::getInstance().getStyleSheet(key, unscaled);
}

QString getStyleSheet(const char *key, bool unscaled)
{
    return getStyleSheet(QString::fromLatin1(key), unscaled);
}
