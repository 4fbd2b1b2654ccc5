// SPDX-License-Identifier: MIT
// Ways through the folders and what the window shows of them, by mouse and keyboard.
#include "browserstage.h"

#include "support/vemotest.h"

#include <vemo/filesystemtreewidgetitem.h>
#include <vemo/helpwindow.h>
#include <vemo/tooltiptext.h>
#include <vemo/vemocombobox.h>
#include <vemo/vemotreewidget.h>

#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTextBrowser>
#include <QToolTip>

#include <utime.h>

namespace {

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

void clickAction(const BrowserStage &stage, QWidget *popup, const char *name)
{
    auto *menu = qobject_cast<QMenu *>(popup);
    QVERIFY(menu);
    for (QAction *action : menu->actions()) {
        if (action->objectName() == QLatin1String(name))
            return stage.click(menu, menu->actionGeometry(action).center());
    }
    QVERIFY2(false, name);
}

void clickPage(const BrowserStage &stage, const QString &name)
{
    for (auto *button : stage.part("pagingBar")->findChildren<QAbstractButton *>()) {
        if (button->isVisible() && (button->text() == name || button->accessibleName() == name))
            return stage.click(button);
    }
    QVERIFY2(false, qPrintable(name));
}

/// The first day of the date filter.
void chooseToday(const BrowserStage &stage)
{
    auto *from = stage.part<QComboBox>("fromDate");
    OnPopup calendar([&](QWidget *popup) {
        stage.click(popup->findChild<QAbstractButton *>("qt_calendar_today_button"));
    });
    stage.click(from, QPoint(from->width() / 2, from->height() / 2));
    QTRY_VERIFY(calendar.isDone() && !QApplication::activePopupWidget());
    stage.reactivate();
}

void changeToday(const BrowserStage &stage, const QByteArray &name, const QTime &time)
{
    const time_t moment = QDateTime(QDate::currentDate(), time).toSecsSinceEpoch();
    const utimbuf times = {moment, moment};
    QCOMPARE(utime(stage.home.native(name).constData(), &times), 0);
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
    OnPopup menu([&](QWidget *popup) { clickAction(stage, popup, "openAction"); });
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
    void aFolderIsOpened_data();
    void aFolderIsOpened();
    void theWayUpSelectsWhereOneCameFrom();
    void theTreeReadsAFolderWhenItIsOpened();
    void theListIsFilteredByName();
    void theListIsFilteredByKind();
    void theListIsFilteredByDate();
    void theListIsFilteredByTimeOfDay();
    void aLargeFolderIsPaged();
    void theDetailsTellAllOfAnEntry();
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
    stage.home.write("b 9.txt", "");
    stage.home.makeFolder("z");
    stage.open();
    QCOMPARE(stage.names(), QStringList({"z", "b 9.txt", "b 10.txt"}));
    QVERIFY(stage.window->windowTitle().startsWith(stage.home.path().section('/', -1)));
    QCOMPARE(stage.footer(), QString("Items: 3"));
    QCOMPARE(stage.table()->item(2, 1)->text(), QString("5 B"));
    QCOMPARE(stage.table()->item(0, 2)->text(), QString("Folder"));
    QCOMPARE(stage.table()->item(1, 2)->text(), QString("Text"));
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
    OnSheets driver(stage, {[&](VemoSheet *sheet) {
        const QString told = "The folder " + stage.home.path("sub") + " cannot be read.";
        QVERIFY2(wordsOf(sheet).contains(told), qPrintable(wordsOf(sheet)));
        stage.press(Qt::Key_Return);
    }});
    stage.press(Qt::Key_F5);
    QTRY_VERIFY(driver.isDone());
    QTRY_COMPARE(stage.names(), QStringList("a.txt"));
    QCOMPARE(stage.window->folder(), stage.home.path());
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

void FileBrowserTest::theWayUpSelectsWhereOneCameFrom()
{
    BrowserStage stage;
    for (const char *name : {"a", "b", "c"})
        stage.home.makeFolder(name);
    stage.open(stage.home.path("b"));
    stage.press(Qt::Key_Backspace);
    QTRY_COMPARE(stage.window->table()->selectedNames(), QStringList("b"));
    stage.press(Qt::Key_Return);
    QTRY_COMPARE(stage.window->folder(), stage.home.path("b"));
    stage.waitUntilRead();
    stage.click(stage.part("upButton"));
    QTRY_COMPARE(stage.window->table()->selectedNames(), QStringList("b"));
}

void FileBrowserTest::theTreeReadsAFolderWhenItIsOpened()
{
    BrowserStage stage;
    stage.home.makeFolder("sub");
    stage.home.makeFolder("sub/deep");
    stage.home.makeFolder("sub/.hidden");
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
}

void FileBrowserTest::theListIsFilteredByName()
{
    BrowserStage stage;
    for (const char *name : {"Apple", "Banana", "Pineapple"})
        stage.home.write(name, "");
    stage.open();
    stage.press(Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(QApplication::focusWidget(), stage.part("filterBar"));
    stage.type("APPLE");
    QCOMPARE(stage.names().size(), 3);
    stage.press(Qt::Key_Return);
    QCOMPARE(stage.names(), QStringList({"Apple", "Pineapple"}));
    QCOMPARE(stage.footer(), QString("Items: 2 of 3"));
    stage.press(Qt::Key_A, Qt::ControlModifier);
    stage.type("cherry");
    stage.press(Qt::Key_Return);
    QVERIFY(stage.names().isEmpty());
    QCOMPARE(stage.part<QLabel>("emptyText")->text(), QString("Nothing matches the filter."));
    stage.press(Qt::Key_Escape);
    QCOMPARE(stage.names().size(), 3);
    QCOMPARE(stage.footer(), QString("Items: 3"));
}

void FileBrowserTest::theListIsFilteredByKind()
{
    BrowserStage stage;
    for (const char *name : {"a.png", "b.txt", "c.PNG", "d"})
        stage.home.write(name, "");
    stage.home.makeFolder("sub");
    stage.open();
    stage.press(Qt::Key_F, Qt::ControlModifier);
    OnPopup pictures([&](QWidget *popup) { clickAction(stage, popup, "kind_image"); });
    stage.press(Qt::Key_Down);
    QTRY_VERIFY(pictures.isDone());
    QCOMPARE(stage.names(), QStringList({"sub", "a.png", "c.PNG"}));
    OnPopup others([&](QWidget *popup) { clickAction(stage, popup, "kind_xxx"); });
    stage.press(Qt::Key_Down);
    QTRY_VERIFY(others.isDone());
    QCOMPARE(stage.names(), QStringList({"sub", "d"}));
    OnPopup all([&](QWidget *popup) { clickAction(stage, popup, "kind_all"); });
    stage.press(Qt::Key_Down);
    QTRY_VERIFY(all.isDone());
    QCOMPARE(stage.names().size(), 5);
}

void FileBrowserTest::theListIsFilteredByDate()
{
    BrowserStage stage;
    stage.home.write("new", "");
    stage.home.write("old", "");
    const utimbuf longAgo = {1000000000, 1000000000};
    QCOMPARE(utime(stage.home.native("old").constData(), &longAgo), 0);
    stage.open();
    chooseToday(stage);
    QTRY_COMPARE(stage.names(), QStringList("new"));
    QCOMPARE(stage.footer(), QString("Items: 1 of 2"));
    stage.click(stage.part("clearDates"));
    QTRY_COMPARE(stage.names(), QStringList({"new", "old"}));
}

void FileBrowserTest::theListIsFilteredByTimeOfDay()
{
    BrowserStage stage;
    for (const QByteArray &name : {QByteArray("early"), QByteArray("late")})
        stage.home.write(name, "");
    changeToday(stage, "early", QTime(10, 7, 59));
    changeToday(stage, "late", QTime(10, 8));
    stage.open();
    chooseToday(stage);
    auto *field = stage.part<QComboBox>("fromTime")->lineEdit();
    QTRY_VERIFY(field->isEnabled());
    QCOMPARE(stage.names(), QStringList({"early", "late"}));
    stage.click(field, QPoint(8, field->height() / 2));
    stage.press(Qt::Key_A, Qt::ControlModifier);
    stage.type("10:08");
    stage.press(Qt::Key_Return);
    QTRY_COMPARE(stage.names(), QStringList("late"));
}

void FileBrowserTest::aLargeFolderIsPaged()
{
    BrowserStage stage;
    stage.home.fill(1234);
    stage.open();
    QCOMPARE(stage.names().size(), 100);
    QCOMPARE(stage.names().first(), QString("1"));
    QCOMPARE(stage.footer(), QString("Items: 1,234"));
    clickPage(stage, "2");
    QCOMPARE(stage.names().first(), QString("101"));
    QSet<QString> seen;
    clickPage(stage, "First page");
    for (int page = 1; page <= 13; ++page) {
        if (page > 1)
            clickPage(stage, QString::number(page));
        for (const QString &name : stage.names())
            seen += name;
    }
    QCOMPARE(seen.size(), 1234);
    QCOMPARE(stage.names().last(), QString("1234"));
    clickPage(stage, "First page");
    QCOMPARE(stage.names().first(), QString("1"));
}

void FileBrowserTest::theDetailsTellAllOfAnEntry()
{
    BrowserStage stage;
    stage.home.write("a & <b>.txt", "12345");
    stage.home.link("link.png", "nowhere");
    stage.open();
    stage.clickRow("a & <b>.txt");
    QCOMPARE(detail(stage, "detailsName"), QString("a & <b>.txt"));
    QCOMPARE(detail(stage, "detailsKind"), QString("Text"));
    QCOMPARE(detail(stage, "detailsSize"), QString("5 B"));
    QCOMPARE(detail(stage, "detailsAccess"), QString("Can be changed"));
    QVERIFY(
        detail(stage, "detailsModified").startsWith(QDate::currentDate().toString(Qt::ISODate)));
    stage.clickRow("link.png");
    QCOMPARE(detail(stage, "detailsKind"), QString("Link: Picture"));
    stage.press(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(detail(stage, "detailsName"), QString("Selected: 2"));
    QCOMPARE(stage.footer(), QString("Items: 2 | Selected: 2"));
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
    stage.home.write("<b>bold< b> & \"a\".txt", "");
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
        clickAction(stage, popup, "renameAction");
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
