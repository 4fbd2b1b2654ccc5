// SPDX-License-Identifier: MIT
#include <vemo/vemotableview.h>

#include "core/scaling_p.h"
#include "support/activewindow.h"
#include "support/realkeys.h"
#include "support/testhost.h"
#include "support/vemotest.h"

#include <vemo/vemotablewidget.h>

#include <QAbstractTableModel>
#include <QAccessible>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QScrollBar>

#include <functional>

namespace {

constexpr int kManyRows = 1'000'000;

/// "0.1" is the cell in the row 0 and the column 1.
class Numbers : public QAbstractTableModel
{
public:
    Numbers(int rows, int columns) : m_rows(rows), m_columns(columns) { }

    int rowCount(const QModelIndex & /*parent*/ = {}) const override { return m_rows; }
    int columnCount(const QModelIndex & /*parent*/ = {}) const override { return m_columns; }
    QVariant data(const QModelIndex &index, int role) const override
    {
        if (role != Qt::DisplayRole)
            return {};
        asked.insert(index.row());
        return QStringLiteral("%1.%2").arg(index.row()).arg(index.column());
    }
    QVariant headerData(int section, Qt::Orientation /*orientation*/, int role) const override
    {
        return role == Qt::DisplayRole ? QVariant(prefix + QString::number(section)) : QVariant();
    }
    void rename(const QString &text)
    {
        prefix = text;
        Q_EMIT headerDataChanged(Qt::Horizontal, 0, m_columns - 1);
    }
    void change(int rows, int columns)
    {
        beginResetModel();
        m_rows = rows;
        m_columns = columns;
        endResetModel();
    }

    QString prefix = QStringLiteral("Model ");
    mutable QSet<int> asked; ///< rows

private:
    int m_rows;
    int m_columns;
};

VemoTableColumnsInfo columnsInfo()
{
    VemoTableColumnsInfo columns;
    columns.addColumn("Name", 100, true, 1.0);
    columns.addColumn("Changed", 80, true, 0.0);
    columns.addColumn("Size", 60);
    return columns;
}

struct Rows
{
    explicit Rows(QAbstractItemModel *model)
    {
        widget.setModel(model);
        widget.resize(scaled(400), scaled(200));
        widget.show();
        QCoreApplication::processEvents();
    }
    QTableView *view() const { return widget.getView(); }
    QHeaderView *header() const { return widget.getHeader(); }
    QString label(int column) const
    {
        return header()->model()->headerData(column, Qt::Horizontal).toString();
    }
    QStringList labels() const { return {label(0), label(1), label(2), label(3)}; }
    /// Whether each column is as wide, at the place and as visible as its section.
    bool isTogether() const
    {
        const QHeaderView *columns = view()->horizontalHeader();
        for (int column = 0; column < qMin(3, columns->count()); ++column) {
            if (columns->sectionSize(column) != header()->sectionSize(column)
                || columns->visualIndex(column) != header()->visualIndex(column)
                || columns->isSectionHidden(column) != header()->isSectionHidden(column)
                || columns->sectionResizeMode(column) != header()->sectionResizeMode(column))
                return false;
        }
        return true;
    }
    /// Makes it the active window, with the focus on a cell.
    void focus(int row, int column) const
    {
        QVERIFY(showActive(view()->window()));
        view()->setFocus();
        view()->setCurrentIndex(view()->model()->index(row, column));
    }

    VemoTableView widget {columnsInfo()};
};

using Change = std::function<void(VemoAbstractTable &)>;

} // namespace
Q_DECLARE_METATYPE(Change)
Q_DECLARE_METATYPE(Qt::Key)

class VemoTableViewTest : public VemoTest
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase()
    {
        qRegisterMetaType<Qt::SortOrder>();
        startDefaultTheme();
    }
    void looksLikeATableWidget_data();
    void looksLikeATableWidget();
    void asksOnlyForVisibleRows();
    void keepsItsColumnsInAnyModel_data();
    void keepsItsColumnsInAnyModel();
    void remembersWhatIsSetWithoutAModel();
    void survivesTheEndOfItsModel();
    void showsTheLabelsOfTheModelInNamelessColumns();
    void takesOtherColumnsLater();
    void restoresItsState();
    void asksForSorting();
    void showsItsTexts();
    void assistiveToolsGetAColumnForEachCaption();
    void movesByKeyboard_data();
    void movesByKeyboard();
    void letsTabLeave();
    void keepsTheHeaderAlignedFromRightToLeft();
};

void VemoTableViewTest::looksLikeATableWidget_data()
{
    QTest::addColumn<Qt::LayoutDirection>("direction");
    QTest::addColumn<Change>("change");
    const auto hover = [](VemoAbstractTable &table) {
        const QPoint point =
            table.getView()->visualRect(table.getView()->model()->index(1, 1)).center();
        QHoverEvent event(QEvent::HoverMove, point, QPoint(-1, -1));
        QCoreApplication::sendEvent(table.getView()->viewport(), &event);
    };
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        const QByteArray suffix = direction == Qt::LeftToRight ? "" : ", right to left";
        addRow("at rest" + suffix, direction, Change([](VemoAbstractTable &) {}));
        addRow("hover" + suffix, direction, Change(hover));
        addRow("selected" + suffix, direction, Change([](VemoAbstractTable &table) {
            table.getView()->setCurrentIndex(table.getView()->model()->index(1, 0));
        }));
        addRow("disabled" + suffix, direction, Change([](VemoAbstractTable &table) {
            table.getView()->setCurrentIndex(table.getView()->model()->index(1, 0));
            table.getView()->parentWidget()->setEnabled(false);
        }));
        addRow("sorted" + suffix, direction, Change([](VemoAbstractTable &table) {
            table.setSortRequestsEnabled(true);
            table.setSortIndicator(0, Qt::DescendingOrder);
        }));
        addRow("aligned" + suffix, direction,
            Change([](VemoAbstractTable &table) { table.setColumnAlignment(2, Qt::AlignRight); }));
        addRow("hidden" + suffix, direction,
            Change([](VemoAbstractTable &table) { table.setColumnHidden(1, true); }));
    }
}

void VemoTableViewTest::looksLikeATableWidget()
{
    QFETCH(Qt::LayoutDirection, direction);
    QFETCH(Change, change);
    Numbers numbers(20, 3);
    VemoTableView view(columnsInfo());
    view.setModel(&numbers);
    VemoTableWidget widget(columnsInfo());
    QTableWidget *table = widget.getTable();
    table->setRowCount(20);
    for (int cell = 0; cell < 60; ++cell)
        table->setItem(cell / 3, cell % 3,
            new QTableWidgetItem(numbers.index(cell / 3, cell % 3).data().toString()));
    const auto picture = [&](auto &table) {
        // No pointer, focus or window manager of a screen.
        table.setAttribute(Qt::WA_DontShowOnScreen);
        table.getView()->setFocusPolicy(Qt::NoFocus);
        table.setLayoutDirection(direction);
        table.resize(scaled(400), scaled(200));
        table.show();
        QCoreApplication::processEvents();
        const QImage before = table.grab().toImage();
        change(table);
        QCoreApplication::processEvents();
        const QImage after = table.grab().toImage();
        // Each state is visible.
        return QPair<QImage, bool>(after, after != before);
    };
    const auto expected = picture(widget);
    const auto actual = picture(view);
    QCOMPARE(actual, expected);
    QCOMPARE(actual.second, !QByteArray(QTest::currentDataTag()).startsWith("at rest"));
}

void VemoTableViewTest::asksOnlyForVisibleRows()
{
    Numbers numbers(kManyRows, 3);
    const Rows rows(&numbers);
    rows.widget.findChild<QTableView *>()->scrollToBottom();
    QTRY_VERIFY(numbers.asked.contains(kManyRows - 1));
    QVERIFY2(numbers.asked.size() < 100, qPrintable(QString::number(numbers.asked.size())));
    QCOMPARE(rows.view()->rowAt(rows.view()->viewport()->height() - 1), kManyRows - 1);
    QVERIFY(rows.view()->verticalScrollBar()->isVisible());
}

void VemoTableViewTest::keepsItsColumnsInAnyModel_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<int>("after");
    QTest::newRow("the same") << 3 << 3;
    QTest::newRow("more columns") << 3 << 5;
    QTest::newRow("fewer columns") << 3 << 2;
    QTest::newRow("columns come back") << 1 << 3;
    QTest::newRow("columns come later") << 0 << 3;
    QTest::newRow("columns go") << 4 << 0;
}

void VemoTableViewTest::keepsItsColumnsInAnyModel()
{
    QFETCH(int, before);
    QFETCH(int, after);
    Numbers numbers(5, before);
    Rows rows(&numbers);
    QVERIFY(rows.isTogether());
    rows.header()->resizeSection(1, scaled(90));
    numbers.change(7, after);
    QCOMPARE(rows.view()->horizontalHeader()->count(), after);
    QCOMPARE(rows.header()->count(), 4);
    QCOMPARE(rows.header()->sectionSize(1), scaled(90));
    QVERIFY(rows.isTogether());
    for (int column = 3; column < after; ++column)
        QVERIFY(rows.view()->isColumnHidden(column));
    rows.widget.resize(scaled(500), scaled(200));
    QVERIFY(rows.isTogether());

    Numbers other(3, 3);
    rows.widget.setModel(&other);
    QCOMPARE(rows.widget.model(), &other);
    QVERIFY(rows.isTogether());
    QCOMPARE(rows.view()->columnWidth(2), scaled(60));
}

void VemoTableViewTest::remembersWhatIsSetWithoutAModel()
{
    Rows rows(nullptr);
    QCOMPARE(rows.widget.model(), nullptr);
    rows.widget.setColumnHidden(1, true);
    QVERIFY(rows.widget.isColumnHidden(1));
    rows.widget.setColumnHidden(7, true);
    QVERIFY(!rows.widget.isColumnHidden(7));
    rows.header()->moveSection(2, 0);
    Numbers numbers(5, 3);
    rows.widget.setModel(&numbers);
    QVERIFY(rows.view()->isColumnHidden(1));
    QCOMPARE(rows.view()->horizontalHeader()->logicalIndex(0), 2);
    QVERIFY(rows.isTogether());
    rows.view()->setColumnHidden(1, false);
    QVERIFY(!rows.widget.isColumnHidden(1));
    QVERIFY(rows.isTogether());
}

void VemoTableViewTest::survivesTheEndOfItsModel()
{
    auto numbers = std::make_unique<Numbers>(5, 3);
    Rows rows(numbers.get());
    rows.widget.setEmptyText("Nothing");
    numbers.reset();
    QCoreApplication::processEvents();
    QCOMPARE(rows.widget.model(), nullptr);
    rows.widget.resize(scaled(300), scaled(200));
    rows.widget.setColumnHidden(1, true);
    rows.widget.setModel(nullptr);
    Numbers other(5, 3);
    rows.widget.setModel(&other);
    QVERIFY(rows.isTogether());
}

void VemoTableViewTest::showsTheLabelsOfTheModelInNamelessColumns()
{
    VemoTableColumnsInfo columns;
    columns.addColumn("", 100, true, 1.0);
    columns.addColumn("Changed", 80);
    columns.addColumn("", 60);
    Numbers numbers(5, 3);
    Rows rows(&numbers);
    QCOMPARE(rows.labels(), QStringList({"Name", "Changed", "Size", ""}));
    rows.widget.setColumns(columns);
    QCOMPARE(rows.labels(), QStringList({"Model 0", "Changed", "Model 2", ""}));
    numbers.prefix = "Reset ";
    numbers.change(5, 4);
    QCOMPARE(rows.labels(), QStringList({"Reset 0", "Changed", "Reset 2", ""}));
    numbers.rename("Spalte ");
    QCOMPARE(rows.labels(), QStringList({"Spalte 0", "Spalte 1", "Spalte 2", ""}));
    Numbers other(5, 3);
    rows.widget.setModel(&other);
    numbers.rename("Former ");
    QCOMPARE(rows.labels(), QStringList({"Model 0", "Changed", "Model 2", ""}));
}

void VemoTableViewTest::takesOtherColumnsLater()
{
    Numbers numbers(5, 5);
    Rows rows(&numbers);
    rows.widget.setColumnTexts({"A|50", "B|60", "C|70", "D|80|1"});
    QCOMPARE(rows.widget.columnTexts(), QStringList({"A|50", "B|60", "C|70", "D|80|1"}));
    QVERIFY(rows.isTogether());
    QVERIFY(!rows.view()->isColumnHidden(3));
    QCOMPARE(rows.view()->columnWidth(3), rows.header()->sectionSize(3));
    QVERIFY(rows.view()->isColumnHidden(4));
    rows.widget.setColumns(columnsInfo());
    QVERIFY(rows.view()->isColumnHidden(3));
    QVERIFY(rows.isTogether());
}

void VemoTableViewTest::restoresItsState()
{
    Numbers numbers(5, 4);
    Rows rows(&numbers);
    rows.widget.setDraggedWidthsKept(true);
    rows.header()->resizeSection(1, scaled(90));
    rows.header()->moveSection(0, 2);
    rows.widget.setColumnHidden(2, true);
    const QByteArray state = rows.widget.saveState();
    Rows other(&numbers);
    other.widget.setDraggedWidthsKept(true);
    QVERIFY(other.widget.restoreState(state));
    QCOMPARE(other.widget.saveState(), state);
    QVERIFY(other.isTogether());
    QVERIFY(other.view()->isColumnHidden(2));
    Rows early(nullptr); // before there is a model
    early.widget.setDraggedWidthsKept(true);
    QVERIFY(early.widget.restoreState(state));
    early.widget.setModel(&numbers);
    QCOMPARE(early.widget.saveState(), state);
    QVERIFY(early.isTogether());
}

void VemoTableViewTest::asksForSorting()
{
    Numbers numbers(5, 3);
    Rows rows(&numbers);
    rows.widget.setSortRequestsEnabled(true);
    const QSignalSpy requests(&rows.widget, &VemoTableView::sortRequested);
    const QPoint label(rows.header()->sectionViewportPosition(1) + 6, rows.header()->height() / 2);
    QTest::mouseClick(rows.header()->viewport(), Qt::LeftButton, {}, label);
    QCOMPARE(requests.size(), 1);
    QCOMPARE(requests[0][0].toInt(), 1);
    QCOMPARE(rows.header()->sortIndicatorSection(), 1);
}

void VemoTableViewTest::showsItsTexts()
{
    Numbers numbers(0, 3);
    Numbers others(1, 3);
    Rows rows(nullptr);
    rows.widget.setEmptyText("No rows");
    const auto *label = rows.view()->findChild<QLabel *>();
    QVERIFY(label->isVisible());
    rows.widget.setModel(&numbers);
    QVERIFY(label->isVisible());
    numbers.change(2, 3);
    QVERIFY(!label->isVisible());
    numbers.change(0, 3);
    QVERIFY(label->isVisible());
    rows.widget.setModel(&others);
    QVERIFY(!label->isVisible());
    numbers.change(0, 3);
    QVERIFY(!label->isVisible());
    rows.widget.setBusy(true);
    QVERIFY(rows.widget.isBusy());
}

void VemoTableViewTest::assistiveToolsGetAColumnForEachCaption()
{
    Numbers numbers(kManyRows, 3);
    const Rows rows(&numbers);
    rows.view()->setAccessibleName("Log");
    QAccessibleInterface *row = QAccessible::queryAccessibleInterface(rows.header());
    QCOMPARE(row->role(), QAccessible::Row);
    QCOMPARE(row->text(QAccessible::Name), QString("Log"));
    QCOMPARE(row->childCount(), 3);
    QCOMPARE(row->child(1)->text(QAccessible::Name), QString("Changed"));
    QAccessibleTableInterface *cells =
        QAccessible::queryAccessibleInterface(rows.view())->tableInterface();
    QCOMPARE(cells->rowCount(), kManyRows);
    QCOMPARE(cells->columnCount(), 3);
    QCOMPARE(cells->columnDescription(1), QString("Model 1"));
    QCOMPARE(cells->cellAt(kManyRows - 1, 2)->text(QAccessible::Name),
        QString("%1.2").arg(kManyRows - 1));
}

void VemoTableViewTest::movesByKeyboard_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<bool>("withControl");
    QTest::addColumn<int>("row");
    addRow("Down", Qt::Key_Down, false, 501);
    addRow("Up", Qt::Key_Up, false, 499);
    addRow("Ctrl+Home", Qt::Key_Home, true, 0);
    addRow("Ctrl+End", Qt::Key_End, true, kManyRows - 1);
}

void VemoTableViewTest::movesByKeyboard()
{
    QFETCH(Qt::Key, key);
    QFETCH(bool, withControl);
    QFETCH(int, row);
    Numbers numbers(kManyRows, 3);
    const Rows rows(&numbers);
    rows.focus(500, 0);
    QVERIFY(rows.view()->hasFocus());
    pressRealKey(key, withControl ? Qt::ControlModifier : Qt::NoModifier);
    QTRY_COMPARE(rows.view()->currentIndex().row(), row);
    // With the Control key, Qt moves the current row alone.
    QCOMPARE(rows.view()->selectionModel()->isRowSelected(row, {}), !withControl);
    QVERIFY(rows.view()->viewport()->rect().intersects(
        rows.view()->visualRect(rows.view()->currentIndex())));
}

void VemoTableViewTest::letsTabLeave()
{
    Numbers numbers(3, 3);
    QWidget window;
    VemoTableView table(columnsInfo(), &window);
    QLineEdit after(&window);
    table.setModel(&numbers);
    QVERIFY(showActive(&window));
    table.getView()->setFocus();
    pressRealKey(Qt::Key_Tab);
    QTRY_VERIFY(after.hasFocus());
}

void VemoTableViewTest::keepsTheHeaderAlignedFromRightToLeft()
{
    Numbers numbers(3, 3);
    Rows rows(&numbers);
    rows.widget.setLayoutDirection(Qt::RightToLeft);
    QCoreApplication::processEvents();
    for (int column = 0; column < 3; ++column) {
        const int label = rows.header()->mapTo(&rows.widget, QPoint()).x()
            + rows.header()->sectionViewportPosition(column);
        const int cells = rows.view()->viewport()->mapTo(&rows.widget, QPoint()).x()
            + rows.view()->columnViewportPosition(column);
        QCOMPARE(label, cells);
    }
}

VEMO_TEST_MAIN(VemoTableViewTest)
#include "tst_vemotableview.moc"
