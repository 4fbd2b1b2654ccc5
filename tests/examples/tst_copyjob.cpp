// SPDX-License-Identifier: MIT
#include "copying.h"
#include "diskfolder.h"
#include "examples/filebrowser/files/copyleftovers.h"
#include "examples/filebrowser/files/nativename.h"

#include "support/vemotest.h"

#include <sys/stat.h>
#include <unistd.h>
#include <utime.h>

namespace {

constexpr int kManyBytes = 24 * 1024 * 1024; // More than one slice can copy.

} // namespace

class CopyJobTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void nothingHappensBeforeTheStart();
    void aFolderIsCopiedWithAllThatIsInIt();
    void progressRunsUpToTheTotal();
    void progressNamesTheRootFolder();
    void permissionsAndTimesAreKept();
    void theBitsThatLendRightsAreDropped();
    void linksStayLinks();
    void aTakenNameKeepsBoth_data();
    void aTakenNameKeepsBoth();
    void everyNameIsCopied_data();
    void everyNameIsCopied();
    void aFolderIsNotCopiedIntoItself_data();
    void aFolderIsNotCopiedIntoItself();
    void aLinkToTheTargetIsCopied();
    void whatCannotBeCopiedIsReported_data();
    void whatCannotBeCopiedIsReported();
    void aVanishedTargetGetsNothing();
    void cancelTakesBackWhatIsNotDone_data();
    void cancelTakesBackWhatIsNotDone();
    void cancellingEarlyOrLateIsHarmless();
    void deletingTheJobTakesBackWhatIsNotDone();
    void theJobMayBeDeletedInItsSignals();
    void aCopyAtWorkIsNoLeftover_data();
    void aCopyAtWorkIsNoLeftover();
    void onlyOwnUnfinishedCopiesAreLeftovers_data();
    void onlyOwnUnfinishedCopiesAreLeftovers();
    void othersAreServedBetweenTheSlices();
};

void CopyJobTest::nothingHappensBeforeTheStart()
{
    const DiskFolder from, to;
    from.write("a", "content");
    CopyJob job({from.path("a")}, to.path(), nullptr);
    QSignalSpy finished(&job, SIGNAL(finished(QStringList,QStringList)));
    QCoreApplication::processEvents();
    QVERIFY(to.contents().isEmpty());
    job.start();
    job.start();
    QTRY_COMPARE(finished.count(), 1);
    COMPARE_CONTENTS(to.contents(), ({{"a", "content"}}));
}

void CopyJobTest::aFolderIsCopiedWithAllThatIsInIt()
{
    const DiskFolder from, to;
    from.makeFolder("top");
    from.makeFolder("top/empty");
    from.makeFolder("top/sub");
    from.write("top/sub/b", QByteArray(300000, 'b'));
    from.write("top/a", "");
    const DiskFolder::Contents before = from.contents();
    Copying copying({from.path("top") + '/'}, to.path());
    copying.waitForEnd();
    QCOMPARE(copying.copied, QStringList(to.path("top")));
    QVERIFY(copying.problems.isEmpty());
    QCOMPARE(copying.ends, 1);
    COMPARE_CONTENTS(to.contents(), (before));
    COMPARE_CONTENTS(from.contents(), (before));
}

void CopyJobTest::progressRunsUpToTheTotal()
{
    const DiskFolder from, to;
    from.write("a", QByteArray(kManyBytes, 'a'));
    from.write("b", QByteArray(10, 'b'));
    from.write("empty", "");
    Copying copying({from.path("a"), from.path("b"), from.path("empty")}, to.path());
    copying.waitForEnd();
    QCOMPARE(copying.total, kManyBytes + 10 + 3);
    QCOMPARE(copying.done.last(), copying.total);
    QVERIFY(copying.done.size() > 2);
}

void CopyJobTest::progressNamesTheRootFolder()
{
    const DiskFolder to;
    Copying copying({"/"}, to.path());
    QString shown;
    connect(&copying.job, &CopyJob::progress, &copying,
        [&shown](qint64 /*done*/, qint64 /*total*/, const QString &name) { shown = name; });
    copying.waitForEnd();
    QCOMPARE(shown, QString("/"));
}

void CopyJobTest::permissionsAndTimesAreKept()
{
    const DiskFolder from, to;
    from.makeFolder("top");
    from.write("top/a", "content");
    const utimbuf times = {1000000000, 1111111111};
    for (const char *name : {"top/a", "top"}) {
        utime(from.native(name).constData(), &times);
        chmod(from.native(name).constData(), 0540);
    }
    Copying copying({from.path("top")}, to.path());
    copying.waitForEnd();
    for (const char *name : {"top/a", "top"}) {
        struct stat status = {};
        QCOMPARE(stat(to.native(name).constData(), &status), 0);
        QCOMPARE(status.st_mode & 0777, 0540u);
        QCOMPARE(status.st_mtime, 1111111111);
    }
}

void CopyJobTest::theBitsThatLendRightsAreDropped()
{
    const DiskFolder from, to;
    from.makeFolder("top");
    from.write("top/a", "content");
    for (const char *name : {"top/a", "top"})
        QCOMPARE(chmod(from.native(name).constData(), 06755), 0);
    Copying copying({from.path("top")}, to.path());
    copying.waitForEnd();
    for (const char *name : {"top/a", "top"}) {
        struct stat status = {};
        QCOMPARE(stat(to.native(name).constData(), &status), 0);
        QCOMPARE(status.st_mode & 07777, 0755u);
    }
}

void CopyJobTest::linksStayLinks()
{
    const DiskFolder from, to;
    from.makeFolder("top");
    from.link("top/up", "..");
    from.link("top/self", "self");
    from.link("top/a", "b");
    from.link("top/b", "a");
    from.link("top/dangling", "nowhere");
    from.link("top/far", "/proc");
    const DiskFolder::Contents before = from.contents();
    Copying copying({from.path("top"), from.path("top/far")}, to.path());
    copying.waitForEnd();
    QVERIFY(copying.problems.isEmpty());
    DiskFolder::Contents expected = before;
    expected.insert("far", "-> /proc");
    COMPARE_CONTENTS(to.contents(), (expected));
}

void CopyJobTest::aTakenNameKeepsBoth_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QByteArray>("second");
    QTest::addColumn<QByteArray>("third");
    const auto addRow = [](const char *row, const QByteArray &name, const QByteArray &start,
                            const QByteArray &end) {
        QTest::newRow(row) << name << start + " (2)" + end << start + " (3)" + end;
    };
    addRow("an ending", "a.txt", "a", ".txt");
    addRow("two endings", "a.tar.gz", "a.tar", ".gz");
    addRow("no ending", "a", "a", "");
    addRow("a hidden file", ".a", ".a", "");
    addRow("a dot at the end", "a.", "a", ".");
    addRow("a number already", "a (2).txt", "a (2)", ".txt");
    addRow("the longest", QByteArray(251, 'a') + ".txt", QByteArray(247, 'a'), ".txt");
    addRow("the longest in letters of two", QByteArray("\xC3\xA4").repeated(127),
        QByteArray("\xC3\xA4").repeated(125), "");
    addRow("a long ending", "a." + QByteArray(253, 'b'), "a." + QByteArray(249, 'b'), "");
}

void CopyJobTest::aTakenNameKeepsBoth()
{
    QFETCH(QByteArray, name);
    QFETCH(QByteArray, second);
    QFETCH(QByteArray, third);
    const DiskFolder folder;
    folder.write(name, "content");
    const QString path = folder.path() + '/' + fromNativeName(name);
    Copying copying({path, path}, folder.path());
    copying.waitForEnd();
    QCOMPARE(copying.problems, QStringList());
    COMPARE_CONTENTS(
        folder.contents(), ({{name, "content"}, {second, "content"}, {third, "content"}}));
}

void CopyJobTest::everyNameIsCopied_data()
{
    QTest::addColumn<QByteArray>("name");
    QByteArray low, high;
    for (int c = 1; c < 256; ++c)
        (c < 128 ? low : high) += c == '/' ? QByteArray() : QByteArray(1, char(c));
    QTest::newRow("all ASCII") << low;
    QTest::newRow("all other bytes") << high;
    QTest::newRow("a line break") << QByteArray("a\nb");
    QTest::newRow("a dash") << QByteArray("-rf");
    QTest::newRow("markup") << QByteArray("<b>&amp;%1");
}

void CopyJobTest::everyNameIsCopied()
{
    QFETCH(QByteArray, name);
    const DiskFolder from, to;
    from.makeFolder(name);
    from.write(name + '/' + name, "content");
    Copying copying({from.path() + '/' + fromNativeName(name)}, to.path());
    copying.waitForEnd();
    QVERIFY(copying.problems.isEmpty());
    COMPARE_CONTENTS(to.contents(), (from.contents()));
}

void CopyJobTest::aFolderIsNotCopiedIntoItself_data()
{
    QTest::addColumn<QString>("target");
    QTest::newRow("itself") << "top";
    QTest::newRow("a folder in it") << "top/sub";
    QTest::newRow("through a link") << "link/sub";
    QTest::newRow("by a way around") << "top/sub/../sub/.";
}

void CopyJobTest::aFolderIsNotCopiedIntoItself()
{
    QFETCH(QString, target);
    const DiskFolder folder;
    folder.makeFolder("top");
    folder.makeFolder("top/sub");
    folder.link("link", "top");
    folder.write("a", "content");
    DiskFolder::Contents expected = folder.contents();
    Copying copying({folder.path("top"), folder.path("a"), "/"}, folder.path() + '/' + target);
    copying.waitForEnd();
    QCOMPARE(copying.problems, QStringList({problem("top", EINVAL), problem("", EINVAL)}));
    QCOMPARE(copying.copied.size(), 1);
    expected.insert(target == "top" ? "top/a" : "top/sub/a", "content");
    COMPARE_CONTENTS(folder.contents(), (expected));
}

void CopyJobTest::aLinkToTheTargetIsCopied()
{
    const DiskFolder folder;
    folder.makeFolder("top");
    folder.link("link", "top");
    Copying copying({folder.path("link")}, folder.path("top"));
    copying.waitForEnd();
    COMPARE_CONTENTS(
        folder.contents(), ({{"top/", {}}, {"link", "-> top"}, {"top/link", "-> top"}}));
}

void CopyJobTest::whatCannotBeCopiedIsReported_data()
{
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<int>("error");
    QTest::newRow("vanished") << QByteArray("gone") << ENOENT;
    QTest::newRow("in a file") << QByteArray("a/b") << ENOTDIR;
    QTest::newRow("a pipe") << QByteArray("pipe") << EOPNOTSUPP;
    QTest::newRow("too long") << QByteArray(300, 'a') << ENAMETOOLONG;
}

void CopyJobTest::whatCannotBeCopiedIsReported()
{
    QFETCH(QByteArray, source);
    QFETCH(int, error);
    const DiskFolder from, to;
    from.write("a", "content");
    QCOMPARE(mkfifo(from.native("pipe").constData(), 0644), 0);
    const QString path = from.path() + '/' + source;
    Copying copying({path, from.path("a")}, to.path());
    copying.waitForEnd();
    QCOMPARE(copying.problems,
        QStringList(problem(source.mid(source.lastIndexOf('/') + 1).constData(), error)));
    COMPARE_CONTENTS(to.contents(), ({{"a", "content"}}));
}

void CopyJobTest::aVanishedTargetGetsNothing()
{
    const DiskFolder from;
    from.write("a", "content");
    from.makeFolder("b");
    from.link("c", "a");
    const DiskFolder::Contents before = from.contents();
    Copying copying({from.path("a"), from.path("b"), from.path("c")}, from.path("gone"));
    copying.waitForEnd();
    QCOMPARE(copying.problems,
        QStringList({problem("a", ENOENT), problem("b", ENOENT), problem("c", ENOENT)}));
    COMPARE_CONTENTS(from.contents(), (before));
}

void CopyJobTest::cancelTakesBackWhatIsNotDone_data()
{
    QTest::addColumn<bool>("inFolder");
    QTest::newRow("a file") << false;
    QTest::newRow("a folder") << true;
}

void CopyJobTest::cancelTakesBackWhatIsNotDone()
{
    QFETCH(bool, inFolder);
    const DiskFolder from, to;
    to.write("other", "stays");
    from.makeFolder("top");
    from.makeFolder("top/0 sub");
    from.write("top/large", QByteArray(kManyBytes, 'a'));
    from.write("last", "content");
    Copying copying({from.path(inFolder ? "top" : "top/large"), from.path("last")}, to.path());
    copying.cancelsWhenCopying = true;
    copying.waitForEnd();
    QCOMPARE(copying.ends, 1);
    QVERIFY(copying.copied.isEmpty());
    QVERIFY(copying.problems.isEmpty());
    COMPARE_CONTENTS(to.contents(), ({{"other", "stays"}}));
}

void CopyJobTest::cancellingEarlyOrLateIsHarmless()
{
    const DiskFolder from, to;
    from.write("a", "content");
    Copying early({from.path("a")}, to.path());
    early.job.cancel();
    early.waitForEnd();
    QVERIFY(to.contents().isEmpty());
    Copying late({from.path("a")}, to.path());
    late.waitForEnd();
    late.job.cancel();
    QCoreApplication::processEvents();
    QCOMPARE(late.ends, 1);
    COMPARE_CONTENTS(to.contents(), ({{"a", "content"}}));
}

void CopyJobTest::deletingTheJobTakesBackWhatIsNotDone()
{
    const DiskFolder from, to;
    from.makeFolder("top");
    from.write("top/large", QByteArray(kManyBytes, 'a'));
    {
        Copying copying({from.path("top")}, to.path());
        while (copying.done.isEmpty() || copying.done.last() < 2)
            QCoreApplication::processEvents();
        QVERIFY(!to.contents().isEmpty());
    }
    QVERIFY(to.contents().isEmpty());
}

void CopyJobTest::theJobMayBeDeletedInItsSignals()
{
    const DiskFolder from, to;
    from.write("a", "content");
    QPointer<CopyJob> job = new CopyJob({from.path("a")}, to.path(), nullptr);
    connect(job.data(), &CopyJob::progress, [&job] { delete job.data(); });
    job->start();
    QTRY_VERIFY(!job);
    job = new CopyJob({from.path("a")}, to.path(), nullptr);
    connect(job.data(), &CopyJob::finished, [&job] { delete job.data(); });
    job->start();
    QTRY_VERIFY(!job);
    for (const QByteArray &name : to.contents().keys())
        QVERIFY(name.startsWith('a'));
}

void CopyJobTest::aCopyAtWorkIsNoLeftover_data()
{
    cancelTakesBackWhatIsNotDone_data();
}

void CopyJobTest::aCopyAtWorkIsNoLeftover()
{
    QFETCH(bool, inFolder);
    const DiskFolder from, to;
    from.makeFolder("top");
    from.write("top/large", QByteArray(kManyBytes, 'a'));
    Copying copying({from.path(inFolder ? "top" : "top/large")}, to.path());
    while (copying.done.isEmpty() || copying.done.last() < 2)
        QCoreApplication::processEvents();
    const QByteArray name = to.contents().firstKey().split('/').first();
    QVERIFY(name.startsWith(kUnfinishedCopyPrefix));
    QVERIFY(!isLeftoverCopy(to.native(name)));
    copying.waitForEnd();
    QVERIFY(!isLeftoverCopy(to.native(name))); // It is gone.
}

void CopyJobTest::onlyOwnUnfinishedCopiesAreLeftovers_data()
{
    QTest::addColumn<QByteArray>("kind");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<bool>("isLeftover");
    const auto row = [](const char *kind, const char *name, bool isLeftover) {
        QTest::addRow("%s %s", kind, name) << QByteArray(kind) << QByteArray(name) << isLeftover;
    };
    row("file", ".copying-0123456789abcdef", true);
    row("folder", ".copying-f", true);
    row("link", ".copying-a1", true);
    row("foreign file", ".copying-1", false);
    row("pipe", ".copying-1", false);
    row("no", ".copying-1", false);
    row("file", ".copying-", false);
    row("file", ".copying-notes", false);
    row("file", ".copying-0123456789abcdef0", false);
    row("file", "copying-1", false);
}

void CopyJobTest::onlyOwnUnfinishedCopiesAreLeftovers()
{
    QFETCH(QByteArray, kind);
    QFETCH(QByteArray, name);
    QFETCH(bool, isLeftover);
    const DiskFolder folder;
    if (kind == "folder")
        folder.makeFolder(name);
    else if (kind == "link")
        folder.link(name, "nowhere");
    else if (kind == "pipe")
        QCOMPARE(mkfifo(folder.native(name).constData(), 0644), 0);
    else if (kind != "no")
        folder.write(name, "half");
    if (kind == "foreign file") {
        if (getuid() != 0)
            QSKIP("Only root can give files away");
        folder.giveTo(65534);
    }
    QCOMPARE(isLeftoverCopy(folder.native(name)), isLeftover);
}

void CopyJobTest::othersAreServedBetweenTheSlices()
{
    const DiskFolder from, to;
    from.makeFolder("top");
    for (int i = 0; i < 5000; ++i)
        from.write("top/" + QByteArray::number(i), "");
    int served = 0;
    QTimer others;
    connect(&others, &QTimer::timeout, [&served] { ++served; });
    others.start(0);
    Copying copying({from.path("top")}, to.path());
    copying.waitForEnd();
    QCOMPARE(copying.copied.size(), 1);
    QCOMPARE(to.contents().size(), 5001);
    QVERIFY(copying.done.size() > 5);
    QVERIFY(served >= copying.done.size() - 1);
}

VEMO_TEST_MAIN(CopyJobTest)
#include "tst_copyjob.moc"
