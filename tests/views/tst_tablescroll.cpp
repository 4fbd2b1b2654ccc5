// SPDX-License-Identifier: MIT
#include <vemo/vemotablewidget.h>

#include "core/scaling_p.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <QHeaderView>
#include <QScrollArea>
#include <QScrollBar>

namespace {

/// A visible table whose columns do not fit.
struct Table
{
    explicit Table(int columnWidth = 100)
    {
        VemoTableColumnsInfo columns;
        for (int column = 0; column < 6; ++column)
            columns.addColumn(QString::number(column), columnWidth, true, 0.0);
        widget = std::make_unique<VemoTableWidget>(columns, &window);
        window.resize(scaled(400), scaled(200));
        widget->resize(scaled(300), scaled(200));
        window.show();
        QCoreApplication::processEvents();
        header = widget->getHeader();
        table = widget->getTable();
        bar = table->horizontalScrollBar();
    }
    /// The distance between the label of a column and its cells.
    int apart(int column) const
    {
        const int label =
            header->mapTo(widget.get(), QPoint()).x() + header->sectionViewportPosition(column);
        const int cells = table->viewport()->mapTo(widget.get(), QPoint()).x()
            + table->columnViewportPosition(column);
        return label - cells;
    }
    QWidget *headerArea() const { return widget->findChild<QScrollArea *>()->viewport(); }

    QWidget window;
    std::unique_ptr<VemoTableWidget> widget;
    QHeaderView *header = nullptr;
    QTableWidget *table = nullptr;
    QScrollBar *bar = nullptr;
};

/// One step of a wheel, or one event of a two-finger swipe, which the window system reports in
/// pixels as well. Sent as by the window system: ignored events are propagated to the parents.
void scroll(QWidget *widget, const QPoint &pixels, const QPoint &angle, Qt::ScrollPhase phase)
{
    const QPoint centre(5, widget->height() / 2);
    QWindow *window = widget->window()->windowHandle();
    const QPointF local = widget->mapTo(widget->window(), centre);
    QWheelEvent event(local, window->mapToGlobal(local.toPoint()), pixels, angle, Qt::NoButton,
        Qt::NoModifier, phase, false);
    // Qt only propagates events from the window system to a widget's parents.
    QSpontaneKeyEvent::setSpontaneous(&event);
    qApp->notify(window, &event);
}

} // namespace

class TableScrollTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { startDefaultTheme(); }
    void scrollsTheTableWithItsHeader_data();
    void scrollsTheTableWithItsHeader();
    void stopsTheHeaderWhereTheTableStops();
    void staysInStepWhenResized();
    void scrollsBeyondTheEndOfTheHeader();
};

void TableScrollTest::scrollsTheTableWithItsHeader_data()
{
    QTest::addColumn<QPoint>("pixels");
    QTest::addColumn<QPoint>("angle");
    QTest::addColumn<Qt::LayoutDirection>("direction");
    const QPoint none;
    QTest::newRow("wheel") << none << QPoint(-120, 0) << Qt::LeftToRight;
    QTest::newRow("touchpad") << QPoint(-30, 0) << QPoint(-60, 0) << Qt::LeftToRight;
    QTest::newRow("touchpad, a bit downwards")
        << QPoint(-30, -4) << QPoint(-60, -8) << Qt::LeftToRight;
    QTest::newRow("wheel, right to left") << none << QPoint(-120, 0) << Qt::RightToLeft;
}

void TableScrollTest::scrollsTheTableWithItsHeader()
{
    QFETCH(QPoint, pixels);
    QFETCH(QPoint, angle);
    QFETCH(Qt::LayoutDirection, direction);
    Table table;
    table.window.setLayoutDirection(direction);
    QCoreApplication::processEvents();
    QCOMPARE(table.apart(0), 0);
    QCOMPARE(
        table.header->mapTo(table.widget.get(), QPoint()).x() == 0, direction == Qt::LeftToRight);
    const Qt::ScrollPhase phase = pixels.isNull() ? Qt::NoScrollPhase : Qt::ScrollUpdate;
    const int before = table.bar->value();
    for (int step = 0; step < 3; ++step) {
        scroll(table.headerArea(), pixels, angle, phase);
        QCOMPARE(table.apart(0), 0);
    }
    QVERIFY(table.bar->value() != before);
    scroll(table.table->viewport(), pixels, angle, phase);
    QCOMPARE(table.apart(0), 0);
    scroll(table.headerArea(), -pixels, -angle, phase);
    QCOMPARE(table.apart(0), 0);
}

void TableScrollTest::stopsTheHeaderWhereTheTableStops()
{
    Table table;
    for (int step = 0; step < 40; ++step)
        scroll(table.headerArea(), {}, {-120, 0}, Qt::NoScrollPhase);
    QCOMPARE(table.bar->value(), table.bar->maximum());
    QCOMPARE(table.apart(5), 0);
}

void TableScrollTest::staysInStepWhenResized()
{
    Table table;
    for (int step = 0; step < 40; ++step)
        scroll(table.headerArea(), {}, {-120, 0}, Qt::NoScrollPhase);
    for (const int width : {350, 700, 250}) {
        table.widget->resize(scaled(width), scaled(200));
        QCoreApplication::processEvents();
        QCOMPARE(table.apart(0), 0);
    }
}

void TableScrollTest::scrollsBeyondTheEndOfTheHeader()
{
    Table table(10'000);
    const int beyond = scaled(30'000);
    table.bar->setValue(beyond);
    QCOMPARE(table.bar->value(), beyond);
    table.widget->resize(scaled(320), scaled(200));
    QCoreApplication::processEvents();
    QCOMPARE(table.bar->value(), beyond);
    table.bar->setValue(scaled(50));
    QCOMPARE(table.apart(0), 0);
}

VEMO_TEST_MAIN(TableScrollTest)
#include "tst_tablescroll.moc"
