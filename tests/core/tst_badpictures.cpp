// SPDX-License-Identifier: MIT
#include <vemo/imagemanager.h>

#include "support/testhost.h"
#include "support/vemotest.h"

#include <QBuffer>

namespace {

QByteArray pngBytes()
{
    QImage picture(64, 64, QImage::Format_ARGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            picture.setPixelColor(x, y, QColor(x * 3, y * 3, (x * y) % 256));
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    picture.save(&buffer, "PNG");
    return bytes;
}

QByteArray flipped(QByteArray bytes, int position)
{
    bytes[position] = static_cast<char>(bytes[position] ^ 0x55);
    return bytes;
}

} // namespace

class BadPicturesTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aBrokenPictureIsNone_data();
    void aBrokenPictureIsNone();
    void aBrokenStateShowsTheNormalPicture_data();
    void aBrokenStateShowsTheNormalPicture();
    void aBrokenTemporaryPictureIsAnEmptyFile_data();
    void aBrokenTemporaryPictureIsAnEmptyFile();
    void aFolderInPlaceOfAPictureIsNone();

private:
    QScopedPointer<TestHost> m_host;
};

void BadPicturesTest::init()
{
    VemoTest::init();
    m_host.reset(new TestHost);
}

void BadPicturesTest::aBrokenPictureIsNone_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const QByteArray png = pngBytes();
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("one byte") << QByteArray("\x89");
    QTest::newRow("only its signature") << png.left(8);
    QTest::newRow("cut inside its header") << png.left(20);
    QTest::newRow("cut in the middle") << png.left(png.size() / 2);
    QTest::newRow("a byte of the signature flipped") << flipped(png, 1);
    QTest::newRow("a byte of the size flipped") << flipped(png, 17);
    QTest::newRow("a byte of the pixels flipped") << flipped(png, png.size() / 2);
    QTest::newRow("text") << QByteArray("not a picture\n");
    QTest::newRow("zeros") << QByteArray(1000, 0);
    QTest::newRow("a script") << QByteArray("#!/bin/sh\nexit 1\n");
}

void BadPicturesTest::aBrokenPictureIsNone()
{
    QFETCH(QByteArray, bytes);
    m_host->writeFile("images/broken.png", bytes);
    m_host->writeCatalogue({"broken"});
    for (const auto mode : {ImageManager::PRELOAD, ImageManager::LAZY_LOAD}) {
        m_host->start(mode);
        QVERIFY(getGlobalImage("broken").isNull());
        QCOMPARE(messages.take(),
            QStringList("Cannot load pixmap \"broken\" with type 0 [use default icon]"));
    }
}

void BadPicturesTest::aBrokenStateShowsTheNormalPicture_data()
{
    aBrokenPictureIsNone_data();
}

void BadPicturesTest::aBrokenStateShowsTheNormalPicture()
{
    QFETCH(QByteArray, bytes);
    m_host->addPicture("half", {64, 64}, Qt::red);
    m_host->writeFile("images/half_click.png", bytes);
    m_host->writeCatalogue({"half"});
    m_host->start(ImageManager::PRELOAD);
    const QImage picture = getGlobalImage("half", ImageManager::CLICK).toImage();
    QCOMPARE(picture.pixelColor(1, 1), QColor(Qt::red));
    QCOMPARE(
        messages.take(), QStringList("Cannot load pixmap \"half\" with type 2 [use default icon]"));
}

void BadPicturesTest::aBrokenTemporaryPictureIsAnEmptyFile_data()
{
    aBrokenPictureIsNone_data();
}

void BadPicturesTest::aBrokenTemporaryPictureIsAnEmptyFile()
{
    QFETCH(QByteArray, bytes);
    m_host->writeFile("images/broken.png", bytes);
    m_host->writeCatalogue({}, {"broken"});
    m_host->start(ImageManager::LAZY_LOAD);
    const QFileInfo file(m_host->tempPictureFolder() + "/tmp_broken.png");
    QVERIFY(file.exists());
    QCOMPARE(file.size(), 0);
}

void BadPicturesTest::aFolderInPlaceOfAPictureIsNone()
{
    QVERIFY(QDir(m_host->pictureFolder()).mkdir("folder.png"));
    m_host->writeCatalogue({"folder"}, {"folder"});
    m_host->start(ImageManager::PRELOAD);
    QVERIFY(getGlobalImage("folder").isNull());
    QCOMPARE(messages.take(),
        QStringList("Cannot load pixmap \"folder\" with type 0 [use default icon]"));
}

VEMO_TEST_MAIN(BadPicturesTest)
#include "tst_badpictures.moc"
