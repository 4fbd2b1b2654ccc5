// SPDX-License-Identifier: MIT
// What a VemoPagingBar can do beyond its buttons; all of it is off at first.
#include <vemo/vemopagingbar.h>

#include "core/scaling_p.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/vemobutton.h>
#include <vemo/vemocombobox.h>
#include <vemo/vemopagingmodel.h>

#include <QLabel>
#include <QLineEdit>

class PagingOptionsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void startsWithoutAnyOption();
    void goesToAPageOfTheProgram();
    void reportsEachNewPageOnce();
    void staysWithinItsPages_data();
    void staysWithinItsPages();
    void showsTheRangeOfItsItems_data();
    void showsTheRangeOfItsItems();
    void writesNumbersOfTheLocale();
    void letsTheUserChooseTheRows_data();
    void letsTheUserChooseTheRows();
    void boxFollowsTheModel();
    void leavesOutRowsThatCannotBe();
    void jumpsToAPage_data();
    void jumpsToAPage();
    void namesItsPartsForAScreenReader();
    void partsFollowTheButtonsInTheRow();
    void partsGoAgain();
    void withoutAModelTheyOnlyWarn();
};

namespace {

struct Paging
{
    explicit Paging(int items = 312, int rowLimit = 20) : model(rowLimit)
    {
        bar.setItemCount(items);
        bar.resize(scaled(800), bar.height());
    }
    VemoComboBox *box() const { return bar.findChild<VemoComboBox *>(); }
    QLineEdit *field() const { return bar.findChild<QLineEdit *>(); }
    QLabel *range() const { return bar.findChild<QLabel *>(); }
    void choose(int row) const
    {
        box()->setCurrentIndex(row);
        Q_EMIT box()->activated(row);
    }

    VemoPagingModel model;
    VemoPagingBar bar {&model};
    QSignalSpy changes {&bar, &VemoPagingBar::sigPageChanged};
    QSignalSpy pages {&bar, &VemoPagingBar::pageChanged};
};

} // namespace

void PagingOptionsTest::startsWithoutAnyOption()
{
    const Paging paging;
    QCOMPARE(paging.bar.page(), 1);
    QVERIFY(!paging.bar.isClamping());
    QVERIFY(!paging.bar.isRangeVisible());
    QVERIFY(!paging.bar.isJumpFieldVisible());
    QVERIFY(paging.bar.rowLimits().isEmpty());
    QVERIFY(!paging.box() && !paging.field() && !paging.range());
}

void PagingOptionsTest::goesToAPageOfTheProgram()
{
    Paging paging;
    paging.bar.setPage(3);
    QCOMPARE(paging.bar.page(), 3);
    QCOMPARE(paging.model.nowPage(), 3);
    QCOMPARE(paging.bar.findChildren<VemoButton *>()[2]->text(), QString("3"));
    QCOMPARE(paging.changes.size(), 0);
    paging.bar.setPage(99);
    QCOMPARE(paging.bar.page(), 99);
}

void PagingOptionsTest::reportsEachNewPageOnce()
{
    Paging paging;
    paging.bar.setPage(1);
    paging.bar.setItemCount(400);
    QCOMPARE(paging.pages.size(), 0);
    paging.bar.setPage(4);
    QCOMPARE(paging.pages.last().first().toInt(), 4);
    QTest::mouseClick(paging.bar.findChildren<VemoButton *>()[2], Qt::LeftButton);
    QCOMPARE(paging.pages.size(), 1);
    QCOMPARE(paging.changes.size(), 1);
    QTest::mouseClick(paging.bar.findChildren<VemoButton *>()[3], Qt::LeftButton);
    QCOMPARE(paging.pages.size(), 2);
    QCOMPARE(paging.pages.last().first().toInt(), 5);
    paging.bar.reset();
    QCOMPARE(paging.pages.size(), 3);
}

void PagingOptionsTest::staysWithinItsPages_data()
{
    QTest::addColumn<bool>("isClamping");
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("items");
    QTest::addColumn<int>("expected");
    QTest::newRow("beyond the last") << true << 99 << 312 << 16;
    QTest::newRow("before the first") << true << -3 << 312 << 1;
    QTest::newRow("fewer items") << true << 16 << 45 << 3;
    QTest::newRow("no items") << true << 16 << 0 << 1;
    QTest::newRow("within") << true << 5 << 312 << 5;
    QTest::newRow("not told to") << false << 16 << 45 << 16;
}

void PagingOptionsTest::staysWithinItsPages()
{
    QFETCH(bool, isClamping);
    QFETCH(int, page);
    QFETCH(int, items);
    Paging paging;
    paging.bar.setClamping(isClamping);
    paging.bar.setPage(page);
    paging.bar.setItemCount(items);
    QTEST(paging.bar.page(), "expected");
    QCOMPARE(paging.changes.size(), 0);
}

void PagingOptionsTest::showsTheRangeOfItsItems_data()
{
    QTest::addColumn<int>("items");
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("text");
    QTest::newRow("first page") << 312 << 1 << "1-20 of 312";
    QTest::newRow("second page") << 312 << 2 << "21-40 of 312";
    QTest::newRow("last page") << 312 << 16 << "301-312 of 312";
    QTest::newRow("beyond the last") << 312 << 17 << "";
    QTest::newRow("before the first") << 312 << 0 << "";
    QTest::newRow("no items") << 0 << 1 << "";
    QTest::newRow("one item") << 1 << 1 << "1-1 of 1";
    QTest::newRow("far beyond") << 312 << 2000000000 << "";
}

void PagingOptionsTest::showsTheRangeOfItsItems()
{
    QFETCH(int, items);
    QFETCH(int, page);
    Paging paging(items);
    paging.bar.setPage(page);
    paging.bar.setRangeVisible(true);
    QVERIFY(paging.bar.isRangeVisible());
    QTEST(paging.range()->text(), "text");
    paging.bar.setPage(1);
    paging.bar.setPage(page);
    QTEST(paging.range()->text(), "text");
}

void PagingOptionsTest::writesNumbersOfTheLocale()
{
    Paging paging(10000);
    paging.bar.setLocale(QLocale(QLocale::German, QLocale::Germany));
    paging.bar.setRangeVisible(true);
    paging.bar.setPage(100);
    QCOMPARE(paging.range()->text(), QString("1.981-2.000 of 10.000"));
}

void PagingOptionsTest::letsTheUserChooseTheRows_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("row");
    QTest::addColumn<int>("limit");
    QTest::addColumn<int>("expected");
    QTest::newRow("more, from the first page") << 1 << 2 << 50 << 1;
    QTest::newRow("more, from item 101") << 6 << 2 << 50 << 3;
    QTest::newRow("fewer, from item 101") << 6 << 0 << 10 << 11;
    QTest::newRow("the same") << 6 << 1 << 20 << 6;
    QTest::newRow("from before the first page") << -6 << 2 << 50 << 1;
}

void PagingOptionsTest::letsTheUserChooseTheRows()
{
    QFETCH(int, page);
    QFETCH(int, row);
    Paging paging;
    paging.bar.setRowLimits({10, 20, 50});
    QCOMPARE(paging.bar.rowLimits(), QVector<int>({10, 20, 50}));
    paging.bar.setPage(page);
    paging.choose(row);
    QTEST(paging.model.rowLimit(), "limit");
    QTEST(paging.bar.page(), "expected");
    QCOMPARE(paging.changes.size(), 1);
}

void PagingOptionsTest::boxFollowsTheModel()
{
    Paging paging;
    paging.bar.setRowLimits({10, 20, 50});
    QCOMPARE(paging.box()->currentText(), QString("20"));
    paging.bar.setRowLimit(50);
    QCOMPARE(paging.box()->currentText(), QString("50"));
    paging.bar.setRowLimit(33);
    QCOMPARE(paging.box()->currentIndex(), -1);
}

void PagingOptionsTest::leavesOutRowsThatCannotBe()
{
    Paging paging;
    paging.bar.setRowLimits({0, 20, -5});
    QCOMPARE(paging.bar.rowLimits(), QVector<int>({20}));
    paging.bar.setRowLimits({0});
    QVERIFY(paging.bar.rowLimits().isEmpty());
}

void PagingOptionsTest::jumpsToAPage_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("page");
    QTest::addColumn<int>("changes");
    QTest::newRow("a page") << "7" << 7 << 1;
    QTest::newRow("the current one") << "2" << 2 << 1;
    QTest::newRow("beyond the last") << "700" << 16 << 1;
    QTest::newRow("none") << "0" << 2 << 0;
    QTest::newRow("nothing") << "" << 2 << 0;
    QTest::newRow("letters") << "x" << 2 << 0;
}

void PagingOptionsTest::jumpsToAPage()
{
    QFETCH(QString, typed);
    Paging paging;
    paging.bar.setPage(2);
    paging.bar.setJumpFieldVisible(true);
    QVERIFY(paging.bar.isJumpFieldVisible());
    QTest::keyClicks(paging.field(), typed);
    QTest::keyClick(paging.field(), Qt::Key_Return);
    QTEST(paging.bar.page(), "page");
    QTEST(int(paging.changes.size()), "changes");
    if (!paging.changes.isEmpty())
        QCOMPARE(paging.field()->text(), QString());
}

void PagingOptionsTest::namesItsPartsForAScreenReader()
{
    Paging paging;
    paging.bar.setRowLimits({10, 20});
    paging.bar.setJumpFieldVisible(true);
    QCOMPARE(paging.box()->accessibleName(), QString("Rows per page"));
    QCOMPARE(paging.field()->accessibleName(), QString("Go to page"));
}

void PagingOptionsTest::partsFollowTheButtonsInTheRow()
{
    Paging paging;
    // In any order of calls.
    paging.bar.setJumpFieldVisible(true);
    paging.bar.setRowLimits({10, 20});
    paging.bar.setRangeVisible(true);
    paging.bar.show();
    QVERIFY(QTest::qWaitForWindowExposed(&paging.bar));
    const auto right = [&paging](const QWidget *part) {
        return part->mapTo(&paging.bar, part->rect().topRight()).x();
    };
    const int buttons = right(paging.bar.findChildren<VemoButton *>().last());
    QVERIFY(buttons < right(paging.range()));
    QVERIFY(right(paging.range()) < right(paging.box()));
    QVERIFY(right(paging.box()) < right(paging.field()));
    for (const QWidget *part : QList<QWidget *> {paging.range(), paging.box(), paging.field()})
        QCOMPARE(part->height(), scaled(24));
    QCOMPARE(paging.bar.sizeHint().height(), scaled(32));
}

void PagingOptionsTest::partsGoAgain()
{
    Paging paging;
    paging.bar.setRangeVisible(true);
    paging.bar.setRowLimits({10, 20});
    paging.bar.setJumpFieldVisible(true);
    paging.bar.setRangeVisible(false);
    paging.bar.setRowLimits({});
    paging.bar.setJumpFieldVisible(false);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!paging.box() && !paging.field() && !paging.range());
    paging.bar.setPage(2);
    QCOMPARE(paging.bar.page(), 2);
}

void PagingOptionsTest::withoutAModelTheyOnlyWarn()
{
    auto *model = new VemoPagingModel(20);
    VemoPagingBar bar(model);
    bar.setItemCount(100);
    bar.setRowLimits({10, 20});
    bar.setJumpFieldVisible(true);
    delete model;
    QCOMPARE(bar.page(), 0);
    bar.setPage(2);
    Q_EMIT bar.findChild<VemoComboBox *>()->activated(0);
    QTest::keyClicks(bar.findChild<QLineEdit *>(), "3");
    QTest::keyClick(bar.findChild<QLineEdit *>(), Qt::Key_Return);
    const QString warning("Paging bar has no model");
    QCOMPARE(messages.take(), QStringList({warning, warning, warning}));
}

VEMO_TEST_MAIN(PagingOptionsTest)
#include "tst_pagingoptions.moc"
