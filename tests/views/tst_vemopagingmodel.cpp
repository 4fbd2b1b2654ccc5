// SPDX-License-Identifier: MIT
#include <vemo/vemopagingmodel.h>

#include "support/vemotest.h"

#include <limits>

namespace {

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();

} // namespace

class VemoPagingModelTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void startsOnPageOneOfNoItems();
    void belongsToItsParent();
    void storesWhateverItIsGiven_data();
    void storesWhateverItIsGiven();
    void countsBegunPages_data();
    void countsBegunPages();
    void putsAllOnOnePageWithoutARowLimit();
    void startsThePageBehindTheOnesBefore_data();
    void startsThePageBehindTheOnesBefore();
};

void VemoPagingModelTest::startsOnPageOneOfNoItems()
{
    const VemoPagingModel model(25, nullptr);
    QCOMPARE(model.rowLimit(), 25);
    QCOMPARE(model.itemCount(), 0);
    QCOMPARE(model.nowPage(), 1);
}

void VemoPagingModelTest::belongsToItsParent()
{
    QObject parent;
    const auto *model = new VemoPagingModel(25, &parent);
    QCOMPARE(model->parent(), &parent);
}

void VemoPagingModelTest::storesWhateverItIsGiven_data()
{
    QTest::addColumn<int>("value");
    for (const int value : {kLowest, -1, 0, 1, 1'000'000, kHighest})
        QTest::addRow("%d", value) << value;
}

void VemoPagingModelTest::storesWhateverItIsGiven()
{
    QFETCH(int, value);
    VemoPagingModel model(25, nullptr);
    model.setRowLimit(value);
    model.setItemCount(value);
    model.setNowPage(value);
    QCOMPARE(model.rowLimit(), value);
    QCOMPARE(model.itemCount(), value);
    QCOMPARE(model.nowPage(), value);
}

void VemoPagingModelTest::countsBegunPages_data()
{
    QTest::addColumn<int>("itemCount");
    QTest::addColumn<int>("rowLimit");
    QTest::addColumn<int>("pageCount");
    QTest::newRow("no items") << 0 << 10 << 1;
    QTest::newRow("negative count") << -25 << 10 << 1;
    QTest::newRow("one item") << 1 << 10 << 1;
    QTest::newRow("part of a page") << 25 << 10 << 3;
    QTest::newRow("whole pages") << 20 << 10 << 2;
    QTest::newRow("three whole pages") << 30 << 10 << 3;
    QTest::newRow("one more item") << 31 << 10 << 4;
    QTest::newRow("a million items") << 1'000'000 << 1 << 1'000'000;
    QTest::newRow("negative row limit") << 25 << -10 << 1;
    QTest::newRow("both negative") << -25 << -10 << 3;
    QTest::newRow("lowest count over -1") << kLowest << -1 << kHighest;
    QTest::newRow("highest count") << kHighest << 1 << kHighest;
}

void VemoPagingModelTest::countsBegunPages()
{
    QFETCH(int, itemCount);
    QFETCH(int, rowLimit);
    VemoPagingModel model(rowLimit, nullptr);
    model.setItemCount(itemCount);
    QTEST(model.pageCount(), "pageCount");
}

void VemoPagingModelTest::putsAllOnOnePageWithoutARowLimit()
{
    VemoPagingModel model(0, nullptr);
    model.setItemCount(100);
    QCOMPARE(model.pageCount(), 1);
    QCOMPARE(model.startItem(), 0);
    QCOMPARE(messages.take(), QStringList("Paging model has row limit 0"));
}

void VemoPagingModelTest::startsThePageBehindTheOnesBefore_data()
{
    QTest::addColumn<int>("nowPage");
    QTest::addColumn<int>("rowLimit");
    QTest::addColumn<int>("startItem");
    QTest::newRow("first page") << 1 << 10 << 0;
    QTest::newRow("third page") << 3 << 10 << 20;
    QTest::newRow("page beyond the items") << 9 << 10 << 80;
    QTest::newRow("page 0") << 0 << 10 << -10;
    QTest::newRow("negative page") << -2 << 10 << -30;
    QTest::newRow("beyond the highest index") << kHighest << 10 << kHighest;
    QTest::newRow("beyond the lowest index") << kLowest << 10 << kLowest;
}

void VemoPagingModelTest::startsThePageBehindTheOnesBefore()
{
    QFETCH(int, nowPage);
    QFETCH(int, rowLimit);
    VemoPagingModel model(rowLimit, nullptr);
    model.setItemCount(25);
    model.setNowPage(nowPage);
    QTEST(model.startItem(), "startItem");
}

VEMO_TEST_MAIN(VemoPagingModelTest)
#include "tst_vemopagingmodel.moc"
