// SPDX-License-Identifier: MIT
// execAndDelete() and open(), which lay a mask, run a sheet, and delete both.
#include "sheets/anysheet.h"
#include "support/sheetdriver.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <QAbstractButton>
#include <QLineEdit>
#include <QMovie>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

using Button = QDialogButtonBox;
using AtEnd = std::function<void(int)>;

/// A sheet over a window, run by one of the calls.
struct Scene
{
    Scene(const QString &kindOfSheet, const QString &wayToRun) : kind(kindOfSheet), way(wayToRun)
    {
        auto *column = new QVBoxLayout(&window);
        column->addWidget(field);
        window.resize(640, 480);
        window.show();
        field->setFocus();
        if (kind == "message")
            message = new VemoMessageSheet(VemoMessageSheet::Confirm, "text", &window);
        else
            input = new VemoInputSheet("text", &window);
    }

    VemoSheet *sheet() const
    {
        return message ? static_cast<VemoSheet *>(message.data()) : input.data();
    }
    QPushButton *button(QMessageBox::StandardButton which) const
    {
        return static_cast<QPushButton *>(message ? message->button(which) : input->button(which));
    }
    QPushButton *yes() const { return button(message ? QMessageBox::Apply : QMessageBox::Ok); }
    int yesCode() const { return kind == "message" ? Button::Apply : Button::Ok; }

    /// Runs it until act has ended it; its result, and how often and with what atEnd was called.
    void run(const std::function<void()> &act)
    {
        const SheetDriver driver(act);
        const AtEnd atEnd = [this](int result) {
            didExistAtEnd = sheet() != nullptr;
            ends += result;
        };
        if (way == "exec") {
            result = message ? message->execAndDelete(atEnd) : input->execAndDelete(atEnd);
            return;
        }
        QEventLoop loop;
        QObject::connect(sheet(), &QObject::destroyed, &loop, &QEventLoop::quit);
        message ? message->open(atEnd) : input->open(atEnd);
        loop.exec();
        result = ends.isEmpty() ? 0 : ends.first();
    }

    const QString kind;
    const QString way;
    QWidget window;
    QLineEdit *field = new QLineEdit;
    QPointer<VemoMessageSheet> message;
    QPointer<VemoInputSheet> input;
    int result = -1;
    QVector<int> ends;
    bool didExistAtEnd = false;
};

void addCalls()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("way");
    for (const char *kind : {"message", "input"}) {
        for (const char *way : {"exec", "open"})
            QTest::addRow("%s, %s", kind, way) << kind << way;
    }
}

} // namespace

class OneCallTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void answerIsReportedAndBothAreDeleted_data() { addCalls(); }
    void answerIsReportedAndBothAreDeleted();
    void maskHasTheUsualShade_data() { addCalls(); }
    void maskHasTheUsualShade();
    void maskOfTheHostIsUsed_data() { addCalls(); }
    void maskOfTheHostIsUsed();
    void windowIsBlockedAndGetsItsFocusBack_data() { addCalls(); }
    void windowIsBlockedAndGetsItsFocusBack();
    void hiddenWindowIsShown_data() { addCalls(); }
    void hiddenWindowIsShown();
    void deadSheetReportsNothingAndLeavesNoMask_data() { addCalls(); }
    void deadSheetReportsNothingAndLeavesNoMask();
    void secondEndIsNotReported_data() { addCalls(); }
    void secondEndIsNotReported();
    void sheetWithoutParentRunsWithoutMask_data() { addCalls(); }
    void sheetWithoutParentRunsWithoutMask();
    void focusedButtonTakesReturn_data();
    void focusedButtonTakesReturn();
    void enteredTextCanBeReadAtTheEnd();
    void openReturnsAtOnceAndRunsTheAnimation();
};

void OneCallTest::answerIsReportedAndBothAreDeleted()
{
    QFETCH(const QString, kind);
    QFETCH(const QString, way);
    Scene scene(kind, way);
    scene.run([&] { scene.yes()->click(); });
    QCOMPARE(scene.result, scene.yesCode());
    QCOMPARE(scene.ends, QVector<int> {scene.yesCode()});
    QVERIFY(scene.didExistAtEnd);
    QVERIFY(!scene.sheet());
    QCOMPARE(scene.window.findChildren<VemoMask *>().size(), 0);
}

void OneCallTest::maskHasTheUsualShade()
{
    QFETCH(const QString, kind);
    QFETCH(const QString, way);
    Scene scene(kind, way);
    scene.run([&] {
        const auto masks = scene.window.findChildren<VemoMask *>();
        QCOMPARE(masks.size(), 1);
        QCOMPARE(masks.first(), scene.sheet()->parentWidget());
        QCOMPARE(masks.first()->palette().color(QPalette::Window), QColor(0, 0, 0, 20));
        QVERIFY(masks.first()->isVisible());
        QCOMPARE(masks.first()->size(), scene.window.size());
        scene.yes()->click();
    });
}

void OneCallTest::maskOfTheHostIsUsed()
{
    QFETCH(const QString, kind);
    QFETCH(const QString, way);
    Scene scene(kind, way);
    VemoMask::createMask(scene.sheet(), &scene.window, QColor(0, 0, 200, 90));
    scene.run([&] {
        QCOMPARE(scene.window.findChildren<VemoMask *>().size(), 1);
        scene.yes()->click();
    });
    QCOMPARE(scene.window.findChildren<VemoMask *>().size(), 0);
}

void OneCallTest::windowIsBlockedAndGetsItsFocusBack()
{
    QFETCH(const QString, kind);
    QFETCH(const QString, way);
    Scene scene(kind, way);
    scene.run([&] {
        QVERIFY(scene.sheet()->isAncestorOf(scene.window.focusWidget()));
        QVERIFY(!scene.window.close());
        QTest::keyClick(&scene.window, Qt::Key_Escape);
    });
    QCOMPARE(scene.result, int(Button::Discard));
    QCOMPARE(scene.window.focusWidget(), scene.field);
    QVERIFY(scene.window.close());
}

void OneCallTest::hiddenWindowIsShown()
{
    QFETCH(const QString, kind);
    QFETCH(const QString, way);
    Scene scene(kind, way);
    scene.window.hide();
    scene.run([&] {
        QVERIFY(scene.window.isVisible());
        QVERIFY(scene.sheet()->isVisible());
        scene.yes()->click();
    });
}

void OneCallTest::deadSheetReportsNothingAndLeavesNoMask()
{
    QFETCH(const QString, kind);
    QFETCH(const QString, way);
    Scene scene(kind, way);
    scene.run([&] { delete scene.sheet(); });
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(scene.result, 0);
    QVERIFY(scene.ends.isEmpty());
    QCOMPARE(scene.window.findChildren<VemoMask *>().size(), 0);
}

void OneCallTest::secondEndIsNotReported()
{
    QFETCH(const QString, kind);
    QFETCH(const QString, way);
    Scene scene(kind, way);
    scene.run([&] {
        for (const int code : {7, 8})
            QMetaObject::invokeMethod(scene.sheet(), "done", Q_ARG(int, code));
    });
    QCOMPARE(scene.ends.size(), 1);
}

void OneCallTest::sheetWithoutParentRunsWithoutMask()
{
    QFETCH(const QString, kind);
    QFETCH(const QString, way);
    Scene scene(kind, way);
    scene.sheet()->setParent(nullptr);
    scene.run([&] { scene.yes()->click(); });
    QCOMPARE(scene.result, scene.yesCode());
    QVERIFY(!scene.sheet());
}

void OneCallTest::focusedButtonTakesReturn_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("way");
    QTest::addColumn<int>("key");
    QTest::addColumn<bool>("isCancelled");
    for (const char *kind : {"message", "input"}) {
        for (const QString way : {"exec", "open", "plain exec()"}) {
            for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space})
                QTest::addRow(
                    "%s, %s, %s", kind, qPrintable(way), qPrintable(QKeySequence(key).toString()))
                    << kind << way << int(key) << (way != "plain exec()" || key == Qt::Key_Space);
        }
    }
}

void OneCallTest::focusedButtonTakesReturn()
{
    QFETCH(const QString, kind);
    QFETCH(const QString, way);
    QFETCH(const int, key);
    QFETCH(const bool, isCancelled);
    Scene scene(kind, way);
    const auto press = [&] {
        QApplication::setActiveWindow(&scene.window);
        scene.button(QMessageBox::Discard)->setFocus();
        QTest::keyClick(scene.button(QMessageBox::Discard), Qt::Key(key));
    };
    const int expected = isCancelled ? int(Button::Discard) : scene.yesCode();
    if (way == "exec" || way == "open") {
        scene.run(press);
        QCOMPARE(scene.result, expected);
        return;
    }
    VemoMask::createMask(scene.sheet(), &scene.window, QColor(0, 0, 0, 20));
    const SheetDriver driver(press);
    QCOMPARE(scene.message ? scene.message->exec() : scene.input->exec(), expected);
}

void OneCallTest::enteredTextCanBeReadAtTheEnd()
{
    QWidget window;
    auto *sheet = new VemoInputSheet("Name", &window);
    const SheetDriver driver([&] {
        QTest::keyClicks(sheet->getLineEdit(), "tea");
        QTest::keyClick(sheet->getLineEdit(), Qt::Key_Return);
    });
    QString name;
    const int result = sheet->execAndDelete([&](int) { name = sheet->getContent(); });
    QCOMPARE(result, int(Button::Ok));
    QCOMPARE(name, QString("tea"));
}

void OneCallTest::openReturnsAtOnceAndRunsTheAnimation()
{
    QWidget window;
    window.show();
    const QPointer<VemoMessageSheet> sheet =
        new VemoMessageSheet("busy", ":/vemo/theme/images/busy.gif", &window);
    sheet->movie()->setParent(sheet);
    bool hasEnded = false;
    sheet->open([&](int result) { hasEnded = result == 0; });
    QVERIFY(sheet->isVisible());
    QCOMPARE(sheet->movie()->state(), QMovie::Running);
    sheet->open(); // the first call goes on
    sheet->quit();
    QVERIFY(hasEnded);
    QVERIFY(sheet); // one of its slots may have ended it
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!sheet);
}

VEMO_TEST_MAIN(OneCallTest)
#include "tst_onecall.moc"
