// SPDX-License-Identifier: MIT
#include "help/helphost.h"
#include "help/picturefolder_p.h"
#include "support/iswindows.h"
#include "support/temporaryfolder.h"
#include "support/vemotest.h"

class PictureFolderTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void aFileInPlaceOfTheFolderIsRefused();

    void namesThatAreNoFileNamesAreUnsafe_data();
    void namesThatAreNoFileNamesAreUnsafe();
    void namesThatMeanMoreToWindowsAreUnsafeThere_data();
    void namesThatMeanMoreToWindowsAreUnsafeThere();

    void aPictureReplacesAnEarlierOne();
    void aPictureBeingReadKeepsItsContent();
    void aPictureIsWrittenByThePathThroughTheParent();
    void whatCannotBeReplacedStays_data();
    void whatCannotBeReplacedStays();
    void longNamesAreWrittenAsFarAsTheFileSystemTakesThem_data();
    void longNamesAreWrittenAsFarAsTheFileSystemTakesThem();
    void unsafeNamesAreNotWritten();
    void onlyFilesOfTheFolderAreRead();
    void theOldestPicturesAreRemoved_data();
    void theOldestPicturesAreRemoved();
    void theFolderIsTrimmedWhenItIsFirstUsed();

private:
    QString outer() const { return m_temp->filePath(QStringLiteral("kestrava_help")); }
    QString image() const { return outer() + QLatin1String("/image"); }

    QScopedPointer<QTemporaryDir> m_temp;
};

void PictureFolderTest::init()
{
    VemoTest::init();
    m_temp.reset(new QTemporaryDir);
    qputenv(kTemporaryFolderVariable, m_temp->path().toLocal8Bit());
}

void PictureFolderTest::cleanup()
{
    m_temp.reset();
    qunsetenv(kTemporaryFolderVariable);
    VemoTest::cleanup();
}

void PictureFolderTest::aFileInPlaceOfTheFolderIsRefused()
{
    QFile file(outer());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QVERIFY(!preparePictureFolder());
}

static QStringList namesWithAMeaningOnWindows()
{
    return {"a\\b.png", "a:b.png", "a\nb.png", "\x01", "\x7F", "con", "CON.png", "Nul.tar.gz",
        "aux.png", "aux .png", "prn", "com1.png", "LPT9", QString::fromUtf8("com\u00B9.png"),
        "CONIN$", "conout$.png"};
}

static QStringList plainNames()
{
    return {"a.png", "...", ".hidden", "a b.png", "x.png?v=1", "a%20b.png", "%2e%2e", "console.png",
        "com.png", "com10.png", "lpt", "nulls", QString::fromUtf8("bild-ä.png"),
        QString::fromUtf8("图.png")};
}

static void addNames(const QStringList &names, bool isSafe)
{
    for (const QString &name : names)
        QTest::addRow("'%s'", qPrintable(name.toHtmlEscaped())) << name << isSafe;
}

void PictureFolderTest::namesThatAreNoFileNamesAreUnsafe_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isSafe");
    addNames({"", ".", "..", "a/b.png", QString::fromLatin1("a\0b.png", 7)}, false);
    addNames(plainNames(), true);
    addNames(namesWithAMeaningOnWindows(), !kIsWindows);
}

void PictureFolderTest::namesThatAreNoFileNamesAreUnsafe()
{
    QFETCH(const QString, name);
    QTEST(isSafePictureName(name), "isSafe");
}

void PictureFolderTest::namesThatMeanMoreToWindowsAreUnsafeThere_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isSafe");
    addNames(namesWithAMeaningOnWindows(), false);
    addNames(plainNames(), true);
}

void PictureFolderTest::namesThatMeanMoreToWindowsAreUnsafeThere()
{
    QFETCH(const QString, name);
    QTEST(isSafeWindowsName(name), "isSafe");
}

void PictureFolderTest::aPictureReplacesAnEarlierOne()
{
    QVERIFY(preparePictureFolder());
    writePicture(image() + QLatin1String("/a.png"), "a longer first picture");
    writePicture(image() + QLatin1String("/a.png"), "second");
    QCOMPARE(fileBytes(image() + QLatin1String("/a.png")), QByteArray("second"));
    QCOMPARE(QDir(image()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
        QStringList("a.png"));
}

void PictureFolderTest::aPictureBeingReadKeepsItsContent()
{
    QVERIFY(preparePictureFolder());
    writePicture(image() + QLatin1String("/a.png"), "a longer first picture");
    QFile reader(image() + QLatin1String("/a.png"));
    QVERIFY(reader.open(QIODevice::ReadOnly));
    writePicture(image() + QLatin1String("/a.png"), "second");
    // It was replaced, not written over; Windows does not even allow that.
    QCOMPARE(reader.readAll(), QByteArray("a longer first picture"));
    QCOMPARE(QDir(image()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
        QStringList("a.png"));
}

void PictureFolderTest::aPictureIsWrittenByThePathThroughTheParent()
{
    QVERIFY(preparePictureFolder());
    writePicture(image() + QLatin1String("/../image/a.png"), "bytes");
    QCOMPARE(fileBytes(image() + QLatin1String("/a.png")), QByteArray("bytes"));
}

void PictureFolderTest::whatCannotBeReplacedStays_data()
{
    QTest::addColumn<bool>("isFolder");
    QTest::newRow("a folder of that name") << true;
    QTest::newRow("a file that is not writable") << false;
}

void PictureFolderTest::whatCannotBeReplacedStays()
{
    QFETCH(const bool, isFolder);
    QVERIFY(preparePictureFolder());
    const QString path = image() + QLatin1String("/a.png");
    if (isFolder) {
        QVERIFY(QDir().mkpath(path));
    } else {
        writePicture(path, "first");
        QVERIFY(QFile::setPermissions(path, QFile::ReadOwner));
        if (QFileInfo(path).isWritable())
            QSKIP("Root can write any file");
    }
    writePicture(path, "second");
    QCOMPARE(QFileInfo(path).isDir(), isFolder);
    QCOMPARE(fileBytes(path), isFolder ? QByteArray() : QByteArray("first"));
    QCOMPARE(QDir(image()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
        QStringList("a.png"));
}

void PictureFolderTest::longNamesAreWrittenAsFarAsTheFileSystemTakesThem_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isWritten");
    QTest::newRow("255 bytes") << QString(255, 'x') << true;
    QTest::newRow("256 bytes") << QString(256, 'x') << false;
    QTest::newRow("5000 bytes") << QString(5000, 'x') << false;
    // Windows counts characters.
    QTest::newRow("86 signs of three bytes") << QString(86, QChar(0x56FE)) << kIsWindows;
}

void PictureFolderTest::longNamesAreWrittenAsFarAsTheFileSystemTakesThem()
{
    QFETCH(const QString, name);
    QVERIFY(preparePictureFolder());
    writePicture(image() + QLatin1Char('/') + name, "bytes");
    QTEST(QFile::exists(image() + QLatin1Char('/') + name), "isWritten");
}

void PictureFolderTest::unsafeNamesAreNotWritten()
{
    QVERIFY(preparePictureFolder());
    const QStringList names {"", ".", "..", QString::fromLatin1("a\0b", 3)};
    for (const QString &name : names)
        writePicture(image() + QLatin1String("/../image/") + name, "bytes");
    QVERIFY(QDir(image()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
    QCOMPARE(
        QDir(outer()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList("image"));
}

void PictureFolderTest::onlyFilesOfTheFolderAreRead()
{
    QVERIFY(preparePictureFolder());
    QFile outside(m_temp->filePath(QStringLiteral("outside.png")));
    QVERIFY(outside.open(QIODevice::WriteOnly) && outside.write("outside") == 7);
    outside.close();
    QVERIFY(QDir().mkdir(image() + "/folder.png"));
    writePicture(image() + "/a.png", "bytes");
    QFile picture;
    QVERIFY(openPicture(QStringLiteral("a.png"), &picture));
    QCOMPARE(picture.readAll(), QByteArray("bytes"));
    picture.close();
    for (const char *name : {"missing.png", "folder.png", "..", "", "../../outside.png"})
        QVERIFY2(!openPicture(QString::fromLatin1(name), &picture), name);
}

void PictureFolderTest::theOldestPicturesAreRemoved_data()
{
    QTest::addColumn<int>("maxBytes");
    QTest::addColumn<int>("hoursInUse");
    QTest::addColumn<QStringList>("left");
    const QStringList all {"0", "1", "2", "3", "4"};
    QTest::newRow("room for all") << 50 << 0 << all;
    QTest::newRow("room for three") << 30 << 0 << QStringList(all.mid(0, 3));
    QTest::newRow("room for one and a half") << 15 << 0 << QStringList(all.mid(0, 1));
    QTest::newRow("all in use") << 0 << 10 << all;
    QTest::newRow("two in use") << 0 << 2 << QStringList(all.mid(0, 2));
}

void PictureFolderTest::theOldestPicturesAreRemoved()
{
    QFETCH(const int, maxBytes);
    QFETCH(const int, hoursInUse);
    QVERIFY(preparePictureFolder());
    const QDateTime now = QDateTime::currentDateTime();
    for (int i = 0; i < 5; ++i) { // Each an hour older than the one before.
        const QString path = image() + QLatin1Char('/') + QString::number(i);
        writePicture(path, "ten bytes.");
        QFile file(path);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(now.addSecs(-3600 * i - 60), QFileDevice::FileModificationTime));
    }
    trimPictureFolder(maxBytes, now.addSecs(-3600 * hoursInUse));
    QFETCH(const QStringList, left);
    QCOMPARE(QDir(image()).entryList(QDir::Files), left);
}

void PictureFolderTest::theFolderIsTrimmedWhenItIsFirstUsed()
{
    QCOMPARE(kMaxPictureFolderBytes, qint64(256) * 1024 * 1024);
    QVERIFY(QDir().mkpath(image()));
    QFile old(image() + QLatin1String("/old.png"));
    QVERIFY(old.open(QIODevice::WriteOnly) && old.resize(kMaxPictureFolderBytes + 1));
    QVERIFY(old.setFileTime(
        QDateTime::currentDateTime().addDays(-2), QFileDevice::FileModificationTime));
    old.close();
    QVERIFY(preparePictureFolder());
    QVERIFY(!QFile::exists(old.fileName()));
}

VEMO_TEST_MAIN(PictureFolderTest)
#include "tst_picturefolder.moc"
