// SPDX-License-Identifier: MIT
// The picture of the file browser's window: focus, room for texts, and another look and language.
#include "browserstage.h"

#include "examples/filebrowser/ui/datefilter.h"
#include "examples/filebrowser/ui/look.h"
#include "support/focusring.h"
#include "support/iswindows.h"
#include "support/vemotest.h"

#include <vemo/defaulttheme.h>
#include <vemo/vemodateselector.h>
#include <vemo/vemofilterbar.h>

#include <QHeaderView>
#include <QLabel>
#include <QMenu>

namespace {

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

/// The texts below the list that have less room than they need.
QStringList cutFooters(const BrowserStage &stage)
{
    QStringList texts;
    for (const QLabel *label : stage.part("pagingBar")->findChildren<QLabel *>()) {
        if (!label->text().isEmpty() && label->width() < label->sizeHint().width())
            texts << label->text();
    }
    return texts;
}

/// The part of the window that has the focus. Those within the path and the pages have no names.
QString focusedPart(const BrowserStage &stage)
{
    const QWidget *focus = stage.window->focusWidget();
    for (const char *whole : {"pathBar", "pagingBar"}) {
        if (stage.part(whole)->isAncestorOf(focus))
            return whole;
    }
    return focus->objectName();
}

/// As a user does it with the menu.
void choose(const BrowserStage &stage, const char *action)
{
    stage.action(action)->trigger();
    // The choice, the event that it posts, and what that posts.
    for (int i = 0; i < 3; ++i)
        QCoreApplication::processEvents();
}

QImage pictureOf(const BrowserStage &stage)
{
    QCoreApplication::processEvents();
    return stage.window->grab().toImage();
}

/// On Windows a program can't choose its home folder, where other programs make folders too.
void openWithoutOthersFolders(BrowserStage *stage)
{
    stage->open();
    stage->part("folderTree")->setVisible(!kIsWindows);
}

QString heading(const BrowserStage &stage, int column)
{
    const QAbstractItemModel *model = stage.part<QHeaderView>("fileHeader")->model();
    return model->headerData(column, Qt::Horizontal).toString();
}

} // namespace

class FileBrowserLookTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void everyStopShowsTheFocus_data();
    void everyStopShowsTheFocus();
    void tabGoesThroughAllParts();
    void nothingIsCutAtTheSmallestSize();
    void iconsAreBelowTheirHeader();
    void theRingOfANameIsOfOneWidth_data();
    void theRingOfANameIsOfOneWidth();
    void aLineIsBetweenListAndDetails_data();
    void aLineIsBetweenListAndDetails();
    void anotherLookIsAsIfBuiltThatWay_data();
    void anotherLookIsAsIfBuiltThatWay();
    void itsPartsTakeTheLocaleOfTheLanguage();
    void theMenuMarksWhatIsShown();
    void nothingThatTheUserDidIsLost();
};

void FileBrowserLookTest::initTestCase()
{
    QApplication::setCursorFlashTime(0);
    QApplication::setEffectEnabled(Qt::UI_General, false);
}

void FileBrowserLookTest::cleanup()
{
    setDefaultThemeMode(DefaultThemeMode::Light);
    speak("enu");
    VemoTest::cleanup();
}

void FileBrowserLookTest::everyStopShowsTheFocus_data()
{
    QTest::addColumn<bool>("hasDetails");
    QTest::newRow("without details") << false;
    QTest::newRow("with details") << true;
}

void FileBrowserLookTest::everyStopShowsTheFocus()
{
    QFETCH(bool, hasDetails);
    BrowserStage stage;
    for (const char *name : {"notes.txt", "picture.png", "table.ods"})
        stage.home.write(name, "content");
    stage.open();
    if (stage.part("detailsPanel")->isVisible() != hasDetails)
        stage.action("detailsAction")->trigger();
    QCOMPARE(stage.part("detailsPanel")->isVisible(), hasDetails);
    verifyRings(stage.window.get(), hasDetails ? 15 : 10);
}

void FileBrowserLookTest::tabGoesThroughAllParts()
{
    BrowserStage stage;
    stage.home.fill(300);
    stage.open();
    stage.part<DateFilter>("dateFilter")->setDays({}, QDate::currentDate());
    stage.part("upButton")->setFocus();
    QStringList parts;
    const QWidget *const first = stage.window->focusWidget();
    do {
        parts << focusedPart(stage);
        stage.press(Qt::Key_Tab);
    } while (stage.window->focusWidget() != first && parts.size() < 50);
    parts.removeDuplicates();
    QCOMPARE(parts,
        QStringList({"upButton", "pathBar", "filterBar", "newFolderButton", "detailsButton",
            "viewButton", "helpButton", "folderTree", "fileTable", "pagingBar", "fromDate",
            "toDate", "toTime", "clearDates"}));
}

void FileBrowserLookTest::nothingIsCutAtTheSmallestSize()
{
    BrowserStage stage;
    stage.home.fill(130);
    stage.open();
    stage.select({"1"});
    stage.window->resize(1, 1);
    QTRY_COMPARE(cutFooters(stage), QStringList());
    QVERIFY(stage.part("folderTree")->width() >= 144 * stage.window->logicalDpiX() / 96);
}

void FileBrowserLookTest::iconsAreBelowTheirHeader()
{
    BrowserStage stage;
    stage.home.makeFolder("sub");
    stage.open();
    QTableWidget *table = stage.table();
    table->clearSelection();
    table->clearFocus(); // no ring
    const QRect cell = table->visualItemRect(table->item(0, 0));
    const auto *header = stage.part<QHeaderView>("fileHeader");
    const QRect section(0, 0, header->sectionSize(0), header->height() * 3 / 4);
    const int icon = inkStart(table->viewport()->grab(cell).toImage());
    const int caption = inkStart(header->viewport()->grab(section).toImage());
    // The picture and the letter have a pixel or so of their own.
    QVERIFY2(qAbs(icon - caption) <= 2 * table->logicalDpiX() / 96,
        qPrintable(QString("icon at %1, caption at %2").arg(icon).arg(caption)));
}

void FileBrowserLookTest::theRingOfANameIsOfOneWidth_data()
{
    QTest::addColumn<int>("growth");
    // At a fractional pixel ratio its sides begin at any fraction of a pixel.
    for (int growth = 0; growth < 4; ++growth)
        QTest::addRow("%d pixels larger", growth) << growth;
}

void FileBrowserLookTest::theRingOfANameIsOfOneWidth()
{
    QFETCH(const int, growth);
    BrowserStage stage;
    for (const char *name : {"1", "2", "3"})
        stage.home.write(name, "content");
    stage.open();
    stage.select({"2"});
    QTableWidget *table = stage.table();
    table->horizontalHeader()->resizeSection(0, table->columnWidth(0) + growth);
    table->verticalHeader()->resizeSection(0, table->rowHeight(0) + growth);
    table->verticalHeader()->resizeSection(1, table->rowHeight(1) + growth);
    QCoreApplication::processEvents();
    const QRect cell = table->visualItemRect(table->item(1, 0));
    const QImage picture = table->viewport()->grab().toImage();
    const qreal ratio = picture.devicePixelRatio();
    const QRect area =
        QRectF(QPointF(cell.topLeft()) * ratio, QSizeF(cell.size()) * ratio).toAlignedRect();
    const QRgb accent = defaultThemeColor("accent").rgb();
    const auto sideAt = [&](QPoint place, QPoint step) {
        int count = 0;
        for (int i = 0; i < 8; ++i, place += step)
            count += picture.rect().contains(place) && picture.pixel(place) == accent;
        return count;
    };
    // Between the ring and the content.
    const QPoint inset(area.left() + qRound(4 * ratio), area.top() + qRound(4 * ratio));
    const int left = sideAt({area.left(), inset.y()}, {1, 0});
    QVERIFY(left > 0);
    QCOMPARE(sideAt({area.right(), inset.y()}, {-1, 0}), left);
    QCOMPARE(sideAt({inset.x(), area.top()}, {0, 1}), left);
    QCOMPARE(sideAt({inset.x(), area.bottom()}, {0, -1}), left);
}

void FileBrowserLookTest::aLineIsBetweenListAndDetails_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::newRow("from left to right") << Qt::LeftToRight;
    QTest::newRow("from right to left") << Qt::RightToLeft;
}

void FileBrowserLookTest::aLineIsBetweenListAndDetails()
{
    QFETCH(const Qt::LayoutDirection, direction);
    BrowserStage stage;
    stage.open();
    stage.window->setLayoutDirection(direction);
    if (!stage.part("detailsPanel")->isVisible())
        stage.action("detailsAction")->trigger();
    const QImage window = pictureOf(stage);
    const QWidget *panel = stage.part("detailsPanel");
    const qreal ratio = window.devicePixelRatio();
    const int left = qRound(panel->x() * ratio);
    const int right = qRound((panel->x() + panel->width()) * ratio) - 1;
    const int middle = qRound(panel->geometry().center().y() * ratio);
    const QRgb line = defaultThemeColor("line").rgb();
    const bool isReversed = direction == Qt::RightToLeft;
    QCOMPARE(window.pixel(left, middle) == line, !isReversed);
    QCOMPARE(window.pixel(right, middle) == line, isReversed);
}

void FileBrowserLookTest::anotherLookIsAsIfBuiltThatWay_data()
{
    QTest::addColumn<QByteArray>("other");
    QTest::addColumn<QByteArray>("back");
    QTest::newRow("dark") << QByteArray("look_dark") << QByteArray("look_light");
    for (const char *code : {"deu", "rus", "jpn"})
        QTest::newRow(code) << QByteArray("language_") + code << QByteArray("language_enu");
}

void FileBrowserLookTest::anotherLookIsAsIfBuiltThatWay()
{
    QFETCH(const QByteArray, other);
    QFETCH(const QByteArray, back);
    BrowserStage stage;
    stage.home.write("report.pdf", QByteArray(2048, 'x'));
    stage.home.makeFolder("sub");
    openWithoutOthersFolders(&stage);
    stage.select({"report.pdf"});
    const QImage before = pictureOf(stage);
    choose(stage, other);
    const QImage after = pictureOf(stage);
    choose(stage, back);
    QCOMPARE(pictureOf(stage), before);
    choose(stage, other);
    QVERIFY(after != before);
    stage.window.reset();
    openWithoutOthersFolders(&stage);
    stage.select({"report.pdf"});
    QCOMPARE(pictureOf(stage), after);
}

void FileBrowserLookTest::itsPartsTakeTheLocaleOfTheLanguage()
{
    BrowserStage stage;
    stage.open();
    speak("deu");
    QCoreApplication::processEvents();
    QCOMPARE(stage.part("fromDate")->locale().language(), QLocale::German);
}

void FileBrowserLookTest::theMenuMarksWhatIsShown()
{
    BrowserStage stage;
    stage.open();
    choose(stage, "look_dark");
    choose(stage, "language_deu");
    Q_EMIT stage.part<QMenu>("viewMenu")->aboutToShow();
    QVERIFY(stage.action("look_dark")->isChecked());
    QVERIFY(!stage.action("look_light")->isChecked());
    QVERIFY(stage.action("language_deu")->isChecked());
    QVERIFY(!stage.action("language_enu")->isChecked());
    QCOMPARE(stage.action("look_dark")->text(), QString("Dunkel"));
}

void FileBrowserLookTest::nothingThatTheUserDidIsLost()
{
    BrowserStage stage;
    stage.home.fill(130);
    stage.open();
    stage.part<VemoFilterBar>("filterBar")->setText("1");
    stage.action("kind_xxx")->trigger();
    const QDate day(2001, 2, 3);
    stage.part<VemoDateSelector>("fromDate")->dateSelect(day);
    stage.select({"1", "100"});
    const QStringList selected = stage.selected();
    const QStringList names = stage.names();
    for (const char *change : {"language_deu", "look_dark", "language_enu", "look_light"}) {
        choose(stage, change);
        QCOMPARE(stage.names(), names);
        QCOMPARE(stage.selected(), selected);
        QCOMPARE(stage.part<VemoFilterBar>("filterBar")->text(), QString("1"));
        QVERIFY(stage.action("kind_xxx")->isChecked());
        QCOMPARE(stage.part<VemoDateSelector>("fromDate")->date(), day);
        const bool isGerman = language() == "deu";
        QCOMPARE(heading(stage, 1), QString::fromUtf8(isGerman ? "Größe" : "Size"));
    }
}

VEMO_TEST_MAIN(FileBrowserLookTest)
#include "tst_filebrowserlook.moc"
