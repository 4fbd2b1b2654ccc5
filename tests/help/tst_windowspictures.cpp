// SPDX-License-Identifier: MIT
// Downloaded pictures: names that mean more to Windows than to Unix, and its drives.
#include "help/helphost.h"
#include "help/picturefolder_p.h"
#include "support/otherdrive.h"
#include "support/temporaryfolder.h"
#include "support/vemotest.h"

#include <QDirIterator>

namespace {

QStringList everythingIn(const QString &folder)
{
    QStringList names;
    const QDir::Filters all = QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden | QDir::System;
    QDirIterator entries(folder, all, QDirIterator::Subdirectories);
    while (entries.hasNext())
        names += entries.next().mid(folder.size() + 1);
    names.sort();
    return names;
}

} // namespace

class WindowsPicturesTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void namesThatMeanMoreAreNeitherWrittenNorRead_data();
    void namesThatMeanMoreAreNeitherWrittenNorRead();
    void whatWindowsIgnoresLeadsNowhereElse_data();
    void whatWindowsIgnoresLeadsNowhereElse();
    void folderMayBeOnAnotherDrive();

private:
    QScopedPointer<QTemporaryDir> m_temp;
    QByteArray m_outer;
};

void WindowsPicturesTest::init()
{
    VemoTest::init();
    m_outer = qgetenv(kTemporaryFolderVariable);
    m_temp.reset(new QTemporaryDir);
    qputenv(kTemporaryFolderVariable, m_temp->path().toLocal8Bit());
    QFile file(m_temp->filePath("victim.png"));
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("kept") == 4);
}

void WindowsPicturesTest::cleanup()
{
    qputenv(kTemporaryFolderVariable, m_outer);
    m_temp.reset();
    VemoTest::cleanup();
}

void WindowsPicturesTest::namesThatMeanMoreAreNeitherWrittenNorRead_data()
{
    QTest::addColumn<QString>("name");
    addRow("backslashes", QString("..\\..\\victim.png"));
    addRow("a folder", QString("a\\b.png"));
    addRow("a path with a drive", QString("%1\\victim.png"));
    addRow("a drive's own folder", QString("C:victim.png"));
    addRow("a share", QString("\\\\127.0.0.1\\share\\victim.png"));
    addRow("a stream", QString("a.png:b"));
    addRow("a stream by its kind", QString("a.png::$DATA"));
    addRow("a device", QString("con"));
    addRow("a device with an extension", QString("aux.png"));
    addRow("a port", QString("COM1.png"));
    addRow("300 characters", QString(300, 'x'));
}

void WindowsPicturesTest::namesThatMeanMoreAreNeitherWrittenNorRead()
{
    QFETCH(QString, name);
    name.replace("%1", QDir::toNativeSeparators(m_temp->path()));
    QVERIFY(preparePictureFolder());
    writePicture(pictureFolder() + "/a.png", "kept");
    const QStringList before = everythingIn(m_temp->path());
    writePicture(pictureFolder() + '/' + name, "bytes");
    QCOMPARE(everythingIn(m_temp->path()), before);
    for (const QString &path : {m_temp->filePath("victim.png"), pictureFolder() + "/a.png"})
        QCOMPARE(fileBytes(path), QByteArray("kept"));
    QFile picture;
    QVERIFY(!openPicture(name, &picture));
}

void WindowsPicturesTest::whatWindowsIgnoresLeadsNowhereElse_data()
{
    QTest::addColumn<QString>("name");
    addRow("trailing dot", QString("b.png."));
    addRow("trailing blank", QString("b.png "));
    addRow("both", QString("b.png. . "));
    addRow("dots", QString("..."));
    addRow("dots and a blank", QString(".. "));
}

void WindowsPicturesTest::whatWindowsIgnoresLeadsNowhereElse()
{
    QFETCH(const QString, name);
    QVERIFY(preparePictureFolder());
    writePicture(pictureFolder() + '/' + name, "bytes");
    const QStringList outside =
        everythingIn(m_temp->path()).filter(QRegularExpression("^(?!kestrava_help/image/)"));
    QCOMPARE(outside, QStringList({"kestrava_help", "kestrava_help/image", "victim.png"}));
    QCOMPARE(fileBytes(m_temp->filePath("victim.png")), QByteArray("kept"));
}

void WindowsPicturesTest::folderMayBeOnAnotherDrive()
{
    const auto drive = folderOnAnotherDrive();
    if (!drive)
        QSKIP("There is no other drive");
    qputenv(kTemporaryFolderVariable, drive->path().toLocal8Bit());
    QVERIFY(preparePictureFolder());
    writePicture(pictureFolder() + "/a.png", "bytes");
    QCOMPARE(fileBytes(drive->filePath("kestrava_help/image/a.png")), QByteArray("bytes"));
    QFile picture;
    QVERIFY(openPicture("a.png", &picture));
}

VEMO_TEST_MAIN(WindowsPicturesTest)
#include "tst_windowspictures.moc"
