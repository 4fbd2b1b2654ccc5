// SPDX-License-Identifier: MIT
#include "visual/comparison.h"

#include "support/vemotest.h"

#include <QPainter>
#include <QTemporaryDir>

namespace {

QImage ground(const QColor &colour, const QSize &size = {20, 10})
{
    QImage picture(size, QImage::Format_ARGB32);
    picture.fill(colour);
    return picture;
}

QImage withBox(const QPoint &place, const QColor &colour = 0xC8D2DC)
{
    QImage picture = ground(0xF5F7FA);
    QPainter(&picture).fillRect(QRect(place, QSize(6, 4)), colour);
    return picture;
}

} // namespace

class ComparisonTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void whatAUserWouldSeeIsADifference_data();
    void whatAUserWouldSeeIsADifference();
    void whatAProcessorRoundsIsNone();
    void theDifferenceShowsWhere();
    void aDifferenceIsWrittenAsThreePicturesAndNamed();
    void aRepairedLookLeavesNoPicturesBehind();
    void withoutAStoredPictureItFails();
    void storedPicturesAreWhatTheyWere_data();
    void storedPicturesAreWhatTheyWere();

private:
    QTemporaryDir m_folder;
};

void ComparisonTest::whatAUserWouldSeeIsADifference_data()
{
    QTest::addColumn<QImage>("actual");
    QTest::addColumn<int>("differing");
    QTest::newRow("one pixel to the right") << withBox({6, 3}) << 8;
    QTest::newRow("one pixel down") << withBox({5, 4}) << 12;
    QTest::newRow("the faintest step of the palette") << withBox({5, 3}, 0xC8D2D8) << 24;
    QTest::newRow("another ground") << ground(0xFFFFFF) << 200;
    QTest::newRow("wider") << withBox({5, 3}).copy(0, 0, 21, 10) << 10;
    QTest::newRow("lower") << withBox({5, 3}).copy(0, 0, 20, 9) << 20;
    QTest::newRow("none") << QImage() << 200;
}

void ComparisonTest::whatAUserWouldSeeIsADifference()
{
    QFETCH(QImage, actual);
    QFETCH(int, differing);
    const Comparison found = compared(withBox({5, 3}), actual);
    QVERIFY(!found.isEqual());
    QCOMPARE(found.differing, differing);
}

void ComparisonTest::whatAProcessorRoundsIsNone()
{
    const Comparison found = compared(ground(0xC8D2DC), ground(0xC9D1DA));
    QVERIFY(found.isEqual());
    QCOMPARE(found.largest, 2);
}

void ComparisonTest::theDifferenceShowsWhere()
{
    const QImage difference = compared(withBox({5, 3}), withBox({6, 3})).difference;
    QCOMPARE(difference.pixelColor(5, 3), QColor(Qt::red));
    QCOMPARE(difference.pixelColor(11, 6), QColor(Qt::red));
    QVERIFY(difference.pixelColor(6, 3) != QColor(Qt::red));
}

void ComparisonTest::aDifferenceIsWrittenAsThreePicturesAndNamed()
{
    const QString path = m_folder.filePath("stored.png");
    const QString differencePath = m_folder.filePath("new/folder/difference.png");
    QVERIFY(storePicture(withBox({5, 3}), path));
    const QString problem = compareWithFile(withBox({6, 3}), path, differencePath);
    QCOMPARE(problem,
        QString("8 pixels differ from \"%1\", by up to 45 of 255: see \"%2\".")
            .arg(path, differencePath));
    const QImage three(differencePath);
    QCOMPARE(three.size(), QSize(3 * 160 + 4 * 16, 80 + 2 * 16)); // eight times 20 x 10
    const auto inPicture = [&](int index, const QPoint &point) {
        return three.pixelColor(point * 8 + QPoint(4 + 16 + index * 176, 4 + 16));
    };
    QCOMPARE(inPicture(0, {5, 3}), QColor(0xC8D2DC));
    QCOMPARE(inPicture(1, {5, 3}), QColor(0xF5F7FA));
    QCOMPARE(inPicture(2, {5, 3}), QColor(Qt::red));
}

void ComparisonTest::aRepairedLookLeavesNoPicturesBehind()
{
    const QString path = m_folder.filePath("repaired.png");
    const QString differencePath = m_folder.filePath("repaired-difference.png");
    QVERIFY(storePicture(withBox({5, 3}), path));
    QVERIFY(!compareWithFile(withBox({6, 3}), path, differencePath).isEmpty());
    QVERIFY(QFile::exists(differencePath));
    QCOMPARE(compareWithFile(withBox({5, 3}), path, differencePath), QString());
    QVERIFY(!QFile::exists(differencePath));
}

void ComparisonTest::withoutAStoredPictureItFails()
{
    const QString path = m_folder.filePath("missing.png");
    QCOMPARE(compareWithFile(ground(0xFFFFFF), path, m_folder.filePath("unused.png")),
        QString("There is no stored picture \"%1\".").arg(path));
}

void ComparisonTest::storedPicturesAreWhatTheyWere_data()
{
    QTest::addColumn<QImage>("picture");
    QImage manyColours(64, 64, QImage::Format_RGB32);
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x)
            manyColours.setPixel(x, y, qRgb(x * 4, y * 4, x * y / 16));
    }
    QTest::newRow("few colours") << withBox({5, 3});
    QTest::newRow("more than a palette holds") << manyColours;
}

void ComparisonTest::storedPicturesAreWhatTheyWere()
{
    QFETCH(QImage, picture);
    const QString path = m_folder.filePath("same.png");
    QVERIFY(storePicture(picture, path));
    const Comparison found = compared(QImage(path), picture);
    QVERIFY(found.isEqual());
    QCOMPARE(found.largest, 0);
}

VEMO_TEST_MAIN(ComparisonTest)
#include "tst_comparison.moc"
