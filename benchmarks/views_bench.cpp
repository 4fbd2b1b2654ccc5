// SPDX-License-Identifier: MIT
#include "benchmarks/families.h"
#include "benchmarks/fixture.h"
#include "benchmarks/harness.h"

#include <vemo/dpiinfo.h>
#include <vemo/filesystemtreewidgetitem.h>
#include <vemo/imagemanager.h>
#include <vemo/stylemanager.h>
#include <vemo/vemobutton.h>
#include <vemo/vemobuttonpath.h>
#include <vemo/vemoiconbutton.h>
#include <vemo/vemopagingbar.h>
#include <vemo/vemopagingmodel.h>
#include <vemo/vemosidebar.h>
#include <vemo/vemotableview.h>
#include <vemo/vemotablewidget.h>
#include <vemo/vemotreewidget.h>

#include <QAbstractTableModel>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QToolButton>
#include <QWindow>

#include <malloc.h>

namespace {

/// Processes delayed work such as the layout of a table, and painting.
void process()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}

/// Windows are not painted before they are exposed, and a window manager may delay that.
void waitUntilExposed(const QWidget &window)
{
    const QDeadlineTimer deadline(5000);
    while (!window.windowHandle()->isExposed() && !deadline.hasExpired())
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
    process();
}

// Tables

constexpr int kFillRows = 10'000;
constexpr int kFillColumns = 20;
constexpr int kResizeRows = 100;

/// The minimum width, in design pixels, is that of the stock table's sections.
VemoTableColumnsInfo equalColumns(int count)
{
    VemoTableColumnsInfo columns;
    for (int column = 0; column < count; ++column)
        columns.addColumn(QString::number(column), 28, true, 1.0 / count);
    return columns;
}

void fill(QTableWidget *table, int rows)
{
    table->setRowCount(rows);
    for (int row = 0; row < rows; ++row) {
        for (int column = 0; column < table->columnCount(); ++column)
            table->setItem(row, column, new QTableWidgetItem(QStringLiteral("cell")));
    }
}

QString tableStyle()
{
    return getStyleSheet("component.table") + getStyleSheet("component.scrollbar");
}

std::unique_ptr<QTableWidget> stockTable(int columns)
{
    auto table = std::make_unique<QTableWidget>(0, columns);
    table->setStyleSheet(tableStyle());
    table->horizontalHeader()->setStyleSheet(getStyleSheet("component.table_header"));
    table->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    table->verticalHeader()->setDefaultSectionSize(DPIinfo::scaled(28));
    table->verticalHeader()->hide();
    table->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    table->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    table->setShowGrid(false);
    return table;
}

void tableFill(bench::Case &c)
{
    bench::useTheme();
    c.goal(1.05, 0.95);
    c.once();
    c.items(kFillRows * kFillColumns);
    c.resultsDiffer(); // The header looks different.
    c.reference(QStringLiteral("QTableWidget"), []() -> std::unique_ptr<QWidget> {
        auto table = stockTable(kFillColumns);
        fill(table.get(), kFillRows);
        return table;
    });
    c.ours([]() -> std::unique_ptr<QWidget> {
        auto widget = std::make_unique<VemoTableWidget>(equalColumns(kFillColumns), nullptr);
        fill(widget->getTable(), kFillRows);
        return widget;
    });
}

/// Between two widths in turn, laid out and painted each time.
template <typename Widget> int resized(Widget &widget)
{
    const int width = widget.width() == 900 ? 700 : 900;
    widget.resize(width, 500);
    process();
    return widget.height();
}

bench::Cases::Setup tableResize(int columns)
{
    return [columns](bench::Case &c) {
        bench::useTheme();
        const std::shared_ptr<QTableWidget> stock = stockTable(columns);
        const auto ours = std::make_shared<VemoTableWidget>(equalColumns(columns), nullptr);
        fill(stock.get(), kResizeRows);
        fill(ours->getTable(), kResizeRows);
        stock->show();
        ours->show();
        c.goal(columns == 5 ? 1.10 : 1.05, 0.95);
        c.reference(QStringLiteral("QTableWidget, Stretch"), [stock] { return resized(*stock); });
        c.ours([ours] { return resized(*ours); });
    };
}

// A table over a model

constexpr int kModelRows = 1'000'000;
constexpr int kModelColumns = 5;
constexpr int kModelStep = 700; // pixels per frame, about a page

class Cells : public QAbstractTableModel
{
public:
    int rowCount(const QModelIndex & /*parent*/ = {}) const override { return kModelRows; }
    int columnCount(const QModelIndex & /*parent*/ = {}) const override { return kModelColumns; }
    QVariant data(const QModelIndex &index, int role) const override
    {
        return role == Qt::DisplayRole ? QVariant(QString::number(index.row())) : QVariant();
    }
};

std::unique_ptr<QTableView> stockView()
{
    auto view = std::make_unique<QTableView>();
    view->setStyleSheet(
        getStyleSheet("component.table_view") + getStyleSheet("component.scrollbar"));
    view->horizontalHeader()->setStyleSheet(getStyleSheet("component.table_header"));
    view->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    view->verticalHeader()->setDefaultSectionSize(DPIinfo::scaled(28));
    view->verticalHeader()->hide();
    view->setSelectionBehavior(QAbstractItemView::SelectRows);
    view->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    view->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    view->setShowGrid(false);
    return view;
}

void show(QWidget &widget)
{
    widget.resize(900, 700);
    widget.show();
    process();
}

void modelFill(bench::Case &c)
{
    bench::useTheme();
    const auto cells = std::make_shared<Cells>();
    const std::shared_ptr<QTableView> stock = stockView();
    const auto ours = std::make_shared<VemoTableView>(equalColumns(kModelColumns));
    show(*stock);
    show(*ours);
    const auto filled = [cells](auto &table) {
        table.setModel(cells.get());
        process();
        return table.model()->rowCount();
    };
    const auto emptied = [](auto &table) {
        table.setModel(nullptr);
        process();
    };
    c.goal(1.1, 1.0);
    c.reference(
        QStringLiteral("QTableView"), [=] { return filled(*stock); }, [=] { emptied(*stock); });
    c.ours([=] { return filled(*ours); }, [=] { emptied(*ours); });
}

/// One frame further down, or from the start again.
int scrolled(QTableView &view)
{
    QScrollBar *bar = view.verticalScrollBar();
    bar->setValue(bar->value() == bar->maximum() ? 0 : bar->value() + kModelStep);
    process();
    return view.width() > 0;
}

void modelScroll(bench::Case &c)
{
    bench::useTheme();
    const auto cells = std::make_shared<Cells>();
    const std::shared_ptr<QTableView> stock = stockView();
    const auto ours = std::make_shared<VemoTableView>(equalColumns(kModelColumns));
    stock->setModel(cells.get());
    ours->setModel(cells.get());
    show(*stock);
    show(*ours);
    c.goal(1.1, 1.0);
    // The views are deleted before their model.
    c.reference(QStringLiteral("QTableView"), [cells, stock] { return scrolled(*stock); });
    c.ours([cells, ours] { return scrolled(*ours->getView()); });
}

// Trees

constexpr int kTreeItems = 100'000;
constexpr int kTreeGroup = 100;
constexpr int kScrollItems = 10'000;

QString nameOf(int number)
{
    return QString::number(qint64(number) * 7919 % 1'000'003);
}

template <typename Item> Item *newItem(int number)
{
    auto *item = new Item;
    item->setText(0, nameOf(number));
    item->setText(1, nameOf(number * 31 + 7));
    return item;
}

/// Folders of a hundred items each.
template <typename Item> std::unique_ptr<QTreeWidget> filled(std::unique_ptr<QTreeWidget> tree)
{
    tree->setColumnCount(2);
    tree->setUniformRowHeights(true);
    QList<QTreeWidgetItem *> folders;
    for (int i = 0; i < kTreeItems / kTreeGroup; ++i) {
        auto *folder = newItem<Item>(i);
        for (int j = 1; j < kTreeGroup; ++j)
            folder->addChild(newItem<Item>(i * kTreeGroup + j));
        folders << folder;
    }
    tree->addTopLevelItems(folders);
    return tree;
}

std::unique_ptr<QTreeWidget> stockTree()
{
    return filled<QTreeWidgetItem>(std::make_unique<QTreeWidget>());
}

std::unique_ptr<QTreeWidget> ourTree()
{
    return filled<FileSystemTreeWidgetItem>(std::make_unique<VemoTreeWidget>());
}

void treeBuild(bench::Case &c)
{
    bench::useTheme();
    c.goal(1.05);
    c.once();
    c.items(kTreeItems);
    c.resultsDiffer(); // Ours highlights the row under the pointer.
    c.reference(
        QStringLiteral("QTreeWidget"), []() -> std::unique_ptr<QWidget> { return stockTree(); });
    c.ours([]() -> std::unique_ptr<QWidget> { return ourTree(); });
}

using Step = void (*)(QTreeWidget &tree);

/// A step that is repeated on a tree; undo restores the tree, unmeasured. Both trees are allocated
/// contiguously, because the position of items in memory affects the time to iterate over them.
bench::Cases::Setup treeStep(Step step, Step undo)
{
    return [step, undo](bench::Case &c) {
        bench::useTheme();
        malloc_trim(0);
        const std::shared_ptr<QTreeWidget> stock = stockTree();
        const std::shared_ptr<QTreeWidget> ours = ourTree();
        const auto done = [step](QTreeWidget &tree) {
            step(tree);
            return tree.topLevelItem(0)->text(0);
        };
        c.goal(1.05);
        c.items(kTreeItems);
        c.reference(
            QStringLiteral("QTreeWidget"), [=] { return done(*stock); }, [=] { undo(*stock); });
        c.ours([=] { return done(*ours); }, [=] { undo(*ours); });
    };
}

void sortByName(QTreeWidget &tree)
{
    tree.sortItems(0, Qt::AscendingOrder);
}

void sortByOther(QTreeWidget &tree)
{
    tree.sortItems(1, Qt::AscendingOrder);
}

void expand(QTreeWidget &tree)
{
    tree.expandAll();
}

void collapse(QTreeWidget &tree)
{
    tree.collapseAll();
}

/// One item above all others, each with a check box.
template <typename Tree> std::shared_ptr<Tree> checkTree()
{
    auto tree = std::make_shared<Tree>();
    auto *root = newItem<QTreeWidgetItem>(0);
    root->setCheckState(0, Qt::Unchecked);
    for (int i = 0; i < kTreeItems / kTreeGroup; ++i) {
        auto *folder = newItem<QTreeWidgetItem>(i);
        folder->setCheckState(0, Qt::Unchecked);
        root->addChild(folder);
        for (int j = 1; j < kTreeGroup; ++j) {
            folder->addChild(newItem<QTreeWidgetItem>(i * kTreeGroup + j));
            folder->child(j - 1)->setCheckState(0, Qt::Unchecked);
        }
    }
    tree->addTopLevelItem(root);
    root->setExpanded(true);
    show(*tree);
    return tree;
}

void checkBelow(QTreeWidgetItem *item, Qt::CheckState state)
{
    for (int i = 0; i < item->childCount(); ++i) {
        item->child(i)->setCheckState(0, state);
        checkBelow(item->child(i), state);
    }
}

int checkedItems(const QTreeWidgetItem &root)
{
    int count = 0;
    for (int i = 0; i < root.childCount(); ++i)
        count += root.child(i)->child(7)->checkState(0) == Qt::Checked;
    return count;
}

void treeCheck(bench::Case &c)
{
    bench::useTheme();
    const auto stock = checkTree<QTreeWidget>();
    QObject::connect(
        stock.get(), &QTreeWidget::itemChanged, stock.get(), [stock = stock.get()](auto *item) {
            const QSignalBlocker silence(stock);
            checkBelow(item, item->checkState(0));
        });
    const auto bare = checkTree<QTreeWidget>();
    const auto ours = checkTree<VemoTreeWidget>();
    ours->setCheckPropagation(true);
    const auto set = [](QTreeWidget &tree, Qt::CheckState state) {
        tree.topLevelItem(0)->setCheckState(0, state);
        return checkedItems(*tree.topLevelItem(0));
    };
    const auto setBare = [bare](Qt::CheckState state) {
        const QSignalBlocker silence(bare->model());
        checkBelow(bare->topLevelItem(0), state);
        return checkedItems(*bare->topLevelItem(0));
    };
    c.goal(0.5);
    c.goalOfLimit(3.0);
    c.items(kTreeItems);
    c.reference(
        QStringLiteral("QTreeWidget, recursive slot"), [=] { return set(*stock, Qt::Checked); },
        [=] { set(*stock, Qt::Unchecked); });
    c.limit(
        QStringLiteral("model silent"), [=] { return setBare(Qt::Checked); },
        [=] { setBare(Qt::Unchecked); });
    c.ours([=] { return set(*ours, Qt::Checked); }, [=] { set(*ours, Qt::Unchecked); });
}

/// What a host would write: whether item or one below it contains text.
bool hideOthers(QTreeWidgetItem *item, const QString &text)
{
    bool isBelow = false;
    for (int i = 0; i < item->childCount(); ++i)
        isBelow |= hideOthers(item->child(i), text);
    const bool isVisible = isBelow || item->text(0).contains(text, Qt::CaseInsensitive);
    item->setHidden(!isVisible);
    if (isBelow)
        item->setExpanded(true);
    return isVisible;
}

void showAll(QTreeWidgetItem *item)
{
    item->setHidden(false);
    for (int i = 0; i < item->childCount(); ++i)
        showAll(item->child(i));
}

void filterByHand(QTreeWidget &tree, const QString &text)
{
    for (int i = 0; i < tree.topLevelItemCount(); ++i)
        hideOthers(tree.topLevelItem(i), text);
}

int visibleFolders(const QTreeWidget &tree)
{
    int count = 0;
    for (int i = 0; i < tree.topLevelItemCount(); ++i)
        count += !tree.topLevelItem(i)->isHidden();
    return count;
}

bench::Cases::Setup treeFilter(const QString &text)
{
    return [text](bench::Case &c) {
        bench::useTheme();
        const std::shared_ptr<QTreeWidget> stock = stockTree();
        const auto ours =
            std::shared_ptr<VemoTreeWidget>(static_cast<VemoTreeWidget *>(ourTree().release()));
        // Broad matches hide nearly all items one by one, as by hand, and remember which.
        c.goal(text.size() < 4 ? 1.5 : 0.6);
        c.items(kTreeItems);
        c.reference(
            QStringLiteral("QTreeWidget, hidden by hand"),
            [=] {
                filterByHand(*stock, text);
                return visibleFolders(*stock);
            },
            [=] {
                for (int i = 0; i < stock->topLevelItemCount(); ++i)
                    showAll(stock->topLevelItem(i));
                stock->collapseAll();
            });
        c.ours(
            [=] {
                ours->setFilterText(text);
                return visibleFolders(*ours);
            },
            [=] { ours->clearFilter(); });
    };
}

/// A flat tree, shown, with so many selected rows apart from each other.
template <typename Tree, typename Item>
std::shared_ptr<QTreeWidget> scrollTree(int ranges, const QString &style)
{
    auto tree = std::make_shared<Tree>();
    tree->setStyleSheet(style);
    tree->setHeaderHidden(true);
    tree->setUniformRowHeights(true);
    tree->setSelectionMode(QAbstractItemView::MultiSelection);
    tree->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    QList<QTreeWidgetItem *> items;
    for (int i = 0; i < kScrollItems; ++i) {
        items << new Item;
        items.last()->setText(0, nameOf(i));
    }
    tree->addTopLevelItems(items);
    for (int i = 0; i < ranges; ++i)
        items.at(i * (kScrollItems / ranges))->setSelected(true);
    tree->resize(400, 600);
    tree->show();
    waitUntilExposed(*tree);
    return tree;
}

/// One frame of a scroll through the rows.
int scrolled(QTreeWidget &tree)
{
    QScrollBar *bar = tree.verticalScrollBar();
    bar->setValue(bar->value() + 37 < bar->maximum() ? bar->value() + 37 : 0);
    tree.viewport()->repaint();
    return tree.topLevelItemCount();
}

bench::Cases::Setup treeScroll(int ranges)
{
    return [ranges](bench::Case &c) {
        bench::useTheme();
        const QString style = getStyleSheet("component.tree");
        // A stock tree paints its selection itself.
        QString stockStyle = style;
        stockStyle.replace(QLatin1String("selection-background-color: transparent"),
            QLatin1String("selection-background-color: #DCEBFB"));
        const auto stock = scrollTree<QTreeWidget, QTreeWidgetItem>(ranges, stockStyle);
        const auto ours = scrollTree<VemoTreeWidget, FileSystemTreeWidgetItem>(ranges, style);
        c.check([=] { return stockStyle != style; });
        static_cast<VemoTreeWidget &>(*ours).setBackgroundColor(
            QColor("#DCEBFB"), QColor("#EEF3F8"));
        c.goal(ranges == 1000 ? 1.25 : 1.10, 1.06);
        c.goalOnX11(1.2);
        c.reference(QStringLiteral("QTreeWidget"), [stock] { return scrolled(*stock); });
        c.ours([ours] { return scrolled(*ours); });
    };
}

// Path

QStringList pathParts(int count)
{
    QStringList parts;
    for (int part = 0; part < count; ++part)
        parts << QStringLiteral("Folder %1").arg(part);
    return parts;
}

/// A row of buttons in a window, recreated from a path.
class ButtonRow
{
public:
    explicit ButtonRow(bool isStyled)
        : m_name_style(isStyled ? getStyleSheet("component.button_path_name_button") : QString()),
          m_arrow_style(isStyled ? getStyleSheet("component.button_path_arrow") : QString())
    {
        m_window.resize(900, DPIinfo::scaled(28));
        m_window.show();
        process();
    }

    int refresh(const QStringList &parts)
    {
        delete m_row;
        m_row = new QWidget(&m_window);
        auto *layout = new QHBoxLayout(m_row);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        const QIcon arrow(getGlobalImage("bt_next"));
        for (const QString &part : parts) {
            if (layout->count() > 0) {
                auto *button = newButton(m_arrow_style);
                button->setIcon(arrow);
                button->setFixedSize(DPIinfo::scaled(6), DPIinfo::scaled(28));
                layout->addWidget(button);
            }
            auto *button = newButton(m_name_style);
            button->setText(part);
            button->setFixedHeight(DPIinfo::scaled(26));
            button->setFixedWidth(
                DPIinfo::scaled(button->fontMetrics().boundingRect(part).width() + 16));
            layout->addWidget(button);
        }
        m_row->adjustSize();
        m_row->show();
        process();
        return layout->count();
    }

private:
    static QPushButton *newButton(const QString &style)
    {
        auto *button = new QPushButton;
        button->setFlat(true);
        button->setStyleSheet(style);
        return button;
    }

    QWidget m_window;
    QWidget *m_row = nullptr;
    QString m_name_style;
    QString m_arrow_style;
};

bench::Cases::Setup pathRefresh(int depth)
{
    return [depth](bench::Case &c) {
        bench::useTheme();
        const QStringList parts = pathParts(depth);
        const auto stock = std::make_shared<ButtonRow>(true);
        const auto bare = std::make_shared<ButtonRow>(false);
        const auto ours = std::make_shared<VemoButtonPath>();
        ours->resize(900, ours->height());
        ours->show();
        process();
        c.goal(depth == 5 ? 0.85 : 0.75, 0.5);
        c.reference(
            QStringLiteral("button row, sheet each"), [=] { return stock->refresh(parts); });
        c.limit(QStringLiteral("no sheet"), [=] { return bare->refresh(parts); });
        c.ours([=] {
            ours->refresh(parts.join(QLatin1Char('/')));
            process();
            return ours->columnCount();
        });
    };
}

// Paging

constexpr int kPages = 1000;
constexpr int kNavigation = 4;
constexpr int kNumbers = 5;

/// Keeps the keyboard focus away from the buttons, because its ring takes longer to draw.
void showBar(QWidget &bar)
{
    bar.resize(700, DPIinfo::scaled(32));
    bar.setFocusPolicy(Qt::StrongFocus);
    bar.show();
    process();
    bar.setFocus();
}

/// What a host would build from stock buttons, on a bar with the same style.
class StockPaging
{
public:
    StockPaging()
    {
        auto *bar = new QWidget;
        bar->setObjectName(QStringLiteral("PAGINGBARBORDER"));
        bar->setStyleSheet(getStyleSheet("component.paging_bar_border"));
        auto *windowLayout = new QHBoxLayout(&m_window);
        windowLayout->setContentsMargins(0, 0, 0, 0);
        windowLayout->addWidget(bar);
        auto *layout = new QHBoxLayout(bar);
        layout->setContentsMargins(0, 0, 0, 0);
        for (int i = 0; i < kNavigation; ++i) {
            m_navigation[i] = new QToolButton;
            m_navigation[i]->setIcon(getGlobalImage("bt_pagebar_next"));
            m_navigation[i]->setStyleSheet(getStyleSheet("component.icon_button"));
            layout->addWidget(m_navigation[i]);
        }
        for (int i = 0; i < kNumbers; ++i) {
            m_numbers[i] = new QPushButton;
            m_numbers[i]->setFlat(true);
            m_numbers[i]->setFixedHeight(DPIinfo::scaled(24));
            m_numbers[i]->setMinimumWidth(DPIinfo::scaled(24));
            m_numbers[i]->setStyleSheet(getStyleSheet(
                i == 2 ? "component.select_paging_button" : "component.nonselect_paging_button"));
            layout->addWidget(m_numbers[i]);
        }
        layout->addStretch();
        showBar(m_window);
    }

    int setPage(int page)
    {
        for (int i = 0; i < kNumbers; ++i) {
            const int number = page - 2 + i;
            const bool exists = number > 0 && number <= kPages;
            m_numbers[i]->setText(exists ? QString::number(number) : QStringLiteral(" "));
            m_numbers[i]->setEnabled(exists);
        }
        for (int i = 0; i < kNavigation; ++i)
            m_navigation[i]->setEnabled(i < 2 ? page != 1 : page < kPages);
        process();
        return page;
    }

private:
    QWidget m_window;
    QToolButton *m_navigation[kNavigation] = {};
    QPushButton *m_numbers[kNumbers] = {};
};

struct OurPaging
{
    VemoPagingModel model {10, nullptr};
    VemoPagingBar bar {&model, nullptr};

    OurPaging() { showBar(bar); }
    int setPage(int page)
    {
        model.setNowPage(page);
        bar.setItemCount(10 * kPages);
        process();
        return model.nowPage();
    }
};

void pagingSet(bench::Case &c)
{
    bench::useTheme();
    const auto stock = std::make_shared<StockPaging>();
    const auto ours = std::make_shared<OurPaging>();
    const auto stockPage = std::make_shared<int>(0);
    const auto ourPage = std::make_shared<int>(0);
    c.goal(1.1, 1.0);
    c.reference(QStringLiteral("9 styled stock buttons, on a styled bar"),
        [=] { return stock->setPage(*stockPage = *stockPage % kPages + 1); });
    c.ours([=] { return ours->setPage(*ourPage = *ourPage % kPages + 1); });
}

// The pages of a window

constexpr int kPagesOfWindow = 12;

/// A list of pages and the pages, of which the next one is shown and painted.
template <typename List> struct PagesWindow
{
    QWidget window;
    List *list = new List;
    QStackedWidget *stack = new QStackedWidget;

    PagesWindow()
    {
        auto *row = new QHBoxLayout(&window);
        row->addWidget(list);
        row->addWidget(stack);
        for (int i = 0; i < kPagesOfWindow; ++i)
            stack->addWidget(new QWidget);
        window.resize(500, 500);
    }
    void show()
    {
        window.show();
        waitUntilExposed(window);
    }
};

struct StockPages : PagesWindow<QListWidget>
{
    StockPages()
    {
        list->setStyleSheet(
            getStyleSheet("component.side_bar") + getStyleSheet("component.scrollbar"));
        for (int i = 0; i < kPagesOfWindow; ++i)
            new QListWidgetItem(
                getGlobalIcon("bt_settings"), QStringLiteral("Page %1").arg(i), list);
        QObject::connect(
            list, &QListWidget::currentRowChanged, stack, &QStackedWidget::setCurrentIndex);
        show();
    }
    int next()
    {
        list->setCurrentRow((list->currentRow() + 1) % kPagesOfWindow);
        process();
        return stack->currentIndex();
    }
};

struct OurPages : PagesWindow<VemoSideBar>
{
    OurPages()
    {
        for (int i = 0; i < kPagesOfWindow; ++i)
            list->addPage(QStringLiteral("Page %1").arg(i), QStringLiteral("bt_settings"));
        list->setStack(stack);
        show();
    }
    int next()
    {
        list->setCurrentIndex((list->currentIndex() + 1) % kPagesOfWindow);
        process();
        return stack->currentIndex();
    }
};

void sideChoose(bench::Case &c)
{
    bench::useTheme();
    const auto stock = std::make_shared<StockPages>();
    const auto ours = std::make_shared<OurPages>();
    c.goal(1.25);
    c.reference(
        QStringLiteral("QListWidget and QStackedWidget"), [stock] { return stock->next(); });
    c.ours([ours] { return ours->next(); });
}

} // namespace

void bench::viewsCases(Cases &cases)
{
    cases.add(QStringLiteral("table.fill"), tableFill);
    for (const int columns : {5, 20, 80})
        cases.add(QStringLiteral("table.resize/%1").arg(columns), tableResize(columns));
    cases.add(QStringLiteral("model.fill"), modelFill);
    cases.add(QStringLiteral("model.scroll"), modelScroll);
    cases.add(QStringLiteral("tree.build"), treeBuild);
    cases.add(QStringLiteral("tree.sort"), treeStep(sortByName, sortByOther));
    cases.add(QStringLiteral("tree.expand"), treeStep(expand, collapse));
    cases.add(QStringLiteral("tree.check"), treeCheck);
    for (const char *text : {"77", "7707"})
        cases.add(QStringLiteral("tree.filter/%1").arg(text), treeFilter(text));
    for (const int ranges : {0, 100, 1000})
        cases.add(QStringLiteral("tree.scroll/%1 ranges").arg(ranges), treeScroll(ranges));
    for (const int depth : {5, 50, 500})
        cases.add(QStringLiteral("path.refresh/%1").arg(depth), pathRefresh(depth));
    cases.add(QStringLiteral("paging.set/painted"), pagingSet);
    cases.add(QStringLiteral("side.choose/painted"), sideChoose);
}
