// SPDX-License-Identifier: MIT
// The file browser's window and sheets in every language.
#include "filewindowdriver.h"

#include "diskfolder.h"
#include "examples/filebrowser/ui/languages.h"
#include "support/clippedtext.h"
#include "support/vemotest.h"

#include <vemo/componentstrings.h>

#include <QAction>
#include <QJsonDocument>
#include <QJsonObject>

namespace {

void speak(const QString &code)
{
    QMap<QString, QString> strings;
    for (const char *folder : {":/vemo/theme/strings", ":/filebrowser/strings"}) {
        QFile file(QString("%1/%2.json").arg(folder, code));
        QVERIFY2(file.open(QIODevice::ReadOnly), qPrintable(file.fileName()));
        const QJsonObject table = QJsonDocument::fromJson(file.readAll()).object();
        for (auto entry = table.begin(); entry != table.end(); ++entry)
            strings.insert(entry.key(), entry->toString());
    }
    ComponentStrings::getInstance().installStrings(strings);
    QLocale::setDefault(localeOf(code));
}

} // namespace

class FileWindowLanguagesTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startFileBrowserLook(); }
    void noTextIsClippedAndNoWarningWritten_data();
    void noTextIsClippedAndNoWarningWritten();
};

void FileWindowLanguagesTest::noTextIsClippedAndNoWarningWritten_data()
{
    QTest::addColumn<QString>("code");
    for (const QString &code : languageCodes())
        QTest::newRow(qPrintable(code)) << code;
}

void FileWindowLanguagesTest::noTextIsClippedAndNoWarningWritten()
{
    QFETCH(QString, code);
    speak(code);
    const DiskFolder folder;
    folder.write("report.pdf", QByteArray(2048, 'x'));
    folder.makeFolder("sub");
    FileWindowDriver driver(folder.path());
    driver.select({"report.pdf"});
    QTRY_COMPARE(clippedTexts(driver.window()).join('\n'), QString());

    QStringList clipped;
    for (const char *sheet : {"nameSheet", "trashSheet"}) {
        driver.onSheet(sheet, [&clipped](VemoSheet *open) {
            clipped += clippedTexts(open);
            QTest::keyClick(open->window(), Qt::Key_Escape);
        });
    }
    driver.action("newFolderAction")->trigger();
    driver.select({"report.pdf"});
    driver.action("trashAction")->trigger();
    QTRY_COMPARE(driver.sheetsMet(), 2);
    QCOMPARE(clipped.join('\n'), QString());
}

VEMO_TEST_MAIN(FileWindowLanguagesTest)
#include "tst_filewindowlanguages.moc"
