// SPDX-License-Identifier: MIT
#include "help/helphost.h"
#include "help/picturefolder_p.h"
#include "support/vemotest.h"

#include <sys/stat.h>
#include <unistd.h>

class PictureFolderTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void bothFoldersAreMadePrivate();
    void foldersThatExistAreMadePrivate();
    void aFolderThatIsALinkIsRefused_data();
    void aFolderThatIsALinkIsRefused();
    void aFolderOfSomebodyElseIsRefused_data();
    void aFolderOfSomebodyElseIsRefused();
    void aFileInPlaceOfTheFolderIsRefused();

    void namesThatAreNoFileNamesAreUnsafe_data();
    void namesThatAreNoFileNamesAreUnsafe();
    void namesThatMeanMoreToWindowsAreUnsafeThere_data();
    void namesThatMeanMoreToWindowsAreUnsafeThere();

    void aPictureReplacesAnEarlierOne();
    void aPictureIsWrittenByThePathThroughTheParent();
    void nothingIsWrittenThroughALink();
    void whatCannotBeReplacedStays_data();
    void whatCannotBeReplacedStays();
    void longNamesAreWrittenAsFarAsTheFileSystemTakesThem_data();
    void longNamesAreWrittenAsFarAsTheFileSystemTakesThem();
    void unsafeNamesAreNotWritten();
    void onlyPlainFilesAreRead();
    void theOldestPicturesAreRemoved_data();
    void theOldestPicturesAreRemoved();
    void theFolderIsTrimmedWhenItIsFirstUsed();

private:
    QString outer() const { return m_temp->filePath(QStringLiteral("kestrava_help")); }
    QString image() const { return outer() + QLatin1String("/image"); }

    QScopedPointer<QTemporaryDir> m_temp;
};

static constexpr QFile::Permissions kOwner = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner
    | QFile::ReadUser | QFile::WriteUser | QFile::ExeUser;

void PictureFolderTest::init()
{
    VemoTest::init();
    m_temp.reset(new QTemporaryDir);
    qputenv("TMPDIR", m_temp->path().toLocal8Bit());
}

void PictureFolderTest::cleanup()
{
    m_temp.reset();
    qunsetenv("TMPDIR");
    VemoTest::cleanup();
}

void PictureFolderTest::bothFoldersAreMadePrivate()
{
    QVERIFY(preparePictureFolder());
    QCOMPARE(pictureFolder(), image());
    QCOMPARE(QFileInfo(outer()).permissions(), kOwner);
    QCOMPARE(QFileInfo(image()).permissions(), kOwner);
}

void PictureFolderTest::foldersThatExistAreMadePrivate()
{
    QVERIFY(QDir().mkpath(image()));
    const QFile::Permissions open = kOwner | QFile::ReadOther | QFile::ExeOther | QFile::ReadGroup;
    QVERIFY(QFile::setPermissions(outer(), open) && QFile::setPermissions(image(), open));
    QVERIFY(preparePictureFolder());
    QCOMPARE(QFileInfo(outer()).permissions(), kOwner);
    QCOMPARE(QFileInfo(image()).permissions(), kOwner);
}

void PictureFolderTest::aFolderThatIsALinkIsRefused_data()
{
    QTest::addColumn<QString>("link");
    QTest::newRow("the picture folder") << "kestrava_help/image";
    QTest::newRow("the folder around it") << "kestrava_help";
}

void PictureFolderTest::aFolderThatIsALinkIsRefused()
{
    QFETCH(const QString, link);
    QTemporaryDir elsewhere;
    if (link != QLatin1String("kestrava_help"))
        QVERIFY(QDir().mkpath(outer()));
    QVERIFY(QFile::link(elsewhere.path(), m_temp->filePath(link)));
    QVERIFY(!preparePictureFolder());
    writePicture(pictureFolder() + QLatin1String("/../image/a.png"), "bytes");
    QVERIFY(!QFile::exists(elsewhere.filePath(QStringLiteral("a.png"))));
    QVERIFY(QDir(elsewhere.path()).isEmpty()); // Nothing was made, either.
    QFile picture;
    QVERIFY(!openPicture(QStringLiteral("a.png"), &picture));
}

void PictureFolderTest::aFolderOfSomebodyElseIsRefused_data()
{
    aFolderThatIsALinkIsRefused_data();
}

void PictureFolderTest::aFolderOfSomebodyElseIsRefused()
{
    QFETCH(const QString, link);
    if (geteuid() != 0)
        QSKIP("Only root can give a folder to somebody else");
    QVERIFY(QDir().mkpath(image()));
    QCOMPARE(chown(m_temp->filePath(link).toLocal8Bit(), 65534, 65534), 0);
    QVERIFY(!preparePictureFolder());
    writePicture(image() + QLatin1String("/a.png"), "bytes");
    QVERIFY(!QFile::exists(image() + QLatin1String("/a.png")));
    QFile file(image() + QLatin1String("/b.png"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QFile picture;
    QVERIFY(!openPicture(QStringLiteral("b.png"), &picture));
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
    addNames(plainNames() + namesWithAMeaningOnWindows(), true);
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
    QFile reader(image() + QLatin1String("/a.png"));
    QVERIFY(reader.open(QIODevice::ReadOnly));
    writePicture(image() + QLatin1String("/a.png"), "second");
    QCOMPARE(fileBytes(image() + QLatin1String("/a.png")), QByteArray("second"));
    // Whoever was reading still has the whole first one: it was replaced, not written over.
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

void PictureFolderTest::nothingIsWrittenThroughALink()
{
    QVERIFY(preparePictureFolder());
    const QString victim = m_temp->filePath(QStringLiteral("victim"));
    QFile file(victim);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("precious") == 8);
    file.close();
    QVERIFY(QFile::link(victim, image() + QLatin1String("/a.png")));
    writePicture(image() + QLatin1String("/a.png"), "bytes");
    QCOMPARE(fileBytes(victim), QByteArray("precious"));
    QVERIFY(!QFileInfo(image() + QLatin1String("/a.png")).isSymLink());
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
    if (!isFolder && geteuid() == 0)
        QSKIP("Root can write any file");
    QVERIFY(preparePictureFolder());
    const QString path = image() + QLatin1String("/a.png");
    if (isFolder) {
        QVERIFY(QDir().mkpath(path));
    } else {
        writePicture(path, "first");
        QVERIFY(QFile::setPermissions(path, QFile::ReadOwner));
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
    QTest::newRow("86 signs of three bytes") << QString(86, QChar(0x56FE)) << false;
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

void PictureFolderTest::onlyPlainFilesAreRead()
{
    QVERIFY(preparePictureFolder());
    const QString outside = m_temp->filePath(QStringLiteral("outside.png"));
    QFile file(outside);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("outside") == 7);
    file.close();
    QVERIFY(QFile::link(outside, image() + "/link.png"));
    QVERIFY(QDir().mkdir(image() + "/folder.png"));
    QCOMPARE(mkfifo((image() + "/pipe.png").toLocal8Bit(), S_IRWXU), 0);
    writePicture(image() + "/a.png", "bytes");
    QFile picture;
    QVERIFY(openPicture(QStringLiteral("a.png"), &picture));
    QCOMPARE(picture.readAll(), QByteArray("bytes"));
    picture.close();
    for (const char *name :
        {"missing.png", "link.png", "folder.png", "pipe.png", "..", "", "../../outside.png"})
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
