// SPDX-License-Identifier: MIT
// Files and folders of Windows: drives, names that it reserves, long paths, the recycle bin.
#include "examples/copying.h"
#include "examples/diskfolder.h"
#include "examples/filebrowser/files/copyleftovers.h"
#include "examples/filebrowser/files/fileoperations.h"
#include "examples/filebrowser/files/folderreader.h"
#include "examples/filebrowser/files/nativename.h"
#include "examples/filebrowser/files/paths.h"
#include "examples/filebrowser/files/windowspath.h"

#include <QDir>
#include <QtTest>

namespace {

QStringList namesIn(const QString &folder)
{
    FolderReader reader;
    QStringList names;
    bool isDone = false;
    QObject::connect(
        &reader, &FolderReader::entriesRead, &reader, [&](const QVector<FileEntry> &entries) {
            for (const FileEntry &entry : entries)
                names += entry.name;
        });
    QObject::connect(&reader, &FolderReader::finished, &reader, [&] { isDone = true; });
    QObject::connect(&reader, &FolderReader::failed, &reader, [&](const QString &reason) {
        names += "failed: " + reason;
        isDone = true;
    });
    reader.read(folder);
    [&] { QTRY_VERIFY(isDone); }();
    names.sort();
    return names;
}

/// Below folder, so deep that most programs can't open it.
QByteArray makeLongPath(const DiskFolder &folder)
{
    QByteArray name;
    for (int i = 0; i < 5; ++i) {
        name += (i > 0 ? "/" : "") + QByteArray(80, char('a' + i));
        const std::wstring path = windowsPath(folder.native(name));
        [&] { QVERIFY(CreateDirectoryW(path.c_str(), nullptr)); }();
    }
    return name;
}

} // namespace

class WindowsFilesTest : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void rootContainsTheDrives();
    void pathsOfQtAreBelowTheRoot_data();
    void pathsOfQtAreBelowTheRoot();
    void usersSeeTheirOwnPaths_data();
    void usersSeeTheirOwnPaths();
    void windowsGetsItsOwnPaths_data();
    void windowsGetsItsOwnPaths();
    void urlsLeadBack();
    void folderIsListed();
    void missingFolderFails();
    void namesAreChecked_data();
    void namesAreChecked();
    void renamingNeverReplaces();
    void folderIsRenamedWithWhatIsInIt();
    void caseOfANameIsNoOtherName();
    void trashTakesFilesAndFolders();
    void trashTakesNothingElse_data();
    void trashTakesNothingElse();
    void copyIsComplete();
    void folderIsCopiedWithWhatIsInIt();
    void copyNeverReplaces();
    void copyKeepsTimeAndAttributes();
    void copyIntoItselfIsRefused();
    void copyGoesBeyond260Characters();
    void markedCopyIsNoLeftover();
};

void WindowsFilesTest::rootContainsTheDrives()
{
    QVERIFY(namesIn("/").contains("C:"));
    QVERIFY(isFolderAt("/"));
    QVERIFY(!isWritableFolder("/"));
    QCOMPARE(parentPath("/C:"), QString("/"));
    QVERIFY(isFolderAt("/C:"));
    QVERIFY(namesIn("/C:").contains("windows", Qt::CaseInsensitive));
    QCOMPARE(nearestFolder("/Q:/nowhere/at/all"), QString("/"));
}

void WindowsFilesTest::pathsOfQtAreBelowTheRoot_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("below");
    QTest::newRow("drive") << "C:/"
                           << "/C:/";
    QTest::newRow("folder") << "C:/Users/x"
                            << "/C:/Users/x";
    QTest::newRow("share") << "//server/share"
                           << "//server/share";
    QTest::newRow("below already") << "/C:/Users"
                                   << "/C:/Users";
}

void WindowsFilesTest::pathsOfQtAreBelowTheRoot()
{
    QFETCH(const QString, path);
    QTEST(pathFromQt(path), "below");
}

void WindowsFilesTest::usersSeeTheirOwnPaths_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("shown");
    QTest::newRow("root") << "/"
                          << "/";
    QTest::newRow("drive") << "/C:"
                           << "C:";
    QTest::newRow("folder") << "/C:/Users/x"
                            << "C:\\Users\\x";
    QTest::newRow("share") << "//server/share"
                           << "\\\\server\\share";
}

void WindowsFilesTest::usersSeeTheirOwnPaths()
{
    QFETCH(const QString, path);
    QTEST(pathForUsers(path), "shown");
}

void WindowsFilesTest::windowsGetsItsOwnPaths_data()
{
    QTest::addColumn<QByteArray>("path");
    QTest::addColumn<QString>("windows");
    QTest::newRow("root") << QByteArray("/") << QString();
    QTest::newRow("drive") << QByteArray("/C:") << "\\\\?\\C:\\";
    QTest::newRow("file") << QByteArray("/C:/a/b.txt") << "\\\\?\\C:\\a\\b.txt";
    QTest::newRow("file of Qt") << QByteArray("C:/a/b.txt") << "\\\\?\\C:\\a\\b.txt";
    QTest::newRow("share") << QByteArray("//server/share/a") << "\\\\?\\UNC\\server\\share\\a";
}

void WindowsFilesTest::windowsGetsItsOwnPaths()
{
    QFETCH(const QByteArray, path);
    QTEST(QString::fromStdWString(windowsPath(path)), "windows");
}

void WindowsFilesTest::urlsLeadBack()
{
    const QString path = QString::fromUtf8("/C:/Größe 大/100%.txt");
    QCOMPARE(pathOf(urlOf(path)), path);
    QCOMPARE(urlOf(path), QUrl::fromLocalFile(path.mid(1)));
}

void WindowsFilesTest::folderIsListed()
{
    const DiskFolder folder;
    folder.write("b.txt", "12345");
    folder.makeFolder("a");
    QCOMPARE(namesIn(folder.path()), QStringList({"a", "b.txt"}));
}

void WindowsFilesTest::missingFolderFails()
{
    const DiskFolder folder;
    QCOMPARE(namesIn(folder.path("missing")), QStringList("failed: " + systemReason(ENOENT)));
}

void WindowsFilesTest::namesAreChecked_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("problem");
    const auto row = [](const char *name, const QString &text, NameProblem problem) {
        QTest::newRow(name) << text << int(problem);
    };
    row("free", "c.txt", NameProblem::None);
    row("two dots", "c..txt", NameProblem::None);
    row("begins with a device", "console.txt", NameProblem::None);
    row("COM without a number", "com.txt", NameProblem::None);
    row("taken in other case", "B.TXT", NameProblem::Exists);
    row("slash", "a/b", NameProblem::Slash);
    row("backslash", "a\\b", NameProblem::Reserved);
    row("stream", "x.png:y", NameProblem::Reserved);
    row("trailing dot", "b.txt.", NameProblem::Reserved);
    row("trailing blank", "b.txt ", NameProblem::Reserved);
    row("dots", "...", NameProblem::Reserved);
    row("wildcard", "*.txt", NameProblem::Reserved);
    row("question mark", "what?", NameProblem::Reserved);
    row("pipe", "a|b", NameProblem::Reserved);
    row("control letter", "a\tb", NameProblem::Reserved);
    row("device", "con", NameProblem::Reserved);
    row("device with extension", "aux.png", NameProblem::Reserved);
    row("device with a blank", "NUL .txt", NameProblem::Reserved);
    row("port", "LPT1.tar.gz", NameProblem::Reserved);
    row("port with a raised number", QString::fromUtf8("com¹"), NameProblem::Reserved);
    row("255 letters", QString(255, 'x'), NameProblem::None);
    row("256 letters", QString(256, 'x'), NameProblem::TooLong);
}

void WindowsFilesTest::namesAreChecked()
{
    QFETCH(const QString, name);
    QFETCH(const int, problem);
    const DiskFolder folder;
    folder.write("b.txt", "kept");
    QCOMPARE(int(checkName(folder.path(), name)), problem);
    if (problem == int(NameProblem::None))
        return;
    QVERIFY(!renameEntry(folder.path(), "b.txt", name).done || name == "B.TXT");
    QVERIFY(!createFolder(folder.path(), name).done);
    QCOMPARE(folder.contents().size(), 1);
}

void WindowsFilesTest::renamingNeverReplaces()
{
    const DiskFolder folder;
    folder.write("a.txt", "a");
    folder.write("b.txt", "b");
    folder.makeFolder("sub");
    QVERIFY(!renameEntry(folder.path(), "a.txt", "b.txt").done);
    QVERIFY(!renameEntry(folder.path(), "a.txt", "sub").done);
    COMPARE_CONTENTS(folder.contents(), ({{"a.txt", "a"}, {"b.txt", "b"}, {"sub/", {}}}));
    const FileResult result = renameEntry(folder.path(), "a.txt", "c.txt");
    QVERIFY2(result.done, qPrintable(result.reason));
    COMPARE_CONTENTS(folder.contents(), ({{"b.txt", "b"}, {"c.txt", "a"}, {"sub/", {}}}));
}

void WindowsFilesTest::folderIsRenamedWithWhatIsInIt()
{
    const DiskFolder folder;
    folder.makeFolder("sub");
    folder.write("sub/a.txt", "a");
    folder.makeFolder("taken");
    QVERIFY(!renameEntry(folder.path(), "sub", "taken").done);
    const FileResult result = renameEntry(folder.path(), "sub", "other");
    QVERIFY2(result.done, qPrintable(result.reason));
    COMPARE_CONTENTS(folder.contents(), ({{"other/", {}}, {"other/a.txt", "a"}, {"taken/", {}}}));
}

void WindowsFilesTest::caseOfANameIsNoOtherName()
{
    const DiskFolder folder;
    folder.write("a.txt", "a");
    QVERIFY(pathExists(folder.path("A.TXT")));
    QCOMPARE(checkName(folder.path(), "A.txt", "a.txt"), NameProblem::None);
    QCOMPARE(checkName(folder.path(), "a.txt", "a.txt"), NameProblem::Exists);
    QCOMPARE(checkName(folder.path(), "A.txt", "b.txt"), NameProblem::Exists);
    QVERIFY(renameEntry(folder.path(), "a.txt", "A.txt").done);
    QCOMPARE(folder.contents().size(), 1); // Wine keeps the old case.
}

void WindowsFilesTest::trashTakesFilesAndFolders()
{
    const DiskFolder folder;
    folder.write("a.txt", "a");
    folder.makeFolder("sub");
    folder.write("sub/b.txt", "b");
    for (const char *name : {"a.txt", "sub"}) {
        const FileResult result = moveToTrash(folder.path(name));
        QVERIFY2(result.done, qPrintable(result.reason));
    }
    COMPARE_CONTENTS(folder.contents(), ({}));
    QCOMPARE(moveToTrash(folder.path("a.txt")).reason, systemReason(ENOENT));
}

void WindowsFilesTest::trashTakesNothingElse_data()
{
    QTest::addColumn<QByteArray>("name");
    // For the shell each of these is "a.txt", or a device.
    QTest::newRow("trailing dot") << QByteArray("a.txt.");
    QTest::newRow("trailing blank") << QByteArray("a.txt ");
    QTest::newRow("device") << QByteArray("aux.txt");
    QTest::newRow("long name") << QByteArray(250, 'x');
}

void WindowsFilesTest::trashTakesNothingElse()
{
    QFETCH(const QByteArray, name);
    const DiskFolder folder;
    folder.write("a.txt", "kept");
    const std::wstring path = windowsPath(folder.native(name));
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    if (file != INVALID_HANDLE_VALUE)
        CloseHandle(file);
    QVERIFY(!moveToTrash(folder.path() + '/' + QString(name)).done);
    QVERIFY(pathExists(folder.path("a.txt")));
    DeleteFileW(path.c_str());
}

void WindowsFilesTest::copyIsComplete()
{
    const DiskFolder folder;
    folder.write("a.txt", QByteArray(700000, 'a'));
    folder.makeFolder("to");
    Copying copying({folder.path("a.txt")}, folder.path("to"));
    copying.waitForEnd();
    QCOMPARE(copying.problems, QStringList());
    QCOMPARE(copying.copied, QStringList(folder.path("to/a.txt")));
    QCOMPARE(folder.contents().value("to/a.txt"), QByteArray(700000, 'a'));
    QCOMPARE(folder.contents().size(), 3);
}

void WindowsFilesTest::folderIsCopiedWithWhatIsInIt()
{
    const DiskFolder folder;
    folder.makeFolder("from");
    folder.makeFolder("from/sub");
    folder.write("from/sub/a.txt", "a");
    folder.makeFolder("to");
    Copying copying({folder.path("from")}, folder.path("to"));
    copying.waitForEnd();
    QCOMPARE(copying.problems, QStringList());
    COMPARE_CONTENTS(folder.contents(),
        ({{"from/", {}}, {"from/sub/", {}}, {"from/sub/a.txt", "a"}, {"to/", {}}, {"to/from/", {}},
            {"to/from/sub/", {}}, {"to/from/sub/a.txt", "a"}}));
}

void WindowsFilesTest::copyNeverReplaces()
{
    const DiskFolder folder;
    folder.write("a.txt", "new");
    folder.makeFolder("to");
    folder.write("to/A.TXT", "old");
    Copying copying({folder.path("a.txt")}, folder.path("to"));
    copying.waitForEnd();
    QCOMPARE(copying.problems, QStringList());
    COMPARE_CONTENTS(folder.contents(),
        ({{"a.txt", "new"}, {"to/", {}}, {"to/A.TXT", "old"}, {"to/a (2).txt", "new"}}));
}

void WindowsFilesTest::copyKeepsTimeAndAttributes()
{
    const DiskFolder folder;
    folder.write("a.txt", "a");
    folder.makeFolder("to");
    const QString from = folder.path("a.txt").mid(1);
    const QDateTime time(QDate(2001, 2, 3), QTime(4, 5, 6));
    {
        QFile file(from);
        QVERIFY(file.open(QIODevice::ReadWrite));
        QVERIFY(file.setFileTime(time, QFileDevice::FileModificationTime));
    }
    SetFileAttributesW(windowsPath(folder.native("a.txt")).c_str(), FILE_ATTRIBUTE_READONLY);
    Copying copying({folder.path("a.txt")}, folder.path("to"));
    copying.waitForEnd();
    QCOMPARE(copying.problems, QStringList());
    const QFileInfo copy(folder.path("to/a.txt").mid(1));
    QCOMPARE(copy.lastModified(), time);
    QVERIFY(!copy.isWritable());
    for (const char *name : {"a.txt", "to/a.txt"})
        SetFileAttributesW(windowsPath(folder.native(name)).c_str(), FILE_ATTRIBUTE_NORMAL);
}

void WindowsFilesTest::copyIntoItselfIsRefused()
{
    const DiskFolder folder;
    folder.makeFolder("from");
    folder.makeFolder("from/sub");
    // In other case too.
    Copying copying({folder.path("from")}, folder.path("FROM/sub"));
    copying.waitForEnd();
    QCOMPARE(copying.problems, QStringList(problem("from", EINVAL)));
    COMPARE_CONTENTS(folder.contents(), ({{"from/", {}}, {"from/sub/", {}}}));
}

void WindowsFilesTest::copyGoesBeyond260Characters()
{
    const DiskFolder folder;
    const QByteArray deep = makeLongPath(folder);
    folder.write("a.txt", "a");
    const QString target = fromNativeName(folder.native(deep));
    QVERIFY(target.size() > 300);
    Copying copying({folder.path("a.txt")}, target);
    copying.waitForEnd();
    QCOMPARE(copying.problems, QStringList());
    QCOMPARE(namesIn(target), QStringList("a.txt"));
    QVERIFY(renameEntry(target, "a.txt", "b.txt").done);
    QCOMPARE(namesIn(target), QStringList("b.txt"));
    QVERIFY(DeleteFileW(windowsPath(folder.native(deep + "/b.txt")).c_str()));
    for (QByteArray path = deep; !path.isEmpty(); path.truncate(qMax(0, path.lastIndexOf('/'))))
        RemoveDirectoryW(windowsPath(folder.native(path)).c_str());
}

void WindowsFilesTest::markedCopyIsNoLeftover()
{
    const DiskFolder folder;
    const QByteArray name = unfinishedCopyName();
    folder.write(name, "half");
    const CopyMark mark = markUnfinishedCopy(folder.native(name));
    QVERIFY(mark != kNoCopyMark);
    QVERIFY(!isLeftoverCopy(folder.native(name)));
    closeCopyMark(mark);
    QVERIFY(isLeftoverCopy(folder.native(name)));
    folder.remove(name);
    folder.makeFolder(name); // Folders can't be marked.
    QVERIFY(!isLeftoverCopy(folder.native(name)));
    folder.write("a.txt", "a");
    QVERIFY(!isLeftoverCopy(folder.native("a.txt")));
}

QTEST_GUILESS_MAIN(WindowsFilesTest)
#include "tst_windowsfiles.moc"
