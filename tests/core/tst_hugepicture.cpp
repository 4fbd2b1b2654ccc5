// SPDX-License-Identifier: MIT
#include <vemo/imagemanager.h>

#include "support/testhost.h"
#include "support/vemotest.h"

class HugePictureTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void aPictureOf16384PixelsSquaredIsShrunkLikeAnyOther();
};

void HugePictureTest::aPictureOf16384PixelsSquaredIsShrunkLikeAnyOther()
{
    qputenv("QT_IMAGEIO_MAXALLOC", "0"); // Qt 6 by default refuses pictures of more than 128 MB.
    const TestHost host;
    // One bit per pixel, so that the file is small.
    QImage picture(16384, 16384, QImage::Format_Mono);
    picture.setColorTable({qRgb(255, 0, 0), qRgb(0, 0, 255)});
    picture.fill(0);
    QVERIFY(picture.save(host.pictureFolder() + "/huge.png"));
    picture = QImage();
    host.writeCatalogue({"huge"});
    host.start(ImageManager::LAZY_LOAD);
    const QPixmap pixmap = getGlobalImage("huge");
    QCOMPARE(pixmap.size(), QSize(4096, 4096));
    QCOMPARE(pixmap.copy(2000, 2000, 1, 1).toImage().pixelColor(0, 0), QColor(Qt::red));
}

VEMO_TEST_MAIN(HugePictureTest)
#include "tst_hugepicture.moc"
