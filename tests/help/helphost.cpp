// SPDX-License-Identifier: MIT
#include "help/helphost.h"

#include "support/temporaryfolder.h"

#include <vemo/stylemanager.h>

#include <QBuffer>
#include <QDir>
#include <QFileInfo>
#include <QtTest>

HelpHost::HelpHost()
{
    m_host.writeCatalogue({});
    m_host.start(ImageManager::LAZY_LOAD);
    StyleManager::getInstance().initialize({m_host.writeFile(QStringLiteral("help.qss"),
        "==component.scrollbar==\nQScrollBar:vertical { width: 12px; }\n")});
    qputenv(kTemporaryFolderVariable, m_temp.path().toLocal8Bit());
}

void HelpHost::addHelpFile(const QString &name, const QByteArray &bytes) const
{
    const QFileInfo target(helpPath() + QLatin1Char('/') + name);
    QVERIFY(QDir().mkpath(target.path()));
    QFile file(target.filePath());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
}

QByteArray pictureBytes(const QSize &size, const QColor &colour)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(colour);
    QBuffer bytes;
    picture.save(&bytes, "PNG");
    return bytes.data();
}

QByteArray fileBytes(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

int countPixels(QWidget *widget, const QColor &colour)
{
    const QImage image = widget->grab().toImage();
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == colour;
    return count;
}
