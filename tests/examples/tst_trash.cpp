// SPDX-License-Identifier: MIT
#include "childworld.h"
#include "diskfolder.h"
#include "examples/filebrowser/files/fileoperations.h"
#include "examples/filebrowser/files/nativename.h"

#include "support/vemotest.h"

#include <QFileInfo>

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

bool makeFile(const QByteArray &path)
{
    const int file = open(path.constData(), O_WRONLY | O_CREAT, 0644);
    close(file);
    return file >= 0;
}

bool exists(const QByteArray &path)
{
    struct stat status = {};
    return lstat(path.constData(), &status) == 0;
}

/// On another file system the trash lies at its top.
int trashAtTheTop()
{
    const QByteArray top = ChildWorld::folder();
    const QByteArray trashed = top + "/.Trash-0/files/a";
    mkdir((top + "/sub").constData(), 0755);
    if (!makeFile(top + "/sub/a") || !moveToTrash(top + "/sub/a").done)
        return 1;
    QFile record(top + "/.Trash-0/info/a.trashinfo");
    const bool namesItsPlace =
        record.open(QIODevice::ReadOnly) && record.readAll().contains("\nPath=sub/a\n");
    return exists(trashed) && !exists(top + "/sub/a") && namesItsPlace ? 0 : 1;
}

/// A trash for all users is used where there is one, but not one that just anybody could have made.
int trashOfAllUsers()
{
    const QByteArray top = ChildWorld::folder();
    mkdir((top + "/.Trash").constData(), 0755);
    if (!makeFile(top + "/a") || !moveToTrash(top + "/a").done
        || !exists(top + "/.Trash-0/files/a"))
        return 1;
    chmod((top + "/.Trash").constData(), 01777);
    if (!makeFile(top + "/b") || !moveToTrash(top + "/b").done)
        return 2;
    return exists(top + "/.Trash/0/files/b") ? 0 : 3;
}

/// Nobody may make a trash at the top, and a copy elsewhere would be no move.
int noTrashAtAll()
{
    const QByteArray top = ChildWorld::folder();
    mkdir((top + "/own").constData(), 0777);
    if (!makeFile(top + "/own/a") || chmod((top + "/own").constData(), 0777) != 0
        || !ChildWorld::becomeNobody())
        return ChildWorld::kCannot;
    const FileResult result = moveToTrash(top + "/own/a");
    return !result.done && result.reason == systemReason(EXDEV) && exists(top + "/own/a") ? 0 : 1;
}

/// A link in the trash's place could lead the entries anywhere.
int foreignTrash()
{
    const QByteArray top = ChildWorld::folder();
    mkdir((top + "/elsewhere").constData(), 0777);
    symlink("elsewhere", (top + "/.Trash-0").constData());
    if (!makeFile(top + "/a"))
        return 2;
    return !moveToTrash(top + "/a").done && exists(top + "/a") ? 0 : 1;
}

/// A folder of the home's own file system that is mounted a second time: it has the same number,
/// but nothing can be moved out of it.
int trashOfABindMount()
{
    const QByteArray top = ChildWorld::folder();
    for (const char *name : {"/data", "/dir", "/bound"})
        mkdir((top + name).constData(), 0755);
    qputenv("XDG_DATA_HOME", top + "/data");
    const QByteArray bound = top + "/bound";
    if (mount((top + "/dir").constData(), bound.constData(), nullptr, MS_BIND, nullptr) != 0)
        return ChildWorld::kCannot;
    mkdir((bound + "/sub").constData(), 0755);
    if (!makeFile(bound + "/sub/a") || !moveToTrash(bound + "/sub/a").done)
        return 1;
    const bool isRecordGone = !exists(top + "/data/Trash/info/a.trashinfo");
    return exists(bound + "/.Trash-0/files/a") && isRecordGone ? 0 : 2;
}

int onAnotherFileSystem(const QString &scenario)
{
    if (!ChildWorld::mountMemory(ChildWorld::folder(), "size=1m,mode=755"))
        return ChildWorld::kCannot;
    if (scenario == "trash of a bind mount")
        return trashOfABindMount();
    if (scenario == "trash at the top")
        return trashAtTheTop();
    if (scenario == "trash of all users")
        return trashOfAllUsers();
    return scenario == "no trash" ? noTrashAtAll() : foreignTrash();
}

} // namespace

class TrashTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void anEntryMovesToTheTrash_data();
    void anEntryMovesToTheTrash();
    void theRecordNamesItsFormerPlace();
    void everyNameGetsIntoTheTrash_data();
    void everyNameGetsIntoTheTrash();
    void theSameNameTwiceKeepsBoth();
    void theLongestNameTwiceKeepsBoth();
    void aSlashAtTheEndMeansTheFolder();
    void whatHasVanishedCannotGoToTheTrash();
    void theTrashDoesNotTakeItself();
    void anUnusableTrashTakesNothing();
    void anotherFileSystemHasItsOwnTrash_data();
    void anotherFileSystemHasItsOwnTrash();

private:
    QScopedPointer<DiskFolder> m_home;
};

void TrashTest::initTestCase()
{
    // Nothing of this may end up in the real one.
    qputenv("XDG_DATA_HOME", "/nonexistent");
}

void TrashTest::init()
{
    VemoTest::init();
    m_home.reset(new DiskFolder);
    qputenv("XDG_DATA_HOME", m_home->path().toUtf8());
}

void TrashTest::anEntryMovesToTheTrash_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<DiskFolder::Contents>("inTrash");
    using Contents = DiskFolder::Contents;
    QTest::newRow("file") << "file" << Contents {{"file", "content"}};
    QTest::newRow("folder") << "folder" << Contents {{"folder/", {}}, {"folder/file", "inner"}};
    QTest::newRow("link") << "link" << Contents {{"link", "-> file"}};
    QTest::newRow("link to a folder") << "folder link" << Contents {{"folder link", "-> folder"}};
    QTest::newRow("link to nowhere") << "dangling" << Contents {{"dangling", "-> nowhere"}};
    QTest::newRow("link to itself") << "loop" << Contents {{"loop", "-> loop"}};
    QTest::newRow("link to another disk") << "far" << Contents {{"far", "-> /proc"}};
}

void TrashTest::anEntryMovesToTheTrash()
{
    QFETCH(QString, name);
    QFETCH(DiskFolder::Contents, inTrash);
    const DiskFolder folder;
    folder.write("file", "content");
    folder.makeFolder("folder");
    folder.write("folder/file", "inner");
    folder.link("link", "file");
    folder.link("folder link", "folder");
    folder.link("dangling", "nowhere");
    folder.link("loop", "loop");
    folder.link("far", "/proc");
    DiskFolder::Contents left = folder.contents();
    for (const QByteArray &path : inTrash.keys())
        left.remove(path);

    const FileResult result = moveToTrash(folder.path() + '/' + name);
    QVERIFY2(result.done, qPrintable(result.reason));
    QCOMPARE(result.path, m_home->path() + "/Trash/files/" + name);
    COMPARE_CONTENTS(folder.contents(), (left));
    COMPARE_CONTENTS(m_home->contentsOfTrash(), (inTrash));
}

void TrashTest::theRecordNamesItsFormerPlace()
{
    const DiskFolder folder;
    folder.write("50% \xC3\xA4.txt", "");
    QVERIFY(moveToTrash(folder.path() + QString::fromUtf8("/50% \xC3\xA4.txt")).done);
    const QByteArray record = m_home->contents().value("Trash/info/50% \xC3\xA4.txt.trashinfo");
    const QByteArrayList lines = record.split('\n');
    QCOMPARE(lines.size(), 4);
    QCOMPARE(lines.at(0), QByteArray("[Trash Info]"));
    QCOMPARE(lines.at(1), "Path=" + folder.native("50%25%20%C3%A4.txt"));
    QVERIFY(lines.at(2).startsWith("DeletionDate="));
    const QDateTime time = QDateTime::fromString(lines.at(2).mid(13), Qt::ISODate);
    QVERIFY(qAbs(time.secsTo(QDateTime::currentDateTime())) < 3600);
}

void TrashTest::everyNameGetsIntoTheTrash_data()
{
    QTest::addColumn<QByteArray>("name");
    QByteArray low, high;
    for (int c = 1; c < 256; ++c)
        (c < 128 ? low : high) += c == '/' ? QByteArray() : QByteArray(1, char(c));
    QTest::newRow("all ASCII") << low;
    QTest::newRow("all other bytes") << high;
    QTest::newRow("a line break") << QByteArray("a\nPath=etc");
    QTest::newRow("a dash") << QByteArray("-rf");
    QTest::newRow("percent signs") << QByteArray("%1%2%s%n");
    QTest::newRow("markup") << QByteArray("<b>&amp;");
}

void TrashTest::everyNameGetsIntoTheTrash()
{
    QFETCH(QByteArray, name);
    const DiskFolder folder;
    folder.write(name, "content");
    QVERIFY(moveToTrash(folder.path() + '/' + fromNativeName(name)).done);
    QVERIFY(folder.contents().isEmpty());
    COMPARE_CONTENTS(m_home->contentsOfTrash(), ({{name, "content"}}));
}

void TrashTest::theSameNameTwiceKeepsBoth()
{
    const DiskFolder folder;
    for (const char *content : {"one", "two", "three"}) {
        folder.write("a.txt", content);
        QVERIFY(moveToTrash(folder.path("a.txt")).done);
    }
    COMPARE_CONTENTS(
        m_home->contentsOfTrash(), ({{"a.txt", "one"}, {"a.txt-2", "two"}, {"a.txt-3", "three"}}));
}

void TrashTest::theLongestNameTwiceKeepsBoth()
{
    const DiskFolder folder;
    const QByteArray name = "x" + QByteArray("\xC3\xA4").repeated(127);
    QCOMPARE(name.size(), 255);
    for (const char *content : {"one", "two"}) {
        folder.write(name, content);
        const FileResult result = moveToTrash(folder.path() + '/' + QString::fromUtf8(name));
        QVERIFY2(result.done, qPrintable(result.reason));
    }
    COMPARE_CONTENTS(
        m_home->contentsOfTrash(), ({{name.left(243) + "-2", "two"}, {name.left(245), "one"}}));
}

void TrashTest::aSlashAtTheEndMeansTheFolder()
{
    const DiskFolder folder;
    folder.makeFolder("sub");
    QVERIFY(moveToTrash(folder.path("sub") + "//").done);
    COMPARE_CONTENTS(m_home->contentsOfTrash(), ({{"sub/", {}}}));
}

void TrashTest::whatHasVanishedCannotGoToTheTrash()
{
    const DiskFolder folder;
    QCOMPARE(moveToTrash(folder.path("gone")).reason, systemReason(ENOENT));
    QCOMPARE(moveToTrash(folder.path("gone/a")).reason, systemReason(ENOENT));
    QCOMPARE(moveToTrash(QString()).reason, systemReason(ENOENT));
    QVERIFY(m_home->contentsOfTrash().isEmpty());
}

void TrashTest::theTrashDoesNotTakeItself()
{
    m_home->write("a", "content");
    QVERIFY(moveToTrash(m_home->path("a")).done);
    const DiskFolder::Contents before = m_home->contents();
    for (const QString &path : {m_home->path(), m_home->path("Trash"), m_home->path("Trash/files")})
        QVERIFY(!moveToTrash(path).done);
    COMPARE_CONTENTS(m_home->contents(), (before));
}

void TrashTest::anUnusableTrashTakesNothing()
{
    const DiskFolder folder;
    folder.write("a", "content");
    m_home->makeFolder("Trash");
    m_home->write("Trash/info", "no folder");
    QVERIFY(!moveToTrash(folder.path("a")).done);
    COMPARE_CONTENTS(folder.contents(), ({{"a", "content"}}));
}

void TrashTest::anotherFileSystemHasItsOwnTrash_data()
{
    QTest::addColumn<QString>("scenario");
    for (const char *scenario : {"trash at the top", "trash of a bind mount", "trash of all users",
             "no trash", "foreign trash"})
        QTest::newRow(scenario) << scenario;
}

void TrashTest::anotherFileSystemHasItsOwnTrash()
{
    QFETCH(QString, scenario);
    const DiskFolder top;
    const ChildResult result = runChild(scenario, {ChildWorld::variableFor(top.path())});
    QCOMPARE(result.status, QProcess::NormalExit);
    if (result.exitCode == ChildWorld::kCannot)
        QSKIP("No file system may be mounted here");
    QCOMPARE(result.exitCode, 0);
    QVERIFY(m_home->contentsOfTrash().isEmpty());
}

VEMO_TEST_MAIN_WITH_CHILD(TrashTest, onAnotherFileSystem)
#include "tst_trash.moc"
