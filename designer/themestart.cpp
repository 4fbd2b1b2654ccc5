// SPDX-License-Identifier: MIT
#include "designer/themestart.h"

#include <vemo/defaulttheme.h>
#include <vemo/vemolocale.h>

#include <QDir>
#include <QTemporaryDir>

bool startTheme()
{
    if (ImageManager::getInstance().isInitialized())
        return true;
    static const QTemporaryDir folder(QDir::tempPath() + QLatin1String("/vemo-designer-XXXXXX"));
    return installDefaultTheme(
        folder.path(), VemoLocale::getInstance().getDefaultLanguage(), ImageManager::LAZY_LOAD);
}
