// SPDX-License-Identifier: MIT
#include "help/helphost.h"
#include "help/picturefolder_p.h"
#include "support/vemotest.h"

#include <sys/stat.h>
#include <unistd.h>

/// Who may use the folder: its modes, owners and links.
class PictureFolderOwnerTest : public VemoTest
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
    void nothingIsWrittenThroughALink();
    void linksAndPipesAreNotRead();

private:
    QString outer() const { return m_temp->filePath(QStringLiteral("kestrava_help")); }
    QString image() const { return outer() + QLatin1String("/image"); }

    QScopedPointer<QTemporaryDir> m_temp;
};

static constexpr QFile::Permissions kOwner = QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner
    | QFile::ReadUser | QFile::WriteUser | QFile::ExeUser;

void PictureFolderOwnerTest::init()
{
    VemoTest::init();
    m_temp.reset(new QTemporaryDir);
    qputenv("TMPDIR", m_temp->path().toLocal8Bit());
}

void PictureFolderOwnerTest::cleanup()
{
    m_temp.reset();
    qunsetenv("TMPDIR");
    VemoTest::cleanup();
}

void PictureFolderOwnerTest::bothFoldersAreMadePrivate()
{
    QVERIFY(preparePictureFolder());
    QCOMPARE(pictureFolder(), image());
    QCOMPARE(QFileInfo(outer()).permissions(), kOwner);
    QCOMPARE(QFileInfo(image()).permissions(), kOwner);
}

void PictureFolderOwnerTest::foldersThatExistAreMadePrivate()
{
    QVERIFY(QDir().mkpath(image()));
    const QFile::Permissions open = kOwner | QFile::ReadOther | QFile::ExeOther | QFile::ReadGroup;
    QVERIFY(QFile::setPermissions(outer(), open) && QFile::setPermissions(image(), open));
    QVERIFY(preparePictureFolder());
    QCOMPARE(QFileInfo(outer()).permissions(), kOwner);
    QCOMPARE(QFileInfo(image()).permissions(), kOwner);
}

void PictureFolderOwnerTest::aFolderThatIsALinkIsRefused_data()
{
    QTest::addColumn<QString>("link");
    QTest::newRow("the picture folder") << "kestrava_help/image";
    QTest::newRow("the folder around it") << "kestrava_help";
}

void PictureFolderOwnerTest::aFolderThatIsALinkIsRefused()
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

void PictureFolderOwnerTest::aFolderOfSomebodyElseIsRefused_data()
{
    aFolderThatIsALinkIsRefused_data();
}

void PictureFolderOwnerTest::aFolderOfSomebodyElseIsRefused()
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

void PictureFolderOwnerTest::nothingIsWrittenThroughALink()
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

void PictureFolderOwnerTest::linksAndPipesAreNotRead()
{
    QVERIFY(preparePictureFolder());
    const QString outside = m_temp->filePath(QStringLiteral("outside.png"));
    QFile file(outside);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("outside") == 7);
    file.close();
    QVERIFY(QFile::link(outside, image() + "/link.png"));
    QCOMPARE(mkfifo((image() + "/pipe.png").toLocal8Bit(), S_IRWXU), 0);
    QFile picture;
    for (const char *name : {"link.png", "pipe.png"})
        QVERIFY2(!openPicture(QString::fromLatin1(name), &picture), name);
}

VEMO_TEST_MAIN(PictureFolderOwnerTest)
#include "tst_picturefolderowner.moc"
