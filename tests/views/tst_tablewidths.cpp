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

/// Of the sections, without the last one, at 96, 120 and 144 dpi.
using Sizes = QVector<QList<int>>;

int factorIndex()
{
    return QVector<double>({1.0, 1.25, 1.5}).indexOf(DPIinfo::getInstance().getDPI());
}

void addWidths(const char *name, const QVector<Column> &columns, int width, const Sizes &sizes)
{
    addRow(name, columns, width, sizes);
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
    QTest::addColumn<Sizes>("sizes");
    const QVector<Column> half {{80, false, 0.0}, {100, true, 0.5}};
    const Sizes least {{80, 100}, {100, 125}, {120, 150}};
    addWidths("share", half, 300, {{80, 110}, {100, 137}, {120, 165}});
    addWidths("raised to the least width", half, 200, least);
    addWidths("no free width", half, 50, least);
    addWidths("no width", half, 0, least);
    addWidths("negative width", half, -500, least);
    addWidths("ratio of a fixed column", {{80, false, 0.9}, {10, true, 0.5}}, 280, least);
    addWidths("ratio 0 counts as fixed", {{80, true, 0.0}, {10, true, 0.5}}, 280, least);
    addWidths("ratio -0", {{80, true, -0.0}, {10, true, 0.5}}, 280, least);
    addWidths("shares of a whole", {{10, true, 0.25}, {10, true, 0.75}}, 400,
        {{100, 300}, {125, 375}, {150, 450}});
    addWidths("above a whole", {{10, true, 0.75}, {10, true, 1.5}}, 400,
        {{300, 600}, {375, 750}, {450, 900}});
    addWidths("negative ratio", {{30, true, -2.0}}, 400, {{30}, {37}, {45}});
    addWidths("ratio NaN counts as not 0", {{30, true, nan}, {10, true, 0.5}}, 400,
        {{30, 200}, {37, 250}, {45, 300}});
    addWidths("ratio infinite, nothing free", {{100, false, 0.0}, {30, true, infinity}}, 100,
        {{100, 30}, {125, 37}, {150, 45}});
    addWidths("least width 0", {{0, true, 0.1}, {0, true, 0.0}}, 20, {{2, 0}, {2, 0}, {3, 0}});
    addWidths("vast fixed column", {{100'000, false, 0.0}, {30, true, 0.5}}, 400,
        {{100'000, 30}, {125'000, 37}, {150'000, 45}});
    addWidths("narrower than the style's least", {{5, true, 0.1}}, 80, {{8}, {10}, {12}});
}

void TableWidthsTest::sharesTheFreeWidth()
{
    QFETCH(QVector<Column>, columns);
    QFETCH(int, width);
    QFETCH(Sizes, sizes);
    VemoTableWidget widget(columnsOf(columns), nullptr);
    widget.slotTableResized({scaled(width), 100});
    const QList<int> found = sectionSizes(widget);
    QCOMPARE(found, sizes.at(factorIndex()));
    for (int section = 0; section < found.size(); ++section)
        QCOMPARE(widget.getTable()->columnWidth(section), found.at(section));
}

void TableWidthsTest::truncatesOnceBeforeAndOnceAfterTheShare()
{
    VemoTableWidget widget(columnsOf({{33, false, 0.0}, {1, true, 0.3}}), nullptr);
    widget.slotTableResized({500, 100});
    // Of 467, 458 and 450 pixels.
    QCOMPARE(widget.getHeader()->sectionSize(1), QList<int>({140, 137, 135}).at(factorIndex()));
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
