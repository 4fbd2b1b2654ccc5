// SPDX-License-Identifier: MIT
#include "support/testhost.h"

#include <vemo/defaulttheme.h>
#include <vemo/uipathmanager.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QtTest>

TestHost::TestHost()
{
    QDir(resourcePath()).mkdir(QStringLiteral("images"));
}

void TestHost::addPicture(const QString &name, const QSize &size, const QColor &colour) const
{
    QImage picture(size, QImage::Format_ARGB32);
    picture.fill(colour);
    QVERIFY(picture.save(QStringLiteral("%1/%2.png").arg(pictureFolder(), name)));
}

void TestHost::addChequeredPicture(const QString &name, const QSize &size) const
{
    QImage picture(size, QImage::Format_ARGB32);
    for (int y = 0; y < size.height(); ++y) {
        for (int x = 0; x < size.width(); ++x)
            picture.setPixelColor(x, y, (x + y) % 2 == 0 ? Qt::black : Qt::white);
    }
    QVERIFY(picture.save(QStringLiteral("%1/%2.png").arg(pictureFolder(), name)));
}

void TestHost::writeCatalogue(const QStringList &names, const QStringList &tempNames) const
{
    const QJsonObject catalogue {{QStringLiteral("images"), QJsonArray::fromStringList(names)},
        {QStringLiteral("tmp_images"), QJsonArray::fromStringList(tempNames)}};
    writeFile(QStringLiteral("images.json"), QJsonDocument(catalogue).toJson());
}

QString TestHost::writeFile(const QString &name, const QByteArray &bytes) const
{
    const QString path = resourcePath() + QLatin1Char('/') + name;
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        QTest::qFail(qPrintable(QLatin1String("Cannot write ") + path), __FILE__, __LINE__);
    return path;
}

void TestHost::start(ImageManager::InitializeType type) const
{
    registerFolders(resourcePath(), userDataPath());
    ImageManager::getInstance().initialize(type);
}

void TestHost::registerFolders(const QString &resources, const QString &userData)
{
    QLoggingCategory::setFilterRules(QStringLiteral("debug.message=false"));
    UIPathManager::getInstance().setPath(QStringLiteral("resource_path"), resources);
    UIPathManager::getInstance().setPath(QStringLiteral("user_data_path"), userData);
    QLoggingCategory::setFilterRules(QString());
}

void startDefaultTheme()
{
    static const QTemporaryDir userData;
    static const bool isStarted =
        installDefaultTheme(userData.path(), QStringLiteral("enu"), ImageManager::LAZY_LOAD);
    QVERIFY(isStarted);
}
