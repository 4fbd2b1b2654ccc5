// SPDX-License-Identifier: MIT
#include <vemo/vemotablewidget.h>

#include "core/scaling_p.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <QHeaderView>

#include <limits>

namespace {

struct Column
{
    int width;
    bool proportional;
    double ratio;
};

VemoTableColumnsInfo columnsOf(const QVector<Column> &columns)
{
    VemoTableColumnsInfo info;
    for (const Column &column : columns)
        info.addColumn("Name", column.width, column.proportional, column.ratio);
    return info;
}

QList<int> sectionSizes(VemoTableWidget &widget)
{
    QList<int> sizes;
    for (int section = 0; section + 1 < widget.getHeader()->count(); ++section)
        sizes << widget.getHeader()->sectionSize(section);
    return sizes;
}

} // namespace

Q_DECLARE_METATYPE(Column)

/// The distribution of the free width. The widths in the rows are in design pixels, the size of the
/// table and of the sections in screen pixels.
class TableWidthsTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void sharesTheFreeWidth_data();
    void sharesTheFreeWidth();
    void truncatesOnceBeforeAndOnceAfterTheShare();
    void doesNothingWithoutColumns();
    void resetsADraggedProportionalColumn();
    void sharesAgainWhenTheTableIsResized();
};

void TableWidthsTest::sharesTheFreeWidth_data()
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinity = std::numeric_limits<double>::infinity();
    QTest::addColumn<QVector<Column>>("columns");
    QTest::addColumn<int>("width");
    QTest::addColumn<QList<int>>("sections"); // at factor 1
    const QVector<Column> half {{80, false, 0.0}, {100, true, 0.5}};
    QTest::newRow("share") << half << 300 << QList<int> {80, 110};
    QTest::newRow("raised to the least width") << half << 200 << QList<int> {80, 100};
    QTest::newRow("no free width") << half << 50 << QList<int> {80, 100};
    QTest::newRow("no width") << half << 0 << QList<int> {80, 100};
    QTest::newRow("negative width") << half << -500 << QList<int> {80, 100};
    QTest::newRow("ratio of a fixed column")
        << QVector<Column> {{80, false, 0.9}, {10, true, 0.5}} << 280 << QList<int> {80, 100};
    QTest::newRow("ratio 0 counts as fixed")
        << QVector<Column> {{80, true, 0.0}, {10, true, 0.5}} << 280 << QList<int> {80, 100};
    QTest::newRow("ratio -0") << QVector<Column> {{80, true, -0.0}, {10, true, 0.5}} << 280
                              << QList<int> {80, 100};
    QTest::newRow("shares of a whole")
        << QVector<Column> {{10, true, 0.25}, {10, true, 0.75}} << 400 << QList<int> {100, 300};
    QTest::newRow("above a whole")
        << QVector<Column> {{10, true, 0.75}, {10, true, 1.5}} << 400 << QList<int> {300, 600};
    QTest::newRow("negative ratio") << QVector<Column> {{30, true, -2.0}} << 400 << QList<int> {30};
    QTest::newRow("ratio NaN counts as not 0")
        << QVector<Column> {{30, true, nan}, {10, true, 0.5}} << 400 << QList<int> {30, 200};
    QTest::newRow("ratio infinite, nothing free")
        << QVector<Column> {{100, false, 0.0}, {30, true, infinity}} << 100 << QList<int> {100, 30};
    QTest::newRow("least width 0")
        << QVector<Column> {{0, true, 0.1}, {0, true, 0.0}} << 20 << QList<int> {2, 0};
    QTest::newRow("vast fixed column") << QVector<Column> {{100'000, false, 0.0}, {30, true, 0.5}}
                                       << 400 << QList<int> {100'000, 30};
    QTest::newRow("narrower than the style's least")
        << QVector<Column> {{5, true, 0.1}} << 80 << QList<int> {8};
}

void TableWidthsTest::sharesTheFreeWidth()
{
    QFETCH(QVector<Column>, columns);
    QFETCH(int, width);
    QFETCH(QList<int>, sections);
    if (!qFuzzyCompare(DPIinfo::getInstance().getDPI(), 1.0)) {
        // At any factor, the sections scale with the table except for fractions.
        width = scaled(width);
    }
    VemoTableWidget widget(columnsOf(columns), nullptr);
    widget.slotTableResized({width, 100});
    const QList<int> found = sectionSizes(widget);
    QCOMPARE(found.size(), sections.size());
    for (int section = 0; section < found.size(); ++section) {
        QVERIFY(qAbs(found.at(section) - scaled(sections.at(section))) <= 1);
        QCOMPARE(widget.getTable()->columnWidth(section), found.at(section));
    }
    if (qFuzzyCompare(DPIinfo::getInstance().getDPI(), 1.0))
        QCOMPARE(found, sections);
}

void TableWidthsTest::truncatesOnceBeforeAndOnceAfterTheShare()
{
    VemoTableWidget widget(columnsOf({{33, false, 0.0}, {1, true, 0.3}}), nullptr);
    widget.slotTableResized({500, 100});
    const double factor = DPIinfo::getInstance().getDPI();
    const int free = int(500 - 33 * factor);
    QCOMPARE(widget.getHeader()->sectionSize(1), int(free * 0.3));
}

void TableWidthsTest::doesNothingWithoutColumns()
{
    VemoTableWidget widget(VemoTableColumnsInfo(), nullptr);
    const QSignalSpy resizes(widget.getHeader(), SIGNAL(sectionResized(int, int, int)));
    widget.slotTableResized({300, 100});
    QCOMPARE(resizes.size(), 0);
}

void TableWidthsTest::resetsADraggedProportionalColumn()
{
    VemoTableWidget widget(columnsOf({{80, true, 0.0}, {10, true, 0.5}}), nullptr);
    widget.slotTableResized({scaled(280), 100});
    const QList<int> before = sectionSizes(widget);
    widget.getHeader()->resizeSection(0, scaled(120));
    widget.getHeader()->resizeSection(1, scaled(250));
    widget.slotTableResized({scaled(280), 100});
    QCOMPARE(sectionSizes(widget), QList<int>({scaled(120), before.at(1)}));
}

void TableWidthsTest::sharesAgainWhenTheTableIsResized()
{
    VemoTableWidget widget(columnsOf({{10, true, 1.0}}), nullptr);
    widget.resize(scaled(300), scaled(200));
    widget.show();
    QCOMPARE(widget.getHeader()->sectionSize(0), widget.getTable()->viewport()->width());
    widget.resize(scaled(500), scaled(200));
    QCOMPARE(widget.getHeader()->sectionSize(0), widget.getTable()->viewport()->width());
}

VEMO_TEST_MAIN(TableWidthsTest)
#include "tst_tablewidths.moc"
