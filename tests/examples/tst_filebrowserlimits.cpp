// SPDX-License-Identifier: MIT
// The file browser where things go wrong, or grow large: nothing is lost, and it goes on.
#include "browserstage.h"
#include "childworld.h"
#include "folderwatch.h"

#include "support/activewindow.h"
#include "support/vemotest.h"

#include <vemo/vemoinputsheet.h>
#include <vemo/vemomessagesheet.h>

#include <QCheckBox>
#include <QElapsedTimer>
#include <QLineEdit>
#include <QProcess>

#include <sys/stat.h>

namespace {

constexpr int kMany = 3000; // More files than are copied before the next event.

void fillSub(const BrowserStage &stage)
{
    stage.home.makeFolder("sub");
    stage.home.makeFolder("many");
    for (int i = 0; i < kMany; ++i)
        stage.home.write("many/" + QByteArray::number(i), "");
}

/// A program of its own, with all its files below one folder.
class Program : public QProcess
{
public:
    Program(const DiskFolder &world, const QString &folder)
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM", "offscreen");
        for (const char *name : {"HOME", "TMPDIR", "XDG_DATA_HOME"})
            environment.insert(name, world.path());
        setProcessEnvironment(environment);
        start(VEMO_FILEBROWSER, {"--user-folder", world.path("user"), folder});
    }
    ~Program() override
    {
        kill();
        waitForFinished();
    }
};

QStringList complaintsOf(QProcess *program)
{
    QStringList lines =
        QString::fromUtf8(program->readAllStandardError()).split('\n', Qt::SkipEmptyParts);
    // A display-less platform can't bring a window to the front.
    lines.erase(std::remove_if(lines.begin(), lines.end(),
                    [](const QString &line) {
                        return line.startsWith("This plugin does not support ")
                            || line.startsWith("QStandardPaths: ");
                    }),
        lines.end());
    return lines;
}

/// Tries to change a folder that may not be written; yields how many attempts were refused.
int attemptsRefused(const BrowserStage &stage)
{
    int refused = 0;
    const auto read = [&](VemoSheet *sheet) {
        refused += wordsOf(sheet).contains("Permission denied") ? 1 : 0;
        QMetaObject::invokeMethod(sheet, "quit");
    };
    const auto attempt = [&](const char *action, std::vector<SheetDriver::Act> acts,
                             const char *sheetName) {
        const SheetDriver driver(stage.window.get(), std::move(acts), sheetName);
        stage.part<QAction>(action)->trigger();
        [&driver] { QTRY_VERIFY(driver.isDone()); }();
        stage.waitUntilRead();
    };
    stage.clickRow("a.txt");
    attempt("copyAction", {}, nullptr);
    attempt("pasteAction", {read}, "messageSheet");
    attempt("newFolderAction",
        {[&](VemoSheet *sheet) {
             auto *input = qobject_cast<VemoInputSheet *>(sheet);
             input->getLineEdit()->setText("new");
             input->button(QMessageBox::Ok)->click();
         },
            read},
        nullptr);
    stage.clickRow("a.txt");
    attempt("trashAction",
        {[&](VemoSheet *sheet) {
             sheet->findChild<QCheckBox *>()->click();
             qobject_cast<VemoMessageSheet *>(sheet)->button(QMessageBox::Apply)->click();
         },
            read},
        nullptr);
    stage.clickRow("a.txt");
    stage.press(Qt::Key_F2);
    stage.type("b.txt");
    const SheetDriver driver(stage.window.get(), {read});
    stage.press(Qt::Key_Return);
    [&driver] { QTRY_VERIFY(driver.isDone()); }();
    return refused;
}

int useReadOnlyFolder(const QString &)
{
    if (getuid() == 0 && !ChildWorld::becomeNobody())
        return ChildWorld::kCannot;
    BrowserStage stage;
    stage.home.makeFolder("sub");
    stage.home.write("sub/a.txt", "content");
    chmod(stage.home.native("sub").constData(), 0555);
    stage.open(stage.home.path("sub"));
    const int refused = attemptsRefused(stage);
    chmod(stage.home.native("sub").constData(), 0755);
    const bool isWhole = linesOf(stage.home.contents())
            == linesOf(DiskFolder::Contents {{"sub/", {}}, {"sub/a.txt", "content"}})
        && stage.trash.contentsOfTrash().isEmpty();
    fprintf(stderr, "%d attempts were refused, the folder is %s\n", refused,
        isWhole ? "whole" : "changed");
    return refused == 4 && isWhole ? 0 : 1;
}

} // namespace

class FileBrowserLimitsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void aSecondStartHandsItsFolderToTheFirst();
    void aReadOnlyFolderStaysAsItIs();
    void aHundredThousandFilesLeaveTheWindowFree();
    void aFileOfEveryNameIsCopiedAndTrashed();
    void aWindowThatDiesUnderASheetChangesNothing_data();
    void aWindowThatDiesUnderASheetChangesNothing();
    void aFolderThatVanishesUnderACopyTakesNothingAlong();
    void aFolderThatVanishesIsLeft();
};

void FileBrowserLimitsTest::aSecondStartHandsItsFolderToTheFirst()
{
    const DiskFolder world;
    for (const char *name : {"first", "second", "user"})
        world.makeFolder(name);
    FolderWatch firstFolder(world.path("first"));
    FolderWatch secondFolder(world.path("second"));
    Program first(world, world.path("first"));
    QTRY_VERIFY_WITH_TIMEOUT(firstFolder.wasOpened(), 30000);
    Program second(world, world.path("second"));
    QVERIFY(second.waitForFinished());
    QCOMPARE(second.exitStatus(), QProcess::NormalExit);
    QCOMPARE(second.exitCode(), 0);
    QTRY_VERIFY_WITH_TIMEOUT(secondFolder.wasOpened(), 30000);
    QCOMPARE(first.state(), QProcess::Running);
    QCOMPARE(complaintsOf(&first), QStringList());
    QCOMPARE(complaintsOf(&second), QStringList());
}

void FileBrowserLimitsTest::aReadOnlyFolderStaysAsItIs()
{
    const ChildResult result = runChild("read-only");
    if (result.exitCode == ChildWorld::kCannot)
        QSKIP("Root can't become somebody else here");
    QCOMPARE(result.status, QProcess::NormalExit);
    QVERIFY2(result.exitCode == 0, qPrintable(result.errorOutput));
}

void FileBrowserLimitsTest::aHundredThousandFilesLeaveTheWindowFree()
{
    BrowserStage stage;
    stage.home.fill(100000);
    stage.window = std::make_unique<FileWindow>(stage.home.path());
    QVERIFY(showActive(stage.window.get()));
    auto *filter = stage.part<QLineEdit>("filterBar");
    filter->setFocus();
    int typedWhileReading = 0;
    QElapsedTimer whole;
    whole.start();
    qint64 longest = 0;
    while (stage.window->isReading()) {
        QElapsedTimer round;
        round.start();
        QCoreApplication::processEvents(QEventLoop::AllEvents, 0);
        longest = qMax(longest, round.nsecsElapsed());
        if (typedWhileReading < 5 && stage.window->isReading()) {
            stage.type("9");
            QCOMPARE(filter->text(), QString(++typedWhileReading, '9'));
        }
    }
    QCOMPARE(typedWhileReading, 5);
    QVERIFY2(longest < whole.nsecsElapsed() / 3,
        qPrintable(QString("%1 of %2 ms").arg(longest / 1e6).arg(whole.elapsed())));
    QCOMPARE(stage.footer(), QString("Items: 100,000"));
    stage.press(Qt::Key_Return);
    QTRY_COMPARE(stage.names(), QStringList("99999"));
    QCOMPARE(stage.footer(), QString("Items: 1 of 100,000"));
}

void FileBrowserLimitsTest::aFileOfEveryNameIsCopiedAndTrashed()
{
    BrowserStage stage;
    stage.home.makeFolder("0 sub");
    DiskFolder::Contents everyName;
    for (int c = 1; c < 256; ++c) {
        for (const QByteArray &name :
            {QByteArray(1, char(c)), "1" + QByteArray(1, char(c)) + "."}) {
            if (c != '/' && name != "." && name != "..")
                everyName.insert(name, QByteArray::number(c));
        }
    }
    everyName.insert(QByteArray(255, '\xFE'), "longest");
    for (auto i = everyName.cbegin(); i != everyName.cend(); ++i)
        stage.home.write("0 sub/" + i.key(), i.value());
    stage.open(stage.home.path("0 sub"));
    QCOMPARE(stage.names().size(), 100);

    stage.press(Qt::Key_Backspace);
    QTRY_COMPARE(stage.window->table()->selectedNames(), QStringList("0 sub"));
    stage.press(Qt::Key_C, Qt::ControlModifier);
    stage.press(Qt::Key_V, Qt::ControlModifier);
    QTRY_COMPARE(stage.window->table()->selectedNames(), QStringList("0 sub (2)"));
    SheetDriver driver(stage.window.get(), {[&](VemoSheet *sheet) {
        auto *box = sheet->findChild<QCheckBox *>();
        stage.click(box, QPoint(box->height() / 2, box->height() / 2));
        stage.press(Qt::Key_Return);
    }});
    stage.clickRow("0 sub");
    stage.press(Qt::Key_Delete);
    QTRY_VERIFY(driver.isDone());
    DiskFolder::Contents left {{"0 sub (2)/", {}}};
    DiskFolder::Contents trashed {{"0 sub/", {}}};
    for (auto i = everyName.cbegin(); i != everyName.cend(); ++i) {
        left.insert("0 sub (2)/" + i.key(), i.value());
        trashed.insert("0 sub/" + i.key(), i.value());
    }
    COMPARE_CONTENTS(stage.home.contents(), (left));
    COMPARE_CONTENTS(stage.trash.contentsOfTrash(), (trashed));
}

void FileBrowserLimitsTest::aWindowThatDiesUnderASheetChangesNothing_data()
{
    QTest::addColumn<QByteArray>("action");
    QTest::addColumn<QString>("sheet");
    QTest::newRow("a new folder") << QByteArray("newFolderAction") << "nameSheet";
    QTest::newRow("the trash") << QByteArray("trashAction") << "trashSheet";
    QTest::newRow("copying") << QByteArray("pasteAction") << "copySheet";
}

void FileBrowserLimitsTest::aWindowThatDiesUnderASheetChangesNothing()
{
    QFETCH(QByteArray, action);
    QFETCH(QString, sheet);
    BrowserStage stage;
    fillSub(stage);
    const DiskFolder::Contents before = stage.home.contents();
    stage.open();
    stage.clickRow("many");
    stage.press(Qt::Key_C, Qt::ControlModifier);
    bool wasOpen = false;
    SheetDriver driver(stage.window.get(), {[&](VemoSheet *open) {
        wasOpen = open->objectName() == sheet;
        if (auto *field = open->findChild<QLineEdit *>())
            field->setText("new");
        if (auto *box = open->findChild<QCheckBox *>())
            box->click();
        stage.window.reset();
    }});
    stage.part<QAction>(action)->trigger();
    QTRY_VERIFY(driver.isDone());
    QVERIFY(wasOpen);
    QVERIFY(!stage.window);
    COMPARE_CONTENTS(stage.home.contents(), (before));
    QVERIFY(stage.trash.contents().isEmpty());
}

void FileBrowserLimitsTest::aFolderThatVanishesUnderACopyTakesNothingAlong()
{
    BrowserStage stage;
    fillSub(stage);
    DiskFolder::Contents expected = stage.home.contents();
    expected.remove("sub/");
    stage.open();
    stage.clickRow("many");
    stage.press(Qt::Key_C, Qt::ControlModifier);
    stage.doubleClickRow("sub");
    stage.waitUntilRead();
    QStringList told;
    const auto read = [&](VemoSheet *sheet) {
        told += wordsOf(sheet).trimmed().split('\n').first();
        stage.press(Qt::Key_Return);
    };
    SheetDriver driver(
        stage.window.get(), {[&](VemoSheet *) { stage.home.remove("sub"); }, read, read});
    stage.press(Qt::Key_V, Qt::ControlModifier);
    QTRY_VERIFY(driver.isDone());
    QCOMPARE(told,
        QStringList({"Not everything could be copied.",
            "The folder " + stage.home.path("sub") + " cannot be read."}));
    QTRY_COMPARE(stage.window->folder(), stage.home.path());
    COMPARE_CONTENTS(stage.home.contents(), (expected));
}

void FileBrowserLimitsTest::aFolderThatVanishesIsLeft()
{
    BrowserStage stage;
    stage.home.makeFolder("sub");
    stage.home.makeFolder("sub/deep");
    stage.home.write("a.txt", "content");
    stage.open(stage.home.path("sub/deep"));
    stage.home.remove("sub");
    SheetDriver driver(stage.window.get(), {[&](VemoSheet *) { stage.press(Qt::Key_Return); }});
    stage.press(Qt::Key_Backspace);
    QTRY_VERIFY(driver.isDone());
    QTRY_COMPARE(stage.window->folder(), stage.home.path());
    QTRY_COMPARE(stage.names(), QStringList("a.txt"));
}

VEMO_TEST_MAIN_WITH_CHILD(FileBrowserLimitsTest, useReadOnlyFolder)
#include "tst_filebrowserlimits.moc"
