// SPDX-License-Identifier: MIT
#include "benchmarks/fixture.h"

#include <vemo/defaulttheme.h>
#include <vemo/uipathmanager.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace {

bool isThemeUsed = false;

const QTemporaryDir &folder()
{
    static const QTemporaryDir temporary;
    if (!temporary.isValid())
        qFatal("Cannot make a temporary folder");
    return temporary;
}

} // namespace

QString bench::writtenFile(const QString &name, const QByteArray &bytes)
{
    const QString path = folder().filePath(name);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("Cannot write %s", qPrintable(path));
    return path;
}

void bench::useTheme()
{
    if (isThemeUsed)
        return;
    isThemeUsed = installDefaultTheme(
        folder().filePath(QStringLiteral("theme")), QStringLiteral("enu"), ImageManager::LAZY_LOAD);
    if (!isThemeUsed)
        qFatal("Cannot start the default theme");
}

void bench::usePictures(const QString &resourcePath, ImageManager::InitializeType type)
{
    isThemeUsed = false;
    UIPathManager::getInstance().setPath(QStringLiteral("resource_path"), resourcePath);
    UIPathManager::getInstance().setPath(
        QStringLiteral("user_data_path"), folder().filePath(QStringLiteral("pictures")));
    ImageManager::getInstance().initialize(type);
}
