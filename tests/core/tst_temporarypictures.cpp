// SPDX-License-Identifier: MIT
#include <vemo/imagemanager.h>

#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/dpiinfo.h>
#include <vemo/stylemanager.h>

class TemporaryPicturesTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aCopyIsWrittenUnderItsName();
    void theCopyIsScaledByTheFactorAlone_data();
    void theCopyIsScaledByTheFactorAlone();
    void theCopyKeepsItsProportions_data();
    void theCopyKeepsItsProportions();
    void theCopyIsSmoothed();
    void blanksInANameAreRemoved();
    void aMissingPictureLeavesAnEmptyFile();
    void anOldCopyIsOverwritten();
    void aTemporaryPictureIsNoPictureOfTheCatalogue();
    void lazyLoadingWritesThemAtOnceToo();

private:
    void start(const QStringList &tempNames);
    QString tempPath(const QString &name) const;

    QScopedPointer<TestHost> m_host;
};

void TemporaryPicturesTest::init()
{
    VemoTest::init();
    m_host.reset(new TestHost);
}

void TemporaryPicturesTest::start(const QStringList &tempNames)
{
    m_host->writeCatalogue({}, tempNames);
    m_host->start(ImageManager::PRELOAD);
}

QString TemporaryPicturesTest::tempPath(const QString &name) const
{
    return m_host->tempPictureFolder() + "/tmp_" + name + ".png";
}

void TemporaryPicturesTest::aCopyIsWrittenUnderItsName()
{
    m_host->addPicture("icon_warning", {64, 64}, Qt::red);
    start({"icon_warning"});
    QFile file(tempPath("icon_warning"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().startsWith("\x89PNG"));
    QCOMPARE(QImage(file.fileName()).pixelColor(1, 1), QColor(Qt::red));
}

void TemporaryPicturesTest::theCopyIsScaledByTheFactorAlone_data()
{
    QTest::addColumn<int>("artwork");
    QTest::addColumn<QVector<int>>("lengths"); // At 96, 120 and 144 dpi, at any pixel ratio.
    addRow("64", 64, QVector<int> {16, 20, 24});
    addRow("66, half rounds up", 66, QVector<int> {17, 21, 26});
    addRow("10", 10, QVector<int> {3, 4, 5});
    addRow("2", 2, QVector<int> {1, 1, 2});
}

void TemporaryPicturesTest::theCopyIsScaledByTheFactorAlone()
{
    QFETCH(int, artwork);
    QFETCH(QVector<int>, lengths);
    m_host->addPicture("square", {artwork, artwork}, Qt::red);
    start({"square"});
    const int length = lengths[qRound((DPIinfo::getInstance().getDPI() - 1) * 4)];
    const QImage copy(tempPath("square"));
    QCOMPARE(copy.size(), QSize(length, length));
    QCOMPARE(copy.devicePixelRatio(), 1.0);
}

void TemporaryPicturesTest::theCopyKeepsItsProportions_data()
{
    QTest::addColumn<QSize>("artwork");
    QTest::addColumn<QVector<QSize>>("sizes"); // At 96, 120 and 144 dpi.
    addRow("even", QSize(400, 80), QVector<QSize> {{100, 20}, {125, 25}, {150, 30}});
    addRow("its rounded size has others", QSize(102, 41),
        QVector<QSize> {{24, 10}, {32, 13}, {37, 15}});
    addRow("upright", QSize(42, 102), QVector<QSize> {{10, 26}, {13, 33}, {16, 39}});
}

void TemporaryPicturesTest::theCopyKeepsItsProportions()
{
    QFETCH(QSize, artwork);
    QFETCH(QVector<QSize>, sizes);
    m_host->addPicture("wide", artwork, Qt::red);
    start({"wide"});
    QCOMPARE(
        QImage(tempPath("wide")).size(), sizes[qRound((DPIinfo::getInstance().getDPI() - 1) * 4)]);
}

void TemporaryPicturesTest::theCopyIsSmoothed()
{
    m_host->addChequeredPicture("fine", {64, 64});
    start({"fine"});
    const int grey = QImage(tempPath("fine")).pixelColor(8, 8).red();
    QVERIFY2(grey > 64 && grey < 192, qPrintable(QString::number(grey)));
}

void TemporaryPicturesTest::blanksInANameAreRemoved()
{
    m_host->addPicture("checkbox", {64, 64}, Qt::red);
    m_host->addPicture("check box", {64, 64}, Qt::blue);
    start({" check box "});
    QCOMPARE(QImage(tempPath("checkbox")).pixelColor(1, 1), QColor(Qt::red));
    QCOMPARE(
        QDir(m_host->tempPictureFolder()).entryList(QDir::Files), QStringList("tmp_checkbox.png"));
}

void TemporaryPicturesTest::aMissingPictureLeavesAnEmptyFile()
{
    start({"missing"});
    const QFileInfo file(tempPath("missing"));
    QVERIFY(file.exists());
    QCOMPARE(file.size(), 0);
}

void TemporaryPicturesTest::anOldCopyIsOverwritten()
{
    m_host->addPicture("icon", {640, 640}, Qt::red);
    start({"icon"});
    m_host->addPicture("icon", {64, 64}, Qt::blue);
    start({"icon"});
    QCOMPARE(QImage(tempPath("icon")).pixelColor(1, 1), QColor(Qt::blue));
    QVERIFY(QFile::remove(m_host->pictureFolder() + "/icon.png"));
    start({"icon"});
    QCOMPARE(QFileInfo(tempPath("icon")).size(), 0);
}

void TemporaryPicturesTest::aTemporaryPictureIsNoPictureOfTheCatalogue()
{
    m_host->addPicture("only_temporary", {64, 64}, Qt::red);
    start({"only_temporary"});
    QVERIFY(getGlobalImage("only_temporary").isNull());
    QCOMPARE(messages.take(), QStringList("Cannot load pixmap \"only_temporary\""));
}

void TemporaryPicturesTest::lazyLoadingWritesThemAtOnceToo()
{
    m_host->addPicture("icon", {64, 64}, Qt::red);
    m_host->writeCatalogue({}, {"icon"});
    m_host->start(ImageManager::LAZY_LOAD);
    QVERIFY(QFileInfo(tempPath("icon")).size() > 0);
}

VEMO_TEST_MAIN(TemporaryPicturesTest)
#include "tst_temporarypictures.moc"
