// SPDX-License-Identifier: MIT
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/vemobutton.h>
#include <vemo/vemobuttonpath.h>
#include <vemo/vemopagingbar.h>
#include <vemo/vemopagingmodel.h>
#include <vemo/vemotablewidget.h>
#include <vemo/vemotreewidget.h>

#include <QHeaderView>

/// What code made from a form calls: constructors of a lone parent, and setters of properties.
class ViewsInFormsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void aPagingBarAloneHasAModelOfItsOwn();
    void aPagingBarShowsANewRowLimitInSilence();
    void aPagingBarWithoutAModelAnswersNothing();
    void aPagingBarTellsItsRefreshButtonAndFooter();
    void aTableTakesOtherColumnsLater();
    void aTableKeepsTheCellsOfColumnsThatStay();
    void aTableReadsColumnsFromTexts_data();
    void aTableReadsColumnsFromTexts();
    void aTreeTakesItsColoursOneByOne();
    void aPathTellsAllOfItself();
};

namespace {

QStringList pageTexts(const VemoPagingBar &bar)
{
    QStringList texts;
    for (const VemoButton *button : bar.findChildren<VemoButton *>())
        texts << button->text();
    return texts;
}

QList<int> sectionSizes(VemoTableWidget &table)
{
    QList<int> sizes;
    for (int section = 0; section < table.getHeader()->count(); ++section)
        sizes << table.getHeader()->sectionSize(section);
    for (int column = 0; column < table.getTable()->columnCount(); ++column)
        sizes << table.getTable()->columnWidth(column);
    return sizes;
}

} // namespace

void ViewsInFormsTest::aPagingBarAloneHasAModelOfItsOwn()
{
    QWidget form;
    auto *bar = new VemoPagingBar(&form);
    QCOMPARE(bar->parentWidget(), &form);
    const QPointer<VemoPagingModel> model = bar->pagingModel();
    QVERIFY(model);
    QCOMPARE(bar->rowLimit(), 50);
    QCOMPARE(bar->itemCount(), 0);
    bar->setItemCount(101);
    QCOMPARE(model->pageCount(), 3);
    delete bar;
    QVERIFY(!model);
}

void ViewsInFormsTest::aPagingBarShowsANewRowLimitInSilence()
{
    VemoPagingBar bar(nullptr);
    bar.setItemCount(60);
    QCOMPARE(pageTexts(bar), QStringList({" ", " ", "1", "2", " "}));
    QSignalSpy changes(&bar, SIGNAL(sigPageChanged()));
    bar.setRowLimit(10);
    QCOMPARE(bar.rowLimit(), 10);
    QCOMPARE(pageTexts(bar), QStringList({" ", " ", "1", "2", "3"}));
    QVERIFY(changes.isEmpty());
}

void ViewsInFormsTest::aPagingBarWithoutAModelAnswersNothing()
{
    VemoPagingBar bar(nullptr, nullptr);
    QCOMPARE(messages.take(), QStringList("Paging bar has no model"));
    QVERIFY(!bar.pagingModel());
    QCOMPARE(bar.rowLimit(), 0);
    QCOMPARE(bar.itemCount(), 0);
    bar.setRowLimit(10);
    QCOMPARE(messages.take(), QStringList("Paging bar has no model"));
}

void ViewsInFormsTest::aPagingBarTellsItsRefreshButtonAndFooter()
{
    VemoPagingBar bar(nullptr);
    QVERIFY(!bar.isRefreshButtonHidden());
    bar.setRefreshButtonHidden(true);
    QVERIFY(bar.isRefreshButtonHidden());
    QCOMPARE(bar.footerText(), QString());
    bar.setFooterInfos({{"right", 0}, {"left", 0}});
    QCOMPARE(bar.footerText(), QString("right"));
}

void ViewsInFormsTest::aTableTakesOtherColumnsLater()
{
    VemoTableColumnsInfo columns;
    columns.addColumn("Name", 120, true, 0.5);
    columns.addColumn("Size", 80, false, 0.0);
    VemoTableWidget expected(columns, nullptr);
    VemoTableWidget table(nullptr);
    QCOMPARE(table.getTable()->columnCount(), 0);
    for (VemoTableWidget *each : {&expected, &table}) {
        each->resize(500, 200);
        each->show();
    }
    table.setColumns(columns);
    QCOMPARE(table.getHeader()->model()->headerData(1, Qt::Horizontal).toString(), QString("Size"));
    QCOMPARE(sectionSizes(table), sectionSizes(expected));
    for (int section = 0; section < 3; ++section)
        QCOMPARE(table.getHeader()->sectionResizeMode(section),
            expected.getHeader()->sectionResizeMode(section));
}

void ViewsInFormsTest::aTableKeepsTheCellsOfColumnsThatStay()
{
    VemoTableWidget table(nullptr);
    table.setColumnTexts(QStringList({"Name", "Size", "Kind"}));
    table.getTable()->setRowCount(1);
    table.getTable()->setItem(0, 0, new QTableWidgetItem("a.txt"));
    table.setColumnTexts(QStringList({"Titel"}));
    QCOMPARE(table.getTable()->columnCount(), 1);
    QCOMPARE(table.getTable()->item(0, 0)->text(), QString("a.txt"));
    table.setColumnTexts(QStringList());
    QCOMPARE(table.getHeader()->count(), 1); // the one above the scroll bar
}

void ViewsInFormsTest::aTableReadsColumnsFromTexts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("readBack");
    QTest::newRow("name alone") << "Name"
                                << "Name|100";
    QTest::newRow("fixed") << "Size|80"
                           << "Size|80";
    QTest::newRow("proportional") << "Name|120|0.3"
                                  << "Name|120|0.3";
    QTest::newRow("draggable without a share") << "Name|120|0"
                                               << "Name|120|0";
    QTest::newRow("malformed width") << "Name|wide"
                                     << "Name|100";
    QTest::newRow("malformed ratio") << "Name|80|half"
                                     << "Name|80";
    QTest::newRow("more than is read") << "Name|80|0.5|x"
                                       << "Name|80|0.5";
    QTest::newRow("no name") << "|80"
                             << "|80";
    QTest::newRow("empty") << ""
                           << "|100";
}

void ViewsInFormsTest::aTableReadsColumnsFromTexts()
{
    QFETCH(QString, text);
    QFETCH(QString, readBack);
    VemoTableWidget table(nullptr);
    table.setColumnTexts(QStringList(text));
    QCOMPARE(table.columnTexts(), QStringList(readBack));
}

void ViewsInFormsTest::aTreeTakesItsColoursOneByOne()
{
    VemoTreeWidget tree;
    QVERIFY(!tree.selectedColor().isValid());
    tree.setSelectedColor(Qt::blue);
    tree.setHoverColor(Qt::yellow);
    QCOMPARE(tree.selectedColor(), QColor(Qt::blue));
    QCOMPARE(tree.hoverColor(), QColor(Qt::yellow));
    tree.setBackgroundColor(Qt::red, Qt::green);
    QCOMPARE(tree.selectedColor(), QColor(Qt::red));
    QCOMPARE(tree.hoverColor(), QColor(Qt::green));
}

void ViewsInFormsTest::aPathTellsAllOfItself()
{
    VemoButtonPath path;
    QCOMPARE(path.path(), QString());
    path.setPath("/home//R&D/2026/");
    QCOMPARE(path.path(), QString("home/R&D/2026"));
}

VEMO_TEST_MAIN(ViewsInFormsTest)
#include "tst_viewsinforms.moc"
