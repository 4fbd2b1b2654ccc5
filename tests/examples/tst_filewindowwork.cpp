// SPDX-License-Identifier: MIT
#include "filewindowdriver.h"

#include "diskfolder.h"
#include "examples/filebrowser/files/nativename.h"
#include "examples/filebrowser/ui/filetable.h"
#include "examples/filebrowser/ui/questions.h"
#include "examples/filebrowser/ui/texts.h"
#include "support/vemotest.h"

#include <vemo/helpwindow.h>
#include <vemo/vemoinputsheet.h>

#include <QCheckBox>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextBrowser>

namespace {

QLineEdit *editor(const FileWindowDriver &driver)
{
    return driver.table()->viewport()->findChild<QLineEdit *>();
}

QPushButton *button(const VemoSheet *sheet, const QString &caption)
{
    for (QPushButton *found : sheet->findChildren<QPushButton *>()) {
        if (found->text() == caption)
            return found;
    }
    return nullptr;
}

void enter(VemoSheet *sheet, const QString &name)
{
    static_cast<VemoInputSheet *>(sheet)->getLineEdit()->setText(name);
    button(sheet, "OK")->click();
}

} // namespace

class FileWindowWorkTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void renamesInPlace();
    void leavesTheNameWhenRenamingIsCancelled();
    void givesUpRenamingForAnotherAction();
    void renamesNothingOverAnotherFile();
    void renamesWhatTheEditorRefusesByASheet_data();
    void renamesWhatTheEditorRefusesByASheet();
    void makesAFolder();
    void saysWhatIsWrongWithAName_data();
    void saysWhatIsWrongWithAName();
    void movesToTheTrashOnlyAfterTwoConfirmations();
    void keepsWhatIsNotConfirmed();
    void copiesUnderASheetAndKeepsBoth();
    void offersWhatIsLeftOfBrokenCopies_data();
    void offersWhatIsLeftOfBrokenCopies();
    void endsACopyByEscape();
    void pastesOnlyFiles();
    void takesNoKeysUnderASheet();
    void diesUnderASheet_data();
    void diesUnderASheet();
    void offersInTheMenuWhatCanBeDone();
    void opensTheHelp();

private:
    QTemporaryDir m_disk; ///< with the user's trash, so that it is on the same file system
};

void FileWindowWorkTest::initTestCase()
{
    qputenv("XDG_DATA_HOME", QFile::encodeName(m_disk.filePath("data")));
    startFileBrowserLook();
}

void FileWindowWorkTest::renamesInPlace()
{
    const DiskFolder folder;
    folder.write("a.txt", "text");
    const FileWindowDriver driver(folder.path());
    driver.select({"a.txt"});
    driver.press(Qt::Key_F2);
    QVERIFY(editor(driver));
    QTest::keyClicks(editor(driver), "b <i>.txt"); // The editor takes no markup.
    QTest::keyClick(editor(driver), Qt::Key_Return);
    QTRY_COMPARE(driver.names(), QStringList("b i.txt"));
    COMPARE_CONTENTS(folder.contents(), ({{"b i.txt", "text"}}));
    QTRY_COMPARE(driver.selected(), QStringList("b i.txt"));
}

void FileWindowWorkTest::leavesTheNameWhenRenamingIsCancelled()
{
    const DiskFolder folder;
    folder.write("a.txt", "");
    const FileWindowDriver driver(folder.path());
    driver.select({"a.txt"});
    driver.press(Qt::Key_F2);
    QTest::keyClicks(editor(driver), "b.txt");
    QTest::keyClick(editor(driver), Qt::Key_Escape);
    QCoreApplication::processEvents();
    QCOMPARE(driver.names(), QStringList("a.txt"));
    COMPARE_CONTENTS(folder.contents(), ({{"a.txt", ""}}));
}

void FileWindowWorkTest::givesUpRenamingForAnotherAction()
{
    const DiskFolder folder;
    folder.write("a.txt", "");
    FileWindowDriver driver(folder.path());
    driver.select({"a.txt"});
    driver.press(Qt::Key_F2);
    QTest::keyClicks(editor(driver), "b.txt");
    driver.onSheet("trashSheet", [&](VemoSheet *sheet) {
        QVERIFY(FileWindowDriver::textOf(sheet).contains("<b>a.txt</b>"));
        driver.press(Qt::Key_Escape);
    });
    QTest::mouseClick(driver.part<QWidget>("trashButton"), Qt::LeftButton);
    QCOMPARE(driver.sheetsMet(), 1);
    QCoreApplication::processEvents();
    COMPARE_CONTENTS(folder.contents(), ({{"a.txt", ""}}));
}

void FileWindowWorkTest::renamesNothingOverAnotherFile()
{
    const DiskFolder folder;
    folder.write("a.txt", "a");
    folder.write("b.txt", "b");
    FileWindowDriver driver(folder.path());
    QString told;
    driver.onSheet("messageSheet", [&](VemoSheet *sheet) {
        told = FileWindowDriver::textOf(sheet);
        driver.press(Qt::Key_Return);
    });
    driver.select({"a.txt"});
    driver.press(Qt::Key_F2);
    QTest::keyClicks(editor(driver), "b.txt");
    QTest::keyClick(editor(driver), Qt::Key_Return);
    QTRY_COMPARE(driver.sheetsMet(), 1);
    QVERIFY(told.contains("<b>a.txt</b> could not be renamed to <b>b.txt</b>"));
    QVERIFY(told.contains("There is something with this name already."));
    QCOMPARE(driver.names(), QStringList({"a.txt", "b.txt"}));
    COMPARE_CONTENTS(folder.contents(), ({{"a.txt", "a"}, {"b.txt", "b"}}));
}

void FileWindowWorkTest::renamesWhatTheEditorRefusesByASheet_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::newRow("hidden") << QByteArray(".hidden") << QByteArray(".other");
    QTest::newRow("colon") << QByteArray("a:b") << QByteArray("c:d");
    QTest::newRow("line break") << QByteArray("a\nb") << QByteArray("plain");
    QTest::newRow("no letter") << QByteArray("a\xff") << QByteArray("b\xff");
    QTest::newRow("markup") << QByteArray("<b>&amp;") << QByteArray("<u>12px");
    QTest::newRow("longest") << QByteArray(255, '?') << QByteArray(255, '*');
}

void FileWindowWorkTest::renamesWhatTheEditorRefusesByASheet()
{
    QFETCH(const QByteArray, before);
    QFETCH(const QByteArray, after);
    const DiskFolder folder;
    folder.write(before, "text");
    FileWindowDriver driver(folder.path());
    driver.onSheet("nameSheet", [&](VemoSheet *sheet) {
        QCOMPARE(toNativeName(sheet->findChild<QLineEdit *>()->text()), before);
        enter(sheet, fromNativeName(after));
    });
    driver.select(driver.names());
    driver.press(Qt::Key_F2);
    QCOMPARE(driver.sheetsMet(), 1);
    COMPARE_CONTENTS(folder.contents(), ({{after, "text"}}));
    QTRY_COMPARE(driver.names(), QStringList(fromNativeName(after)));
}

void FileWindowWorkTest::makesAFolder()
{
    const DiskFolder folder;
    FileWindowDriver driver(folder.path());
    const QString place = "Folder: " + nameInText(QFileInfo(folder.path()).fileName());
    driver.onSheet("nameSheet", [place](VemoSheet *sheet) {
        QVERIFY2(FileWindowDriver::textOf(sheet).contains(place),
            qPrintable(FileWindowDriver::textOf(sheet)));
        enter(sheet, "a <b> c");
    });
    driver.press(Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(driver.sheetsMet(), 1);
    COMPARE_CONTENTS(folder.contents(), ({{"a <b> c/", ""}}));
    QTRY_COMPARE(driver.selected(), QStringList("a <b> c"));
}

void FileWindowWorkTest::saysWhatIsWrongWithAName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("problem");
    QTest::newRow("taken") << "taken"
                           << "There is something with this name already.";
    QTest::newRow("dot") << "."
                         << "The system keeps this name for itself.";
    QTest::newRow("too long") << QString(256, 'x') << "This name is too long.";
    QTest::newRow("right") << "free" << QString();
}

void FileWindowWorkTest::saysWhatIsWrongWithAName()
{
    QFETCH(const QString, name);
    QFETCH(const QString, problem);
    const DiskFolder folder;
    folder.makeFolder("taken");
    FileWindowDriver driver(folder.path());
    driver.onSheet("nameSheet", [&](VemoSheet *sheet) {
        QLineEdit *field = static_cast<VemoInputSheet *>(sheet)->getLineEdit();
        QVERIFY(!button(sheet, "OK")->isEnabled());
        field->setText(name);
        QVERIFY(FileWindowDriver::textOf(sheet).contains(problem));
        QCOMPARE(button(sheet, "OK")->isEnabled(), problem.isEmpty());
        const QString before = field->text();
        QTest::keyClick(field, Qt::Key_Slash);
        QCOMPARE(field->text(), before);
        driver.press(Qt::Key_Escape);
    });
    driver.action("newFolderAction")->trigger();
    QCOMPARE(driver.sheetsMet(), 1);
    COMPARE_CONTENTS(folder.contents(), ({{"taken/", ""}}));
}

void FileWindowWorkTest::movesToTheTrashOnlyAfterTwoConfirmations()
{
    const DiskFolder folder(QFile::encodeName(m_disk.path()));
    folder.write("a.txt", "");
    folder.write("b.txt", "");
    folder.write("c.txt", "");
    FileWindowDriver driver(folder.path());
    driver.onSheet("trashSheet", [&](VemoSheet *sheet) {
        QPushButton *apply = button(sheet, "Move to trash");
        QVERIFY(!apply->isEnabled());
        QVERIFY(FileWindowDriver::textOf(sheet).contains("<b>a.txt</b>"));
        sheet->findChild<QCheckBox *>()->click();
        QVERIFY(apply->isEnabled());
        apply->click();
    });
    driver.select({"a.txt", "c.txt"});
    driver.press(Qt::Key_Delete);
    QCOMPARE(driver.sheetsMet(), 1);
    COMPARE_CONTENTS(folder.contents(), ({{"b.txt", ""}}));
    QTRY_COMPARE(driver.names(), QStringList("b.txt"));
    QVERIFY(QFile::exists(m_disk.filePath("data/Trash/files/a.txt")));
}

void FileWindowWorkTest::keepsWhatIsNotConfirmed()
{
    const DiskFolder folder;
    folder.write("a.txt", "");
    FileWindowDriver driver(folder.path());
    driver.onSheet("trashSheet", [&](VemoSheet *) {
        driver.press(Qt::Key_Return); // The button it would press is disabled.
        driver.press(Qt::Key_Escape);
    });
    driver.select({"a.txt"});
    driver.press(Qt::Key_Delete);
    QCOMPARE(driver.sheetsMet(), 1);
    COMPARE_CONTENTS(folder.contents(), ({{"a.txt", ""}}));
}

void FileWindowWorkTest::copiesUnderASheetAndKeepsBoth()
{
    const DiskFolder folder;
    folder.write("a <b>.txt", "text");
    FileWindowDriver driver(folder.path());
    driver.onSheet("copySheet", [](VemoSheet *sheet) {
        QVERIFY(sheet->findChild<QPushButton *>("copyCancel")->isVisible());
    });
    driver.select({"a <b>.txt"});
    driver.press(Qt::Key_C, Qt::ControlModifier);
    driver.press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(driver.sheetsMet(), 1);
    COMPARE_CONTENTS(folder.contents(), ({{"a <b>.txt", "text"}, {"a <b> (2).txt", "text"}}));
    QTRY_COMPARE(driver.selected(), QStringList("a <b> (2).txt"));
}

void FileWindowWorkTest::offersWhatIsLeftOfBrokenCopies_data()
{
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("taken") << true;
    QTest::newRow("left") << false;
}

void FileWindowWorkTest::offersWhatIsLeftOfBrokenCopies()
{
    QFETCH(const bool, isTaken);
    const DiskFolder folder(QFile::encodeName(m_disk.path()));
    folder.write("a.txt", "text");
    folder.write(".copying-notes", "of the user's own");
    folder.write(".copying-0123456789abcdef", "half");
    folder.makeFolder(".copying-9");
    DiskFolder::Contents expected = folder.contents();
    expected.insert("a (2).txt", "text");
    FileWindowDriver driver(folder.path());
    driver.onSheet("leftoverSheet", [&](VemoSheet *sheet) {
        const QString asked = FileWindowDriver::textOf(sheet);
        QVERIFY(asked.contains("<b>2</b>"));
        QVERIFY(asked.contains(".copying-9") && !asked.contains("notes"));
        QCOMPARE(folder.contents().size(), expected.size() - 1); // Nothing is copied yet.
        if (isTaken)
            button(sheet, "Move to trash")->click();
        else
            driver.press(Qt::Key_Escape);
    });
    driver.select({"a.txt"});
    driver.press(Qt::Key_C, Qt::ControlModifier);
    driver.press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(driver.sheetsMet(), 1);
    if (isTaken) {
        for (const QByteArray &name :
            {QByteArray(".copying-0123456789abcdef"), QByteArray(".copying-9/")})
            expected.remove(name);
        QVERIFY(QFile::exists(m_disk.filePath("data/Trash/files/.copying-9")));
    }
    COMPARE_CONTENTS(folder.contents(), (expected));
}

void FileWindowWorkTest::endsACopyByEscape()
{
    const DiskFolder folder;
    folder.write("big", QByteArray(64 * 1024 * 1024, 'x'));
    FileWindowDriver driver(folder.path());
    driver.onSheet("copySheet",
        [&](VemoSheet *sheet) { QTest::keyClick(sheet->findChild<QLabel *>(), Qt::Key_Escape); });
    driver.select({"big"});
    driver.press(Qt::Key_C, Qt::ControlModifier);
    driver.press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(driver.sheetsMet(), 1);
    QCOMPARE(folder.contents().keys(), QList<QByteArray>({"big"}));
    QVERIFY(!isSheetOpen(driver.window()));
}

void FileWindowWorkTest::pastesOnlyFiles()
{
    const DiskFolder folder;
    const FileWindowDriver driver(folder.path());
    auto *data = new QMimeData;
    data->setUrls({QUrl("https://www.example.com/a.txt")});
    QGuiApplication::clipboard()->setMimeData(data);
    driver.press(Qt::Key_V, Qt::ControlModifier);
    QVERIFY(!isSheetOpen(driver.window()));
    QVERIFY(folder.contents().isEmpty());
}

void FileWindowWorkTest::takesNoKeysUnderASheet()
{
    const DiskFolder folder;
    folder.makeFolder("sub");
    FileWindowDriver driver(folder.path("sub"));
    driver.onSheet("nameSheet", [&](VemoSheet *) {
        driver.press(Qt::Key_Backspace);
        driver.action("upAction")->trigger();
        driver.action("newFolderAction")->trigger();
        driver.press(Qt::Key_Escape);
    });
    driver.action("newFolderAction")->trigger();
    QCOMPARE(driver.sheetsMet(), 1);
    QCOMPARE(driver.window()->folder(), folder.path("sub"));
    QVERIFY(!isSheetOpen(driver.window()));
}

void FileWindowWorkTest::diesUnderASheet_data()
{
    QTest::addColumn<QByteArray>("sheet");
    QTest::addColumn<QByteArray>("action");
    QTest::newRow("name of a folder") << QByteArray("nameSheet") << QByteArray("newFolderAction");
    QTest::newRow("new name") << QByteArray("nameSheet") << QByteArray("renameAction");
    QTest::newRow("trash") << QByteArray("trashSheet") << QByteArray("trashAction");
    QTest::newRow("copy") << QByteArray("copySheet") << QByteArray("pasteAction");
    QTest::newRow("leftovers") << QByteArray("leftoverSheet") << QByteArray("pasteAction");
    QTest::newRow("message") << QByteArray("messageSheet") << QByteArray("openAction");
}

void FileWindowWorkTest::diesUnderASheet()
{
    QFETCH(const QByteArray, sheet);
    QFETCH(const QByteArray, action);
    const DiskFolder folder;
    folder.write(".file", "");
    if (sheet == "leftoverSheet")
        folder.write(".copying-1", "half");
    FileWindowDriver driver(folder.path());
    driver.select({".file"});
    driver.press(Qt::Key_C, Qt::ControlModifier);
    if (action == "openAction")
        folder.remove(".file");
    driver.onSheet(sheet, [&](VemoSheet *) { driver.destroyWindow(); });
    driver.action(action)->trigger();
    QCOMPARE(driver.sheetsMet(), 1);
    QCOMPARE(driver.window(), static_cast<FileWindow *>(nullptr));
}

void FileWindowWorkTest::offersInTheMenuWhatCanBeDone()
{
    const DiskFolder folder;
    folder.write("a.txt", "");
    const FileWindowDriver driver(folder.path());
    Q_EMIT driver.window()->table()->menuRequested(QPoint(10, 10));
    auto *menu = driver.part<QMenu>("contextMenu");
    QVERIFY(menu->isVisible());
    QVERIFY(!menu->actions().contains(driver.action("trashAction")));
    QVERIFY(menu->actions().contains(driver.action("newFolderAction")));
    menu->close();
    QTRY_VERIFY(!driver.part<QMenu>("contextMenu"));
    QVERIFY(driver.action("pasteAction")->isEnabled());

    driver.select({"a.txt"});
    const QRect row = driver.table()->visualItemRect(driver.table()->item(0, 0));
    QContextMenuEvent event(QContextMenuEvent::Mouse, row.center());
    QCoreApplication::sendEvent(driver.table()->viewport(), &event);
    menu = driver.part<QMenu>("contextMenu");
    QVERIFY(menu->actions().contains(driver.action("trashAction")));
    menu->close();
}

void FileWindowWorkTest::opensTheHelp()
{
    const DiskFolder folder;
    const FileWindowDriver driver(folder.path());
    driver.press(Qt::Key_F1);
    auto *help = driver.part<QWidget>("helpWindow");
    QVERIFY(help && help->isVisible());
    // The local help is shown when the knowledge base cannot be reached.
    auto *page = help->findChild<QTextBrowser *>();
    QTRY_VERIFY_WITH_TIMEOUT(page->toPlainText().contains("File browser"), 2 * HelpWindow::TIMEOUT);
    help->close();
    QTRY_VERIFY(!driver.part<QWidget>("helpWindow"));
}

VEMO_TEST_MAIN(FileWindowWorkTest)
#include "tst_filewindowwork.moc"
