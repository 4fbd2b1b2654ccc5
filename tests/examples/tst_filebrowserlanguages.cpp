// SPDX-License-Identifier: MIT
// Every state of the window in every language, without a warning and with every text whole.
#include "browserstage.h"

#include "examples/filebrowser/ui/languages.h"
#include "examples/filebrowser/ui/look.h"
#include "support/clippedtext.h"
#include "support/iswindows.h"
#include "support/vemotest.h"

#include <QComboBox>
#include <QDir>
#include <QLineEdit>

class FileBrowserLanguagesTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void everyLanguageHasItsTexts();
    void everyStateIsWholeAndWritesNoWarning_data();
    void everyStateIsWholeAndWritesNoWarning();
};

namespace {

constexpr int kRounds = 20;
/// Windows allows no angle brackets in names.
constexpr auto kMarkUpName = kIsWindows ? "e &lt;b.mp3" : "e <b>.mp3";

/// Walks through the window's states and notes what is cut in each.
class Walk
{
public:
    Walk() { fillFolder(); }

    void run()
    {
        stage.open();
        look("list");
        lists();
        menus();
        sheets();
        stage.press(Qt::Key_F1);
        look("help");
        delete stage.part("helpWindow");
    }

    QStringList clipped;
    QStringList seen; ///< The names of the sheets and menus that were looked at.

private:
    void fillFolder()
    {
        stage.home.fill(120);
        for (const char *name : {"a.png", "b.pdf", "c.zip", "d.xls", kMarkUpName})
            stage.home.write(name, QByteArray(123456, 'x'));
        stage.home.link("link.txt", "nowhere");
        stage.home.makeFolder("0 sub");
        stage.home.write("0 sub/taken", "");
    }

    void look(const QString &state)
    {
        // A new text moves its neighbours, each of which asks for the next round.
        QStringList texts = clippedTexts(stage.window.get());
        for (int round = 0; round < kRounds && !texts.isEmpty(); ++round) {
            QCoreApplication::processEvents();
            texts = clippedTexts(stage.window.get());
        }
        for (const QString &text : texts)
            clipped += state + ": " + text;
    }

    void lists()
    {
        stage.clickRow("1");
        look("one selected");
        stage.press(Qt::Key_A, Qt::ControlModifier);
        look("all selected");
        stage.press(Qt::Key_F, Qt::ControlModifier);
        stage.type("no such name");
        stage.press(Qt::Key_Return);
        look("nothing found");
        stage.press(Qt::Key_Escape);
        stage.clickRow("0 sub");
        stage.press(Qt::Key_F2);
        look("rename");
        stage.press(Qt::Key_Escape);
    }

    void menus()
    {
        stage.part("filterBar")->setFocus();
        onPopup("kindMenu", [this] { stage.press(Qt::Key_Down); });
        for (const char *name : {"fromDate", "fromTime"}) {
            auto *box = stage.part<QComboBox>(name);
            box->setEnabled(true);
            onPopup(name, [box] { box->showPopup(); });
        }
        onPopup("contextMenu", [this] {
            const QPoint place =
                stage.table()->viewport()->mapTo(stage.window.get(), stage.placeOf("0 sub"));
            QTest::mouseClick(stage.window->windowHandle(), Qt::RightButton, Qt::NoModifier, place);
        });
    }

    void onPopup(const QString &name, const std::function<void()> &open)
    {
        OnPopup driver([&](QWidget *shown) {
            seen += name;
            for (const QString &text : clippedTexts(shown))
                clipped += name + ": " + text;
            QTest::keyPress(shown->windowHandle(), Qt::Key_Escape);
        });
        open();
        QTRY_VERIFY(driver.isDone() && !QApplication::activePopupWidget());
        QCoreApplication::processEvents();
        stage.reactivate();
    }

    void onSheet(const QString &state, const std::function<void()> &open,
        const std::function<void(VemoSheet *)> &act = {}, const char *name = nullptr)
    {
        const auto lookAt = [&](VemoSheet *sheet) {
            if (act)
                act(sheet);
            seen += sheet->objectName();
            look(state);
            QMetaObject::invokeMethod(sheet, "quit");
        };
        SheetDriver driver(stage.window.get(), {lookAt}, name);
        open();
        QTRY_VERIFY(driver.isDone());
    }

    void sheets()
    {
        const auto pressNew = [this] { stage.press(Qt::Key_N, Qt::ControlModifier); };
        for (const QString &name : {QString("1"), QString("."), QString(256, 'x')}) {
            onSheet("new folder", pressNew,
                [&](VemoSheet *sheet) { sheet->findChild<QLineEdit *>()->setText(name); });
        }
        stage.clickRow("0 sub");
        onSheet("trash one", [this] { stage.press(Qt::Key_Delete); });
        stage.clickRow("20", Qt::ShiftModifier);
        onSheet("trash many", [this] { stage.press(Qt::Key_Delete); });
        stage.clickRow("1");
        stage.home.remove("1");
        onSheet("vanished", [this] { stage.press(Qt::Key_Return); });
        stage.clickRow("2");
        stage.press(Qt::Key_F2);
        stage.type("3");
        onSheet("taken", [this] { stage.press(Qt::Key_Return); });
        copySheets();
        onSheet("unreadable", [this] { stage.window->openFolder("/no/such/folder"); });
        QTRY_VERIFY(!stage.window->isReading());
    }

    void copySheets()
    {
        stage.clickRow("2");
        stage.clickRow("90", Qt::ShiftModifier);
        stage.press(Qt::Key_C, Qt::ControlModifier);
        for (int i = 2; i <= 90; ++i)
            stage.home.remove(QByteArray::number(i));
        onSheet(
            "not copied", [this] { stage.press(Qt::Key_V, Qt::ControlModifier); }, {},
            "messageSheet");
    }

    BrowserStage stage;
};

} // namespace

void FileBrowserLanguagesTest::everyLanguageHasItsTexts()
{
    const BrowserStage stage;
    QStringList files = QDir(":/filebrowser/strings").entryList();
    for (QString &file : files)
        file.remove(".json");
    QCOMPARE(files, languageCodes());
}

void FileBrowserLanguagesTest::everyStateIsWholeAndWritesNoWarning_data()
{
    QTest::addColumn<QString>("code");
    for (const QString &code : languagesToCheck(languageCodes()))
        QTest::newRow(qPrintable(code)) << code;
}

void FileBrowserLanguagesTest::everyStateIsWholeAndWritesNoWarning()
{
    QFETCH(QString, code);
    Walk walk;
    speak(code);
    walk.run();
    const QStringList expected {"contextMenu", "fromDate", "fromTime", "kindMenu", "messageSheet",
        "nameSheet", "trashSheet"};
    walk.seen.removeDuplicates();
    walk.seen.sort();
    QCOMPARE(walk.seen, expected);
    walk.clipped.removeDuplicates();
    QVERIFY2(walk.clipped.isEmpty(), qPrintable(walk.clipped.join('\n')));
}

VEMO_TEST_MAIN(FileBrowserLanguagesTest)
#include "tst_filebrowserlanguages.moc"
