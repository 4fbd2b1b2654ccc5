// SPDX-License-Identifier: MIT
#include "gallery/demotexts.h"
#include "gallery/page.h"
#include "gallery/pages/pages.h"

#include <vemo/dpiinfo.h>
#include <vemo/filetypemap.h>
#include <vemo/imagemanager.h>
#include <vemo/vemopagingbar.h>
#include <vemo/vemopagingmodel.h>
#include <vemo/vemotablewidget.h>

#include <QLocale>
#include <QVBoxLayout>

namespace {

constexpr int kItems = 10'000;
constexpr int kRows = 50;
constexpr int kListHeight = 320; // design pixels

VemoTableColumnsInfo columns()
{
    VemoTableColumnsInfo columns;
    columns.addColumn(demo("name"), 200, true, 1.0);
    columns.addColumn(demo("type"), 120, true, 0.0);
    columns.addColumn(demo("size"), 120, false, 0.0);
    return columns;
}

/// The catalogue's name of the picture for files of a type.
QString pictureOf(const QString &type)
{
    return FileTypeMap::getInstance().getFiletypeMapping(type, false).remove(".png");
}

/// A live table over made-up files, a page at a time.
class PagedList : public QWidget
{
public:
    PagedList()
    {
        auto *layout = new QVBoxLayout(this);
        layout->setContentsMargins(0, 0, 0, 0);
        layout->setSpacing(0);
        layout->addWidget(&m_table);
        layout->addWidget(&m_bar);
        setFixedHeight(DPIinfo::scaled(kListHeight));
        m_table.getTable()->setAccessibleName("Documents");
        connect(&m_bar, &VemoPagingBar::sigPageChanged, this, [this] { fill(); });
        connect(&m_bar, &VemoPagingBar::sigRefresh, this, [this] { fill(); });
        m_bar.setItemCount(kItems);
        m_bar.reset();
    }

private:
    void fill()
    {
        const int first = m_model.startItem();
        const int end = qMin(first + m_model.rowLimit(), m_model.itemCount());
        m_table.getTable()->setRowCount(end - first);
        for (int item = first; item < end; ++item)
            fillRow(item - first, item);
        m_table.getTable()->scrollToTop();
        const QLocale locale;
        m_bar.setFooterInfos({{demo("items").arg(locale.toString(kItems)), 0},
            {demo("range").arg(locale.toString(first + 1), locale.toString(end)), 120}});
    }
    void fillRow(int row, int item)
    {
        static const QStringList types {"doc", "jpg", "zip", "pdf", "mp3", "xyz"};
        const QString &type = types.at(item % types.size());
        auto *name = new QTableWidgetItem(QString("Document %1.%2").arg(item + 1).arg(type));
        name->setIcon(getGlobalIcon(pictureOf(type)));
        m_table.getTable()->setItem(row, 0, name);
        m_table.getTable()->setItem(row, 1, new QTableWidgetItem(type.toUpper()));
        m_table.getTable()->setItem(
            row, 2, new QTableWidgetItem(demoSize(item * 37 % 900 + 1, "KB")));
    }

    VemoPagingModel m_model {kRows, nullptr};
    VemoTableWidget m_table {columns(), nullptr};
    VemoPagingBar m_bar {&m_model, nullptr};
};

/// A bar with a model that goes with it.
VemoPagingBar *barAt(int page, int pageCount)
{
    auto *model = new VemoPagingModel(kRows, nullptr);
    auto *bar = new VemoPagingBar(model, nullptr);
    model->setParent(bar);
    model->setNowPage(page);
    bar->setItemCount(pageCount * kRows);
    return bar;
}

VemoPagingBar *withFooter(VemoPagingBar *bar, const std::vector<PagingFooterInfo> &infos)
{
    bar->setFooterInfos(infos);
    return bar;
}

VemoPagingBar *withoutRefresh(VemoPagingBar *bar)
{
    bar->setRefreshButtonHidden(true);
    return bar;
}

void addPositions(Page &page)
{
    page.addSection("Where the list stands", "The current page is always in the middle.");
    page.add(withFooter(barAt(1, 1), {{demo("only_page"), 0}}));
    page.add(withFooter(barAt(1, 7), {{demo("page_of_7").arg(1), 0}}));
    page.add(withFooter(barAt(4, 7), {{demo("page_of_7").arg(4), 0}}));
    page.add(withFooter(barAt(7, 7), {{demo("page_of_7").arg(7), 0}}));
    page.add(
        withFooter(barAt(19'999, 20'000), {{demo("items").arg(QLocale().toString(1'000'000)), 0}}));
    page.add(withFooter(barAt(5, 3), {{demo("beyond_last"), 0}}));
}

void addFooters(Page &page)
{
    page.addSection("Footer labels", "From right to left, each with a separator at its right.");
    page.add(withFooter(barAt(4, 7),
        {{demo("items").arg(QLocale().toString(350)), 0},
            {demo("selected").arg(QLocale().toString(3)), 140}, {demoSize(1.2, "GB"), 0}}));
    page.add(withoutRefresh(withFooter(barAt(4, 7), {{demo("no_refresh"), 0}})));
    page.add(withFooter(barAt(4, 7), {{"350 Einträge, davon 3 ausgewählt", 0}}));
    page.add(withFooter(barAt(4, 7), {{"共 350 项，已选择 3 项", 0}}));
    page.addCode(R"(bar->setFooterInfos({{"350 items", 0}, {"3 selected", 120}});
bar->setRefreshButtonHidden(true);)");
}

} // namespace

void buildPagingPage(Page &page)
{
    page.addSummary("VemoPagingBar moves through a long list; VemoPagingModel does the arithmetic "
                    "and belongs to the host.");
    page.addSection("A list of 10,000 items", "The table holds one page of it at a time.");
    page.add(new PagedList);
    page.addCode(R"(auto *bar = new VemoPagingBar(model, this); // new VemoPagingModel(50, this)
connect(bar, &VemoPagingBar::sigPageChanged, this, &MainWindow::fillTable);
bar->setItemCount(10000);
bar->reset(); // and in fillTable(): from model->startItem() on, model->rowLimit() rows)");
    addPositions(page);
    addFooters(page);
}
