// SPDX-License-Identifier: MIT
#include "help/helphost.h"
#include "help/picturefolder_p.h"
#include "support/vemotest.h"

#include <unistd.h>

class tst_picturefolder : public VemoTest
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

private:
    QString outer() const { return m_temp->filePath(QStringLiteral("kestrava_help")); }
    QString image() const { return outer() + QLatin1String("/image"); }

    QScopedPointer<QTemporaryDir> m_temp;
};

static constexpr QFile::Permissions kOwner = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner
    | QFile::ReadUser | QFile::WriteUser | QFile::ExeUser;

void tst_picturefolder::init()
{
    VemoTest::init();
    m_temp.reset(new QTemporaryDir);
    qputenv("TMPDIR", m_temp->path().toLocal8Bit());
}

void tst_picturefolder::cleanup()
{
    m_temp.reset();
    qunsetenv("TMPDIR");
    VemoTest::cleanup();
}

void tst_picturefolder::bothFoldersAreMadePrivate()
{
    QVERIFY(preparePictureFolder());
    QCOMPARE(pictureFolder(), image());
    QCOMPARE(QFileInfo(outer()).permissions(), kOwner);
    QCOMPARE(QFileInfo(image()).permissions(), kOwner);
}

void tst_picturefolder::foldersThatExistAreMadePrivate()
{
    QVERIFY(QDir().mkpath(image()));
    const QFile::Permissions open = kOwner | QFile::ReadOther | QFile::ExeOther | QFile::ReadGroup;
    QVERIFY(QFile::setPermissions(outer(), open) && QFile::setPermissions(image(), open));
    QVERIFY(preparePictureFolder());
    QCOMPARE(QFileInfo(outer()).permissions(), kOwner);
    QCOMPARE(QFileInfo(image()).permissions(), kOwner);
}

void tst_picturefolder::aFolderThatIsALinkIsRefused_data()
{
    QTest::addColumn<QString>("link");
    QTest::newRow("the picture folder") << "kestrava_help/image";
    QTest::newRow("the folder around it") << "kestrava_help";
}

void tst_picturefolder::aFolderThatIsALinkIsRefused()
{
    QFETCH(const QString, link);
    QTemporaryDir elsewhere;
    if (link != QLatin1String("kestrava_help"))
        QVERIFY(QDir().mkpath(outer()));
    QVERIFY(QFile::link(elsewhere.path(), m_temp->filePath(link)));
    QVERIFY(!preparePictureFolder());
    writePicture(pictureFolder() + QLatin1String("/../image/a.png"), "bytes");
    QVERIFY(!QFile::exists(elsewhere.filePath(QStringLiteral("a.png"))));
    QVERIFY(!QFile::exists(elsewhere.filePath(QStringLiteral("image/a.png"))));
}

void tst_picturefolder::aFolderOfSomebodyElseIsRefused_data()
{
    aFolderThatIsALinkIsRefused_data();
}

void tst_picturefolder::aFolderOfSomebodyElseIsRefused()
{
    QFETCH(const QString, link);
    if (geteuid() != 0)
        QSKIP("Only root can give a folder to somebody else");
    QVERIFY(QDir().mkpath(image()));
    QCOMPARE(chown(m_temp->filePath(link).toLocal8Bit(), 65534, 65534), 0);
    QVERIFY(!preparePictureFolder());
    writePicture(image() + QLatin1String("/a.png"), "bytes");
    QVERIFY(!QFile::exists(image() + QLatin1String("/a.png")));
}

void tst_picturefolder::aFileInPlaceOfTheFolderIsRefused()
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

void tst_picturefolder::namesThatAreNoFileNamesAreUnsafe_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isSafe");
    addNames({"", ".", "..", "a/b.png", QString::fromLatin1("a\0b.png", 7)}, false);
    addNames(plainNames() + namesWithAMeaningOnWindows(), true);
}

void tst_picturefolder::namesThatAreNoFileNamesAreUnsafe()
{
    QFETCH(const QString, name);
    QTEST(isSafePictureName(name), "isSafe");
}

void tst_picturefolder::namesThatMeanMoreToWindowsAreUnsafeThere_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isSafe");
    addNames(namesWithAMeaningOnWindows(), false);
    addNames(plainNames(), true);
}

void tst_picturefolder::namesThatMeanMoreToWindowsAreUnsafeThere()
{
    QFETCH(const QString, name);
    QTEST(isSafeWindowsName(name), "isSafe");
}

void tst_picturefolder::aPictureReplacesAnEarlierOne()
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

void tst_picturefolder::aPictureIsWrittenByThePathThroughTheParent()
{
    QVERIFY(preparePictureFolder());
    writePicture(image() + QLatin1String("/../image/a.png"), "bytes");
    QCOMPARE(fileBytes(image() + QLatin1String("/a.png")), QByteArray("bytes"));
}

void tst_picturefolder::nothingIsWrittenThroughALink()
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

void tst_picturefolder::whatCannotBeReplacedStays_data()
{
    QTest::addColumn<bool>("isFolder");
    QTest::newRow("a folder of that name") << true;
    QTest::newRow("a file that is not writable") << false;
}

void tst_picturefolder::whatCannotBeReplacedStays()
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

void tst_picturefolder::longNamesAreWrittenAsFarAsTheFileSystemTakesThem_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isWritten");
    QTest::newRow("255 bytes") << QString(255, 'x') << true;
    QTest::newRow("256 bytes") << QString(256, 'x') << false;
    QTest::newRow("5000 bytes") << QString(5000, 'x') << false;
    QTest::newRow("86 signs of three bytes") << QString(86, QChar(0x56FE)) << false;
}

void tst_picturefolder::longNamesAreWrittenAsFarAsTheFileSystemTakesThem()
{
    QFETCH(const QString, name);
    QVERIFY(preparePictureFolder());
    writePicture(image() + QLatin1Char('/') + name, "bytes");
    QTEST(QFile::exists(image() + QLatin1Char('/') + name), "isWritten");
}

void tst_picturefolder::unsafeNamesAreNotWritten()
{
    QVERIFY(preparePictureFolder());
    const QStringList names {"", ".", "..", QString::fromLatin1("a\0b", 3)};
    for (const QString &name : names)
        writePicture(image() + QLatin1String("/../image/") + name, "bytes");
    QVERIFY(QDir(image()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
    QCOMPARE(
        QDir(outer()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList("image"));
}

VEMO_TEST_MAIN(tst_picturefolder)
#include "tst_picturefolder.moc"
