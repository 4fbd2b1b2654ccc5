// SPDX-License-Identifier: MIT
#include "diskfolder.h"
#include "filewindowdriver.h"

#include "support/focusring.h"
#include "support/vemotest.h"

/// That the keyboard focus is seen wherever the Tab key goes in the file browser.
class FileWindowFocusTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void everyStopShowsTheFocus_data();
    void everyStopShowsTheFocus();
};

void FileWindowFocusTest::initTestCase()
{
    startFileBrowserLook();
    QApplication::setCursorFlashTime(0);
    QApplication::setEffectEnabled(Qt::UI_General, false);
}

void FileWindowFocusTest::everyStopShowsTheFocus_data()
{
    QTest::addColumn<bool>("hasDetails");
    QTest::newRow("without details") << false;
    QTest::newRow("with details") << true;
}

void FileWindowFocusTest::everyStopShowsTheFocus()
{
    QFETCH(bool, hasDetails);
    DiskFolder folder;
    for (const char *name : {"notes.txt", "picture.png", "table.ods"})
        folder.write(name, "content");
    FileWindowDriver driver(folder.path());
    auto *panel = driver.part<QWidget>("detailsPanel");
    if (panel->isVisible() != hasDetails)
        driver.action("detailsAction")->trigger();
    QCOMPARE(panel->isVisible(), hasDetails);
    verifyRings(driver.window(), hasDetails ? 15 : 10);
}

VEMO_TEST_MAIN(FileWindowFocusTest)
#include "tst_filewindowfocus.moc"
