// SPDX-License-Identifier: MIT
#include <vemo/imagemanager.h>

#include "support/iswindows.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <QDirIterator>
#include <QRegularExpression>

class BadCatalogueTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void aCatalogueThatCannotBeReadIsEmpty_data();
    void aCatalogueThatCannotBeReadIsEmpty();
    void aMissingCatalogueIsEmpty();
    void aFolderInPlaceOfTheCatalogueIsEmpty();
    void missingFoldersAreNoCatalogue();
    void aReadableCatalogueIsRead_data();
    void aReadableCatalogueIsRead();
    void elementsThatAreNoTextReadAsEmptyNames();
    void namesMayBeAnyText_data();
    void namesMayBeAnyText();
    void aNameWithSlashesReadsASubfolder();
    void noNameLeadsOutOfTheTemporaryFolder_data();
    void noNameLeadsOutOfTheTemporaryFolder();
    void anUnwritableUserFolderIsPassedOver_data();
    void anUnwritableUserFolderIsPassedOver();

private:
    void start();
    void expectUnknown(const QString &name);

    QScopedPointer<TestHost> m_host;
};

void BadCatalogueTest::init()
{
    VemoTest::init();
    m_host.reset(new TestHost);
    m_host->addPicture("folder", {64, 64}, Qt::red);
}

void BadCatalogueTest::start()
{
    m_host->start(ImageManager::PRELOAD);
}

void BadCatalogueTest::expectUnknown(const QString &name)
{
    QVERIFY(getGlobalImage(name).isNull());
    QCOMPARE(messages.take(), QStringList("Cannot load pixmap \"" + name + '"'));
}

void BadCatalogueTest::aCatalogueThatCannotBeReadIsEmpty_data()
{
    QTest::addColumn<QByteArray>("text");
    addRow("empty", QByteArray());
    addRow("truncated", QByteArray("{\"images\": [\"unread\""));
    addRow("cut inside a name", QByteArray("{\"images\": [\"unre"));
    addRow("an array", QByteArray("[\"unread\"]"));
    addRow("a text", QByteArray("\"unread\""));
    addRow("not JSON", QByteArray("images = unread"));
    addRow("followed by something", QByteArray("{\"images\": [\"unread\"]} x"));
    addRow("followed by a NUL", QByteArray("{\"images\": [\"unread\"]}\0", 23));
    addRow("binary", QByteArray("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16));
    addRow("images is a text", QByteArray("{\"images\": \"unread\"}"));
    addRow("images is an object", QByteArray("{\"images\": {\"unread\": 1}}"));
    addRow("images is null", QByteArray("{\"images\": null, \"tmp_images\": null}"));
    addRow("images is a number", QByteArray("{\"images\": 7, \"tmp_images\": true}"));
    addRow("another key", QByteArray("{\"Images\": [\"unread\"]}"));
    addRow("nested without end", QByteArray(1000000, '['));
    addRow("UTF-16", QByteArray("\xff\xfe{\0}\0", 6));
}

void BadCatalogueTest::aCatalogueThatCannotBeReadIsEmpty()
{
    QFETCH(QByteArray, text);
    m_host->addPicture("unread", {64, 64}, Qt::red);
    m_host->writeFile("images.json", text);
    start();
    expectUnknown("unread");
}

void BadCatalogueTest::aMissingCatalogueIsEmpty()
{
    start();
    expectUnknown("unread");
}

void BadCatalogueTest::aFolderInPlaceOfTheCatalogueIsEmpty()
{
    QVERIFY(QDir(m_host->resourcePath()).mkdir("images.json"));
    start();
    expectUnknown("unread");
}

void BadCatalogueTest::missingFoldersAreNoCatalogue()
{
    TestHost::registerFolders(m_host->resourcePath() + "/missing", m_host->userDataPath());
    ImageManager::getInstance().initialize(ImageManager::PRELOAD);
    expectUnknown("unread");
    QCOMPARE(
        ImageManager::getInstance().getImageFolder(), m_host->resourcePath() + "/missing/images");
}

void BadCatalogueTest::aReadableCatalogueIsRead_data()
{
    QTest::addColumn<QByteArray>("text");
    addRow("plain", QByteArray("{\"images\": [\"folder\"]}"));
    addRow("a byte order mark", QByteArray("\xef\xbb\xbf{\"images\": [\"folder\"]}"));
    addRow("carriage returns", QByteArray("{\r\n\"images\": [\r\n\"folder\"\r\n]}\r\n"));
    addRow("a name that is no UTF-8", QByteArray("{\"images\": [\"\xff\", \"folder\"]}"));
    addRow("other types between", QByteArray("{\"images\": [1, [\"x\"], \"folder\", {}]}"));
    addRow("the other key is wrong", QByteArray("{\"tmp_images\": 3, \"images\": [\"folder\"]}"));
    addRow("more keys", QByteArray("{\"x\": {\"images\": []}, \"images\": [\"folder\"]}"));
}

void BadCatalogueTest::aReadableCatalogueIsRead()
{
    QFETCH(QByteArray, text);
    m_host->writeFile("images.json", text);
    start();
    QVERIFY(!getGlobalImage("folder").isNull());
}

void BadCatalogueTest::elementsThatAreNoTextReadAsEmptyNames()
{
    m_host->addPicture("_hover", {64, 64}, Qt::blue);
    m_host->writeFile("images.json", "{\"images\": [1], \"tmp_images\": [null]}");
    start();
    QVERIFY(!getGlobalImage("", ImageManager::HOVER).isNull());
    QCOMPARE(QDir(m_host->tempPictureFolder()).entryList(QDir::Files), QStringList("tmp_.png"));
}

void BadCatalogueTest::namesMayBeAnyText_data()
{
    QTest::addColumn<QString>("name");
    addRow("German", QString::fromUtf8("Größe"));
    addRow("Chinese", QString::fromUtf8("文件夹"));
    addRow("right to left", QString::fromUtf8("مجلد"));
    addRow("beyond the basic plane", QString::fromUtf8("😀"));
    addRow("blanks", " a  b ");
    addRow("a line break", "a\nb");
    addRow("quotes", "a\"b\\c");
    addRow("percent signs", "%1%20");
    addRow("at twice the size", "icon@2x");
}

void BadCatalogueTest::namesMayBeAnyText()
{
    QFETCH(QString, name);
    if (kIsWindows && name.contains(QRegularExpression("[\\n\"\\\\]")))
        QSKIP("Windows has no such file names");
    m_host->addPicture(name, {64, 64}, Qt::blue);
    m_host->writeCatalogue({name}, {name});
    start();
    const QPixmap picture = getGlobalImage(name);
    QCOMPARE(picture.toImage().pixelColor(1, 1), QColor(Qt::blue));
    QVERIFY(
        QFile::exists(QString(m_host->tempPictureFolder() + "/tmp_%1.png").arg(name.remove(' '))));
}

void BadCatalogueTest::aNameWithSlashesReadsASubfolder()
{
    QVERIFY(QDir(m_host->pictureFolder()).mkdir("sub"));
    m_host->addPicture("sub/icon", {64, 64}, Qt::blue);
    m_host->writeCatalogue({"sub/icon", "../images/folder"}, {"sub/icon"});
    start();
    QVERIFY(!getGlobalImage("sub/icon").isNull());
    QVERIFY(!getGlobalImage("../images/folder").isNull());
    // The folder "tmp_sub" does not exist, so nothing is written and no warning logged.
    QVERIFY(QDir(m_host->tempPictureFolder()).isEmpty());
}

void BadCatalogueTest::noNameLeadsOutOfTheTemporaryFolder_data()
{
    QTest::addColumn<QString>("name");
    for (const char *name :
        {"..", "../out", "/../out", "/../../out", "/../../../out", "/./../../out", "x/../../out",
            "//..//..//out", "/../../tmp_images_out", "\\..\\..\\out"})
        addRow(name, name);
    addRow("NUL", QString("/../../out") + QChar(0));
    addRow("an absolute path", QDir::tempPath() + "/vemo_out");
}

void BadCatalogueTest::noNameLeadsOutOfTheTemporaryFolder()
{
    QFETCH(QString, name);
    const QString base = m_host->userDataPath() + "/base";
    // Folders through which the hostile paths could lead.
    for (const char *folder : {"tmp_", "tmp_..", "tmp_x"})
        QVERIFY(QDir().mkpath(base + "/data/tmp_images/" + folder));
    m_host->writeCatalogue({}, {name});
    TestHost::registerFolders(m_host->resourcePath(), base + "/data");
    ImageManager::getInstance().initialize(ImageManager::PRELOAD);
    QDirIterator files(m_host->userDataPath(), QDir::Files, QDirIterator::Subdirectories);
    while (files.hasNext())
        QVERIFY2(files.next().startsWith(base + "/data/tmp_images/"), qPrintable(files.filePath()));
    QVERIFY(!QFile::exists(QDir::tempPath() + "/vemo_out.png"));
}

void BadCatalogueTest::anUnwritableUserFolderIsPassedOver_data()
{
    QTest::addColumn<QString>("file");
    addRow("a file in its place", "base/data");
    addRow("a file in place of its parent", "base");
    addRow("a file in place of the temporary folder", "base/data/tmp_images");
    addRow("a folder in place of the picture", "");
}

void BadCatalogueTest::anUnwritableUserFolderIsPassedOver()
{
    QFETCH(QString, file);
    const QString userData = m_host->userDataPath() + "/base/data";
    if (file.isEmpty()) {
        QVERIFY(QDir().mkpath(userData + "/tmp_images/tmp_folder.png"));
    } else {
        QFile obstacle(m_host->userDataPath() + '/' + file);
        QVERIFY(QDir().mkpath(QFileInfo(obstacle).path()));
        QVERIFY(obstacle.open(QIODevice::WriteOnly));
    }
    m_host->writeCatalogue({"folder"}, {"folder"});
    TestHost::registerFolders(m_host->resourcePath(), userData);
    ImageManager::getInstance().initialize(ImageManager::PRELOAD);
    QVERIFY(!getGlobalImage("folder").isNull());
    QVERIFY(!QFileInfo(userData + "/tmp_images/tmp_folder.png").isFile());
    QCOMPARE(ImageManager::getInstance().getTempImageFolder(), userData + "/tmp_images");
}

VEMO_TEST_MAIN(BadCatalogueTest)
#include "tst_badcatalogue.moc"
