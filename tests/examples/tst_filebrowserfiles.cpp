// SPDX-License-Identifier: MIT
// What the window does to the disk, by mouse and keyboard. After each the disk is looked at whole.
#include "browserstage.h"

#include "support/vemotest.h"

#include <vemo/vemoinputsheet.h>
#include <vemo/vemomessagesheet.h>

#include <QCheckBox>
#include <QLineEdit>

#include <sys/stat.h>

namespace {

QAbstractButton *buttonOf(VemoSheet *sheet, QMessageBox::StandardButton which)
{
    if (auto *input = qobject_cast<VemoInputSheet *>(sheet))
        return input->button(which);
    return qobject_cast<VemoMessageSheet *>(sheet)->button(which);
}

/// A message is read and closed.
OnSheets::Act closeMessage(const BrowserStage &stage, const QString &part)
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
    void whatHasVanishedMeanwhileIsTold();
    void filesAreCopied();
    void copyingToTheSameFolderKeepsBoth();
    void cancellingACopyLeavesNothing();
    void whatCanNotBeCopiedIsTold();
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
    QCOMPARE(stage.window->table()->selectedNames(), QStringList("new name.txt"));
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

void FileBrowserFilesTest::aTakenNameIsRefused()
{
    BrowserStage stage;
    stage.home.write("a.txt", "content");
    stage.home.write("b.txt", "other");
    stage.open();
    stage.clickRow("a.txt");
    stage.press(Qt::Key_F2);
    stage.type("b.txt");
    OnSheets driver(stage, {closeMessage(stage, "a.txt could not be renamed to b.txt")});
    stage.press(Qt::Key_Return);
    QTRY_VERIFY(driver.isDone());
    QCOMPARE(stage.names(), QStringList({"a.txt", "b.txt"}));
    COMPARE_CONTENTS(stage.home.contents(), ({{"a.txt", "content"}, {"b.txt", "other"}}));
}

void FileBrowserFilesTest::theEditorTakesNoIllegalName_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("taken");
    QTest::newRow("a slash") << "x/y"
                             << "xy";
    QTest::newRow("a dot at the start") << ".x"
                                        << "x";
    QTest::newRow("signs that other systems refuse") << "x\\:*?\"<>|y"
                                                     << "xy";
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
    OnSheets driver(stage, {closeMessage(stage, "a.txt is no longer there")});
    stage.press(Qt::Key_Return);
    QTRY_VERIFY(driver.isDone());
    stage.press(Qt::Key_F5);
    QTRY_COMPARE(stage.names(), QStringList("b.txt"));
    COMPARE_CONTENTS(stage.home.contents(), ({{"b.txt", "other"}}));
}

void FileBrowserFilesTest::aNameThatTheEditorCanNotTakeIsAskedFor_data()
{
    QTest::addColumn<QByteArray>("name");
    QTest::newRow("hidden") << QByteArray(".hidden");
    QTest::newRow("a question mark") << QByteArray("what?");
    QTest::newRow("markup") << QByteArray("<b>&amp;");
    QTest::newRow("a line break") << QByteArray("a\nb");
    QTest::newRow("a stray byte") << QByteArray("a\xFF"
                                                "b");
}

void FileBrowserFilesTest::aNameThatTheEditorCanNotTakeIsAskedFor()
{
    QFETCH(QByteArray, name);
    BrowserStage stage;
    stage.home.write(name, "content");
    stage.open();
    stage.clickRow(stage.names().value(0));
    OnSheets driver(stage, {[&](VemoSheet *sheet) {
        QCOMPARE(sheet->objectName(), QString("nameSheet"));
        QVERIFY(!buttonOf(sheet, QMessageBox::Ok)->isEnabled());
        stage.type("new?");
        QVERIFY(buttonOf(sheet, QMessageBox::Ok)->isEnabled());
        stage.press(Qt::Key_Return);
    }});
    stage.press(Qt::Key_F2);
    QTRY_VERIFY(driver.isDone());
    QTRY_COMPARE(stage.names(), QStringList("new?"));
    COMPARE_CONTENTS(stage.home.contents(), ({{"new?", "content"}}));
}

void FileBrowserFilesTest::aFolderIsMade()
{
    BrowserStage stage;
    stage.open();
    OnSheets driver(stage, {[&](VemoSheet *sheet) {
        QVERIFY(!buttonOf(sheet, QMessageBox::Ok)->isEnabled());
        stage.type("New & <old>");
        stage.click(buttonOf(sheet, QMessageBox::Ok));
    }});
    stage.press(Qt::Key_N, Qt::ControlModifier);
    QTRY_VERIFY(driver.isDone());
    QTRY_COMPARE(stage.window->table()->selectedNames(), QStringList("New & <old>"));
    COMPARE_CONTENTS(stage.home.contents(), ({{"New & <old>/", {}}}));
}

void FileBrowserFilesTest::aFolderWithAnImpossibleNameIsNotMade_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("problem");
    QTest::newRow("taken by a file") << "a.txt"
                                     << "There is something with this name already.";
    QTest::newRow("taken by a folder") << "sub"
                                       << "There is something with this name already.";
    QTest::newRow("the folder itself") << "."
                                       << "The system keeps this name for itself.";
    QTest::newRow("its parent") << ".."
                                << "The system keeps this name for itself.";
    QTest::newRow("too long") << QString(256, 'x') << "This name is too long.";
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
    OnSheets driver(stage, {[&](VemoSheet *sheet) {
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
    OnSheets driver(stage,
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
    OnSheets driver(stage, {[&](VemoSheet *sheet) {
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
    QCOMPARE(stage.window->table()->selectedNames().size(), 3);
    OnSheets driver(stage, {[&](VemoSheet *sheet) { confirmTrash(stage, sheet); }});
    stage.press(Qt::Key_Delete);
    QTRY_VERIFY(driver.isDone());
    QTRY_COMPARE(stage.names(), QStringList("stays.txt"));
    COMPARE_CONTENTS(stage.home.contents(), ({{"stays.txt", "stays"}}));
    COMPARE_CONTENTS(stage.trash.contentsOfTrash(),
        ({{"a.txt", "content"}, {"b.txt", "other"}, {"sub/", {}}, {"sub/c.txt", "inner"}}));
}

void FileBrowserFilesTest::whatHasVanishedMeanwhileIsTold()
{
    BrowserStage stage;
    stage.home.write("a.txt", "content");
    stage.home.write("b.txt", "other");
    stage.open();
    stage.clickRow("a.txt");
    stage.clickRow("b.txt", Qt::ShiftModifier);
    OnSheets driver(stage,
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

void FileBrowserFilesTest::filesAreCopied()
{
    BrowserStage stage;
    stage.home.write("a.txt", "content");
    stage.home.write("b\n<b>.txt", "other");
    stage.home.makeFolder("sub");
    stage.home.write("sub/a.txt", "taken");
    stage.open();
    stage.clickRow("a.txt");
    stage.clickRow("b\n<b>.txt", Qt::ShiftModifier);
    stage.press(Qt::Key_C, Qt::ControlModifier);
    stage.doubleClickRow("sub");
    stage.waitUntilRead();
    const SheetLog log;
    stage.press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(log.shown, QStringList("copySheet"));
    QTRY_COMPARE(stage.names(), QStringList({"a (2).txt", "a.txt", "b\n<b>.txt"}));
    COMPARE_CONTENTS(stage.home.contents(),
        ({{"a.txt", "content"}, {"b\n<b>.txt", "other"}, {"sub/", {}}, {"sub/a (2).txt", "content"},
            {"sub/a.txt", "taken"}, {"sub/b\n<b>.txt", "other"}}));
}

void FileBrowserFilesTest::copyingToTheSameFolderKeepsBoth()
{
    BrowserStage stage;
    stage.home.makeFolder("sub");
    stage.home.write("sub/a.txt", "content");
    stage.open();
    stage.clickRow("sub");
    stage.press(Qt::Key_C, Qt::ControlModifier);
    stage.press(Qt::Key_V, Qt::ControlModifier);
    QTRY_COMPARE(stage.window->table()->selectedNames(), QStringList("sub (2)"));
    COMPARE_CONTENTS(stage.home.contents(),
        ({{"sub/", {}}, {"sub/a.txt", "content"}, {"sub (2)/", {}}, {"sub (2)/a.txt", "content"}}));
}

void FileBrowserFilesTest::cancellingACopyLeavesNothing()
{
    BrowserStage stage;
    stage.home.makeFolder("sub");
    stage.home.makeFolder("many");
    for (int i = 0; i < 5000; ++i)
        stage.home.write("many/" + QByteArray::number(i), "");
    const DiskFolder::Contents before = stage.home.contents();
    stage.open();
    stage.clickRow("many");
    stage.press(Qt::Key_C, Qt::ControlModifier);
    stage.doubleClickRow("sub");
    stage.waitUntilRead();
    OnSheets driver(stage,
        {[&](VemoSheet *sheet) { stage.click(sheet->findChild<QAbstractButton *>("copyCancel")); }},
        "copySheet");
    stage.press(Qt::Key_V, Qt::ControlModifier);
    QTRY_VERIFY(driver.isDone());
    stage.waitUntilRead();
    QCOMPARE(stage.names(), QStringList());
    COMPARE_CONTENTS(stage.home.contents(), (before));
}

void FileBrowserFilesTest::whatCanNotBeCopiedIsTold()
{
    BrowserStage stage;
    stage.home.makeFolder("sub");
    stage.home.write("a.txt", "content");
    stage.home.write("b.txt", "other");
    stage.open();
    stage.clickRow("sub");
    stage.clickRow("b.txt", Qt::ShiftModifier);
    stage.press(Qt::Key_C, Qt::ControlModifier);
    stage.home.remove("a.txt");
    stage.doubleClickRow("sub");
    stage.waitUntilRead();
    OnSheets driver(stage, {closeMessage(stage, "a.txt: No such file")}, "messageSheet");
    stage.press(Qt::Key_V, Qt::ControlModifier);
    QTRY_VERIFY(driver.isDone());
    COMPARE_CONTENTS(
        stage.home.contents(), ({{"b.txt", "other"}, {"sub/", {}}, {"sub/b.txt", "other"}}));
}

VEMO_TEST_MAIN(FileBrowserFilesTest)
#include "tst_filebrowserfiles.moc"
