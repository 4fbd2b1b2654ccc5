// SPDX-License-Identifier: MIT
// When a VemoFilterBar hands on its text beyond Return; all of it is off at first.
#include <vemo/vemofilterbar.h>

#include "support/testhost.h"
#include "support/vemotest.h"

#include <QAccessible>
#include <QToolButton>

class FilterOptionsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void startsWithoutAnyOption();
    void handsOnWhatIsTypedAfterTheDelay();
    void handsOnOnceForSeveralKeys();
    void returnTakesThePlaceOfTheDelay();
    void keepsSilentAboutTextsOfTheProgram();
    void waitsNoMoreOnceTheDelayIsOff();
    void escapeEmptiesTheLineAndReportsIt();
    void escapeInAnEmptyLineIsPassedOn();
    void clearButtonEmptiesTheLineAndReportsIt();
    void clearButtonGoesAgain();
    void mayDieWhenItReports_data();
    void mayDieWhenItReports();
};

namespace {

struct Filter
{
    Filter()
    {
        bar->resize(300, bar->height());
        bar->show();
    }
    ~Filter() { delete bar; }
    QToolButton *clearButton() const
    {
        for (QToolButton *button : bar->findChildren<QToolButton *>()) {
            if (button->defaultAction())
                return button;
        }
        return nullptr;
    }
    bool press(Qt::Key key) const
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(bar, &event);
        return event.isAccepted();
    }
    QString lastKeyword() const { return keywords.last().first().toString(); }

    QPointer<VemoFilterBar> bar = new VemoFilterBar;
    QSignalSpy keywords {bar, SIGNAL(sigKeywordChanged(QString))};
};

} // namespace

void FilterOptionsTest::startsWithoutAnyOption()
{
    const Filter filter;
    QCOMPARE(filter.bar->searchDelay(), -1);
    QVERIFY(!filter.bar->isClearedByEscape());
    QVERIFY(!filter.bar->isClearButtonVisible());
    QVERIFY(!filter.clearButton());
    filter.bar->setText("report");
    QVERIFY(!filter.press(Qt::Key_Escape));
    QCOMPARE(filter.bar->text(), QString("report"));
}

void FilterOptionsTest::handsOnWhatIsTypedAfterTheDelay()
{
    Filter filter;
    filter.bar->setSearchDelay(0);
    QTest::keyClicks(filter.bar, "re");
    QCOMPARE(filter.keywords.size(), 0); // not within the key press
    QTRY_COMPARE(filter.keywords.size(), 1);
    QCOMPARE(filter.lastKeyword(), QString("re"));
    QTest::keyClick(filter.bar, Qt::Key_Backspace);
    QTRY_COMPARE(filter.keywords.size(), 2);
    QCOMPARE(filter.lastKeyword(), QString("r"));
}

void FilterOptionsTest::handsOnOnceForSeveralKeys()
{
    Filter filter;
    filter.bar->setSearchDelay(60000);
    QTest::keyClicks(filter.bar, "report");
    const auto *timer = filter.bar->findChild<QTimer *>({}, Qt::FindDirectChildrenOnly);
    QVERIFY(timer->isActive() && timer->isSingleShot());
    QCOMPARE(timer->interval(), 60000);
    QCOMPARE(filter.keywords.size(), 0);
}

void FilterOptionsTest::returnTakesThePlaceOfTheDelay()
{
    Filter filter;
    filter.bar->setSearchDelay(0);
    QTest::keyClicks(filter.bar, "re");
    QTest::keyClick(filter.bar, Qt::Key_Return);
    QCOMPARE(filter.keywords.size(), 1);
    QCoreApplication::processEvents();
    QCOMPARE(filter.keywords.size(), 1);
}

void FilterOptionsTest::keepsSilentAboutTextsOfTheProgram()
{
    Filter filter;
    filter.bar->setSearchDelay(0);
    filter.bar->setText("report");
    filter.bar->clear();
    QCoreApplication::processEvents();
    QCOMPARE(filter.keywords.size(), 0);
}

void FilterOptionsTest::waitsNoMoreOnceTheDelayIsOff()
{
    Filter filter;
    filter.bar->setSearchDelay(0);
    QTest::keyClicks(filter.bar, "re");
    filter.bar->setSearchDelay(-5);
    QCOMPARE(filter.bar->searchDelay(), -1);
    QCoreApplication::processEvents();
    QCOMPARE(filter.keywords.size(), 0);
}

void FilterOptionsTest::escapeEmptiesTheLineAndReportsIt()
{
    Filter filter;
    filter.bar->setSearchDelay(0);
    filter.bar->setClearedByEscape(true);
    QTest::keyClicks(filter.bar, "report");
    QVERIFY(filter.press(Qt::Key_Escape));
    QCOMPARE(filter.bar->text(), QString());
    QCoreApplication::processEvents();
    QCOMPARE(filter.keywords.size(), 1);
    QCOMPARE(filter.lastKeyword(), QString());
}

void FilterOptionsTest::escapeInAnEmptyLineIsPassedOn()
{
    Filter filter;
    filter.bar->setClearedByEscape(true);
    QVERIFY(!filter.press(Qt::Key_Escape));
    QCOMPARE(filter.keywords.size(), 0);
}

void FilterOptionsTest::clearButtonEmptiesTheLineAndReportsIt()
{
    Filter filter;
    filter.bar->setSearchDelay(0);
    filter.bar->setClearButtonVisible(true);
    filter.bar->setClearButtonVisible(true);
    filter.bar->setText("report");
    QToolButton *button = filter.clearButton();
    QCOMPARE(
        QAccessible::queryAccessibleInterface(button)->text(QAccessible::Name), QString("Clear"));
    QTest::mouseClick(button, Qt::LeftButton);
    QCOMPARE(filter.bar->text(), QString());
    QCoreApplication::processEvents();
    QCOMPARE(filter.keywords.size(), 1);
    QCOMPARE(filter.lastKeyword(), QString());
}

void FilterOptionsTest::clearButtonGoesAgain()
{
    Filter filter;
    filter.bar->setClearButtonVisible(true);
    filter.bar->setClearButtonVisible(false);
    QVERIFY(!filter.bar->isClearButtonVisible());
    QVERIFY(!filter.clearButton());
}

void FilterOptionsTest::mayDieWhenItReports_data()
{
    QTest::addColumn<bool>("byButton");
    QTest::newRow("Escape") << false;
    QTest::newRow("clear button") << true;
}

void FilterOptionsTest::mayDieWhenItReports()
{
    QFETCH(bool, byButton);
    Filter filter;
    filter.bar->setClearedByEscape(true);
    filter.bar->setClearButtonVisible(true);
    filter.bar->setText("report");
    connect(filter.bar, &VemoFilterBar::sigKeywordChanged, this, [&filter] { delete filter.bar; });
    if (byButton)
        filter.clearButton()->click();
    else
        filter.press(Qt::Key_Escape);
    QVERIFY(!filter.bar);
}

VEMO_TEST_MAIN(FilterOptionsTest)
#include "tst_filteroptions.moc"
