// SPDX-License-Identifier: MIT
#include "help/wholepicture_p.h"
#include "support/vemotest.h"

#include <QBuffer>
#include <QImage>
#include <QImageWriter>

class tst_wholepicture : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void theTestsGifIsOne();
    void onlyAllOfAPictureIsWhole_data();
    void onlyAllOfAPictureIsWhole();
    void whatFollowsAPictureDoesNotMatter_data();
    void whatFollowsAPictureDoesNotMatter();
    void whatIsNoPictureIsNotWhole_data();
    void whatIsNoPictureIsNotWhole();
};

static QByteArray written(const char *format, bool isProgressive = false)
{
    QImage image(40, 30, QImage::Format_RGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            image.setPixel(x, y, qRgb(x * 6, y * 8, x * y % 256));
    QBuffer bytes;
    QImageWriter writer(&bytes, format);
    writer.setProgressiveScanWrite(isProgressive);
    writer.write(image);
    return bytes.data();
}

/// A picture with a smaller one in front of its own segments, as cameras make them.
static QByteArray jpegWithPreview()
{
    const QByteArray jpeg = written("jpg");
    const int length = jpeg.size() + 2;
    const QByteArray head {"\xFF\xE1", 2};
    return jpeg.left(2) + head + char(length >> 8) + char(length & 0xFF) + jpeg + jpeg.mid(2);
}

/// Two frames with a colour table each, and a comment.
static QByteArray gif()
{
    const QByteArray colours = QByteArray::fromHex("000000ffffff");
    const QByteArray frame =
        QByteArray::fromHex("2c000000000100010080") + colours + QByteArray::fromHex("0202440100");
    const QByteArray comment = QByteArray::fromHex("21fe033b3b3b00");
    const QByteArray size = QByteArray::fromHex("01000100800000");
    return "GIF89a" + size + colours + comment + frame + frame + ';';
}

void tst_wholepicture::theTestsGifIsOne()
{
    const QImage image = QImage::fromData(gif());
    QCOMPARE(image.size(), QSize(1, 1));
}

void tst_wholepicture::onlyAllOfAPictureIsWhole_data()
{
    QTest::addColumn<QByteArray>("picture");
    QTest::newRow("PNG") << written("png");
    QTest::newRow("JPEG") << written("jpg");
    QTest::newRow("JPEG in several scans") << written("jpg", true);
    QTest::newRow("JPEG with a preview") << jpegWithPreview();
    QTest::newRow("GIF") << gif();
    QTest::newRow("BMP") << written("bmp");
    QTest::newRow("WebP") << QByteArray("RIFF\x0C\0\0\0WEBPVP8 \0\0\0\0", 20);
    QTest::newRow("SVG") << QByteArray("<svg xmlns=\"http://www.w3.org/2000/svg\"><g/></svg>");
}

void tst_wholepicture::onlyAllOfAPictureIsWhole()
{
    QFETCH(const QByteArray, picture);
    QVERIFY(isWholePicture(picture));
    for (int size = 0; size < picture.size(); ++size)
        QVERIFY2(!isWholePicture(picture.left(size)), qPrintable(QString::number(size)));
}

void tst_wholepicture::whatFollowsAPictureDoesNotMatter_data()
{
    onlyAllOfAPictureIsWhole_data();
}

void tst_wholepicture::whatFollowsAPictureDoesNotMatter()
{
    QFETCH(const QByteArray, picture);
    QVERIFY(isWholePicture(picture + "\r\n"));
}

void tst_wholepicture::whatIsNoPictureIsNotWhole_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("text") << QByteArray("text");
    QTest::newRow("a page") << QByteArray("<html>error</html>");
    QTest::newRow("a PNG's chunk of 4 GiB")
        << QByteArray::fromHex("89504e470d0a1a0affffffff49454e4400000000");
    QTest::newRow("a JPEG's segments of no length")
        << "\xFF\xD8" + QByteArray::fromHex("ffe00000").repeated(100);
    QTest::newRow("a JPEG that is all fill") << "\xFF\xD8" + QByteArray(100, '\xFF');
    QTest::newRow("a GIF of unknown blocks") << "GIF89a" + QByteArray(7, '\0') + "x;";
    QTest::newRow("a bitmap without a size") << "BM" + QByteArray(100, '\0');
}

void tst_wholepicture::whatIsNoPictureIsNotWhole()
{
    QFETCH(const QByteArray, bytes);
    QVERIFY(!isWholePicture(bytes));
}

VEMO_TEST_MAIN(tst_wholepicture)
#include "tst_wholepicture.moc"
