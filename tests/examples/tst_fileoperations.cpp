// SPDX-License-Identifier: MIT
#include "childworld.h"
#include "diskfolder.h"
#include "examples/filebrowser/files/fileoperations.h"
#include "examples/filebrowser/files/nativename.h"
#include "examples/filebrowser/files/safemove.h"

#include "support/vemotest.h"

#include <functional>
#include <sys/stat.h>
#include <unistd.h>

namespace {

/// Each scenario yields true when all went as it should.
const QMap<QString, std::function<bool(const QString &)>> &scenarios()
{
    static const QMap<QString, std::function<bool(const QString &)>> all {
        {"rename",
            [](const QString &folder) {
                return renameEntry(folder, "a", "b").reason == systemReason(EACCES);
            }},
        {"create",
            [](const QString &folder) {
                return createFolder(folder, "b").reason == systemReason(EACCES);
            }},
        {"trash",
            [](const QString &folder) {
                return moveToTrash(folder + "/a").reason == systemReason(EACCES);
            }},
    };
    return all;
}

void makeOneOfEachKind(const DiskFolder &folder, const QByteArray &ending)
{
    folder.write("file" + ending, ending);
    folder.makeFolder("full folder" + ending);
    folder.write("full folder" + ending + "/file", ending);
    folder.makeFolder("empty folder" + ending);
    folder.link("link" + ending, "file" + ending);
    folder.link("dangling" + ending, "nowhere" + ending);
}

int runAsNobody(const QString &scenario)
{
    if (!ChildWorld::becomeNobody())
        return ChildWorld::kCannot;
    return scenarios().value(scenario)(ChildWorld::folder()) ? 0 : 1;
}

} // namespace

Q_DECLARE_METATYPE(NameProblem)

class FileOperationsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void aNameIsChecked_data();
    void aNameIsChecked();
    void aLinkThatLeadsNowhereTakesItsName();
    void anEntryIsRenamed_data();
    void anEntryIsRenamed();
    void everyNameCanBeGivenAndTaken_data();
    void everyNameCanBeGivenAndTaken();
    void renamingNeverReplaces_data();
    void renamingNeverReplaces();
    void renamingToTheSameNameDoesNothing();
    void renamingRefusesWhatIsNoName_data();
    void renamingRefusesWhatIsNoName();
    void renamingWhatHasVanishedSaysSo();
    void aFolderIsCreated();
    void aFolderIsNotCreatedWhereItCanNotBe_data();
    void aFolderIsNotCreatedWhereItCanNotBe();
    void aFolderThatMayNotBeWrittenKeepsItsContents_data();
    void aFolderThatMayNotBeWrittenKeepsItsContents();
    void movingByReservingNeverReplaces_data();
    void movingByReservingNeverReplaces();
    void movingByReservingMoves_data();
    void movingByReservingMoves();
};

void FileOperationsTest::aNameIsChecked_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<NameProblem>("problem");
    addRow("free", "new.txt", NameProblem::None);
    addRow("a blank", " ", NameProblem::None);
    addRow("three dots", "...", NameProblem::None);
    addRow("a backslash", "a\\b", NameProblem::None);
    addRow("empty", "", NameProblem::Empty);
    addRow("null", QString(), NameProblem::Empty);
    addRow("dot", ".", NameProblem::Reserved);
    addRow("two dots", "..", NameProblem::Reserved);
    addRow("a slash", "a/b", NameProblem::Slash);
    addRow("only a slash", "/", NameProblem::Slash);
    addRow("the null character", QString(1, QChar(0)), NameProblem::Slash);
    addRow("255 bytes", QString(255, 'a'), NameProblem::None);
    addRow("256 bytes", QString(256, 'a'), NameProblem::TooLong);
    addRow("254 bytes in letters of two", QString(127, QChar(0xE4)), NameProblem::None);
    addRow("256 in letters of two", QString(128, QChar(0xE4)), NameProblem::TooLong);
    addRow("a file's", "taken.txt", NameProblem::Exists);
    addRow("another case", "Taken.txt", NameProblem::None);
    addRow("a folder's", "sub", NameProblem::Exists);
}

void FileOperationsTest::aNameIsChecked()
{
    QFETCH(QString, name);
    QFETCH(NameProblem, problem);
    const DiskFolder folder;
    folder.write("taken.txt", "");
    folder.makeFolder("sub");
    QCOMPARE(checkName(folder.path(), name), problem);
}

void FileOperationsTest::aLinkThatLeadsNowhereTakesItsName()
{
    const DiskFolder folder;
    folder.link("link", "nowhere");
    QCOMPARE(checkName(folder.path(), "link"), NameProblem::Exists);
    QCOMPARE(createFolder(folder.path(), "link").reason, systemReason(EEXIST));
}

void FileOperationsTest::anEntryIsRenamed_data()
{
    QTest::addColumn<QByteArray>("from");
    addRow("file", QByteArray("file"));
    addRow("folder", QByteArray("folder"));
    addRow("link", QByteArray("link"));
    addRow("link to a folder", QByteArray("folder link"));
    addRow("link to nowhere", QByteArray("dangling"));
}

void FileOperationsTest::anEntryIsRenamed()
{
    QFETCH(QByteArray, from);
    const DiskFolder folder;
    folder.write("file", "content");
    folder.makeFolder("folder");
    folder.link("link", "file");
    folder.link("folder link", "folder");
    folder.link("dangling", "nowhere");
    DiskFolder::Contents expected = folder.contents();
    const bool isFolder = from == "folder";
    expected.insert(isFolder ? "new/" : "new", expected.take(isFolder ? from + '/' : from));

    const FileResult result = renameEntry(folder.path(), from, "new");
    QVERIFY2(result.done, qPrintable(result.reason));
    QCOMPARE(result.path, folder.path("new"));
    QVERIFY(result.reason.isEmpty());
    COMPARE_CONTENTS(folder.contents(), (expected));
}

void FileOperationsTest::everyNameCanBeGivenAndTaken_data()
{
    QTest::addColumn<QByteArray>("name");
    for (int start = 1; start < 256; start += 51) {
        QByteArray name;
        for (int c = start; c < start + 51; ++c)
            name += c == '/' ? QByteArray() : QByteArray(1, char(c));
        QTest::newRow(qPrintable(QString("bytes from %1").arg(start))) << name;
    }
    addRow("the longest", QByteArray(255, 'n'));
    addRow("the longest of stray bytes", QByteArray(255, '\xFF'));
    addRow("a line break", QByteArray("\n"));
    addRow("a dash", QByteArray("-rf"));
    addRow("markup", QByteArray("<img src=x>&amp;\"'"));
}

void FileOperationsTest::everyNameCanBeGivenAndTaken()
{
    QFETCH(QByteArray, name);
    const DiskFolder folder;
    folder.write("a", "content");
    const QString text = fromNativeName(name);
    QVERIFY(renameEntry(folder.path(), "a", text).done);
    COMPARE_CONTENTS(folder.contents(), ({{name, "content"}}));
    QVERIFY(renameEntry(folder.path(), text, "a").done);
    QVERIFY(createFolder(folder.path(), text).done);
    COMPARE_CONTENTS(folder.contents(), ({{name + '/', {}}, {"a", "content"}}));
}

void FileOperationsTest::renamingNeverReplaces_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    const QStringList kinds {"file", "full folder", "empty folder", "link", "dangling"};
    for (const QString &from : kinds) {
        for (const QString &to : kinds)
            QTest::newRow(qPrintable(from + " onto " + to)) << from + " 1" << to + " 2";
    }
}

void FileOperationsTest::renamingNeverReplaces()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    const DiskFolder folder;
    makeOneOfEachKind(folder, " 1");
    makeOneOfEachKind(folder, " 2");
    const DiskFolder::Contents before = folder.contents();
    const FileResult result = renameEntry(folder.path(), from, to);
    QVERIFY(!result.done);
    QVERIFY(result.path.isEmpty());
    QCOMPARE(result.reason, systemReason(EEXIST));
    COMPARE_CONTENTS(folder.contents(), (before));
}

void FileOperationsTest::renamingToTheSameNameDoesNothing()
{
    const DiskFolder folder;
    folder.write("a", "content");
    QVERIFY(renameEntry(folder.path(), "a", "a").done);
    COMPARE_CONTENTS(folder.contents(), ({{"a", "content"}}));
    QCOMPARE(renameEntry(folder.path(), "b", "b").reason, systemReason(ENOENT));
}

void FileOperationsTest::renamingRefusesWhatIsNoName_data()
{
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<int>("error");
    addRow("into a folder", "a", "sub/a", EINVAL);
    addRow("out of the folder", "a", "../a", EINVAL);
    addRow("to nothing", "a", "", EINVAL);
    addRow("to the folder", "a", ".", EINVAL);
    addRow("to too long a name", "a", QString(256, 'b'), ENAMETOOLONG);
    addRow("of nothing", "", "b", EINVAL);
    addRow("of the parent", "..", "b", EINVAL);
    addRow("of an entry elsewhere", "sub/c", "b", EINVAL);
}

void FileOperationsTest::renamingRefusesWhatIsNoName()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    QFETCH(int, error);
    const DiskFolder folder;
    folder.write("a", "content");
    folder.makeFolder("sub");
    folder.write("sub/c", "c");
    const DiskFolder::Contents before = folder.contents();
    QCOMPARE(renameEntry(folder.path(), from, to).reason, systemReason(error));
    COMPARE_CONTENTS(folder.contents(), (before));
}

void FileOperationsTest::renamingWhatHasVanishedSaysSo()
{
    const DiskFolder folder;
    folder.write("a", "content");
    QCOMPARE(renameEntry(folder.path(), "gone", "b").reason, systemReason(ENOENT));
    QCOMPARE(renameEntry(folder.path("gone"), "a", "b").reason, systemReason(ENOENT));
    COMPARE_CONTENTS(folder.contents(), ({{"a", "content"}}));
}

void FileOperationsTest::aFolderIsCreated()
{
    const DiskFolder folder;
    const FileResult result = createFolder(folder.path(), "new");
    QVERIFY(result.done);
    QCOMPARE(result.path, folder.path("new"));
    COMPARE_CONTENTS(folder.contents(), ({{"new/", {}}}));
}

void FileOperationsTest::aFolderIsNotCreatedWhereItCanNotBe_data()
{
    QTest::addColumn<QString>("parent");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("error");
    addRow("taken by a file", "", "a", EEXIST);
    addRow("taken by a folder", "", "sub", EEXIST);
    addRow("in a vanished folder", "/gone", "new", ENOENT);
    addRow("in a file", "/a", "new", ENOTDIR);
    addRow("too long", "", QString(256, 'b'), ENAMETOOLONG);
    addRow("two at once", "", "b/c", EINVAL);
}

void FileOperationsTest::aFolderIsNotCreatedWhereItCanNotBe()
{
    QFETCH(QString, parent);
    QFETCH(QString, name);
    QFETCH(int, error);
    const DiskFolder folder;
    folder.write("a", "content");
    folder.makeFolder("sub");
    const FileResult result = createFolder(folder.path() + parent, name);
    QVERIFY(!result.done);
    QCOMPARE(result.reason, systemReason(error));
    COMPARE_CONTENTS(folder.contents(), ({{"a", "content"}, {"sub/", {}}}));
}

void FileOperationsTest::aFolderThatMayNotBeWrittenKeepsItsContents_data()
{
    QTest::addColumn<QString>("scenario");
    for (const QString &scenario : scenarios().keys())
        QTest::newRow(qPrintable(scenario)) << scenario;
}

void FileOperationsTest::aFolderThatMayNotBeWrittenKeepsItsContents()
{
    QFETCH(QString, scenario);
    if (getuid() != 0)
        QSKIP("Only root can become somebody else");
    const DiskFolder folder, home;
    folder.write("a", "content");
    chmod(folder.native(".").constData(), 0755);
    home.giveTo(ChildWorld::kNobody);
    const ChildResult result = runChild(
        scenario, {ChildWorld::variableFor(folder.path()), "XDG_DATA_HOME=" + home.path()});
    QCOMPARE(result.status, QProcess::NormalExit);
    QCOMPARE(result.exitCode, 0);
    COMPARE_CONTENTS(folder.contents(), ({{"a", "content"}}));
    QVERIFY(home.contentsOfTrash().isEmpty());
}

void FileOperationsTest::movingByReservingNeverReplaces_data()
{
    renamingNeverReplaces_data();
}

void FileOperationsTest::movingByReservingNeverReplaces()
{
    QFETCH(QString, from);
    QFETCH(QString, to);
    const DiskFolder folder;
    makeOneOfEachKind(folder, " 1");
    makeOneOfEachKind(folder, " 2");
    const DiskFolder::Contents before = folder.contents();
    QCOMPARE(moveByReserving(folder.native(from.toUtf8()), folder.native(to.toUtf8())), EEXIST);
    COMPARE_CONTENTS(folder.contents(), (before));
}

void FileOperationsTest::movingByReservingMoves_data()
{
    anEntryIsRenamed_data();
}

void FileOperationsTest::movingByReservingMoves()
{
    QFETCH(QByteArray, from);
    const DiskFolder folder;
    folder.write("file", "content");
    folder.makeFolder("folder");
    folder.link("link", "file");
    folder.link("folder link", "folder");
    folder.link("dangling", "nowhere");
    DiskFolder::Contents expected = folder.contents();
    const bool isFolder = from == "folder";
    expected.insert(isFolder ? "new/" : "new", expected.take(isFolder ? from + '/' : from));
    QCOMPARE(moveByReserving(folder.native(from), folder.native("new")), 0);
    COMPARE_CONTENTS(folder.contents(), (expected));
    QCOMPARE(moveByReserving(folder.native("gone"), folder.native("b")), ENOENT);
    QCOMPARE(moveByReserving(folder.native("new"), folder.native("gone/new")), ENOENT);
    COMPARE_CONTENTS(folder.contents(), (expected));
}

VEMO_TEST_MAIN_WITH_CHILD(FileOperationsTest, runAsNobody)
#include "tst_fileoperations.moc"
