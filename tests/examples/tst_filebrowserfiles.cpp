// SPDX-License-Identifier: MIT
// What the window does to the disk, by mouse and keyboard. After each the disk is looked at whole.
#include "browserstage.h"

#include "examples/filebrowser/files/nativename.h"
#include "examples/filebrowser/ui/questions.h"
#include "examples/filebrowser/ui/texts.h"
#include "support/vemotest.h"

#include <vemo/vemoinputsheet.h>
#include <vemo/vemomessagesheet.h>

#include <QCheckBox>
#include <QLineEdit>

#include <sys/stat.h>

namespace {

const QByteArray kBig(64 * 1024 * 1024, 'x'); // So that its copying is seen.

QAbstractButton *buttonOf(VemoSheet *sheet, QMessageBox::StandardButton which)
{
    if (auto *input = qobject_cast<VemoInputSheet *>(sheet))
        return input->button(which);
    return qobject_cast<VemoMessageSheet *>(sheet)->button(which);
}

/// A message is read and closed.
SheetDriver::Act closeMessage(const BrowserStage &stage, const QString &part)
{
    return [&stage, part](VemoSheet *sheet) {
        QCOMPARE(sheet->objectName(), QString("messageSheet"));
        QVERIFY2(wordsOf(sheet).contains(part), qPrintable(wordsOf(sheet)));
        stage.press(Qt::Key_Return);
    };
}

/// The box is ticked and the button pressed.
void confirmTrash(const BrowserStage &stage, VemoSheet *sheet)
{
    auto *box = sheet->findChild<QCheckBox *>();
    stage.click(box, QPoint(box->height() / 2, box->height() / 2));
    QVERIFY(box->isChecked());
    stage.click(buttonOf(sheet, QMessageBox::Apply));
}

QLineEdit *editorOf(const BrowserStage &stage)
{
    return stage.table()->viewport()->findChild<QLineEdit *>();
}

} // namespace

class FileBrowserFilesTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void aFileIsRenamedInPlace();
    void escapeLeavesTheName();
    void anotherActionEndsTheRenaming();
    void aTakenNameIsRefused();
    void theEditorTakesNoIllegalName_data();
    void theEditorTakesNoIllegalName();
    void aVanishedFileIsNotRenamed();
    void aNameThatTheEditorCanNotTakeIsAskedFor_data();
    void aNameThatTheEditorCanNotTakeIsAskedFor();
    void aFolderIsMade();
    void aFolderWithAnImpossibleNameIsNotMade_data();
    void aFolderWithAnImpossibleNameIsNotMade();
    void aFolderIsNotMadeInAVanishedOne();
    void nothingIsTrashedUnlessItIsConfirmedTwice_data();
    void nothingIsTrashedUnlessItIsConfirmedTwice();
    void whatIsConfirmedGoesToTheTrash();
    void whatHasVanishedIsReported();
    void keysAndActionsRestUnderASheet();
    void theWindowMayDieUnderASheet_data();
    void theWindowMayDieUnderASheet();
};

void FileBrowserFilesTest::aFileIsRenamedInPlace()
{
    BrowserStage stage;
    stage.home.write("a.txt", "content");
    stage.home.write("b.txt", "other");
    stage.open();
    stage.clickRow("a.txt");
    stage.press(Qt::Key_F2);
    QVERIFY(editorOf(stage));
    QCOMPARE(editorOf(stage)->text(), QString("a.txt"));
    stage.type("new name.txt");
    stage.press(Qt::Key_Return);
    QTRY_COMPARE(stage.names(), QStringList({"b.txt", "new name.txt"}));
    stage.waitUntilRead();
    QCOMPARE(stage.selected(), QStringList("new name.txt"));
    COMPARE_CONTENTS(stage.home.contents(), ({{"b.txt", "other"}, {"new name.txt", "content"}}));
}

void FileBrowserFilesTest::escapeLeavesTheName()
{
    BrowserStage stage;
    stage.home.write("a.txt", "content");
    stage.open();
    stage.clickRow("a.txt");
    stage.press(Qt::Key_F2);
    stage.type("other");
    stage.press(Qt::Key_Escape);
    QTRY_VERIFY(!editorOf(stage));
    QCOMPARE(stage.names(), QStringList("a.txt"));
    COMPARE_CONTENTS(stage.home.contents(), ({{"a.txt", "content"}}));
}

void FileBrowserFilesTest::anotherActionEndsTheRenaming()
{
    BrowserStage stage;
    stage.home.write("a.txt", "content");
    stage.open();
    stage.clickRow("a.txt");
    stage.press(Qt::Key_F2);
    stage.type("b.txt");
    SheetDriver driver(stage.window.get(), {[&](VemoSheet *sheet) {
        QVERIFY2(wordsOf(sheet).contains("a.txt"), qPrintable(wordsOf(sheet)));
        stage.press(Qt::Key_Escape);
    }},
        "trashSheet");
    stage.click(stage.part("trashButton"));
    QTRY_VERIFY(driver.isDone());
    QCoreApplication::processEvents();
    COMPARE_CONTENTS(stage.home.contents(), ({{"a.txt", "content"}}));
}

void FileBrowserFilesTest::aTakenNameIsRefused()
{
    BrowserStage stage;
    stage.home.write("a.txt", "content");
    stage.home.write("b.txt", "other");
    stage.open();
    stage.clickRow("a.txt");
    stage.press(Qt::Key_F2);
    stage.type("b.txt");
    SheetDriver driver(stage.window.get(),
        {closeMessage(stage,
            "a.txt could not be renamed to b.txt.\nThere is something with this name already.")});
    stage.press(Qt::Key_Return);
    QTRY_VERIFY(driver.isDone());
    QCOMPARE(stage.names(), QStringList({"a.txt", "b.txt"}));
    COMPARE_CONTENTS(stage.home.contents(), ({{"a.txt", "content"}, {"b.txt", "other"}}));
}

void FileBrowserFilesTest::theEditorTakesNoIllegalName_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("taken");
    addRow("a slash", "x/y", "xy");
    addRow("a dot at the start", ".x", "x");
    addRow("signs that other systems refuse", "x\\:*?\"<>|y", "xy");
}

void FileBrowserFilesTest::theEditorTakesNoIllegalName()
{
    QFETCH(QString, typed);
    QFETCH(QString, taken);
    BrowserStage stage;
    stage.home.write("a.txt", "content");
    stage.open();
    stage.clickRow("a.txt");
    stage.press(Qt::Key_F2);
    stage.type(typed);
    QCOMPARE(editorOf(stage)->text(), taken);
    stage.press(Qt::Key_Return);
    QTRY_COMPARE(stage.names(), QStringList(taken));
    COMPARE_CONTENTS(stage.home.contents(), ({{taken.toUtf8(), "content"}}));
}

void FileBrowserFilesTest::aVanishedFileIsNotRenamed()
{
    BrowserStage stage;
    stage.home.write("a.txt", "content");
    stage.home.write("b.txt", "other");
    stage.open();
    stage.clickRow("a.txt");
    stage.press(Qt::Key_F2);
    stage.home.remove("a.txt");
    stage.type("c.txt");
    SheetDriver driver(stage.window.get(), {closeMessage(stage, "a.txt is no longer there")});
    stage.press(Qt::Key_Return);
    QTRY_VERIFY(driver.isDone());
    stage.press(Qt::Key_F5);
    QTRY_COMPARE(stage.names(), QStringList("b.txt"));
    COMPARE_CONTENTS(stage.home.contents(), ({{"b.txt", "other"}}));
}

void FileBrowserFilesTest::aNameThatTheEditorCanNotTakeIsAskedFor_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    const auto add = [](const char *row, const QByteArray &before, const QByteArray &after) {
        QTest::newRow(row) << before << after;
    };
    add("hidden", ".hidden", ".other");
    add("a question mark", "what?", "new?");
    add("a colon", "a:b", "c:d");
    add("markup", "<b>&amp;", "<u>12px");
    add("a line break", "a\nb", "plain");
    add("a stray byte", "a\xFF", "b\xFF");
    add("the longest", QByteArray(255, '?'), QByteArray(255, '*'));
}

void FileBrowserFilesTest::aNameThatTheEditorCanNotTakeIsAskedFor()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    BrowserStage stage;
    stage.home.write(before, "content");
    stage.open();
    stage.clickRow(stage.names().value(0));
    SheetDriver driver(stage.window.get(), {[&](VemoSheet *sheet) {
        QCOMPARE(sheet->objectName(), QString("nameSheet"));
        auto *field = sheet->findChild<QLineEdit *>("nameField");
        QCOMPARE(toNativeName(field->text()), before);
        QVERIFY(!buttonOf(sheet, QMessageBox::Ok)->isEnabled());
        stage.type("new");
        QCOMPARE(field->text(), QString("new"));
        QVERIFY(buttonOf(sheet, QMessageBox::Ok)->isEnabled());
        field->setText(fromNativeName(after));
        stage.press(Qt::Key_Return);
    }});
    stage.press(Qt::Key_F2);
    QTRY_VERIFY(driver.isDone());
    QTRY_COMPARE(stage.names(), QStringList(fromNativeName(after)));
    COMPARE_CONTENTS(stage.home.contents(), ({{after, "content"}}));
}

void FileBrowserFilesTest::aFolderIsMade()
{
    BrowserStage stage;
    stage.open();
    SheetDriver driver(stage.window.get(), {[&](VemoSheet *sheet) {
        const QString place = "Folder: " + displayName(stage.home.path().section('/', -1));
        QVERIFY2(wordsOf(sheet).contains(place), qPrintable(wordsOf(sheet)));
        QVERIFY(!buttonOf(sheet, QMessageBox::Ok)->isEnabled());
        stage.type("New & <old>/"); // No name has a slash.
        stage.click(buttonOf(sheet, QMessageBox::Ok));
    }});
    stage.press(Qt::Key_N, Qt::ControlModifier);
    QTRY_VERIFY(driver.isDone());
    QTRY_COMPARE(stage.selected(), QStringList("New & <old>"));
    COMPARE_CONTENTS(stage.home.contents(), ({{"New & <old>/", {}}}));
}

void FileBrowserFilesTest::aFolderWithAnImpossibleNameIsNotMade_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("problem");
    addRow("taken by a file", "a.txt", "There is something with this name already.");
    addRow("taken by a folder", "sub", "There is something with this name already.");
    addRow("the folder itself", ".", "The system keeps this name for itself.");
    addRow("its parent", "..", "The system keeps this name for itself.");
    addRow("too long", QString(256, 'x'), "This name is too long.");
}

void FileBrowserFilesTest::aFolderWithAnImpossibleNameIsNotMade()
{
    QFETCH(QString, name);
    QFETCH(QString, problem);
    BrowserStage stage;
    stage.home.write("a.txt", "content");
    stage.home.makeFolder("sub");
    stage.open();
    const DiskFolder::Contents before = stage.home.contents();
    SheetDriver driver(stage.window.get(), {[&](VemoSheet *sheet) {
        stage.type("x");
        stage.press(Qt::Key_Backspace);
        auto *field = sheet->findChild<QLineEdit *>("nameField");
        if (name.size() > 200)
            field->insert(name);
        else
            stage.type(name);
        QVERIFY2(wordsOf(sheet).contains(problem), qPrintable(wordsOf(sheet)));
        QVERIFY(!buttonOf(sheet, QMessageBox::Ok)->isEnabled());
        stage.click(buttonOf(sheet, QMessageBox::Ok));
        QVERIFY(sheet->isVisible());
        stage.press(Qt::Key_Escape);
    }});
    stage.click(stage.part("newFolderButton"));
    QTRY_VERIFY(driver.isDone());
    COMPARE_CONTENTS(stage.home.contents(), (before));
}

void FileBrowserFilesTest::aFolderIsNotMadeInAVanishedOne()
{
    BrowserStage stage;
    stage.home.makeFolder("sub");
    stage.open(stage.home.path("sub"));
    SheetDriver driver(stage.window.get(),
        {[&](VemoSheet *) {
             stage.type("new");
             stage.home.remove("sub");
             stage.press(Qt::Key_Return);
         },
            closeMessage(stage, "new could not be made")});
    stage.press(Qt::Key_N, Qt::ControlModifier);
    QTRY_VERIFY(driver.isDone());
    QVERIFY(stage.home.contents().isEmpty());
}

void FileBrowserFilesTest::nothingIsTrashedUnlessItIsConfirmedTwice_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<bool>("ticked");
    QTest::newRow("Escape") << Qt::Key_Escape << false;
    QTest::newRow("Escape with the box ticked") << Qt::Key_Escape << true;
    QTest::newRow("Return without the box") << Qt::Key_Return << false;
    QTest::newRow("Space without the box") << Qt::Key_Space << false;
}

void FileBrowserFilesTest::nothingIsTrashedUnlessItIsConfirmedTwice()
{
    QFETCH(Qt::Key, key);
    QFETCH(bool, ticked);
    BrowserStage stage;
    stage.home.write("a.txt", "content");
    stage.open();
    stage.clickRow("a.txt");
    SheetDriver driver(stage.window.get(), {[&](VemoSheet *sheet) {
        QCOMPARE(sheet->objectName(), QString("trashSheet"));
        QVERIFY(!buttonOf(sheet, QMessageBox::Apply)->isEnabled());
        stage.click(buttonOf(sheet, QMessageBox::Apply));
        QVERIFY(sheet->isVisible());
        auto *box = sheet->findChild<QCheckBox *>();
        if (ticked)
            stage.click(box, QPoint(box->height() / 2, box->height() / 2));
        stage.press(key);
        if (sheet->isVisible())
            stage.press(Qt::Key_Escape);
    }});
    stage.press(Qt::Key_Delete);
    QTRY_VERIFY(driver.isDone());
    COMPARE_CONTENTS(stage.home.contents(), ({{"a.txt", "content"}}));
    QVERIFY(stage.trash.contents().isEmpty());
}

void FileBrowserFilesTest::whatIsConfirmedGoesToTheTrash()
{
    BrowserStage stage;
    stage.home.write("a.txt", "content");
    stage.home.write("b.txt", "other");
    stage.home.makeFolder("sub");
    stage.home.write("sub/c.txt", "inner");
    stage.home.write("stays.txt", "stays");
    stage.open();
    stage.clickRow("sub");
    stage.clickRow("b.txt", Qt::ShiftModifier);
    QCOMPARE(stage.selected().size(), 3);
    SheetDriver driver(stage.window.get(), {[&](VemoSheet *sheet) { confirmTrash(stage, sheet); }});
    stage.press(Qt::Key_Delete);
    QTRY_VERIFY(driver.isDone());
    QTRY_COMPARE(stage.names(), QStringList("stays.txt"));
    COMPARE_CONTENTS(stage.home.contents(), ({{"stays.txt", "stays"}}));
    COMPARE_CONTENTS(stage.trash.contentsOfTrash(),
        ({{"a.txt", "content"}, {"b.txt", "other"}, {"sub/", {}}, {"sub/c.txt", "inner"}}));
}

void FileBrowserFilesTest::whatHasVanishedIsReported()
{
    BrowserStage stage;
    stage.home.write("a.txt", "content");
    stage.home.write("b.txt", "other");
    stage.open();
    stage.clickRow("a.txt");
    stage.clickRow("b.txt", Qt::ShiftModifier);
    SheetDriver driver(stage.window.get(),
        {[&](VemoSheet *sheet) {
             stage.home.remove("a.txt");
             confirmTrash(stage, sheet);
         },
            closeMessage(stage, "a.txt: No such file")});
    stage.press(Qt::Key_Delete);
    QTRY_VERIFY(driver.isDone());
    QTRY_COMPARE(stage.names(), QStringList());
    COMPARE_CONTENTS(stage.trash.contentsOfTrash(), ({{"b.txt", "other"}}));
}

void FileBrowserFilesTest::keysAndActionsRestUnderASheet()
{
    BrowserStage stage;
    stage.home.makeFolder("sub");
    stage.open(stage.home.path("sub"));
    SheetDriver driver(stage.window.get(), {[&](VemoSheet *) {
        stage.press(Qt::Key_Backspace);
        stage.action("upAction")->trigger();
        stage.action("newFolderAction")->trigger();
        stage.press(Qt::Key_Escape);
    }});
    stage.action("newFolderAction")->trigger();
    QTRY_VERIFY(driver.isDone());
    QCOMPARE(stage.window->folder(), stage.home.path("sub"));
}

void FileBrowserFilesTest::theWindowMayDieUnderASheet_data()
{
    QTest::addColumn<QByteArray>("sheet");
    QTest::addColumn<QByteArray>("action");
    const auto add = [](const char *row, const QByteArray &sheet, const QByteArray &action) {
        QTest::newRow(row) << sheet << action;
    };
    add("name of a folder", "nameSheet", "newFolderAction");
    add("new name", "nameSheet", "renameAction");
    add("trash", "trashSheet", "trashAction");
    add("copy", "copySheet", "pasteAction");
    add("leftovers", "leftoverSheet", "pasteAction");
    add("message", "messageSheet", "openAction");
}

void FileBrowserFilesTest::theWindowMayDieUnderASheet()
{
    QFETCH(const QByteArray, sheet);
    QFETCH(const QByteArray, action);
    BrowserStage stage;
    stage.home.write(".file", sheet == "copySheet" ? kBig : QByteArray());
    if (sheet == "leftoverSheet")
        stage.home.write(".copying-1", "half");
    stage.open();
    stage.select({".file"});
    stage.press(Qt::Key_C, Qt::ControlModifier);
    if (action == "openAction")
        stage.home.remove(".file");
    SheetDriver driver(stage.window.get(), {[&](VemoSheet *) { stage.window.reset(); }}, sheet);
    stage.action(action)->trigger();
    QVERIFY(driver.isDone());
    QVERIFY(!stage.window);
}

VEMO_TEST_MAIN(FileBrowserFilesTest)
#include "tst_filebrowserfiles.moc"
