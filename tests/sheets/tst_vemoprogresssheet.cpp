// SPDX-License-Identifier: MIT
#include <vemo/vemoprogresssheet.h>

#include "core/scaling_p.h"
#include "support/sheetdriver.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/componentstrings.h>

#include <QAccessible>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

namespace {

struct Scene
{
    explicit Scene(const QString &text = "Copying", int width = 600)
    {
        window.resize(scaled(width), scaled(400));
        sheet = new VemoProgressSheet(text, &window);
    }
    void open()
    {
        window.show();
        sheet->open([this](int result) { ends += result; });
        QVERIFY(QTest::qWaitForWindowActive(&window));
    }
    QPushButton *button() const { return sheet->button(QMessageBox::Discard); }
    QProgressBar *bar() const { return sheet->findChild<QProgressBar *>(); }
    QLabel *label() const { return sheet->findChild<QLabel *>(); }

    QWidget window;
    QPointer<VemoProgressSheet> sheet;
    QVector<int> ends;
};

} // namespace

class VemoProgressSheetTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void startsAtTheBeginning();
    void showsItsValue();
    void busyBarHasNoEnd();
    void neverEndsByItself();
    void cancelIsReportedOnceAndTheSheetStays_data();
    void cancelIsReportedOnceAndTheSheetStays();
    void otherKeysDoNothing();
    void resetIsForOtherWork();
    void buttonMayHaveAnotherCaptionOrBeMissing();
    void cancelledWorkMayEndTheSheet();
    void windowDoesNotClose();
    void textIsPlainAndAnnounced();
    void longTextTakesTheLinesThatItNeeds();
    void widthComesFromTheParent_data();
    void widthComesFromTheParent();
    void isLaidOutFromRightToLeft();
    void diesInItsOwnSignal();
};

void VemoProgressSheetTest::startsAtTheBeginning()
{
    const Scene scene;
    QCOMPARE(scene.sheet->minimum(), 0);
    QCOMPARE(scene.sheet->maximum(), 100);
    QCOMPARE(scene.sheet->value(), 0);
    QCOMPARE(scene.sheet->labelText(), QString("Copying"));
    QVERIFY(!scene.sheet->wasCanceled());
    QCOMPARE(scene.button()->text(), ComponentStrings::getInstance().getString("cancel"));
    QVERIFY(!scene.sheet->button(QMessageBox::Ok));
}

void VemoProgressSheetTest::showsItsValue()
{
    Scene scene;
    scene.sheet->setRange(10, 20);
    scene.sheet->setValue(15);
    QCOMPARE(scene.sheet->value(), 15);
    scene.open();
    const QColor rest = pixelAt(scene.bar(), {scene.bar()->width() - 8, 3});
    QVERIFY(pixelAt(scene.bar(), {8, 3}) != rest);
    scene.sheet->setValue(20);
    QVERIFY(pixelAt(scene.bar(), {scene.bar()->width() - 8, 3}) != rest);
    auto *spoken = QAccessible::queryAccessibleInterface(scene.bar());
    QCOMPARE(spoken->role(), QAccessible::ProgressBar);
    QCOMPARE(spoken->valueInterface()->currentValue().toInt(), 20);
    QCOMPARE(spoken->text(QAccessible::Name), QString("Copying"));
}

void VemoProgressSheetTest::busyBarHasNoEnd()
{
    Scene scene;
    scene.sheet->setRange(0, 0);
    scene.open();
    QCOMPARE(scene.bar()->minimum(), scene.bar()->maximum());
    scene.sheet->setRange(0, 4);
    scene.sheet->setValue(2);
    QCOMPARE(scene.sheet->value(), 2);
}

void VemoProgressSheetTest::neverEndsByItself()
{
    Scene scene;
    scene.open();
    scene.sheet->setValue(100);
    scene.button()->click();
    QCoreApplication::processEvents();
    QVERIFY(scene.sheet && scene.sheet->isVisible());
    QVERIFY(scene.ends.isEmpty());
    scene.sheet->done(3);
    QCOMPARE(scene.ends, QVector<int> {3});
}

void VemoProgressSheetTest::cancelIsReportedOnceAndTheSheetStays_data()
{
    QTest::addColumn<QString>("how");
    for (const QString how : {"click", "Escape", "Space", "Return", "cancel()"})
        addRow(how.toLatin1(), how);
}

void VemoProgressSheetTest::cancelIsReportedOnceAndTheSheetStays()
{
    QFETCH(QString, how);
    Scene scene;
    scene.open();
    QSignalSpy canceled(scene.sheet.data(), &VemoProgressSheet::canceled);
    for (int i = 0; i < 2; ++i) {
        if (how == "cancel()") {
            scene.sheet->cancel();
        } else if (how == "click") {
            QTest::mouseClick(scene.button(), Qt::LeftButton);
        } else {
            if (how != "Escape")
                scene.button()->setFocus();
            const int key = QKeySequence(how)[0];
            QTest::keyClick(scene.window.focusWidget(), Qt::Key(key));
        }
        QCOMPARE(canceled.size(), 1);
        QVERIFY(scene.sheet->wasCanceled());
        QVERIFY(!scene.button()->isEnabled());
        QVERIFY(scene.sheet->isVisible());
        QVERIFY(scene.sheet->isAncestorOf(scene.window.focusWidget()));
    }
}

void VemoProgressSheetTest::otherKeysDoNothing()
{
    Scene scene;
    scene.open();
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Space, Qt::Key_A, Qt::Key_F1})
        QTest::keyClick(scene.window.focusWidget(), key);
    QVERIFY(!scene.sheet->wasCanceled());
    QCOMPARE(scene.window.focusWidget(), scene.label());
    QTest::keyClick(scene.window.focusWidget(), Qt::Key_Tab);
    QCOMPARE(scene.window.focusWidget(), scene.button());
    QTest::keyClick(scene.window.focusWidget(), Qt::Key_Tab);
    QCOMPARE(scene.window.focusWidget(), scene.label());
}

void VemoProgressSheetTest::resetIsForOtherWork()
{
    const Scene scene;
    scene.sheet->setRange(5, 9);
    scene.sheet->setValue(7);
    scene.sheet->cancel();
    scene.sheet->reset();
    QVERIFY(!scene.sheet->wasCanceled());
    QVERIFY(scene.button()->isEnabled());
    QCOMPARE(scene.sheet->value(), 5);
}

void VemoProgressSheetTest::buttonMayHaveAnotherCaptionOrBeMissing()
{
    Scene scene;
    scene.sheet->setCancelButtonText("Stop");
    QCOMPARE(scene.button()->text(), QString("Stop"));
    scene.sheet->setCancelButtonText({});
    QVERIFY(!scene.button());
    scene.open();
    QTest::keyClick(scene.window.focusWidget(), Qt::Key_Escape);
    QVERIFY(!scene.sheet->wasCanceled());
    scene.sheet->setCancelButtonText("Stop");
    QVERIFY(scene.button()->isVisible());
}

void VemoProgressSheetTest::cancelledWorkMayEndTheSheet()
{
    Scene scene;
    scene.window.show();
    int steps = 0;
    QTimer work;
    connect(&work, &QTimer::timeout, scene.sheet.data(), [&] {
        if (scene.sheet->wasCanceled())
            return scene.sheet->done(7);
        scene.sheet->setValue(++steps);
        if (steps == 3)
            QTest::keyClick(&scene.window, Qt::Key_Escape);
    });
    work.start(0);
    QCOMPARE(scene.sheet->execAndDelete(), 7);
    QCOMPARE(steps, 3);
    QVERIFY(!scene.sheet);
}

void VemoProgressSheetTest::windowDoesNotClose()
{
    Scene scene;
    scene.open();
    QVERIFY(!scene.window.close());
    scene.sheet->quit();
    QVERIFY(scene.window.close());
}

void VemoProgressSheetTest::textIsPlainAndAnnounced()
{
    const Scene scene;
    scene.sheet->setLabelText("<b>a.txt</b>");
    QCOMPARE(scene.label()->textFormat(), Qt::PlainText);
    QCOMPARE(scene.sheet->labelText(), QString("<b>a.txt</b>"));
    auto *spoken = QAccessible::queryAccessibleInterface(scene.sheet);
    QCOMPARE(spoken->role(), QAccessible::Dialog);
    QCOMPARE(spoken->text(QAccessible::Name), QString("<b>a.txt</b>"));
}

void VemoProgressSheetTest::longTextTakesTheLinesThatItNeeds()
{
    Scene scene;
    scene.open();
    const int height = scene.sheet->height();
    scene.sheet->setLabelText(QString("Dateien werden auf das Netzwerklaufwerk der "
                                      "Datenverarbeitungsabteilung übertragen. ")
                                  .repeated(3));
    QTRY_VERIFY(scene.sheet->height() > height);
    QTRY_COMPARE(scene.label()->height(), scene.label()->heightForWidth(scene.label()->width()));
    QVERIFY(scene.bar()->y() > scene.label()->geometry().bottom());
    scene.sheet->setLabelText("Fertig");
    QTRY_COMPARE(scene.sheet->height(), height);
}

void VemoProgressSheetTest::widthComesFromTheParent_data()
{
    QTest::addColumn<int>("parent");
    QTest::addColumn<int>("width");
    addRow("wide", 1000, 480);
    addRow("narrow", 300, 260);
    addRow("very narrow", 20, 0);
}

void VemoProgressSheetTest::widthComesFromTheParent()
{
    QFETCH(int, parent);
    QFETCH(int, width);
    QWidget window;
    window.resize(scaled(parent), scaled(400));
    const VemoProgressSheet sheet("Copying", &window);
    QVERIFY(qAbs(sheet.width() - scaled(width)) <= 1);
}

void VemoProgressSheetTest::isLaidOutFromRightToLeft()
{
    Scene scene;
    scene.window.setLayoutDirection(Qt::RightToLeft);
    scene.sheet->setValue(50);
    scene.open();
    QTRY_VERIFY(scene.button()->mapTo(scene.sheet, QPoint()).x() < scene.sheet->width() / 2);
    QVERIFY(pixelAt(scene.bar(), {8, 3}) != pixelAt(scene.bar(), {scene.bar()->width() - 8, 3}));
}

void VemoProgressSheetTest::diesInItsOwnSignal()
{
    Scene scene;
    scene.open();
    connect(scene.sheet.data(), &VemoProgressSheet::canceled, [&] { delete scene.sheet.data(); });
    QTest::keyClick(&scene.window, Qt::Key_Escape);
    QVERIFY(!scene.sheet);
}

VEMO_TEST_MAIN(VemoProgressSheetTest)
#include "tst_vemoprogresssheet.moc"
