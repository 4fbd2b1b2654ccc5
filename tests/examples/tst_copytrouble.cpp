// SPDX-License-Identifier: MIT
#include "childworld.h"
#include "copying.h"
#include "diskfolder.h"
#include "examples/filebrowser/files/copyleftovers.h"

#include "support/vemotest.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// A disk of 1 MB takes the small file, not the large one.
int copyToFullDisk()
{
    const QByteArray folder = ChildWorld::folder();
    if (!ChildWorld::mountMemory(folder + "/disk", "size=1m"))
        return ChildWorld::kCannot;
    const QString path = QString::fromUtf8(folder);
    Copying copying({path + "/large", path + "/small"}, path + "/disk");
    copying.waitForEnd();
    const bool isTold = copying.problems == QStringList(problem("large", ENOSPC));
    const bool isCopied = copying.copied == QStringList(path + "/disk/small");
    return isTold && isCopied
            && QDir(path + "/disk").entryList(QDir::Hidden | QDir::Files).size() == 1
        ? 0
        : 1;
}

/// Stops writing in the middle of a file without a mount.
int copyBeyondTheLimit()
{
    std::signal(SIGXFSZ, SIG_IGN);
    const rlimit limit = {100000, 100000};
    setrlimit(RLIMIT_FSIZE, &limit);
    const QString path = QString::fromUtf8(ChildWorld::folder());
    Copying copying({path + "/folder", path + "/small"}, path + "/disk");
    copying.waitForEnd();
    const bool isTold = copying.problems == QStringList(problem("large", EFBIG));
    return isTold && copying.copied == QStringList(path + "/disk/small") ? 0 : 1;
}

/// An unreadable file is left out of its folder; a target that may not be written gets nothing.
int copyWithoutRights()
{
    if (!ChildWorld::becomeNobody())
        return ChildWorld::kCannot;
    const QString path = QString::fromUtf8(ChildWorld::folder());
    Copying readable({path + "/folder"}, path + "/disk");
    readable.waitForEnd();
    Copying unwritable({path + "/small"}, path + "/folder");
    unwritable.waitForEnd();
    readable.problems.sort();
    const QStringList unread {problem("secret file", EACCES), problem("secret folder", EACCES)};
    return readable.problems == unread && readable.copied.size() == 1
            && unwritable.problems == QStringList(problem("small", EACCES))
            && unwritable.copied.isEmpty()
        ? 0
        : 1;
}

/// Folders that may not be written any more are taken back, too.
int cancelAmongReadOnlyFolders()
{
    if (!ChildWorld::becomeNobody())
        return ChildWorld::kCannot;
    const QString path = QString::fromUtf8(ChildWorld::folder());
    Copying copying({path + "/folder"}, path + "/disk");
    // All is copied by then, and the folders get their permissions one by one.
    QObject::connect(&copying.job, &CopyJob::progress, [&](qint64 done, qint64 total) {
        if (done > 0 && done == total)
            copying.job.cancel();
    });
    copying.waitForEnd();
    return copying.copied.isEmpty() && copying.problems.isEmpty() ? 0 : 1;
}

/// Ends as if the machine had gone down.
int dieWhileCopying(const QString &source)
{
    const QString path = QString::fromUtf8(ChildWorld::folder());
    Copying copying({path + source}, path + "/disk");
    QObject::connect(&copying.job, &CopyJob::progress, [](qint64 done) {
        if (done > 1)
            std::raise(SIGKILL);
    });
    copying.waitForEnd();
    return 1;
}

int runScenario(const QString &scenario)
{
    if (scenario.startsWith("/"))
        return dieWhileCopying(scenario);
    if (scenario == "full disk")
        return copyToFullDisk();
    if (scenario == "read-only folders")
        return cancelAmongReadOnlyFolders();
    return scenario == "limit" ? copyBeyondTheLimit() : copyWithoutRights();
}

} // namespace

class CopyTroubleTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void troubleLeavesNothingHalfDone_data();
    void troubleLeavesNothingHalfDone();
    void cancellingTakesReadOnlyFoldersBack();
    void aKilledCopyIsFoundAgain_data();
    void aKilledCopyIsFoundAgain();
};

void CopyTroubleTest::troubleLeavesNothingHalfDone_data()
{
    QTest::addColumn<QString>("scenario");
    QTest::addColumn<DiskFolder::Contents>("onDisk");
    using Contents = DiskFolder::Contents;
    addRow("a full disk", "full disk", Contents {});
    addRow("a file beyond the limit", "limit", Contents {{"disk/small", "content"}});
    addRow(
        "no rights", "rights", Contents {{"disk/folder/", {}}, {"disk/folder/secret folder/", {}}});
}

void CopyTroubleTest::troubleLeavesNothingHalfDone()
{
    QFETCH(QString, scenario);
    QFETCH(DiskFolder::Contents, onDisk);
    if (getuid() != 0)
        QSKIP("Only root can make such trouble");
    const DiskFolder folder;
    folder.makeFolder("disk");
    folder.makeFolder("folder");
    folder.write("small", "content");
    const bool isSecret = scenario == "rights";
    folder.write(isSecret ? "folder/secret file" : "large", QByteArray(2000000, 'l'));
    if (isSecret)
        folder.makeFolder("folder/secret folder");
    else
        folder.write("folder/large", QByteArray(2000000, 'l'));
    chmod(folder.native("disk").constData(), 0777);
    chmod(folder.native(".").constData(), 0755);
    chmod(folder.native("folder/secret file").constData(), 0);
    chmod(folder.native("folder/secret folder").constData(), 0);
    DiskFolder::Contents expected = folder.contents();
    for (auto i = onDisk.cbegin(); i != onDisk.cend(); ++i)
        expected.insert(i.key(), i.value());

    const ChildResult result = runChild(scenario, {ChildWorld::variableFor(folder.path())});
    QCOMPARE(result.status, QProcess::NormalExit);
    if (result.exitCode == ChildWorld::kCannot)
        QSKIP("No file system may be mounted here");
    QCOMPARE(result.exitCode, 0);
    COMPARE_CONTENTS(folder.contents(), (expected));
}

void CopyTroubleTest::cancellingTakesReadOnlyFoldersBack()
{
    if (getuid() != 0)
        QSKIP("Only root can make such trouble");
    const DiskFolder folder;
    folder.makeFolder("disk");
    folder.makeFolder("folder");
    for (int i = 0; i < 5000; ++i) {
        const QByteArray sub = "folder/" + QByteArray::number(i);
        folder.makeFolder(sub);
        folder.write(sub + "/file", "");
        chmod(folder.native(sub).constData(), 0555);
    }
    chmod(folder.native("disk").constData(), 0777);
    chmod(folder.native(".").constData(), 0755);
    const DiskFolder::Contents before = folder.contents();
    const ChildResult result =
        runChild("read-only folders", {ChildWorld::variableFor(folder.path())});
    QCOMPARE(result.status, QProcess::NormalExit);
    QCOMPARE(result.exitCode, 0);
    COMPARE_CONTENTS(folder.contents(), (before));
}

void CopyTroubleTest::aKilledCopyIsFoundAgain_data()
{
    QTest::addColumn<QString>("source");
    addRow("a file", "/folder/large");
    addRow("a folder", "/folder");
}

void CopyTroubleTest::aKilledCopyIsFoundAgain()
{
    QFETCH(QString, source);
    const DiskFolder folder;
    folder.makeFolder("disk");
    folder.makeFolder("folder");
    folder.write("folder/large", QByteArray(64 * 1024 * 1024, 'l'));
    const ChildResult result = runChild(source, {ChildWorld::variableFor(folder.path())});
    QCOMPARE(result.status, QProcess::CrashExit);
    const QStringList left =
        QDir(folder.path("disk")).entryList(QDir::Hidden | QDir::AllEntries | QDir::NoDotAndDotDot);
    QCOMPARE(left.size(), 1);
    QVERIFY(isLeftoverCopy(folder.native("disk/" + left.first().toUtf8())));
}

VEMO_TEST_MAIN_WITH_CHILD(CopyTroubleTest, runScenario)
#include "tst_copytrouble.moc"
