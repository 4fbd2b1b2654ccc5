// SPDX-License-Identifier: MIT
// Copying in the file browser's window. After each copy the whole disk is compared.
#include "browserstage.h"

#include "examples/filebrowser/ui/questions.h"
#include "support/iswindows.h"
#include "support/vemotest.h"

#include <vemo/vemomessagesheet.h>

#include <QAbstractButton>
#include <QClipboard>
#include <QMimeData>

namespace {

/// Windows allows neither line breaks nor angle brackets in names.
constexpr auto kMarkUpName = kIsWindows ? "b & 'b'.txt" : "b\n<b>.txt";

} // namespace

class FileBrowserCopiesTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void filesAreCopied();
    void copyingToTheSameFolderKeepsBoth();
    void cancellingACopyLeavesNothing();
    void escapeEndsACopy();
    void leftoversOfBrokenCopiesAreOffered_data();
    void leftoversOfBrokenCopiesAreOffered();
    void onlyFilesArePasted();
    void whatCannotBeCopiedIsReported();
};

void FileBrowserCopiesTest::filesAreCopied()
{
    BrowserStage stage;
    stage.home.write("a.txt", "content");
    stage.home.write(kMarkUpName, "other");
    stage.home.makeFolder("sub");
    stage.home.write("sub/a.txt", "taken");
    stage.open();
    stage.clickRow("a.txt");
    stage.clickRow(kMarkUpName, Qt::ShiftModifier);
    stage.press(Qt::Key_C, Qt::ControlModifier);
    stage.doubleClickRow("sub");
    stage.waitUntilRead();
    const SheetLog log;
    stage.press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(log.shown, QStringList("copySheet"));
    QTRY_COMPARE(stage.names(), QStringList({"a (2).txt", "a.txt", kMarkUpName}));
    COMPARE_CONTENTS(stage.home.contents(),
        ({{"a.txt", "content"}, {kMarkUpName, "other"}, {"sub/", {}}, {"sub/a (2).txt", "content"},
            {"sub/a.txt", "taken"}, {QByteArray("sub/") + kMarkUpName, "other"}}));
}

void FileBrowserCopiesTest::copyingToTheSameFolderKeepsBoth()
{
    BrowserStage stage;
    stage.home.makeFolder("sub");
    stage.home.write("sub/a.txt", "content");
    stage.open();
    stage.clickRow("sub");
    stage.press(Qt::Key_C, Qt::ControlModifier);
    stage.press(Qt::Key_V, Qt::ControlModifier);
    QTRY_COMPARE(stage.selected(), QStringList("sub (2)"));
    COMPARE_CONTENTS(stage.home.contents(),
        ({{"sub/", {}}, {"sub/a.txt", "content"}, {"sub (2)/", {}}, {"sub (2)/a.txt", "content"}}));
}

void FileBrowserCopiesTest::cancellingACopyLeavesNothing()
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
    SheetDriver driver(stage.window.get(),
        {[&](VemoSheet *sheet) { stage.click(sheet->findChild<QAbstractButton *>("copyCancel")); }},
        "copySheet");
    stage.press(Qt::Key_V, Qt::ControlModifier);
    QTRY_VERIFY(driver.isDone());
    stage.waitUntilRead();
    QCOMPARE(stage.names(), QStringList());
    COMPARE_CONTENTS(stage.home.contents(), (before));
}

void FileBrowserCopiesTest::escapeEndsACopy()
{
    BrowserStage stage;
    stage.home.write("big", QByteArray(64 * 1024 * 1024, 'x'));
    stage.open();
    stage.select({"big"});
    SheetDriver driver(
        stage.window.get(), {[&](VemoSheet *) { stage.press(Qt::Key_Escape); }}, "copySheet");
    stage.press(Qt::Key_C, Qt::ControlModifier);
    stage.press(Qt::Key_V, Qt::ControlModifier);
    QTRY_VERIFY(driver.isDone());
    stage.waitUntilRead();
    QCOMPARE(stage.home.contents().keys(), QList<QByteArray>({"big"}));
}

void FileBrowserCopiesTest::leftoversOfBrokenCopiesAreOffered_data()
{
    QTest::addColumn<bool>("isTaken");
    QTest::newRow("moved to the trash") << true;
    QTest::newRow("left") << false;
}

void FileBrowserCopiesTest::leftoversOfBrokenCopiesAreOffered()
{
    QFETCH(const bool, isTaken);
    BrowserStage stage;
    stage.home.write("a.txt", "text");
    stage.home.write(".copying-notes", "of the user's own");
    stage.home.write(".copying-0123456789abcdef", "half");
    stage.home.makeFolder(".copying-9");
    QList<QByteArray> leftovers {".copying-0123456789abcdef"};
    if (!kIsWindows) // There a folder can't be known to be unused.
        leftovers += ".copying-9/";
    stage.open();
    DiskFolder::Contents expected = stage.home.contents();
    SheetDriver driver(stage.window.get(), {[&](VemoSheet *sheet) {
        const QString asked = wordsOf(sheet);
        QVERIFY2(asked.contains(QString("folder: %1.").arg(leftovers.size())), qPrintable(asked));
        QCOMPARE(asked.contains(".copying-9"), !kIsWindows);
        QVERIFY(!asked.contains("notes"));
        COMPARE_CONTENTS(stage.home.contents(), (expected)); // Nothing is copied yet.
        if (isTaken)
            stage.click(qobject_cast<VemoMessageSheet *>(sheet)->button(QMessageBox::Apply));
        else
            stage.press(Qt::Key_Escape);
    }},
        "leftoverSheet");
    stage.select({"a.txt"});
    stage.press(Qt::Key_C, Qt::ControlModifier);
    stage.press(Qt::Key_V, Qt::ControlModifier);
    QTRY_VERIFY(driver.isDone());
    expected.insert("a (2).txt", "text");
    DiskFolder::Contents trashed;
    if (isTaken) {
        for (const QByteArray &name : leftovers)
            trashed.insert(name, expected.take(name));
    }
    QTRY_COMPARE(linesOf(stage.home.contents()), linesOf(expected));
    if (!kIsWindows) // There the recycle bin is elsewhere.
        COMPARE_CONTENTS(stage.trash.contentsOfTrash(), (trashed));
}

void FileBrowserCopiesTest::onlyFilesArePasted()
{
    BrowserStage stage;
    stage.open();
    auto *data = new QMimeData;
    data->setUrls({QUrl("https://www.example.com/a.txt")});
    QGuiApplication::clipboard()->setMimeData(data);
    stage.press(Qt::Key_V, Qt::ControlModifier);
    QVERIFY(!isSheetOpen(stage.window.get()));
    QVERIFY(stage.home.contents().isEmpty());
}

void FileBrowserCopiesTest::whatCannotBeCopiedIsReported()
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
    SheetDriver driver(stage.window.get(), {[&](VemoSheet *sheet) {
        QVERIFY2(wordsOf(sheet).contains("a.txt: No such file"), qPrintable(wordsOf(sheet)));
        stage.press(Qt::Key_Return);
    }},
        "messageSheet");
    stage.press(Qt::Key_V, Qt::ControlModifier);
    QTRY_VERIFY(driver.isDone());
    COMPARE_CONTENTS(
        stage.home.contents(), ({{"b.txt", "other"}, {"sub/", {}}, {"sub/b.txt", "other"}}));
}

VEMO_TEST_MAIN(FileBrowserCopiesTest)
#include "tst_filebrowsercopies.moc"
