// SPDX-License-Identifier: MIT
#include <vemo/vemocountdownmessagebox.h>

#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/componentstrings.h>

#include <QPushButton>

namespace {

void tick(VemoCountdownMessageBox &box)
{
    QVERIFY(QMetaObject::invokeMethod(&box, "slotTick"));
}

QString captionFor(int counter)
{
    return QString("%1(%2)").arg(ComponentStrings::getInstance().getString("ok")).arg(counter);
}

/// Changes the window's state, or sends the event that accompanies the change on other platforms.
void turn(VemoCountdownMessageBox &box, bool isByUser, Qt::WindowState state, QEvent &&event)
{
    if (!isByUser) {
        box.setWindowState(state);
        QCoreApplication::processEvents();
        return;
    }
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(&box, &event);
}

} // namespace

class VemoCountdownMessageBoxTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void startsAtTenWithOneSecondEach();
    void settersRefuseNegativeValues();
    void tickCountsDownInTheCaption();
    void belowZeroClicksTheDefaultButton();
    void answersItself();
    void answersWithTheDefaultButton();
    void withoutButtonsNothingIsClicked();
    void countsAgainEachTimeItIsShown();
    void goesOnWhileMinimised_data();
    void goesOnWhileMinimised();
    void restoredItDoesNotStartAgain_data() { goesOnWhileMinimised_data(); }
    void restoredItDoesNotStartAgain();
    void stopsWhenItIsAnswered();
};

void VemoCountdownMessageBoxTest::startsAtTenWithOneSecondEach()
{
    const VemoCountdownMessageBox box;
    QCOMPARE(box.startValue(), 10);
    QCOMPARE(box.period(), 1000);
    QCOMPARE(box.standardButtons(), QMessageBox::Ok);
    QCOMPARE(box.defaultButton(), box.button(QMessageBox::Ok));
}

void VemoCountdownMessageBoxTest::settersRefuseNegativeValues()
{
    VemoCountdownMessageBox box;
    box.setStartValue(3);
    box.setPeriod(250);
    QCOMPARE(box.startValue(), 3);
    QCOMPARE(box.period(), 250);
    box.setStartValue(-1);
    box.setPeriod(-1);
    QCOMPARE(box.startValue(), 0);
    QCOMPARE(box.period(), 0);
}

void VemoCountdownMessageBoxTest::tickCountsDownInTheCaption()
{
    VemoCountdownMessageBox box;
    box.setStartValue(2);
    tick(box);
    QCOMPARE(box.button(QMessageBox::Ok)->text(), captionFor(1));
    tick(box);
    QCOMPARE(box.button(QMessageBox::Ok)->text(), captionFor(0));
}

void VemoCountdownMessageBoxTest::belowZeroClicksTheDefaultButton()
{
    VemoCountdownMessageBox box;
    box.setStartValue(0);
    QSignalSpy clicked(box.button(QMessageBox::Ok), SIGNAL(clicked()));
    tick(box);
    QCOMPARE(clicked.count(), 0); // The click is animated.
    QVERIFY(box.button(QMessageBox::Ok)->isDown());
    QTRY_COMPARE(clicked.count(), 1);
}

void VemoCountdownMessageBoxTest::answersItself()
{
    VemoCountdownMessageBox box;
    box.setStartValue(2);
    box.setPeriod(1);
    QStringList captions;
    connect(&box, &QMessageBox::buttonClicked,
        [&](QAbstractButton *button) { captions += button->text(); });
    QTimer::singleShot(0, &box, [&] { captions += box.button(QMessageBox::Ok)->text(); });
    QCOMPARE(box.exec(), int(QMessageBox::Ok));
    QCOMPARE(captions.last(), captionFor(0));
}

void VemoCountdownMessageBoxTest::answersWithTheDefaultButton()
{
    VemoCountdownMessageBox box;
    box.setStandardButtons(QMessageBox::Ok | QMessageBox::Cancel);
    box.setDefaultButton(QMessageBox::Cancel);
    box.setStartValue(0);
    box.setPeriod(1);
    QCOMPARE(box.exec(), int(QMessageBox::Cancel));
}

void VemoCountdownMessageBoxTest::withoutButtonsNothingIsClicked()
{
    VemoCountdownMessageBox box;
    box.setStandardButtons(QMessageBox::NoButton);
    box.setStartValue(1);
    tick(box);
    tick(box);
    tick(box);
    QVERIFY(box.buttons().isEmpty());
}

void VemoCountdownMessageBoxTest::countsAgainEachTimeItIsShown()
{
    VemoCountdownMessageBox box;
    box.setStartValue(5);
    box.show();
    QCOMPARE(box.button(QMessageBox::Ok)->text(), captionFor(5));
    tick(box);
    tick(box);
    QCOMPARE(box.button(QMessageBox::Ok)->text(), captionFor(3));
    box.setStartValue(8); // From the next show on.
    tick(box);
    QCOMPARE(box.button(QMessageBox::Ok)->text(), captionFor(2));
    box.hide();
    box.show();
    QCOMPARE(box.button(QMessageBox::Ok)->text(), captionFor(8));
}

void VemoCountdownMessageBoxTest::goesOnWhileMinimised_data()
{
    QTest::addColumn<bool>("isByUser");
    QTest::newRow("by the program") << false;
    QTest::newRow("by the user") << true;
}

void VemoCountdownMessageBoxTest::goesOnWhileMinimised()
{
    QFETCH(const bool, isByUser);
    VemoCountdownMessageBox box;
    box.setStartValue(3);
    box.setPeriod(10);
    box.show();
    turn(box, isByUser, Qt::WindowMinimized, QHideEvent());
    QTRY_VERIFY(!box.isVisible());
    QCOMPARE(box.result(), int(QMessageBox::Ok));
}

void VemoCountdownMessageBoxTest::restoredItDoesNotStartAgain()
{
    QFETCH(const bool, isByUser);
    VemoCountdownMessageBox box;
    box.show();
    tick(box);
    turn(box, isByUser, Qt::WindowMinimized, QHideEvent());
    turn(box, isByUser, Qt::WindowNoState, QShowEvent());
    QCOMPARE(box.button(QMessageBox::Ok)->text(), captionFor(9));
}

void VemoCountdownMessageBoxTest::stopsWhenItIsAnswered()
{
    VemoCountdownMessageBox box;
    box.setStartValue(1);
    box.setPeriod(1);
    QTimer::singleShot(0, &box, SLOT(reject()));
    box.exec();
    const QString caption = box.button(QMessageBox::Ok)->text();
    QSignalSpy clicked(box.button(QMessageBox::Ok), SIGNAL(clicked()));
    // Another timer's time out shows that more than a period went by.
    QTimer later;
    QSignalSpy elapsed(&later, SIGNAL(timeout()));
    later.start(20);
    QVERIFY(elapsed.wait());
    QCOMPARE(box.button(QMessageBox::Ok)->text(), caption);
    QCOMPARE(clicked.count(), 0);
}

VEMO_TEST_MAIN(VemoCountdownMessageBoxTest)
#include "tst_vemocountdownmessagebox.moc"
