// SPDX-License-Identifier: MIT
// The file browser in another look and another language while its window is open.
#include "filewindowdriver.h"

#include "diskfolder.h"
#include "examples/filebrowser/ui/look.h"
#include "support/vemotest.h"

#include <vemo/defaulttheme.h>
#include <vemo/vemodateselector.h>
#include <vemo/vemofilterbar.h>

#include <QAction>
#include <QHeaderView>
#include <QMenu>

namespace {

/// As a user does it with the menu.
void choose(const FileWindowDriver &driver, const char *action)
{
    driver.action(action)->trigger();
    // The choice, the event that it posts, and what that posts.
    for (int i = 0; i < 3; ++i)
        QCoreApplication::processEvents();
}

QImage pictureOf(const FileWindowDriver &driver)
{
    QCoreApplication::processEvents();
    return driver.window()->grab().toImage();
}

QString heading(const FileWindowDriver &driver, int column)
{
    const QAbstractItemModel *model = driver.part<QHeaderView>("fileHeader")->model();
    return model->headerData(column, Qt::Horizontal).toString();
}

} // namespace

class FileWindowSwitchTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void cleanup();
    void itLooksAsIfBuiltThatWay_data();
    void itLooksAsIfBuiltThatWay();
    void theMenuMarksWhatIsOnShow();
    void nothingThatTheUserDidIsLost();
};

void FileWindowSwitchTest::initTestCase()
{
    startFileBrowserLook();
}

void FileWindowSwitchTest::cleanup()
{
    setDefaultThemeMode(DefaultThemeMode::Light);
    speak("enu");
    VemoTest::cleanup();
}

void FileWindowSwitchTest::itLooksAsIfBuiltThatWay_data()
{
    QTest::addColumn<QByteArray>("other");
    QTest::addColumn<QByteArray>("back");
    QTest::newRow("dark") << QByteArray("look_dark") << QByteArray("look_light");
    for (const char *code : {"deu", "rus", "jpn"})
        QTest::newRow(code) << QByteArray("language_") + code << QByteArray("language_enu");
}

void FileWindowSwitchTest::itLooksAsIfBuiltThatWay()
{
    QFETCH(const QByteArray, other);
    QFETCH(const QByteArray, back);
    const DiskFolder folder;
    folder.write("report.pdf", QByteArray(2048, 'x'));
    folder.makeFolder("sub");
    qputenv("HOME", folder.path().toUtf8()); // Otherwise the tree shows what other tests do.
    QImage before;
    QImage after;
    {
        const FileWindowDriver driver(folder.path());
        driver.select({"report.pdf"});
        before = pictureOf(driver);
        choose(driver, other);
        after = pictureOf(driver);
        choose(driver, back);
        QCOMPARE(pictureOf(driver), before);
        choose(driver, other);
    }
    QVERIFY(after != before);
    const FileWindowDriver fresh(folder.path());
    fresh.select({"report.pdf"});
    QCOMPARE(pictureOf(fresh), after);
}

void FileWindowSwitchTest::theMenuMarksWhatIsOnShow()
{
    const DiskFolder folder;
    const FileWindowDriver driver(folder.path());
    choose(driver, "look_dark");
    choose(driver, "language_deu");
    Q_EMIT driver.part<QMenu>("viewMenu")->aboutToShow();
    QVERIFY(driver.action("look_dark")->isChecked());
    QVERIFY(!driver.action("look_light")->isChecked());
    QVERIFY(driver.action("language_deu")->isChecked());
    QVERIFY(!driver.action("language_enu")->isChecked());
    QCOMPARE(driver.action("look_dark")->text(), QString("Dunkel"));
}

void FileWindowSwitchTest::nothingThatTheUserDidIsLost()
{
    const DiskFolder folder;
    folder.fill(130);
    const FileWindowDriver driver(folder.path());
    driver.part<VemoFilterBar>("filterBar")->setText("1");
    driver.action("kind_xxx")->trigger();
    const QDate day(2001, 2, 3);
    driver.part<VemoDateSelector>("fromDate")->dateSelect(day);
    driver.select({"1", "100"});
    const QStringList selected = driver.selected();
    const QStringList names = driver.names();
    for (const char *change : {"language_deu", "look_dark", "language_enu", "look_light"}) {
        choose(driver, change);
        QCOMPARE(driver.names(), names);
        QCOMPARE(driver.selected(), selected);
        QCOMPARE(driver.part<VemoFilterBar>("filterBar")->text(), QString("1"));
        QVERIFY(driver.action("kind_xxx")->isChecked());
        QCOMPARE(driver.part<VemoDateSelector>("fromDate")->date(), day);
        const bool isGerman = language() == "deu";
        QCOMPARE(heading(driver, 1), QString::fromUtf8(isGerman ? "Größe" : "Size"));
    }
}

VEMO_TEST_MAIN(FileWindowSwitchTest)
#include "tst_filewindowswitch.moc"
