// SPDX-License-Identifier: MIT
#include "filewindowdriver.h"

#include "diskfolder.h"
#include "examples/filebrowser/ui/datefilter.h"
#include "examples/filebrowser/ui/filetable.h"
#include "support/vemotest.h"

#include <vemo/filesystemtreewidgetitem.h>
#include <vemo/vemopagingbar.h>

#include <QComboBox>
#include <QDesktopServices>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTreeWidget>

#include <utime.h>

namespace {

constexpr int kRowsOfAPage = 100;

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

QString pathOfCurrent(const FileWindowDriver &driver)
{
    const auto *tree = driver.part<QTreeWidget>("folderTree");
    const auto *item = static_cast<const FileSystemTreeWidgetItem *>(tree->currentItem());
    return item ? item->getPath() : QString();
}

/// The first column of the picture that isn't as its left edge all over.
int inkStart(const QImage &picture)
{
    for (int x = 1; x < picture.width(); ++x) {
        for (int y = 0; y < picture.height(); ++y) {
            if (picture.pixel(x, y) != picture.pixel(0, y))
                return qRound(x / picture.devicePixelRatio());
        }
    }
    return picture.width();
}

QString footer(const FileWindowDriver &driver)
{
    QStringList texts;
    for (const QLabel *label : driver.part<QWidget>("pagingBar")->findChildren<QLabel *>())
        texts << label->text();
    return texts.join('|');
}

/// The texts below the list that have less room than they need.
QStringList cutFooters(const FileWindowDriver &driver)
{
    QStringList texts;
    for (const QLabel *label : driver.part<QWidget>("pagingBar")->findChildren<QLabel *>()) {
        if (!label->text().isEmpty() && label->width() < label->sizeHint().width())
            texts << label->text();
    }
    return texts;
}

} // namespace

class FileWindowTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startFileBrowserLook(); }
    void showsTheEntriesOfAFolder();
    void showsOnlyOnePageOfALongFolder();
    void staysOnAPageThatThereIs();
    void answersWhileItReads();
    void filtersByAPartOfTheName();
    void filtersByKind();
    void filtersByTheLastChange();
    void opensFoldersAndGoesUpByKeys();
    void opensAFileOnlyWhenAsked();
    void leadsByThePathToAParent();
    void followsTheFolderInTheTree();
    void listsTheFoldersOfTheTreeWhenTheyAreOpened();
    void goesBackWhereAFolderCannotBeRead();
    void saysThatAFileHasVanished();
    void showsMarkupInNamesAsItIs();
    void refreshKeepsTheSelection();
    void tellsWhatIsSelected();
    void hasNothingToDoWithoutASelection();
    void goesThroughAllPartsByTab();
    void cutsNothingAtItsLeastSize();
    void putsIconsBelowTheirHeader();
};

void FileWindowTest::showsTheEntriesOfAFolder()
{
    const DiskFolder folder;
    folder.write("b.pdf", QByteArray(2048, 'x'));
    folder.write("A.TXT", "a");
    folder.write(".hidden", "");
    folder.makeFolder("sub");
    const FileWindowDriver driver(folder.path());
    QCOMPARE(driver.names(), QStringList({"sub", ".hidden", "A.TXT", "b.pdf"}));
    QCOMPARE(driver.cell("sub", 1), QString());
    QCOMPARE(driver.cell("sub", 2), QString("Folder"));
    QCOMPARE(driver.cell("b.pdf", 1), QString("2.0 kB"));
    QCOMPARE(driver.cell("b.pdf", 2), QString("PDF document"));
    QCOMPARE(driver.cell("A.TXT", 2), QString("Text"));
    QVERIFY(!driver.cell("A.TXT", 3).isEmpty());
    QVERIFY(driver.window()->windowTitle().startsWith(QFileInfo(folder.path()).fileName()));
}

void FileWindowTest::showsOnlyOnePageOfALongFolder()
{
    const DiskFolder folder;
    folder.fill(234);
    const FileWindowDriver driver(folder.path());
    QCOMPARE(driver.table()->rowCount(), kRowsOfAPage);
    QCOMPARE(driver.names().first(), QString("1"));
    const auto buttons = driver.part<QWidget>("pagingBar")->findChildren<QPushButton *>();
    const auto third = std::find_if(
        buttons.begin(), buttons.end(), [](QPushButton *button) { return button->text() == "3"; });
    QVERIFY(third != buttons.end());
    QTest::mouseClick(*third, Qt::LeftButton);
    QCOMPARE(driver.table()->rowCount(), 34);
    QCOMPARE(driver.names().last(), QString("234"));
    QVERIFY(footer(driver).contains("Items: 234"));
}

void FileWindowTest::staysOnAPageThatThereIs()
{
    const DiskFolder folder;
    folder.fill(kRowsOfAPage + 1);
    const FileWindowDriver driver(folder.path());
    driver.part<VemoPagingBar>("pagingBar")->findChildren<QPushButton *>().at(3)->click();
    QCOMPARE(driver.names(), QStringList("101"));
    folder.remove("101");
    driver.press(Qt::Key_F5);
    QTRY_COMPARE(driver.names().size(), kRowsOfAPage);
}

void FileWindowTest::answersWhileItReads()
{
    const DiskFolder folder;
    folder.fill(5000);
    FileWindow window(folder.path());
    window.show();
    QVERIFY(window.isReading());
    // The event loop comes back again and again before the folder has been read.
    int rounds = 0;
    while (window.isReading()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 0);
        ++rounds;
    }
    QVERIFY(rounds > 1);
    QCOMPARE(window.table()->getTable()->rowCount(), kRowsOfAPage);
}

void FileWindowTest::filtersByAPartOfTheName()
{
    const DiskFolder folder;
    folder.write("Report.txt", "");
    folder.write("letter.txt", "");
    const FileWindowDriver driver(folder.path());
    driver.press(Qt::Key_F, Qt::ControlModifier);
    QCOMPARE(driver.window()->focusWidget()->objectName(), QString("filterBar"));
    driver.type("rep");
    QCOMPARE(driver.names().size(), 2);
    driver.press(Qt::Key_Return);
    QCOMPARE(driver.names(), QStringList("Report.txt"));
    QVERIFY(footer(driver).contains("Items: 1 of 2"));
    driver.type("xyz");
    driver.press(Qt::Key_Return);
    QVERIFY(driver.names().isEmpty());
    QCOMPARE(driver.part<QLabel>("emptyText")->text(), QString("Nothing matches the filter."));
    QVERIFY(driver.part<QLabel>("emptyText")->isVisible());
    driver.press(Qt::Key_Escape);
    QCOMPARE(driver.names().size(), 2);
    QVERIFY(driver.part<QLabel>("emptyText")->isHidden());
}

void FileWindowTest::filtersByKind()
{
    const DiskFolder folder;
    folder.write("a.png", "");
    folder.write("b.txt", "");
    folder.makeFolder("sub");
    const FileWindowDriver driver(folder.path());
    driver.action("kind_image")->trigger();
    QCOMPARE(driver.names(), QStringList({"sub", "a.png"}));
    QCOMPARE(driver.part<QLineEdit>("filterBar")->placeholderText(), QString("Filter: Picture"));
    driver.action("kind_all")->trigger();
    QCOMPARE(driver.names().size(), 3);
}

void FileWindowTest::filtersByTheLastChange()
{
    const DiskFolder folder;
    folder.write("old.txt", "");
    folder.write("new.txt", "");
    const QDateTime then(QDate(2020, 3, 4), QTime(12, 30, 59));
    const utimbuf times {then.toSecsSinceEpoch(), then.toSecsSinceEpoch()};
    QCOMPARE(utime(folder.native("old.txt").constData(), &times), 0);
    const FileWindowDriver driver(folder.path());
    auto *filter = driver.part<DateFilter>("dateFilter");
    filter->setDays(QDate(2020, 3, 4), QDate(2020, 3, 4));
    QCOMPARE(driver.names(), QStringList("old.txt"));

    // The time of day counts, too.
    auto *from = driver.part<QComboBox>("fromTime");
    QVERIFY(from->isEnabled());
    from->setCurrentIndex(from->findText("13:00"));
    QTRY_VERIFY(driver.names().isEmpty());
    from->setCurrentIndex(from->findText("12:30"));
    QTRY_COMPARE(driver.names(), QStringList("old.txt"));
    auto *to = driver.part<QComboBox>("toTime");
    to->setCurrentIndex(to->findText("12:00"));
    QTRY_VERIFY(driver.names().isEmpty());
    to->setCurrentIndex(to->findText("12:30")); // to its last second
    QTRY_COMPARE(driver.names(), QStringList("old.txt"));
    QTest::mouseClick(driver.part<QPushButton>("clearDates"), Qt::LeftButton);
    QCOMPARE(driver.names().size(), 2);
    QVERIFY(!from->isEnabled());
}

void FileWindowTest::opensFoldersAndGoesUpByKeys()
{
    const DiskFolder folder;
    folder.makeFolder("first");
    folder.makeFolder("second");
    folder.write("second/inner.txt", "");
    const FileWindowDriver driver(folder.path());
    driver.select({"second"});
    driver.press(Qt::Key_Return);
    QCOMPARE(driver.window()->folder(), folder.path("second"));
    QTRY_COMPARE(driver.names(), QStringList("inner.txt"));
    driver.press(Qt::Key_Backspace);
    QCOMPARE(driver.window()->folder(), folder.path());
    QTRY_COMPARE(driver.selected(), QStringList("second"));
}

void FileWindowTest::opensAFileOnlyWhenAsked()
{
    const DiskFolder folder;
    folder.write("a b#%.txt", "");
    folder.write("bad\xff.txt", "");
    const FileWindowDriver driver(folder.path());
    Desktop desktop;
    driver.select({driver.names().first()});
    QVERIFY(desktop.opened.isEmpty());
    driver.press(Qt::Key_Return);
    QCOMPARE(desktop.opened, QList<QUrl> {QUrl::fromLocalFile(folder.path("a b#%.txt"))});
    driver.select({driver.names().last()});
    driver.press(Qt::Key_Return);
    QVERIFY(desktop.opened.last().toEncoded().endsWith("/bad%FF.txt"));
}

void FileWindowTest::leadsByThePathToAParent()
{
    const DiskFolder folder;
    folder.makeFolder("a & b");
    folder.makeFolder("a & b/new\nline");
    const FileWindowDriver driver(folder.path("a & b/new\nline"));
    const auto buttons = driver.part<QWidget>("pathBar")->findChildren<QPushButton *>();
    const auto parent = std::find_if(buttons.begin(), buttons.end(),
        [](QPushButton *button) { return button->text() == "a && b"; });
    QVERIFY(parent != buttons.end());
    (*parent)->click();
    QCOMPARE(driver.window()->folder(), folder.path("a & b"));
    const auto first = driver.part<QWidget>("pathBar")->findChildren<QPushButton *>();
    QCOMPARE(first.first()->text(), QString("Computer"));
    first.first()->click();
    QCOMPARE(driver.window()->folder(), QString("/"));
    QVERIFY(!driver.action("upAction")->isEnabled());
    QTRY_VERIFY(driver.isSettled());
}

void FileWindowTest::followsTheFolderInTheTree()
{
    const DiskFolder folder;
    folder.makeFolder("sub");
    folder.makeFolder("sub/.deep");
    const FileWindowDriver driver(folder.path("sub/.deep"));
    QTRY_COMPARE(pathOfCurrent(driver), folder.path("sub/.deep"));
    driver.press(Qt::Key_Backspace);
    QTRY_COMPARE(pathOfCurrent(driver), folder.path("sub"));
}

void FileWindowTest::listsTheFoldersOfTheTreeWhenTheyAreOpened()
{
    const DiskFolder folder;
    folder.makeFolder("sub");
    folder.makeFolder("sub/one");
    folder.write("sub/file.txt", "");
    const FileWindowDriver driver(folder.path());
    auto *tree = driver.part<QTreeWidget>("folderTree");
    QTRY_COMPARE(pathOfCurrent(driver), folder.path());
    tree->currentItem()->setExpanded(true);
    QTRY_COMPARE(tree->currentItem()->child(0)->text(0), QString("sub"));
    QTreeWidgetItem *sub = tree->currentItem()->child(0);
    // A placeholder for unknown contents.
    QVERIFY(static_cast<FileSystemTreeWidgetItem *>(sub->child(0))->isFake());
    sub->setExpanded(true);
    QTRY_COMPARE(sub->child(0)->text(0), QString("one"));
    QCOMPARE(sub->childCount(), 1);
    QVERIFY(!static_cast<FileSystemTreeWidgetItem *>(sub->child(0))->isFake());
}

void FileWindowTest::goesBackWhereAFolderCannotBeRead()
{
    const DiskFolder folder;
    folder.makeFolder("gone");
    FileWindowDriver driver(folder.path());
    folder.remove("gone");
    QString told;
    driver.onSheet("messageSheet", [&](VemoSheet *sheet) {
        told = FileWindowDriver::textOf(sheet);
        driver.press(Qt::Key_Return);
    });
    driver.window()->openFolder(folder.path("gone"));
    QTRY_COMPARE(driver.sheetsMet(), 1);
    QVERIFY(told.contains("cannot be read"));
    QVERIFY(told.contains(QString::fromLocal8Bit(strerror(ENOENT))));
    QCOMPARE(driver.window()->folder(), folder.path());
}

void FileWindowTest::saysThatAFileHasVanished()
{
    const DiskFolder folder;
    folder.write("a.txt", "");
    FileWindowDriver driver(folder.path());
    const qint64 before = driver.table()->item(0, 0)->icon().pixmap(16).cacheKey();
    folder.remove("a.txt");
    const Desktop desktop;
    QString told;
    driver.onSheet("messageSheet", [&](VemoSheet *sheet) {
        told = FileWindowDriver::textOf(sheet);
        driver.press(Qt::Key_Return);
    });
    driver.select({"a.txt"});
    driver.press(Qt::Key_Return);
    QCOMPARE(driver.sheetsMet(), 1);
    QVERIFY(told.contains("<b>a.txt</b> is no longer there"));
    QVERIFY(desktop.opened.isEmpty());
    QVERIFY(driver.table()->item(0, 0)->icon().pixmap(16).cacheKey() != before);
}

void FileWindowTest::showsMarkupInNamesAsItIs()
{
    const DiskFolder folder;
    folder.write("<b>x &amp; y.txt", "");
    const FileWindowDriver driver(folder.path());
    QCOMPARE(driver.table()->item(0, 0)->text(), QString("<b>x &amp; y.txt"));
    QVERIFY(driver.table()->item(0, 0)->toolTip().contains("&lt;b&gt;x &amp;amp; y.txt<br>"));
    driver.select(driver.names());
    QCOMPARE(driver.part<QLabel>("detailsName")->text(), QString("<b>x &amp; y.txt"));
}

void FileWindowTest::refreshKeepsTheSelection()
{
    const DiskFolder folder;
    folder.write("b.txt", "");
    const FileWindowDriver driver(folder.path());
    driver.select({"b.txt"});
    folder.write("a.txt", "");
    driver.press(Qt::Key_F5);
    QTRY_COMPARE(driver.names(), QStringList({"a.txt", "b.txt"}));
    QCOMPARE(driver.selected(), QStringList("b.txt"));
}

void FileWindowTest::tellsWhatIsSelected()
{
    const DiskFolder folder;
    folder.write("a.txt", "12345");
    folder.write("b.txt", "");
    const FileWindowDriver driver(folder.path());
    QCOMPARE(driver.part<QLabel>("detailsKind")->text(), QString("Folder"));
    driver.select({"a.txt"});
    QCOMPARE(driver.part<QLabel>("detailsName")->text(), QString("a.txt"));
    QCOMPARE(driver.part<QLabel>("detailsSize")->text(), QString("5 B"));
    driver.press(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(driver.part<QLabel>("detailsName")->text(), QString("Selected: 2"));
    QVERIFY(footer(driver).contains("Selected: 2"));
    driver.press(Qt::Key_I, Qt::ControlModifier);
    QVERIFY(driver.part<QWidget>("detailsPanel")->isHidden());
}

void FileWindowTest::hasNothingToDoWithoutASelection()
{
    const DiskFolder folder;
    folder.write("a.txt", "");
    const FileWindowDriver driver(folder.path());
    for (const char *name : {"openAction", "renameAction", "trashAction", "copyAction"})
        QVERIFY2(!driver.action(name)->isEnabled(), name);
    driver.select({"a.txt"});
    for (const char *name : {"openAction", "renameAction", "trashAction", "copyAction"})
        QVERIFY2(driver.action(name)->isEnabled(), name);
}

void FileWindowTest::goesThroughAllPartsByTab()
{
    const DiskFolder folder;
    folder.fill(300);
    const FileWindowDriver driver(folder.path());
    driver.part<DateFilter>("dateFilter")->setDays({}, QDate::currentDate());
    driver.part<QWidget>("upButton")->setFocus();
    QStringList parts;
    const QWidget *const first = driver.window()->focusWidget();
    do {
        const QWidget *part = driver.window()->focusWidget();
        // Those within the path and the pages have no names of their own.
        for (const char *whole : {"pathBar", "pagingBar"}) {
            if (driver.part<QWidget>(whole)->isAncestorOf(part))
                part = driver.part<QWidget>(whole);
        }
        if (parts.isEmpty() || parts.last() != part->objectName())
            parts << part->objectName();
        driver.press(Qt::Key_Tab);
    } while (driver.window()->focusWidget() != first && parts.size() < 50);
    QCOMPARE(parts,
        QStringList({"upButton", "pathBar", "filterBar", "newFolderButton", "detailsButton",
            "viewButton", "helpButton", "folderTree", "fileTable", "pagingBar", "fromDate",
            "toDate", "toTime", "clearDates"}));
}

void FileWindowTest::cutsNothingAtItsLeastSize()
{
    const DiskFolder folder;
    folder.fill(130);
    const FileWindowDriver driver(folder.path());
    driver.select({"1"});
    driver.window()->resize(1, 1);
    QTRY_COMPARE(cutFooters(driver), QStringList());
    const int dpi = driver.window()->logicalDpiX();
    QVERIFY(driver.part<QTreeWidget>("folderTree")->width() >= 144 * dpi / 96);
}

void FileWindowTest::putsIconsBelowTheirHeader()
{
    const DiskFolder folder;
    folder.makeFolder("sub");
    const FileWindowDriver driver(folder.path());
    QTableWidget *table = driver.table();
    table->clearSelection();
    table->clearFocus(); // no ring
    const QRect cell = table->visualItemRect(table->item(0, 0));
    const auto *header = driver.part<QHeaderView>("fileHeader");
    const QRect section(0, 0, header->sectionSize(0), header->height() * 3 / 4);
    const int icon = inkStart(table->viewport()->grab(cell).toImage());
    const int caption = inkStart(header->viewport()->grab(section).toImage());
    // The picture and the letter have a pixel or so of their own.
    QVERIFY2(qAbs(icon - caption) <= 2 * table->logicalDpiX() / 96,
        qPrintable(QString("icon at %1, caption at %2").arg(icon).arg(caption)));
}

VEMO_TEST_MAIN(FileWindowTest)
#include "tst_filewindow.moc"
