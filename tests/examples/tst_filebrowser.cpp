// SPDX-License-Identifier: MIT
// Ways through the folders and what the window shows of an entry, by mouse and keyboard.
#include "browserstage.h"

#include "examples/filebrowser/files/paths.h"
#include "support/iswindows.h"
#include "support/vemotest.h"

#include <vemo/filesystemtreewidgetitem.h>
#include <vemo/helpwindow.h>
#include <vemo/tooltiptext.h>
#include <vemo/vemotreewidget.h>

#include <QDesktopServices>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTextBrowser>
#include <QToolTip>

namespace {

/// Windows allows no angle brackets in names.
constexpr auto kMarkUpName = kIsWindows ? "a & 'b' &lt;.txt" : "<b>a< b> & \"b\".txt";

/// Records what would have been opened.
class Desktop : public QObject
{
    Q_OBJECT

public:
    Desktop() { QDesktopServices::setUrlHandler("file", this, "slotOpen"); }
    ~Desktop() override { QDesktopServices::unsetUrlHandler("file"); }

    QList<QUrl> opened;

public Q_SLOTS:
    void slotOpen(const QUrl &url) { opened << url; }
};

/// Reads a message and closes it.
SheetDriver::Act closeMessage(const BrowserStage &stage, const QString &part)
{
    return [&stage, part](VemoSheet *sheet) {
        QVERIFY2(wordsOf(sheet).contains(part), qPrintable(wordsOf(sheet)));
        stage.press(Qt::Key_Return);
    };
}

QTreeWidgetItem *treeItem(const BrowserStage &stage, const QString &path)
{
    auto *tree = stage.part<VemoTreeWidget>("folderTree");
    for (QTreeWidgetItemIterator i(tree); *i; ++i) {
        if (static_cast<FileSystemTreeWidgetItem *>(*i)->getPath() == path)
            return *i;
    }
    return nullptr;
}

QPushButton *pathButton(const BrowserStage &stage, const QString &text)
{
    for (QPushButton *button : stage.part("pathBar")->findChildren<QPushButton *>()) {
        if (button->text() == text)
            return button;
    }
    return nullptr;
}

/// Name, size and kind.
QStringList cellsOf(const BrowserStage &stage, int row)
{
    QStringList texts;
    for (int column = 0; column < 3; ++column)
        texts += stage.table()->item(row, column)->text();
    return texts;
}

QString detail(const BrowserStage &stage, const char *name)
{
    return stage.part<QLabel>(name)->text();
}

void openByTree(const BrowserStage &stage)
{
    auto *tree = stage.part<VemoTreeWidget>("folderTree");
    QTRY_VERIFY(treeItem(stage, stage.home.path()));
    tree->expandItem(treeItem(stage, stage.home.path()));
    QTRY_VERIFY(treeItem(stage, stage.home.path("sub")));
    QTreeWidgetItem *item = treeItem(stage, stage.home.path("sub"));
    tree->scrollToItem(item);
    stage.click(tree->viewport(), tree->visualItemRect(item).center());
}

void openByPathBar(const BrowserStage &stage)
{
    stage.doubleClickRow("sub");
    stage.waitUntilRead();
    stage.doubleClickRow("deep");
    stage.waitUntilRead();
    QVERIFY(pathButton(stage, "sub"));
    stage.click(pathButton(stage, "sub"));
}

void rightClickRow(const BrowserStage &stage, const QString &name)
{
    // By the window's own route, which alone asks for the menu.
    const QPoint place = stage.table()->viewport()->mapTo(stage.window.get(), stage.placeOf(name));
    QTest::mouseClick(stage.window->windowHandle(), Qt::RightButton, Qt::NoModifier, place);
}

void openByMenu(const BrowserStage &stage)
{
    OnPopup menu([&](QWidget *popup) {
        QVERIFY(popup->actions().contains(stage.action("trashAction")));
        stage.clickAction(popup, "openAction");
    });
    rightClickRow(stage, "sub");
    QTRY_VERIFY(menu.isDone());
}

const QMap<QString, std::function<void(const BrowserStage &)>> &waysToSub()
{
    static const QMap<QString, std::function<void(const BrowserStage &)>> ways {
        {"double click", [](const BrowserStage &stage) { stage.doubleClickRow("sub"); }},
        {"Return",
            [](const BrowserStage &stage) {
                stage.clickRow("sub");
                stage.press(Qt::Key_Return);
            }},
        {"tree", openByTree},
        {"path bar", openByPathBar},
        {"menu", openByMenu},
    };
    return ways;
}

} // namespace

class FileBrowserTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void theFolderIsShownInOrder();
    void anEmptyFolderSaysSo();
    void aFolderThatIsGoneLeadsToTheNearest();
    void aFolderThatCannotBeReadIsNotOpened();
    void aFolderIsOpened_data();
    void aFolderIsOpened();
    void aFileIsOpenedOnlyWhenAsked();
    void aNameThatIsNoTextIsOpened();
    void aFileThatHasVanishedIsNotOpened();
    void thePathBarLeadsToEachParent();
    void theTreeShowsAHiddenFolderThatIsOpen();
    void theWayUpSelectsWhereOneCameFrom();
    void theTreeReadsAFolderWhenItIsOpened();
    void theDetailsShowAllOfAnEntry();
    void theDetailsNameALink();
    void actionsNeedASelection();
    void theDetailsAreHiddenByTheirKey();
    void theHelpIsLocal();
    void theToolTipShowsTheNameAsItIs();
    void theMenuActsOnTheEntryUnderThePointer();
    void theMenuBesideTheEntriesIsThatOfTheFolder();
};

void FileBrowserTest::theFolderIsShownInOrder()
{
    BrowserStage stage;
    stage.home.write("b 10.txt", "12345");
    stage.home.write("B 9.TXT", "");
    stage.home.write(".hidden", QByteArray(2048, 'x'));
    stage.home.makeFolder("z");
    stage.open();
    QCOMPARE(stage.names(), QStringList({"z", ".hidden", "B 9.TXT", "b 10.txt"}));
    QVERIFY(stage.window->windowTitle().startsWith(stage.home.path().section('/', -1)));
    QCOMPARE(stage.footer(), QString("Items: 4"));
    QCOMPARE(cellsOf(stage, 0), QStringList({"z", "", "Folder"}));
    QCOMPARE(cellsOf(stage, 1), QStringList({".hidden", "2.0 kB", "Other file"}));
    QCOMPARE(cellsOf(stage, 2), QStringList({"B 9.TXT", "0 B", "Text"}));
    QCOMPARE(cellsOf(stage, 3), QStringList({"b 10.txt", "5 B", "Text"}));
    QVERIFY(!stage.table()->item(3, 3)->text().isEmpty());
}

void FileBrowserTest::anEmptyFolderSaysSo()
{
    BrowserStage stage;
    stage.open();
    QVERIFY(stage.part("emptyText")->isVisible());
    QCOMPARE(stage.part<QLabel>("emptyText")->text(), QString("This folder is empty."));
}

void FileBrowserTest::aFolderThatIsGoneLeadsToTheNearest()
{
    BrowserStage stage;
    stage.home.write("a.txt", "");
    stage.home.makeFolder("sub");
    stage.open(stage.home.path("sub"));
    stage.home.remove("sub");
    SheetDriver driver(stage.window.get(),
        {closeMessage(
            stage, "The folder " + pathForUsers(stage.home.path("sub")) + " cannot be read.")});
    stage.press(Qt::Key_F5);
    QTRY_VERIFY(driver.isDone());
    QTRY_COMPARE(stage.names(), QStringList("a.txt"));
    QCOMPARE(stage.window->folder(), stage.home.path());
}

void FileBrowserTest::aFolderThatCannotBeReadIsNotOpened()
{
    BrowserStage stage;
    stage.home.makeFolder("sub");
    stage.open(stage.home.path("sub"));
    const QString reason = QString::fromLocal8Bit(strerror(ENOENT));
    SheetDriver driver(stage.window.get(), {closeMessage(stage, reason)});
    stage.window->openFolder(stage.home.path("gone"));
    QTRY_VERIFY(driver.isDone());
    QCOMPARE(stage.window->folder(), stage.home.path("sub"));
}

void FileBrowserTest::aFolderIsOpened_data()
{
    QTest::addColumn<QString>("way");
    for (const QString &way : waysToSub().keys())
        QTest::newRow(qPrintable(way)) << way;
}

void FileBrowserTest::aFolderIsOpened()
{
    QFETCH(QString, way);
    BrowserStage stage;
    stage.home.makeFolder("sub");
    stage.home.makeFolder("sub/deep");
    stage.home.write("sub/a.txt", "");
    stage.open();
    waysToSub().value(way)(stage);
    QTRY_COMPARE(stage.window->folder(), stage.home.path("sub"));
    QTRY_COMPARE(stage.names(), QStringList({"deep", "a.txt"}));
    QTRY_COMPARE(stage.part<VemoTreeWidget>("folderTree")->currentItem(),
        treeItem(stage, stage.home.path("sub")));
    QVERIFY(pathButton(stage, "sub"));
}

void FileBrowserTest::aFileIsOpenedOnlyWhenAsked()
{
    BrowserStage stage;
    stage.home.write("a b#%.txt", "");
    stage.open();
    Desktop desktop;
    stage.select({stage.names().first()});
    QVERIFY(desktop.opened.isEmpty());
    stage.press(Qt::Key_Return);
    const QString path = QLatin1String(kIsWindows ? "" : "/") + stage.home.path("a b#%.txt").mid(1);
    QCOMPARE(desktop.opened, QList<QUrl> {QUrl::fromLocalFile(path)});
}

void FileBrowserTest::aNameThatIsNoTextIsOpened()
{
    if (kIsWindows)
        QSKIP("There names are not bytes.");
    BrowserStage stage;
    stage.home.write("bad\xff.txt", "");
    stage.open();
    const Desktop desktop;
    stage.select(stage.names());
    stage.press(Qt::Key_Return);
    QCOMPARE(desktop.opened.size(), 1);
    QVERIFY(desktop.opened.first().toEncoded().endsWith("/bad%FF.txt"));
}

void FileBrowserTest::aFileThatHasVanishedIsNotOpened()
{
    BrowserStage stage;
    stage.home.write("a.txt", "");
    stage.open();
    const qint64 before = stage.table()->item(0, 0)->icon().pixmap(16).cacheKey();
    stage.home.remove("a.txt");
    const Desktop desktop;
    SheetDriver driver(stage.window.get(), {closeMessage(stage, "a.txt is no longer there")});
    stage.select({"a.txt"});
    stage.press(Qt::Key_Return);
    QTRY_VERIFY(driver.isDone());
    QVERIFY(desktop.opened.isEmpty());
    QVERIFY(stage.table()->item(0, 0)->icon().pixmap(16).cacheKey() != before);
}

void FileBrowserTest::thePathBarLeadsToEachParent()
{
    const QByteArray inner = kIsWindows ? "a & b/inner" : "a & b/new\nline";
    BrowserStage stage;
    stage.home.makeFolder("a & b");
    stage.home.makeFolder(inner);
    stage.open(stage.home.path(inner));
    QVERIFY(pathButton(stage, "a && b"));
    pathButton(stage, "a && b")->click();
    QCOMPARE(stage.window->folder(), stage.home.path("a & b"));
    pathButton(stage, "Computer")->click();
    QCOMPARE(stage.window->folder(), QString("/"));
    QVERIFY(!stage.action("upAction")->isEnabled());
    stage.waitUntilRead();
}

void FileBrowserTest::theTreeShowsAHiddenFolderThatIsOpen()
{
    BrowserStage stage;
    stage.home.makeFolder(".hidden");
    stage.open(stage.home.path(".hidden"));
    auto *tree = stage.part<VemoTreeWidget>("folderTree");
    QTRY_VERIFY(treeItem(stage, stage.home.path(".hidden")));
    QTRY_COMPARE(tree->currentItem(), treeItem(stage, stage.home.path(".hidden")));
}

void FileBrowserTest::theWayUpSelectsWhereOneCameFrom()
{
    BrowserStage stage;
    for (const char *name : {"a", "b", "c"})
        stage.home.makeFolder(name);
    stage.open(stage.home.path("b"));
    stage.press(Qt::Key_Backspace);
    QTRY_COMPARE(stage.selected(), QStringList("b"));
    stage.press(Qt::Key_Return);
    QTRY_COMPARE(stage.window->folder(), stage.home.path("b"));
    stage.waitUntilRead();
    stage.click(stage.part("upButton"));
    QTRY_COMPARE(stage.selected(), QStringList("b"));
}

void FileBrowserTest::theTreeReadsAFolderWhenItIsOpened()
{
    BrowserStage stage;
    stage.home.makeFolder("sub");
    stage.home.makeFolder("sub/deep");
    stage.home.makeFolder("sub/.hidden");
    stage.home.write("sub/file.txt", "");
    stage.open(stage.home.path("sub"));
    auto *tree = stage.part<VemoTreeWidget>("folderTree");
    QTRY_VERIFY(treeItem(stage, stage.home.path("sub")));
    QTreeWidgetItem *item = treeItem(stage, stage.home.path("sub"));
    QCOMPARE(item->childCount(), 1);
    auto *placeholder = static_cast<FileSystemTreeWidgetItem *>(item->child(0));
    QVERIFY(placeholder->isFake());
    tree->setCurrentItem(item);
    tree->setFocus();
    stage.press(Qt::Key_Right);
    QTRY_VERIFY(treeItem(stage, stage.home.path("sub/deep")));
    QCOMPARE(item->childCount(), 1);
    QVERIFY(!static_cast<FileSystemTreeWidgetItem *>(item->child(0))->isFake());
}

void FileBrowserTest::theDetailsShowAllOfAnEntry()
{
    BrowserStage stage;
    stage.home.write(kMarkUpName, "12345");
    stage.home.write("b.txt", "");
    stage.open();
    QCOMPARE(detail(stage, "detailsKind"), QString("Folder"));
    stage.clickRow(kMarkUpName);
    QCOMPARE(stage.selected(), QStringList(kMarkUpName));
    QCOMPARE(stage.table()->selectedItems().value(0)->text(), QString(kMarkUpName));
    QCOMPARE(detail(stage, "detailsName"), QString(kMarkUpName));
    QCOMPARE(detail(stage, "detailsKind"), QString("Text"));
    QCOMPARE(detail(stage, "detailsSize"), QString("5 B"));
    QCOMPARE(detail(stage, "detailsAccess"), QString("Can be changed"));
    QVERIFY(
        detail(stage, "detailsModified").startsWith(QDate::currentDate().toString(Qt::ISODate)));
    stage.press(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(detail(stage, "detailsName"), QString("Selected: 2"));
    QCOMPARE(stage.footer(), QString("Items: 2 | Selected: 2"));
}

void FileBrowserTest::theDetailsNameALink()
{
    if (kIsWindows)
        QSKIP("There most users may not make links.");
    BrowserStage stage;
    stage.home.link("link.png", "nowhere");
    stage.open();
    stage.clickRow("link.png");
    QCOMPARE(detail(stage, "detailsKind"), QString("Link: Picture"));
}

void FileBrowserTest::actionsNeedASelection()
{
    BrowserStage stage;
    stage.home.write("a.txt", "");
    stage.open();
    for (const bool isSelected : {false, true}) {
        for (const char *name : {"openAction", "renameAction", "trashAction", "copyAction"})
            QVERIFY2(stage.action(name)->isEnabled() == isSelected, name);
        stage.select({"a.txt"});
    }
}

void FileBrowserTest::theDetailsAreHiddenByTheirKey()
{
    BrowserStage stage;
    stage.open();
    QVERIFY(stage.part("detailsPanel")->isVisible());
    stage.press(Qt::Key_I, Qt::ControlModifier);
    QVERIFY(!stage.part("detailsPanel")->isVisible());
    stage.click(stage.part("detailsButton"));
    QVERIFY(stage.part("detailsPanel")->isVisible());
}

void FileBrowserTest::theHelpIsLocal()
{
    BrowserStage stage;
    stage.open();
    stage.press(Qt::Key_F1);
    QPointer<QWidget> help = stage.part("helpWindow");
    QVERIFY(help && help->isVisible());
    auto *page = help->findChild<QTextBrowser *>();
    QTRY_VERIFY(page->toPlainText().contains("everyday work"));
    QVERIFY(!page->document()->resource(QTextDocument::ImageResource, QUrl("window.svg")).isNull());
    page->setFocus();
    // The links to the other pages come first; the shown page's own name is none.
    const QVector<QPair<int, QString>> walk {
        {1, "Move to trash"}, {2, "By kind"}, {3, "Backspace"}, {1, "everyday work"}};
    for (const auto &step : walk) {
        for (int i = 0; i < step.first; ++i)
            QTest::keyClick(page, Qt::Key_Tab);
        QTest::keyClick(page, Qt::Key_Return);
        QTRY_VERIFY2(page->toPlainText().contains(step.second), qPrintable(page->toPlainText()));
    }
    QTest::keyClick(help, Qt::Key_Escape);
    QTRY_VERIFY(!help);
}

void FileBrowserTest::theToolTipShowsTheNameAsItIs()
{
    BrowserStage stage;
    stage.home.write(kMarkUpName, "");
    stage.open();
    const QString shown = stage.names().value(0);
    const QPoint place = stage.placeOf(shown);
    QWidget *viewport = stage.table()->viewport();
    QHelpEvent event(QEvent::ToolTip, place, viewport->mapToGlobal(place));
    QApplication::sendEvent(viewport, &event);
    QVERIFY(QToolTip::isVisible());
    const QString escaped = getHtmlEscapedStringForToolTip(shown);
    QVERIFY2(QToolTip::text().startsWith(escaped.chopped(4)), qPrintable(QToolTip::text()));
    QToolTip::hideText();
    QTRY_VERIFY(!QToolTip::isVisible());
}

void FileBrowserTest::theMenuActsOnTheEntryUnderThePointer()
{
    if (QGuiApplication::platformName() == "offscreen")
        QSKIP("There a pop-up that closes takes the focus along, and the name's editor with it.");
    BrowserStage stage;
    stage.home.write("a.txt", "content");
    stage.home.write("b.txt", "other");
    stage.open();
    stage.clickRow("a.txt");
    OnPopup menu([&](QWidget *popup) {
        QCOMPARE(popup->objectName(), QString("contextMenu"));
        stage.clickAction(popup, "renameAction");
    });
    rightClickRow(stage, "b.txt");
    QTRY_VERIFY(menu.isDone());
    QTRY_VERIFY(qobject_cast<QLineEdit *>(QApplication::focusWidget()));
    QCOMPARE(QApplication::focusWidget()->parentWidget(), stage.table()->viewport());
    stage.type("c.txt");
    stage.press(Qt::Key_Return);
    QTRY_COMPARE(stage.names(), QStringList({"a.txt", "c.txt"}));
    COMPARE_CONTENTS(stage.home.contents(), ({{"a.txt", "content"}, {"c.txt", "other"}}));
}

void FileBrowserTest::theMenuBesideTheEntriesIsThatOfTheFolder()
{
    BrowserStage stage;
    stage.home.write("a.txt", "");
    stage.open();
    QStringList offered;
    OnPopup menu([&](QWidget *popup) {
        for (const QAction *action : popup->actions())
            offered += action->objectName();
        QTest::keyClick(popup, Qt::Key_Escape);
    });
    QWidget *viewport = stage.table()->viewport();
    const QPoint place =
        viewport->mapTo(stage.window.get(), QPoint(viewport->width() / 2, viewport->height() - 10));
    QTest::mouseClick(stage.window->windowHandle(), Qt::RightButton, Qt::NoModifier, place);
    QTRY_VERIFY(menu.isDone());
    QCOMPARE(offered, QStringList({"newFolderAction", "pasteAction", "refreshAction"}));
    QTRY_VERIFY(!stage.part("contextMenu"));
}

VEMO_TEST_MAIN(FileBrowserTest)
#include "tst_filebrowser.moc"
