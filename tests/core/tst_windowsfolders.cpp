// SPDX-License-Identifier: MIT
// The host's folders as Windows names them.
#include <vemo/imagemanager.h>

#include "support/otherdrive.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/defaulttheme.h>
#include <vemo/uipathmanager.h>

#include <windows.h>

class WindowsFoldersTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void folderMayBeWrittenInAnyWay_data();
    void folderMayBeWrittenInAnyWay();
    void folderMayBeOnAnotherDrive();
    void folderThatCannotBeWrittenIsRefused_data();
    void folderThatCannotBeWrittenIsRefused();
    void temporaryPicturesStayInTheirFolder_data();
    void temporaryPicturesStayInTheirFolder();

private:
    QStringList namesIn(const QString &folder) const;

    QScopedPointer<QTemporaryDir> m_folder;
};

void WindowsFoldersTest::init()
{
    VemoTest::init();
    m_folder.reset(new QTemporaryDir);
}

QStringList WindowsFoldersTest::namesIn(const QString &folder) const
{
    return QDir(folder).entryList(
        QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System);
}

void WindowsFoldersTest::folderMayBeWrittenInAnyWay_data()
{
    QTest::addColumn<QString>("written"); // behind the temporary folder
    QTest::addColumn<QString>("name");
    addRow("slashes", QString("/a/b"), QString("a/b"));
    addRow("backslashes", QString("\\a\\b"), QString("a/b"));
    addRow("both", QString("\\a/b"), QString("a/b"));
    addRow("in other case", QString("/A\\B"), QString("a/b"));
    addRow("a separator at the end", QString("\\a\\"), QString("a"));
    addRow("blanks inside", QString("/My files/Größe 大"), QString("My files/Größe 大"));
    const QString component = '/' + QString(90, 'x');
    addRow("more than 300 characters", component.repeated(4), component.repeated(4).mid(1));
}

void WindowsFoldersTest::folderMayBeWrittenInAnyWay()
{
    QFETCH(const QString, written);
    QFETCH(const QString, name);
    const TestHost host;
    host.addPicture("sign", {64, 64}, Qt::red);
    host.writeCatalogue({}, {"sign"});
    TestHost::registerFolders(host.resourcePath(), m_folder->path() + written);
    ImageManager::getInstance().initialize(ImageManager::LAZY_LOAD);
    const QString picture = m_folder->filePath(name) + "/tmp_images/tmp_sign.png";
    QCOMPARE(QImage(picture).pixelColor(1, 1), QColor(Qt::red));
    QVERIFY(installDefaultTheme(m_folder->path() + written, "enu", ImageManager::LAZY_LOAD));
}

void WindowsFoldersTest::folderMayBeOnAnotherDrive()
{
    const auto drive = folderOnAnotherDrive();
    if (!drive)
        QSKIP("There is no other drive");
    QVERIFY(installDefaultTheme(drive->filePath("data"), "enu", ImageManager::LAZY_LOAD));
    QCOMPARE(namesIn(drive->path()), QStringList("data"));
}

void WindowsFoldersTest::folderThatCannotBeWrittenIsRefused_data()
{
    QTest::addColumn<QString>("folder");
    addRow("no such drive", QString("%2:/data"));
    addRow("below a file", QString("%1\\file\\data"));
    addRow("a device", QString("%1/con"));
    addRow("below a device", QString("%1/aux.png/data"));
    addRow("wildcards", QString("%1/a*b?"));
    addRow("a name of 300 characters", QString("%1/") + QString(300, 'x'));
}

void WindowsFoldersTest::folderThatCannotBeWrittenIsRefused()
{
    QFETCH(QString, folder);
    for (char letter = 'D'; folder.contains("%2") && letter < 'Z'; ++letter) {
        if (!((GetLogicalDrives() >> (letter - 'A')) & 1))
            folder.replace("%2", QString(letter));
    }
    folder.replace("%1", m_folder->path());
    QFile file(m_folder->filePath("file"));
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    QVERIFY(!installDefaultTheme(folder, "enu", ImageManager::LAZY_LOAD));
    const QString shown = folder.replace('\\', "\\\\");
    QCOMPARE(messages.take(), QStringList("Cannot write to user data folder \"" + shown + '"'));
    QCOMPARE(namesIn(m_folder->path()), QStringList("file"));
}

void WindowsFoldersTest::temporaryPicturesStayInTheirFolder_data()
{
    QTest::addColumn<QString>("name");
    addRow("backslashes", QString("\\..\\..\\victim"));
    addRow("a drive", QString("C:\\victim"));
    addRow("a share", QString("\\\\127.0.0.1\\share\\victim"));
    addRow("a stream", QString("victim.png:b"));
    addRow("a device in a folder", QString("x/con"));
    addRow("trailing dots", QString("victim..."));
    addRow("300 characters", QString(300, 'x'));
}

void WindowsFoldersTest::temporaryPicturesStayInTheirFolder()
{
    QFETCH(const QString, name);
    const TestHost host;
    host.writeCatalogue({}, {name});
    const QString user = m_folder->filePath("user");
    QVERIFY(QDir().mkpath(user + "/tmp_images/tmp_x"));
    TestHost::registerFolders(host.resourcePath(), user);
    ImageManager::getInstance().initialize(ImageManager::PRELOAD);
    QCOMPARE(namesIn(m_folder->path()), QStringList("user"));
    QCOMPARE(namesIn(user), QStringList("tmp_images"));
    QCOMPARE(namesIn(user + "/tmp_images/tmp_x"), QStringList());
}

VEMO_TEST_MAIN(WindowsFoldersTest)
#include "tst_windowsfolders.moc"
