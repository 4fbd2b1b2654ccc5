// SPDX-License-Identifier: MIT
// Which entries of a folder the window lists: filters, pages and reading again.
#include "browserstage.h"

#include "support/vemotest.h"

#include "examples/filebrowser/files/paths.h"
#include "examples/filebrowser/ui/datefilter.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace {

constexpr int kRowsPerPage = 100;

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

void change(const BrowserStage &stage, const QByteArray &name, const QDateTime &moment)
{
    QFile file(urlOf(stage.home.path(name)).toLocalFile());
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.setFileTime(moment, QFileDevice::FileModificationTime));
}

void chooseTime(const BrowserStage &stage, const char *box, const QString &time)
{
    auto *times = stage.part<QComboBox>(box);
    times->setCurrentIndex(times->findText(time));
}

} // namespace

class FileBrowserListTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void theListIsFilteredByName();
    void theListIsFilteredByKind();
    void theListIsFilteredByDate();
    void theListIsFilteredByTimeOfDay();
    void bothTimesCountToTheirLastSecond();
    void aLargeFolderIsPaged();
    void aPageThatIsGoneGivesWayToTheLast();
    void theWindowAnswersWhileItReads();
    void aRefreshKeepsTheSelection();
};

void FileBrowserListTest::theListIsFilteredByName()
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
    QVERIFY(stage.part("emptyText")->isVisible());
    QCOMPARE(stage.part<QLabel>("emptyText")->text(), QString("Nothing matches the filter."));
    stage.press(Qt::Key_Escape);
    QCOMPARE(stage.names().size(), 3);
    QVERIFY(stage.part("emptyText")->isHidden());
    QCOMPARE(stage.footer(), QString("Items: 3"));
}

void FileBrowserListTest::theListIsFilteredByKind()
{
    BrowserStage stage;
    for (const char *name : {"a.png", "b.txt", "c.PNG", "d"})
        stage.home.write(name, "");
    stage.home.makeFolder("sub");
    stage.open();
    stage.press(Qt::Key_F, Qt::ControlModifier);
    OnPopup pictures([&](QWidget *popup) { stage.clickAction(popup, "kind_image"); });
    stage.press(Qt::Key_Down);
    QTRY_VERIFY(pictures.isDone());
    QCOMPARE(stage.names(), QStringList({"sub", "a.png", "c.PNG"}));
    QCOMPARE(stage.part<QLineEdit>("filterBar")->placeholderText(), QString("Filter: Picture"));
    OnPopup others([&](QWidget *popup) { stage.clickAction(popup, "kind_xxx"); });
    stage.press(Qt::Key_Down);
    QTRY_VERIFY(others.isDone());
    QCOMPARE(stage.names(), QStringList({"sub", "d"}));
    OnPopup all([&](QWidget *popup) { stage.clickAction(popup, "kind_all"); });
    stage.press(Qt::Key_Down);
    QTRY_VERIFY(all.isDone());
    QCOMPARE(stage.names().size(), 5);
}

void FileBrowserListTest::theListIsFilteredByDate()
{
    BrowserStage stage;
    stage.home.write("new", "");
    stage.home.write("old", "");
    change(stage, "old", QDateTime(QDate(2001, 9, 9), QTime(1, 46)));
    stage.open();
    chooseToday(stage);
    QTRY_COMPARE(stage.names(), QStringList("new"));
    QCOMPARE(stage.footer(), QString("Items: 1 of 2"));
    stage.click(stage.part("clearDates"));
    QTRY_COMPARE(stage.names(), QStringList({"new", "old"}));
}

void FileBrowserListTest::theListIsFilteredByTimeOfDay()
{
    BrowserStage stage;
    for (const QByteArray &name : {QByteArray("early"), QByteArray("late")})
        stage.home.write(name, "");
    change(stage, "early", QDateTime(QDate::currentDate(), QTime(10, 7, 59)));
    change(stage, "late", QDateTime(QDate::currentDate(), QTime(10, 8)));
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

void FileBrowserListTest::bothTimesCountToTheirLastSecond()
{
    BrowserStage stage;
    stage.home.write("old", "");
    stage.home.write("new", "");
    const QDate day(2020, 3, 4);
    change(stage, "old", QDateTime(day, QTime(12, 30, 59)));
    stage.open();
    stage.part<DateFilter>("dateFilter")->setDays(day, day);
    QCOMPARE(stage.names(), QStringList("old"));
    QVERIFY(stage.part("fromTime")->isEnabled());
    chooseTime(stage, "fromTime", "13:00");
    QTRY_VERIFY(stage.names().isEmpty());
    chooseTime(stage, "fromTime", "12:30");
    QTRY_COMPARE(stage.names(), QStringList("old"));
    chooseTime(stage, "toTime", "12:00");
    QTRY_VERIFY(stage.names().isEmpty());
    chooseTime(stage, "toTime", "12:30");
    QTRY_COMPARE(stage.names(), QStringList("old"));
    stage.click(stage.part("clearDates"));
    QCOMPARE(stage.names().size(), 2);
    QVERIFY(!stage.part("fromTime")->isEnabled());
}

void FileBrowserListTest::aLargeFolderIsPaged()
{
    BrowserStage stage;
    stage.home.fill(1234);
    stage.open();
    QCOMPARE(stage.names().size(), kRowsPerPage);
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
    QCOMPARE(stage.names().size(), 34);
    QCOMPARE(stage.names().last(), QString("1234"));
    clickPage(stage, "First page");
    QCOMPARE(stage.names().first(), QString("1"));
}

void FileBrowserListTest::aPageThatIsGoneGivesWayToTheLast()
{
    BrowserStage stage;
    stage.home.fill(kRowsPerPage + 1);
    stage.open();
    clickPage(stage, "2");
    QCOMPARE(stage.names(), QStringList("101"));
    stage.home.remove("101");
    stage.press(Qt::Key_F5);
    QTRY_COMPARE(stage.names().size(), kRowsPerPage);
}

void FileBrowserListTest::theWindowAnswersWhileItReads()
{
    const BrowserStage stage;
    stage.home.fill(5000);
    FileWindow window(stage.home.path());
    window.show();
    QVERIFY(window.isReading());
    // The event loop comes back again and again before the folder has been read.
    int rounds = 0;
    while (window.isReading()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, 0);
        ++rounds;
    }
    QVERIFY(rounds > 1);
    QCOMPARE(window.table()->getTable()->rowCount(), kRowsPerPage);
}

void FileBrowserListTest::aRefreshKeepsTheSelection()
{
    BrowserStage stage;
    stage.home.write("b.txt", "");
    stage.open();
    stage.select({"b.txt"});
    stage.home.write("a.txt", "");
    stage.press(Qt::Key_F5);
    QTRY_COMPARE(stage.names(), QStringList({"a.txt", "b.txt"}));
    QCOMPARE(stage.selected(), QStringList("b.txt"));
}

VEMO_TEST_MAIN(FileBrowserListTest)
#include "tst_filebrowserlist.moc"
